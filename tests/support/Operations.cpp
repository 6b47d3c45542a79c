#include "Operations.h"

#include "Testing.h"

#include <corvanemarkup/MarkupFixes.h>
#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/TokenizeAttributedMarkupText.h>

#include <climits>
#include <ctime>

namespace {

void Walk(CorvaneMarkupTokenizer tokenizer)
{
    for (int next = 0; tokenizer.FindNextMarkupElement(next) >= 0; next = tokenizer.GetOffset() + 1)
        (void)tokenizer.GetContentOfCurrentMarkupElement();
}

bool AskAtEveryOffset(const Arguments& a)
{
    bool isSheetMarkup = false;
    for (int offset = 0; offset < a.Text.length(); ++offset)
        isSheetMarkup = IsSheetMarkupText(a.Text, offset) || a.Tokenizer.IsTextAtOffsetSheetMarkup(offset);
    return isSheetMarkup;
}

void ReadAllOf(const TString& tooltip)
{
    for (const ElementRanges& element : FindElementRanges(tooltip))
        (void)GetElementKind(tooltip, element);
    for (const Diagnostic& diagnostic : FindDiagnostics(tooltip))
        (void)GetDiagnosticMessage(tooltip, diagnostic);
}

} // namespace

Arguments::Arguments(const TString& text)
    : Text(text), Content(text[0] == u'<' ? text.mid(1, text.length() - 2) : text),
      List(ParseAttributedMarkupText(Content, ::Text(u"Sheet")).get_value_or(AttributeNamesAndValues({}))),
      Delimiters(std::u16string(static_cast<std::size_t>(text.length()), u'\u4E00').c_str(), -1)
{
    Tokenizer.FindNextMarkupElement(0);
    for (const auto& names : {Fields, Sheet.GetFilterFields(), {Sheet.GetSheetName()}})
        for (const TString& name : names)
            NewNames[name] = ::Text(u"y'");
}

void Operation::Run(Arguments& arguments) const
{
    try {
        Function(arguments);
    } catch (const LogicException&) {
    }
}

double Operation::TimeOf(Arguments& arguments) const
{
    const std::clock_t start = std::clock();
    Run(arguments);
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

#define CALL(...) Operation(#__VA_ARGS__, [](Arguments& a) { (void)a, (void)(__VA_ARGS__); })

const std::vector<Operation>& Operations()
{
    static const std::vector<Operation> operations = {
        CALL(a.List.HasDuplicates()),
        CALL(a.List.GetAttributeValueForName(AttributeName(a.Text))),
        CALL(a.List.ReplaceOrAdd(AttributeName(a.Text), a.Text)),
        CALL(a.List.ToMarkupText(a.Text)),
        CALL(TString(a.Text).replace(u'"', Text(u"''"))),
        CALL(TokenizeAttributedMarkupText(a.Content)),
        CALL(ParseAttributedMarkupText(a.Content, Text(u"Sheet"))),
        CALL(MakeSheetMarkupAttributeString({AttributeName(a.Text), a.Text})),
        CALL(AskAtEveryOffset(a)),
        CALL(ExtractNameAndValue(Text(u"name=") + a.Quoted)),
        CALL(StripEnclosingQuotes(a.Written = a.Quoted)),
        CALL(UnescapeQuotes(a.Written = a.Quoted)),
        CALL(FindNameValuePairs(a.Phrase, (a.Pairs.clear(), a.Pairs))),
        CALL(FindAttributeTokenOffsetAndContent(a.Content, AttributeName(Text(u"none")))),
        CALL(a.Tokenizer.FindNextMarkupElement(2)),
        CALL(Walk(a.Tokenizer)),
        CALL(CorvaneMarkupTokenizer(a.Tokenizer).FindOneOfNotEscaped(a.Delimiters)),
        CALL(CorvaneMarkupTokenizer(a.Tokenizer).FindStartOfToken()),
        CALL(CorvaneMarkupTokenizer(a.Tokenizer).FindEndOfTokenAndUpdateStartIfNeeded(true)),
        CALL(FindNextMarkupElement(a.Text, 0, a.Written)),
        CALL(FindNextKnownMarkupElement(a.Text, 0, a.Length, a.Written, [](auto&) { return true; })),
        CALL(FindCharRangesOfKnownMarkupElements(a.Text, [](auto&) { return true; })),
        CALL(FindCharRangesOfKnownMarkupElements(a.Text, [](auto&) { return false; })),
        CALL(FindCharRangesOfKnownMarkupElements(a.Text, [n = 0](auto&) mutable { return ++n % 2 > 0; })),
        CALL(CollectMarkupElements(a.Text)),
        CALL(VizInTooltipProperties::FromMarkupText(a.Content)),
        CALL(VizInTooltipProperties::GetDefault(a.Text, a.Text)),
        CALL(a.Sheet.IsValid()),
        CALL(a.Sheet.HasDuplicateAttributes() + a.Sheet.HasUnallowedAttributes()),
        CALL(a.Sheet.MissingSheetName() + a.Sheet.GetSheetName().length()),
        CALL(a.Sheet.HasInvalidSheetSize() + a.Sheet.GetSheetSize().width),
        CALL(a.Sheet.HasFilter() ? a.Sheet.GetFilterValue() : boost::none),
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
        CALL(GetFilterFieldsFromSheetMarkupInTooltipText(a.Text)),
        CALL(FindElementRanges(a.Text)),
        CALL(FindAttributeRanges(a.Text, {1, a.Text.length()})),
        CALL(FindDiagnostics(a.Text)),
        CALL(FixTooltip(a.Text)),
        CALL(ReadAllOf(a.Text)),
        CALL(FindSheetAndFieldNames(a.Text)),
        CALL(ApplyTextEdits(a.Text, RenameSheetsAndFields(a.Text, a.NewNames, a.NewNames))),
        CALL(InsertFilterFieldAt(a.Text, {9, 9}, Text(u"f"), a.Text)),
    };
    return operations;
}
