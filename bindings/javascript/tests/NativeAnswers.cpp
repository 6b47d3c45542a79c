/// Answers natively what the package is asked. A line of the input is an offset, the ends of a range, and
/// three texts, a tooltip, another one and a name, in hexadecimal code units after an `x`. A line of the
/// output is a list of results in JSON, where a record is the list of its parts.

#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/ThrowLogicException.h>

#include <iostream>
#include <string>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

namespace {

struct Json
{
    std::string Text;

    void Add(bool value) { Text += value ? "true," : "false,"; }
    void Add(std::int64_t value) { Text += std::to_string(value) + ','; }
    void Add(int value) { Add(std::int64_t(value)); }
    void Add(MarkupFaultKind value) { Add(static_cast<int>(value)); }
    void Add(ElementEnd value) { Add(static_cast<int>(value)); }
    void Add(const char* ascii) { Text += '"' + std::string(ascii) + "\","; }
    void Add(const TString& text)
    {
        Text += '"';
        for (int i = 0; i < text.length(); ++i) {
            Text += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4)
                Text += "0123456789abcdef"[text[i] >> shift & 15];
        }
        Text += "\",";
    }
    void Add(const MarkupText& text) { Add(static_cast<const TString&>(text)); }
    void Add(const CorvaneCharRange& value) { List(value.start, value.end); }
    void Add(const AttributeNameAndValue& value) { List(value.Name.GetName(), value.Value); }
    void Add(const NewCursorPositionAndMarkupText& value)
    {
        List(value.NewMarkupText, value.NewCursorPosition);
    }
    void Add(const ElementRanges& value) { List(value.Element, value.Content, value.End); }
    void Add(const AttributeRanges& value)
    {
        List(value.Attribute, value.Name, value.Value, value.NameAndValue, value.Fields);
    }
    void Add(const MarkupFault& value) { List(value.Kind, value.Range, value.IsError); }
    void Add(const TextEdit& value) { List(value.Replaced, value.Text); }
    void Add(const FieldInsertion& value) { List(value.Edit, value.NewCursorPosition); }
    void Add(const VizInTooltipProperties& sheet)
    {
        const TSize size = sheet.GetSheetSize();
        List(sheet.GetSheetName(), std::vector<int>{size.width, size.height}, sheet.GetFilterValue(),
             sheet.GetFilterFields(), sheet.IsValid(), sheet.HasDuplicateAttributes(),
             sheet.MissingSheetName(), sheet.HasInvalidSheetSize(), sheet.HasUnallowedAttributes());
    }
    template <typename First, typename Second>
    void Add(const std::pair<First, Second>& value)
    {
        List(value.first, value.second);
    }
    template <typename Value>
    void Add(const boost::optional<Value>& value)
    {
        value ? Add(*value) : void(Text += "null,");
    }
    template <typename Items>
    auto Add(const Items& items) -> decltype(items.begin(), void())
    {
        Text += '[';
        for (const auto& item : items)
            Add(item);
        Close();
    }
    template <typename... Values>
    void List(const Values&... values)
    {
        Text += '[';
        (Add(values), ...);
        Close();
    }
    void Close()
    {
        if (Text.back() == ',')
            Text.pop_back();
        Text += "],";
    }
    /// What the function gives, or the condition that it finds broken.
    template <typename Function, typename... Arguments>
    void Ask(Function function, const Arguments&... arguments)
    {
        try {
            Add(function(arguments...));
        } catch (const LogicException& exception) {
            Add(exception.Condition());
        }
    }
};

TString ReadText(std::istream& input)
{
    std::string digits;
    input >> digits;
    std::u16string text;
    for (std::size_t i = 1; i < digits.size(); i += 4)
        text += static_cast<char16_t>(std::stoi(digits.substr(i, 4), nullptr, 16));
    return TString(text.data(), static_cast<int>(text.size()));
}

} // namespace

int main()
{
    int offset = 0;
    for (CorvaneCharRange range{}; std::cin >> offset >> range.start >> range.end;) {
        const TString tooltip = ReadText(std::cin);
        const TString other = ReadText(std::cin);
        const TString name = ReadText(std::cin);
        const MarkupText markup(tooltip);
        const auto replaceName = [](const MarkupText& text, const TString& from, const TString& to) {
            MarkupText replaced;
            return ReplaceSheetNameInSheetMarkupText(text, from, to, replaced)
                       ? boost::optional<MarkupText>(replaced)
                       : boost::none;
        };
        const std::map<TString, TString> names = {{name, other}};
        Json json;
        json.Text = "[";
        json.Ask(GetTargetSheetNamesFromTooltipText, tooltip);
        json.Ask(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText, tooltip);
        json.Ask(GetFilterFieldsFromSheetMarkupInTooltipText, tooltip);
        json.Ask(CollectSheetsWithDeletedOrModifiedSheetMarkupFilters, tooltip, other);
        json.Ask(CollectMarkupElements, tooltip);
        json.Ask(Impl::IsSheetMarkupText, tooltip, offset);
        json.Ask(VizInTooltipProperties::FromMarkupText, markup);
        json.Ask([](auto&&... a) { return VizInTooltipProperties::GetDefault(a...).ToSheetMarkupText(); },
                 name, other);
        json.Ask(GetTargetSheetNameFromMarkupText, tooltip);
        json.Ask(GetTargetSheetNamesFromMarkupElementSet, CollectMarkupElements(tooltip));
        json.Ask(replaceName, markup, GetTargetSheetNameFromMarkupText(tooltip), name);
        json.Ask(ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond, markup, MarkupText(other));
        json.Ask(GetCharRangeOfSheetNameAttributeValue, markup);
        json.Ask(FindFilterAttributeToken, markup);
        json.Ask(GetIndexOfFiltersAtCharRange, markup, range);
        json.Ask(InsertFilterFieldIntoMarkupText, markup, name, other, std::vector<int>{offset, offset + 1});
        json.Ask(InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition, markup, range, name, other);
        json.Ask(FindElementRanges, tooltip);
        json.Ask(FindAttributeRanges, tooltip, range);
        json.Ask(FindMarkupFaults, tooltip);
        json.Ask(ApplyTextEdits, tooltip,
                 std::vector<TextEdit>{{range, name}, {{range.end, range.end}, other}});
        json.Ask(IsFieldName, name);
        json.Ask(RenameSheetsAndFields, tooltip, names, names);
        json.Ask(InsertFilterFieldAt, tooltip, range, name, other);
        json.Close();
        json.Text.back() = '\n';
        std::cout << json.Text;
    }
}
