#include "Operations.h"

#include "Testing.h"

#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/TokenizeAttributedMarkupText.h>

#include <climits>
#include <ctime>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;
using namespace corvanemarkup::VizInTooltip::Impl;

namespace {

AttributeNamesAndValues ListOf(const TString& content)
{
    if (auto list = ParseAttributedMarkupText(MarkupText(content), Text(u"Sheet")))
        return *list;
    std::vector<AttributeNameAndValue> list;
    for (const TString& word : content.split(u' ', TString::SplitBehavior(1)))
        list.push_back({AttributeName(word), word});
    return AttributeNamesAndValues(list);
}

bool Accept(const TString&)
{
    return true;
}

bool Refuse(const TString&)
{
    return false;
}

void Walk(CorvaneMarkupTokenizer tokenizer)
{
    for (int next = 0; tokenizer.FindNextMarkupElement(next) >= 0; next = tokenizer.GetOffset() + 1)
        (void)tokenizer.GetContentOfCurrentMarkupElement();
}

template <typename Ask>
void AtEveryOffset(const TString& text, Ask ask)
{
    for (int offset = 0; offset < text.length(); ++offset)
        (void)ask(offset);
}

} // namespace

Arguments::Arguments(const TString& text)
    : Text(text), Quoted(TString(u"\"", 1) + text + u'"'),
      Content(text[0] == u'<' ? text.mid(1, text.length() - 2) : text), List(ListOf(Content)),
      Delimiters(std::u16string(static_cast<std::size_t>(text.length()), u'\u4E00').c_str(), -1),
      InFront(::Text(u"<> ") + text)
{
    InFront.FindNextMarkupElement(0);
}

void Operation::Run(Arguments& arguments) const
{
    try {
        Function(arguments);
    } catch (const LogicException&) {
    }
}

double Operation::TimeOf(Arguments arguments) const
{
    const std::clock_t start = std::clock();
    Run(arguments);
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

#define CALL(...)                                                                                            \
    {                                                                                                        \
#__VA_ARGS__, [](Arguments & a) { (void)a, (void)(__VA_ARGS__); }                                    \
    }

const std::vector<Operation>& Operations()
{
    static const std::vector<Operation> operations = {
        CALL(a.List.HasDuplicates()),
        CALL(a.List.GetAttributeValueForName(AttributeName(a.Text))),
        CALL(a.List.ReplaceOrAdd(AttributeName(a.Text), a.Text)),
        CALL(a.List.ToMarkupText(a.Text)),
        CALL(TokenizeAttributedMarkupText(a.Content)),
        CALL(ParseAttributedMarkupText(a.Content, Text(u"Sheet"))),
        CALL(MakeSheetMarkupAttributeString({AttributeName(a.Text), a.Text})),
        CALL(AtEveryOffset(a.Text, [&](int offset) { return IsSheetMarkupText(a.Text, offset); })),
        CALL(ExtractNameAndValue(a.Text)),
        CALL(ExtractNameAndValue(Text(u"name=") + a.Quoted)),
        CALL(StripEnclosingQuotes(a.Quoted)),
        CALL(UnescapeQuotes(a.Quoted)),
        CALL(FindNameValuePairs(TString(a.Content).mid(int(std::size(u"Sheet")) - 1, -1), a.Pairs)),
        CALL(FindAttributeTokenOffsetAndContent(a.Content, AttributeName(Text(u"none")))),
        CALL(a.InFront.FindNextMarkupElement(2)),
        CALL(Walk(a.InFront)),
        CALL(AtEveryOffset(a.Text, [&](int at) { return a.InFront.IsTextAtOffsetSheetMarkup(at); })),
        CALL(CorvaneMarkupTokenizer(a.InFront).FindOneOfNotEscaped(a.Delimiters)),
        CALL(CorvaneMarkupTokenizer(a.InFront).FindStartOfToken()),
        CALL(CorvaneMarkupTokenizer(a.InFront).FindEndOfTokenAndUpdateStartIfNeeded(true)),
        CALL(FindNextMarkupElement(a.Text, 0, a.Found)),
        CALL(FindNextKnownMarkupElement(a.Text, 0, a.Length, a.Found, Accept)),
        CALL(FindNextKnownMarkupElement(a.Text, 0, a.Length, a.Found, Refuse)),
        CALL(FindCharRangesOfKnownMarkupElements(a.Text, Accept)),
        CALL(FindCharRangesOfKnownMarkupElements(a.Text, Refuse)),
        CALL(FindCharRangesOfKnownMarkupElements(a.Text, [n = 0](auto&) mutable { return ++n % 2 > 0; })),
        CALL(CollectMarkupElements(a.Text)),
        CALL(VizInTooltipProperties::FromMarkupText(a.Content)),
        CALL(VizInTooltipProperties::GetDefault(a.Text, a.Text)),
        CALL(a.Sheet.IsValid()),
        CALL(a.Sheet.HasDuplicateAttributes()),
        CALL(a.Sheet.MissingSheetName()),
        CALL(a.Sheet.HasInvalidSheetSize()),
        CALL(a.Sheet.HasUnallowedAttributes()),
        CALL(a.Sheet.GetSheetSize()),
        CALL(a.Sheet.GetSheetName()),
        CALL(a.Sheet.HasFilter()),
        CALL(a.Sheet.GetFilterValue()),
        CALL(a.Sheet.GetFilterFields()),
        CALL(a.Sheet.ToSheetMarkupText()),
        CALL(a.Sheet.WithFilterFields(a.Fields)),
        CALL(a.Sheet.WithSheetName(a.Text)),
        CALL(GetTargetSheetNameFromMarkupText(a.Content)),
        CALL(GetTargetSheetNamesFromMarkupElementSet(a.Elements)),
        CALL(GetTargetSheetNamesFromTooltipText(a.Text)),
        CALL(ReplaceSheetNameInSheetMarkupText(a.Content, a.Sheet.GetSheetName(), a.Text, a.Replaced)),
        CALL(ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond(a.Content, a.Content)),
        CALL(GetCharRangeOfSheetNameAttributeValue(a.Content)),
        CALL(FindFilterAttributeToken(a.Content)),
        CALL(GetIndexOfFiltersAtCharRange(a.Content, {0, INT_MAX})),
        CALL(InsertFilterFieldIntoMarkupText(a.Content, Text(u"f"), a.Text, {})),
        CALL(InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(a.Content, {0, 99}, a.Text, a.Quoted)),
        CALL(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(a.Text)),
        CALL(CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(a.Text, a.Text)),
        CALL(CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(a.Text, TString())),
        CALL(GetFilterFieldsFromSheetMarkupInTooltipText(a.Text)),
    };
    return operations;
}
