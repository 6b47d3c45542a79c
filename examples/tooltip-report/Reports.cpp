#include "Reports.h"

#include "Faults.h"
#include "Json.h"
#include "Positions.h"
#include "TooltipText.h"

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

/// An element that the walk over a tooltip reads, or the one without end that it stops at.
struct Element
{
    VizInTooltip::ElementRanges Ranges;
    TString Content;
    boost::optional<VizInTooltipProperties> Sheet; ///< if it can be read as a sheet element, valid or not
    std::vector<std::string> Faults;               ///< their kinds
};

void ForEachElement(const TString& tooltip, const std::function<void(const Element&)>& visit)
{
    const auto findings = FindFaults(tooltip, boost::none);
    auto finding = findings.begin();
    for (const VizInTooltip::ElementRanges& ranges : VizInTooltip::FindElementRanges(tooltip)) {
        if (ranges.End == VizInTooltip::ElementEnd::Restart)
            continue;
        Element element{ranges, Part(tooltip, ranges.Content), boost::none, {}};
        if (ranges.End == VizInTooltip::ElementEnd::Bracket)
            element.Sheet = VizInTooltipProperties::FromMarkupText(MarkupText(element.Content));
        for (; finding != findings.end() && finding->Range.start < ranges.Element.end; ++finding) {
            if (finding->Range.start >= ranges.Element.start)
                element.Faults.push_back(Identifier(*finding));
        }
        visit(element);
    }
}

bool IsValidSheet(const Element& element)
{
    return element.Sheet && element.Sheet->IsValid();
}

std::string KindOf(const Element& element)
{
    if (element.Ranges.End == VizInTooltip::ElementEnd::EndOfText)
        return "without-end";
    if (element.Sheet)
        return element.Sheet->IsValid() ? "sheet" : "invalid-sheet";
    return element.Faults.empty() ? "plain" : "unreadable-sheet";
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
    if (element.Ranges.End == VizInTooltip::ElementEnd::EndOfText)
        return "begins here and has no end; nothing from here on is read";
    if (IsValidSheet(element)) {
        const TSize size = element.Sheet->GetSheetSize();
        const auto fields = element.Sheet->GetFilterFields();
        return "sheet " + Quoted(element.Sheet->GetSheetName()) + ", " + std::to_string(size.width) + " x " +
               std::to_string(size.height) + ", " +
               (!element.Sheet->HasFilter() ? "no filter"
                : fields.empty()            ? "filter without fields"
                                            : "filter " + FieldList(fields));
    }
    std::string kinds;
    for (const std::string& kind : element.Faults)
        kinds += (kinds.empty() ? "" : ", ") + kind;
    const std::string what = element.Sheet ? "invalid sheet element" : "not readable as a sheet element";
    return (kinds.empty() ? "" : what + " (" + kinds + "): ") + Bracketed(element.Content);
}

/// A title, and lines below it.
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
    Json members{{"kind", KindOf(element)}};
    members.update(RangeMembers(positions, element.Ranges.Element));
    members["content"] = ToUtf8(element.Content);
    members["faults"] = element.Faults;
    if (IsValidSheet(element)) {
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
        out << "The file begins with a byte order mark, which no position counts.\n";
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
