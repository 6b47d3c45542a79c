#pragma once

/// Comparisons with the reference implementation, and laws that hold for any text. For tests and the fuzzer.

#include "ReferenceScanner.h"
#include "Testing.h"

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/transform_to.h>

#include <gtest/gtest.h>

#include <algorithm>

/// All results of scanning a text, by the library or the reference implementation.
using Scan = std::vector<std::string>;

template <typename Tokenizer, typename Find, typename Collect>
Scan ScanBy(const TString& text, Tokenizer tokenizer, Find find, Collect collect,
            const std::vector<TString>& fields)
{
    Scan scan{Show(collect(text)), Show(fields)};
    const auto note = [&](int result) {
        scan.push_back(Show(result) + ' ' + Show(tokenizer.GetOffset()) + ' ' +
                       Show(tokenizer.GetTokenStart()));
    };
    for (int offset = text.length(); offset >= -1; --offset) {
        const int start = tokenizer.FindNextMarkupElement(offset);
        note(tokenizer.IsTextAtOffsetSheetMarkup(offset) ? -2 : start);
        if (start >= 0)
            scan.back() += Show(tokenizer.GetContentOfCurrentMarkupElement());
    }
    const TString delimiters = Text(u"a\u3C3C\0"sv);
    for (const bool isSheetMarkup : {true, false, false, true, true}) { // includes orders that no walk has
        tokenizer.FindEndOfTokenAndUpdateStartIfNeeded(isSheetMarkup);
        note(0);
        tokenizer.FindStartOfToken();
        note(1);
        tokenizer.FindOneOfNotEscaped(delimiters);
        note(2);
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

/// The fields of a filter value, with their ranges in it.
inline std::vector<reference::Element> FieldsByReference(const TString& filterValue)
{
    return reference::FindCharRangesOfKnownMarkupElements(filterValue, [](auto&) { return true; });
}

inline std::vector<TString> NamesOf(const std::vector<reference::Element>& fields)
{
    return corvane::transform_to<std::vector<TString>>(fields, [](auto& field) { return field.second; });
}

inline Scan ScanByLibrary(const TString& text)
{
    const AttributeNamesAndValues filter({{Name(u"filter"), text}});
    return ScanBy(text, CorvaneMarkupTokenizer(text), FindCharRangesOfKnownMarkupElements,
                  CollectMarkupElements, VizInTooltipProperties(filter).GetFilterFields());
}

inline Scan ScanByReference(const TString& text)
{
    return ScanBy(text, reference::Tokenizer{text}, reference::FindCharRangesOfKnownMarkupElements,
                  reference::CollectMarkupElements, NamesOf(FieldsByReference(text)));
}

inline std::string ReadByLibrary(const TString& tooltip)
{
    return Show(GetTargetSheetNamesFromTooltipText(tooltip)) + '\n' +
           Show(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip)) + '\n' +
           Show(GetFilterFieldsFromSheetMarkupInTooltipText(tooltip));
}

inline std::string ReadByReference(const TString& tooltip)
{
    std::set<TString> names;
    std::map<TString, std::set<TString>> fieldsBySheet;
    std::vector<TString> allFields;
    for (const TString& content : reference::CollectMarkupElements(tooltip)) {
        const auto element = VizInTooltipProperties::FromMarkupText(MarkupText(content));
        const bool isValid = element && element->IsValid();
        EXPECT_EQ(Show(GetTargetSheetNameFromMarkupText(content)),
                  isValid ? Show(element->GetSheetName()) : "");
        if (!isValid)
            continue;
        const auto fields = NamesOf(FieldsByReference(element->GetFilterValue().get_value_or({})));
        names.insert(element->GetSheetName());
        if (!element->HasFilter())
            fieldsBySheet.insert({element->GetSheetName(), {Text(u"All Fields")}});
        else if (!fields.empty())
            fieldsBySheet.insert({element->GetSheetName(), {fields.begin(), fields.end()}});
        allFields.insert(allFields.begin(), fields.begin(), fields.end());
    }
    return Show(names) + '\n' + Show(fieldsBySheet) + '\n' + Show(allFields);
}

/// The canonical form reads back. Requires an attribute, and names without spaces, `=` and quotes.
inline void ExpectReadsBack(const AttributeNamesAndValues& list, const TString& elementName)
{
    const TString markup = list.ToMarkupText(elementName);
    EXPECT_EQ(Show(ParseAttributedMarkupText(MarkupText(markup), elementName)), Show(list));
    const TString phrase = markup.mid(elementName.length(), -1);
    std::vector<AttributeNameAndValue> out;
    const bool isRead = FindNameValuePairs(phrase, out);
    EXPECT_TRUE(phrase.Find(u'\0', 0) >= 0 || (isRead && Show(out) == Show(list))) << Show(phrase);
}

/// The indices of those fields, of a value that starts at `valueStart`, that the range touches.
inline std::vector<int> IndicesByReference(const std::vector<reference::Element>& fields,
                                           std::int64_t valueStart, const CorvaneCharRange& range)
{
    // Any pair of integers is a range; rebasing it onto the value wraps.
    const auto start = std::int64_t(std::uint64_t(range.start) - std::uint64_t(valueStart));
    const auto end = std::int64_t(std::uint64_t(range.end) - std::uint64_t(valueStart));
    const auto narrowedStart = static_cast<std::int32_t>(start);
    std::vector<int> indices;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto& field = fields[i].first;
        const bool startsInside = field.start < narrowedStart && narrowedStart < field.end;
        const bool isReached = start < field.start && field.start < end;
        if (startsInside || isReached || (start == field.start && end == field.end))
            indices.push_back(static_cast<int>(i));
    }
    return indices;
}

/// What an editor relies on when it inserts a field into a sheet element. Requires a `field` without brackets
/// and attribute names without quotes.
inline void ExpectLawsOfEditing(const MarkupText& text, CorvaneCharRange range, const TString& field)
{
    const TString all = Text(u"ALL");
    const auto edit = [&](const MarkupText& markup, CorvaneCharRange at) {
        return InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(markup, at, field, all);
    };
    const auto fields = FieldsByReference(
        VizInTooltipProperties::FromMarkupText(text)->GetFilterValue().get_value_or(TString()));
    const auto token = FindFilterAttributeToken(text);
    const std::int64_t valueStart = (token ? token->start : 0) + std::int64_t(std::size(u"filter="));
    const std::vector<int> indices = IndicesByReference(fields, valueStart, range);
    ASSERT_EQ(Show(GetIndexOfFiltersAtCharRange(text, range)), Show(indices)) << Show(text) << Show(range);
    const NewCursorPositionAndMarkupText edited = edit(text, range);
    const TString& newText = edited.NewMarkupText;
    SCOPED_TRACE(Show(text) + ' ' + Show(range) + " -> " + Show(edited));

    const auto element = VizInTooltipProperties::FromMarkupText(edited.NewMarkupText);
    ASSERT_TRUE(element) << "the new text is a sheet element";
    const int cursor = edited.NewCursorPosition;
    ASSERT_EQ(FindFilterAttributeToken(edited.NewMarkupText)->end, cursor);
    ASSERT_EQ(newText[cursor - 1], u'"') << "the cursor is after the closing quote";
    ASSERT_TRUE(cursor == newText.length() || newText[cursor] == u' ');

    std::vector<TString> expected = NamesOf(fields);
    // A field that starts in an interrupted sheet element may hold brackets that are protected only there.
    for (const TString& name : expected) {
        TString read;
        if (FindNextMarkupElement(SurroundWithAngleBrackets(name), 0, read) != 0 || read != name)
            return;
    }
    const auto erase = [&](const TString& erased) {
        expected.erase(std::remove(expected.begin(), expected.end(), erased), expected.end());
    };
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
        << "inserting a field twice changes nothing";
}
