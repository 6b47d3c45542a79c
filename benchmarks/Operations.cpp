#include "Operations.h"

#include "Texts.h"

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/TokenizeAttributedMarkupText.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvaneplatform/ThrowLogicException.h>

#include <climits>

namespace benchmarks {

using namespace corvanemarkup;

namespace {

std::u16string_view WithoutOuterBrackets(std::u16string_view text)
{
    if (!text.empty() && text.front() == u'<')
        text.remove_prefix(1);
    if (!text.empty() && text.back() == u'>')
        text.remove_suffix(1);
    return text;
}

AttributeNamesAndValues AttributesOf(const MarkupText& content)
{
    if (auto attributes = ParseAttributedMarkupText(content, ToTString(u"Sheet")))
        return *attributes;
    std::vector<AttributeNameAndValue> attributes;
    const TString& text = content;
    for (const TString& word : text.split(u' ', TString::SplitBehavior(1)))
        attributes.push_back({AttributeName(word), word});
    return AttributeNamesAndValues(attributes);
}

/// Uses a result that there is nothing to do with.
template <typename Result>
void Keep(const Result&)
{
}

/// A predicate that doesn't look at the content, so that only the library's time is taken.
template <bool answer>
bool Always(const TString&)
{
    return answer;
}

const std::vector<Operation> TheOperations = {
    {"AttributeNamesAndValues::HasDuplicates",
     [](const OperationInput& input) { Keep(input.Attributes.HasDuplicates()); }},
    {"AttributeNamesAndValues::GetAttributeValueForName",
     [](const OperationInput& input) {
         Keep(input.Attributes.GetAttributeValueForName(AttributeName(input.Text)));
     }},
    {"AttributeNamesAndValues::ReplaceOrAdd",
     [](const OperationInput& input) {
         Keep(input.Attributes.ReplaceOrAdd(AttributeName(input.Text), input.Text));
     }},
    {"AttributeNamesAndValues::ToMarkupText",
     [](const OperationInput& input) { Keep(input.Attributes.ToMarkupText(input.Text)); }},

    {"TokenizeAttributedMarkupText",
     [](const OperationInput& input) { Keep(TokenizeAttributedMarkupText(input.Content)); }},
    {"ParseAttributedMarkupText",
     [](const OperationInput& input) {
         Keep(ParseAttributedMarkupText(input.Content, ToTString(u"Sheet")));
     }},

    {"Impl::MakeSheetMarkupAttributeString",
     [](const OperationInput& input) {
         Keep(VizInTooltip::Impl::MakeSheetMarkupAttributeString({AttributeName(input.Text), input.Text}));
     }},
    {"Impl::IsSheetMarkupText, at every offset",
     [](const OperationInput& input) {
         for (int offset = 0; offset < input.Text.length(); ++offset)
             Keep(VizInTooltip::Impl::IsSheetMarkupText(input.Text, offset));
     }},
    {"Impl::ExtractNameAndValue",
     [](const OperationInput& input) {
         Keep(VizInTooltip::Impl::ExtractNameAndValue(input.Text));
         Keep(VizInTooltip::Impl::ExtractNameAndValue(ToTString(u"name=") + input.QuotedText));
     }},
    {"Impl::StripEnclosingQuotes",
     [](const OperationInput& input) {
         TString value = input.QuotedText;
         Keep(VizInTooltip::Impl::StripEnclosingQuotes(value));
     }},
    {"Impl::UnescapeQuotes",
     [](const OperationInput& input) {
         TString value = input.QuotedText;
         VizInTooltip::Impl::UnescapeQuotes(value);
     }},
    {"Impl::FindNameValuePairs",
     [](const OperationInput& input) {
         constexpr int elementName = 5;
         std::vector<AttributeNameAndValue> pairs;
         const TString& content = input.Content;
         Keep(VizInTooltip::Impl::FindNameValuePairs(content.mid(elementName, -1), pairs));
     }},
    {"Impl::FindAttributeTokenOffsetAndContent",
     [](const OperationInput& input) {
         Keep(VizInTooltip::Impl::FindAttributeTokenOffsetAndContent(input.Content,
                                                                     AttributeName(ToTString(u"none"))));
     }},

    {"CorvaneMarkupTokenizer::FindNextMarkupElement, with contents",
     [](const OperationInput& input) {
         CorvaneMarkupTokenizer tokenizer(input.Text);
         for (int next = 0; tokenizer.FindNextMarkupElement(next) >= 0; next = tokenizer.GetOffset() + 1)
             Keep(tokenizer.GetContentOfCurrentMarkupElement());
     }},
    {"CorvaneMarkupTokenizer::IsTextAtOffsetSheetMarkup, at every offset",
     [](const OperationInput& input) {
         const CorvaneMarkupTokenizer tokenizer(input.Text);
         for (int offset = 0; offset < input.Text.length(); ++offset)
             Keep(tokenizer.IsTextAtOffsetSheetMarkup(offset));
     }},
    {"CorvaneMarkupTokenizer::FindOneOfNotEscaped, many delimiters",
     [](const OperationInput& input) {
         CorvaneMarkupTokenizer tokenizer(ToTString(u"<>") + input.Text);
         Keep(tokenizer.FindNextMarkupElement(0));
         tokenizer.FindOneOfNotEscaped(input.Delimiters);
     }},
    {"CorvaneMarkupTokenizer, step by step",
     [](const OperationInput& input) {
         CorvaneMarkupTokenizer tokenizer(ToTString(u"<>") + input.Text);
         Keep(tokenizer.FindNextMarkupElement(0));
         tokenizer.FindStartOfToken();
         if (tokenizer.GetOffset() >= 0)
             tokenizer.FindEndOfTokenAndUpdateStartIfNeeded(true);
     }},

    {"FindNextMarkupElement",
     [](const OperationInput& input) {
         TString content;
         Keep(FindNextMarkupElement(input.Text, 0, content));
     }},
    {"FindNextKnownMarkupElement, accepted",
     [](const OperationInput& input) {
         int length = 0;
         TString content;
         Keep(FindNextKnownMarkupElement(input.Text, 0, length, content, Always<true>));
     }},
    {"FindNextKnownMarkupElement, refused",
     [](const OperationInput& input) {
         int length = 0;
         TString content;
         Keep(FindNextKnownMarkupElement(input.Text, 0, length, content, Always<false>));
     }},
    {"FindCharRangesOfKnownMarkupElements, all accepted",
     [](const OperationInput& input) {
         Keep(FindCharRangesOfKnownMarkupElements(input.Text, Always<true>));
     }},
    {"FindCharRangesOfKnownMarkupElements, all refused",
     [](const OperationInput& input) {
         Keep(FindCharRangesOfKnownMarkupElements(input.Text, Always<false>));
     }},
    {"FindCharRangesOfKnownMarkupElements, each second accepted",
     [](const OperationInput& input) {
         bool answer = false;
         Keep(FindCharRangesOfKnownMarkupElements(input.Text,
                                                  [&](const TString&) { return answer = !answer; }));
     }},
    {"CollectMarkupElements", [](const OperationInput& input) { Keep(CollectMarkupElements(input.Text)); }},

    {"VizInTooltipProperties::FromMarkupText",
     [](const OperationInput& input) { Keep(VizInTooltipProperties::FromMarkupText(input.Content)); }},
    {"VizInTooltipProperties::GetDefault",
     [](const OperationInput& input) { Keep(VizInTooltipProperties::GetDefault(input.Text, input.Text)); }},
    {"VizInTooltipProperties::IsValid", [](const OperationInput& input) { Keep(input.Sheet.IsValid()); }},
    {"VizInTooltipProperties::HasDuplicateAttributes",
     [](const OperationInput& input) { Keep(input.Sheet.HasDuplicateAttributes()); }},
    {"VizInTooltipProperties::MissingSheetName",
     [](const OperationInput& input) { Keep(input.Sheet.MissingSheetName()); }},
    {"VizInTooltipProperties::HasInvalidSheetSize",
     [](const OperationInput& input) { Keep(input.Sheet.HasInvalidSheetSize()); }},
    {"VizInTooltipProperties::HasUnallowedAttributes",
     [](const OperationInput& input) { Keep(input.Sheet.HasUnallowedAttributes()); }},
    {"VizInTooltipProperties::GetSheetSize",
     [](const OperationInput& input) { Keep(input.Sheet.GetSheetSize()); }},
    {"VizInTooltipProperties::GetSheetName",
     [](const OperationInput& input) { Keep(input.Sheet.GetSheetName()); }},
    {"VizInTooltipProperties::HasFilter", [](const OperationInput& input) { Keep(input.Sheet.HasFilter()); }},
    {"VizInTooltipProperties::GetFilterValue",
     [](const OperationInput& input) { Keep(input.Sheet.GetFilterValue()); }},
    {"VizInTooltipProperties::GetFilterFields",
     [](const OperationInput& input) { Keep(input.Sheet.GetFilterFields()); }},
    {"VizInTooltipProperties::ToSheetMarkupText",
     [](const OperationInput& input) { Keep(input.Sheet.ToSheetMarkupText()); }},
    {"VizInTooltipProperties::WithFilterFields",
     [](const OperationInput& input) { Keep(input.Sheet.WithFilterFields(input.Fields)); }},
    {"VizInTooltipProperties::WithSheetName",
     [](const OperationInput& input) { Keep(input.Sheet.WithSheetName(input.Text)); }},

    {"GetTargetSheetNameFromMarkupText",
     [](const OperationInput& input) {
         Keep(VizInTooltip::GetTargetSheetNameFromMarkupText(input.Content));
     }},
    {"GetTargetSheetNamesFromMarkupElementSet",
     [](const OperationInput& input) {
         Keep(VizInTooltip::GetTargetSheetNamesFromMarkupElementSet(input.Elements));
     }},
    {"GetTargetSheetNamesFromTooltipText",
     [](const OperationInput& input) { Keep(VizInTooltip::GetTargetSheetNamesFromTooltipText(input.Text)); }},
    {"ReplaceSheetNameInSheetMarkupText",
     [](const OperationInput& input) {
         MarkupText replaced;
         Keep(VizInTooltip::ReplaceSheetNameInSheetMarkupText(input.Content, input.Sheet.GetSheetName(),
                                                              input.Text, replaced));
     }},
    {"ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond",
     [](const OperationInput& input) {
         Keep(VizInTooltip::ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond(input.Content,
                                                                                     input.Content));
     }},
    {"GetCharRangeOfSheetNameAttributeValue",
     [](const OperationInput& input) {
         Keep(VizInTooltip::GetCharRangeOfSheetNameAttributeValue(input.Content));
     }},
    {"FindFilterAttributeToken",
     [](const OperationInput& input) { Keep(VizInTooltip::FindFilterAttributeToken(input.Content)); }},
    {"GetIndexOfFiltersAtCharRange",
     [](const OperationInput& input) {
         Keep(VizInTooltip::GetIndexOfFiltersAtCharRange(input.Content, {0, INT_MAX}));
     }},
    {"InsertFilterFieldIntoMarkupText",
     [](const OperationInput& input) {
         Keep(VizInTooltip::InsertFilterFieldIntoMarkupText(input.Content, ToTString(u"f"), input.Text, {}));
     }},
    {"InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition",
     [](const OperationInput& input) {
         Keep(VizInTooltip::InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(
             input.Content, {0, INT_MAX}, ToTString(u"f"), input.Text));
     }},
    {"GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText",
     [](const OperationInput& input) {
         Keep(VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(input.Text));
     }},
    {"CollectSheetsWithDeletedOrModifiedSheetMarkupFilters",
     [](const OperationInput& input) {
         Keep(VizInTooltip::CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(input.Text, input.Text));
         Keep(VizInTooltip::CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(input.Text, TString()));
     }},
    {"GetFilterFieldsFromSheetMarkupInTooltipText",
     [](const OperationInput& input) {
         Keep(VizInTooltip::GetFilterFieldsFromSheetMarkupInTooltipText(input.Text));
     }},
};

} // namespace

OperationInput::OperationInput(std::u16string_view text)
    : Text(ToTString(text)), QuotedText(ToTString(u"\"") + Text + u'"'),
      Content(ToTString(WithoutOuterBrackets(text))), Sheet(AttributesOf(Content)),
      Attributes(AttributesOf(Content)), Elements(CollectMarkupElements(Text)),
      Fields(Elements.begin(), Elements.end())
{
    constexpr char16_t firstIdeograph = u'\u4E00';
    std::u16string delimiters;
    while (delimiters.size() < text.size())
        delimiters += static_cast<char16_t>(firstIdeograph + delimiters.size() % 0x5000);
    Delimiters = ToTString(delimiters);
}

void Operation::Run(const OperationInput& input) const
{
    try {
        Function(input);
    } catch (const LogicException&) {
    }
}

const std::vector<Operation>& Operations()
{
    return TheOperations;
}

} // namespace benchmarks
