#include "Reports.h"

#include "Json.h"
#include "Positions.h"
#include "TooltipText.h"

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace tooltipreport {

namespace {

using corvanemarkup::MarkupText;
using corvanemarkup::VizInTooltipProperties;
namespace VizInTooltip = corvanemarkup::VizInTooltip;

/// A closed element, or the unterminated one at the end.
struct Element
{
    VizInTooltip::ElementRanges Ranges;
    std::string Kind;
    TString Content;
    boost::optional<VizInTooltipProperties> Sheet; ///< of a valid sheet element
    std::vector<std::string> Diagnostics;          ///< identifiers
};

std::string KindOf(const TString& tooltip, const VizInTooltip::ElementRanges& element)
{
    constexpr const char* kinds[] = {"plain", "sheet", "invalid-sheet", "unreadable-sheet"};
    if (element.End == VizInTooltip::ElementEnd::Unterminated)
        return "unterminated";
    return kinds[static_cast<std::size_t>(VizInTooltip::GetElementKind(tooltip, element))];
}

void ForEachElement(const TString& tooltip, const std::function<void(const Element&)>& visit)
{
    const auto diagnostics = VizInTooltip::FindDiagnostics(tooltip);
    auto diagnostic = diagnostics.begin();
    for (const VizInTooltip::ElementRanges& ranges : VizInTooltip::FindElementRanges(tooltip)) {
        if (ranges.End == VizInTooltip::ElementEnd::Interrupted)
            continue;
        Element element{
            ranges, KindOf(tooltip, ranges), VizInTooltip::TextIn(tooltip, ranges.Content), {}, {}};
        if (element.Kind == "sheet")
            element.Sheet = VizInTooltipProperties::FromMarkupText(MarkupText(element.Content));
        for (; diagnostic != diagnostics.end() && diagnostic->Element.start <= ranges.Element.start;
             ++diagnostic)
            if (diagnostic->Element.start == ranges.Element.start)
                element.Diagnostics.emplace_back(VizInTooltip::GetDiagnosticIdentifier(diagnostic->Kind));
        visit(element);
    }
}

std::string Bracketed(const TString& field)
{
    return OnOneLine(ToUtf8(SurroundWithAngleBrackets(field)));
}

template <typename Fields>
std::string FieldList(const Fields& fields)
{
    std::string list;
    for (const TString& field : fields)
        list += (list.empty() ? "" : ", ") + Bracketed(field);
    return list;
}

std::string Describe(const Element& element)
{
    if (element.Ranges.End == VizInTooltip::ElementEnd::Unterminated)
        return "unterminated; no element after it is recognized";
    if (element.Sheet) {
        const TSize size = element.Sheet->GetSheetSize();
        const auto fields = element.Sheet->GetFilterFields();
        return "sheet " + Quoted(element.Sheet->GetSheetName()) + ", " + std::to_string(size.width) + " x " +
               std::to_string(size.height) + ", " +
               (!element.Sheet->HasFilter() ? "no filter"
                : fields.empty()            ? "filter without fields"
                                            : "filter " + FieldList(fields));
    }
    std::string diagnostics;
    for (const std::string& identifier : element.Diagnostics)
        diagnostics += (diagnostics.empty() ? "" : ", ") + identifier;
    return (element.Kind == "plain" ? "" : element.Kind + " (" + diagnostics + "): ") +
           Bracketed(element.Content);
}

/// A title with indented lines below it.
class Section
{
public:
    Section(std::ostream& out, const std::string& title) : m_out(out) { out << title << '\n'; }

    void Add(const std::string& line)
    {
        m_out << "  " << line << '\n';
        m_isEmpty = false;
    }
    void End() { m_out << (m_isEmpty ? "  none\n" : ""); }

private:
    std::ostream& m_out;
    bool m_isEmpty = true;
};

Json Texts(const std::vector<TString>& texts)
{
    Json list = Json::array();
    for (const TString& text : texts)
        list.push_back(ToUtf8(text));
    return list;
}

Json ElementMembers(const Element& element, const Positions& positions)
{
    Json members{{"kind", element.Kind}};
    members.update(RangeMembers(positions, element.Ranges.Element));
    members["content"] = ToUtf8(element.Content);
    members["diagnostics"] = element.Diagnostics;
    if (element.Sheet) {
        const TSize size = element.Sheet->GetSheetSize();
        members["name"] = ToUtf8(element.Sheet->GetSheetName());
        members["maxwidth"] = size.width;
        members["maxheight"] = size.height;
        members["filter"] = element.Sheet->HasFilter() ? Texts(element.Sheet->GetFilterFields()) : Json();
    }
    return members;
}

std::vector<TString> ChangedSheets(const TooltipFile& previous, const TooltipFile& current)
{
    return VizInTooltip::CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(previous.Text, current.Text);
}

} // namespace

void ShowAsText(std::ostream& out, const TooltipFile& tooltip)
{
    if (tooltip.HasByteOrderMark)
        out << "The file begins with a byte order mark; positions do not include it.\n";
    const Positions positions(tooltip.Text);
    Section elements(out, "Elements");
    ForEachElement(tooltip.Text, [&](const Element& element) {
        std::string line = ToText(positions.At(element.Ranges.Element.start));
        line.resize(std::max<std::size_t>(line.size() + 1, 8), ' ');
        elements.Add(line + Describe(element));
    });
    elements.End();

    Section sheets(out, "Target sheets");
    for (const TString& name : VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip.Text))
        sheets.Add(Quoted(name));
    sheets.End();

    Section filters(out, "Filters by sheet");
    for (const auto& [sheet, names] :
         VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip.Text))
        filters.Add(Quoted(sheet) + ": " + FieldList(names));
    filters.End();

    Section fields(out, "Filter fields");
    for (const TString& field : VizInTooltip::GetFilterFieldsFromSheetMarkupInTooltipText(tooltip.Text))
        fields.Add(Bracketed(field));
    fields.End();
}

void ShowAsJson(std::ostream& out, const TooltipFile& tooltip)
{
    JsonWriter writer(out);
    BeginDocument(writer, "show");
    writer.Member("path", OnOneLine(tooltip.Path));
    writer.Member("byteOrderMark", tooltip.HasByteOrderMark);

    writer.BeginList("elements");
    const Positions positions(tooltip.Text);
    ForEachElement(tooltip.Text,
                   [&](const Element& element) { writer.Item(ElementMembers(element, positions)); });
    writer.End();

    writer.BeginList("sheets");
    for (const TString& name : VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip.Text))
        writer.Item(ToUtf8(name));
    writer.End();

    writer.BeginList("filtersBySheet");
    for (const auto& [sheet, fields] :
         VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip.Text))
        writer.Item({{"name", ToUtf8(sheet)}, {"fields", Texts({fields.begin(), fields.end()})}});
    writer.End();

    writer.BeginList("filterFields");
    for (const TString& field : VizInTooltip::GetFilterFieldsFromSheetMarkupInTooltipText(tooltip.Text))
        writer.Item(ToUtf8(field));
    writer.End();
    writer.End();
}

void ShowChangesAsText(std::ostream& out, const TooltipFile& previous, const TooltipFile& current)
{
    Section section(out, "Sheets with deleted or modified filters");
    for (const TString& sheet : ChangedSheets(previous, current))
        section.Add(Quoted(sheet));
    section.End();
}

void ShowChangesAsJson(std::ostream& out, const TooltipFile& previous, const TooltipFile& current)
{
    JsonWriter writer(out);
    BeginDocument(writer, "changes");
    writer.Member("old", OnOneLine(previous.Path));
    writer.Member("new", OnOneLine(current.Path));
    writer.Member("sheets", Texts(ChangedSheets(previous, current)));
    writer.End();
}

} // namespace tooltipreport
