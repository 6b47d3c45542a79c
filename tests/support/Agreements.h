#pragma once

/// What the library is held to on any text: the textbook, and laws of its own. For tests and the fuzzer.

#include "Testing.h"
#include "TextbookScanner.h"

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <gtest/gtest.h>

#include <algorithm>

/// All that a scan tells, in one form for the library and for the textbook.
using Scan = std::vector<std::string>;

template <typename Tokenizer, typename Find, typename Collect>
Scan ScanBy(const TString& text, Tokenizer tokenizer, Find find, Collect collect)
{
    Scan scan{Show(collect(text))};
    for (int offset = text.length(); offset >= -1; --offset) {
        const int start = tokenizer.FindNextMarkupElement(offset);
        scan.push_back(Show(start) + ' ' + Show(tokenizer.GetOffset()) + ' ' +
                       Show(tokenizer.GetTokenStart()) +
                       (start < 0 ? "" : ' ' + Show(tokenizer.GetContentOfCurrentMarkupElement())));
    }
    for (const char16_t known : {u'\0', u'?', u'a'}) { // all, none, and those with an `a`
        std::string calls;
        const auto elements = find(text, [&](const TString& content) {
            calls += Show(content) + '|';
            return known == u'\0' || content.Find(known, 0) >= 0;
        });
        scan.push_back(Show(elements) + calls);
    }
    return scan;
}

inline Scan ScanByLibrary(const TString& text)
{
    using namespace corvanemarkup;
    return ScanBy(text, CorvaneMarkupTokenizer(text), FindCharRangesOfKnownMarkupElements,
                  CollectMarkupElements);
}

inline Scan ScanByTextbook(const TString& text)
{
    using namespace textbook;
    return ScanBy(text, Tokenizer{text}, FindCharRangesOfKnownMarkupElements, CollectMarkupElements);
}

inline std::string ReadByLibrary(const TString& tooltip)
{
    using namespace corvanemarkup::VizInTooltip;
    return Show(GetTargetSheetNamesFromTooltipText(tooltip)) + '\n' +
           Show(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip)) + '\n' +
           Show(GetFilterFieldsFromSheetMarkupInTooltipText(tooltip));
}

inline std::string ReadByTextbook(const TString& tooltip)
{
    using namespace corvanemarkup;
    std::set<TString> names;
    std::map<TString, std::set<TString>> fieldsBySheet;
    std::vector<TString> allFields;
    for (const TString& content : textbook::CollectMarkupElements(tooltip)) {
        const auto element = VizInTooltipProperties::FromMarkupText(MarkupText(content));
        const bool isValid = element && element->IsValid();
        EXPECT_EQ(Show(VizInTooltip::GetTargetSheetNameFromMarkupText(content)),
                  isValid ? Show(element->GetSheetName()) : "");
        if (!isValid)
            continue;
        const auto fields = element->GetFilterFields();
        names.insert(element->GetSheetName());
        if (!element->HasFilter())
            fieldsBySheet.insert({element->GetSheetName(), {Text(u"All Fields")}});
        else if (!fields.empty())
            fieldsBySheet.insert({element->GetSheetName(), {fields.begin(), fields.end()}});
        allFields.insert(allFields.begin(), fields.begin(), fields.end());
    }
    return Show(names) + '\n' + Show(fieldsBySheet) + '\n' + Show(allFields);
}

/// What is written reads back, unless there is no attribute, or a name holds a space, a `=` or a quote.
inline void ExpectReadsBack(const corvanemarkup::AttributeNamesAndValues& list, const TString& elementName)
{
    using namespace corvanemarkup;
    const TString markup = list.ToMarkupText(elementName);
    EXPECT_EQ(Show(ParseAttributedMarkupText(MarkupText(markup), elementName)), Show(list));
    const TString phrase = markup.mid(elementName.length(), -1);
    std::vector<AttributeNameAndValue> out;
    const bool isRead = VizInTooltip::Impl::FindNameValuePairs(phrase, out);
    EXPECT_TRUE(phrase.Find(u'\0', 0) >= 0 || (isRead && Show(out) == Show(list))) << Show(phrase);
}

/// What an editor counts on when it inserts a field into a sheet element; `field` has no brackets, and no
/// attribute's name holds a quote.
inline void ExpectLawsOfEditing(const corvanemarkup::MarkupText& text, corvanemarkup::CorvaneCharRange range,
                                const TString& field)
{
    using namespace corvanemarkup;
    using namespace corvanemarkup::VizInTooltip;
    const TString all = Text(u"ALL");
    const auto edit = [&](const MarkupText& markup, CorvaneCharRange at) {
        return InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(markup, at, field, all);
    };
    const NewCursorPositionAndMarkupText edited = edit(text, range);
    const TString& newText = edited.NewMarkupText;
    SCOPED_TRACE(Show(text) + ' ' + Show(range) + " -> " + Show(edited));

    const auto element = VizInTooltipProperties::FromMarkupText(edited.NewMarkupText);
    ASSERT_TRUE(element) << "the new text is a sheet element";
    const int cursor = edited.NewCursorPosition;
    ASSERT_EQ(FindFilterAttributeToken(edited.NewMarkupText)->end, cursor);
    ASSERT_EQ(newText[cursor - 1], u'"') << "the cursor stands behind the closing quote";
    ASSERT_TRUE(cursor == newText.length() || newText[cursor] == u' ');

    std::vector<TString> expected = VizInTooltipProperties::FromMarkupText(text)->GetFilterFields();
    // A field that restarted among protecting quotes may hold brackets that nothing protects in its own text.
    for (const TString& written : expected) {
        TString read;
        if (FindNextMarkupElement(SurroundWithAngleBrackets(written), 0, read) != 0 || read != written)
            return;
    }
    const auto erase = [&](const TString& erased) {
        expected.erase(std::remove(expected.begin(), expected.end(), erased), expected.end());
    };
    const auto indices = GetIndexOfFiltersAtCharRange(text, range);
    if (!indices.empty()) {
        expected.erase(expected.begin() + indices.front(), expected.begin() + indices.back() + 1);
        expected.insert(expected.begin() + indices.front(), field);
    } else {
        erase(field);
        expected.push_back(field);
    }
    if (field == all)
        expected = {field};
    else
        erase(all);
    ASSERT_EQ(Show(element->GetFilterFields()), Show(expected));

    const auto once = edit(edited.NewMarkupText, {cursor, cursor});
    ASSERT_EQ(Show(edit(once.NewMarkupText, {cursor, cursor})), Show(once))
        << "inserted again without a selection, a field changes nothing";
}
