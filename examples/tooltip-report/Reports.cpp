#include "Reports.h"

#include "Faults.h"
#include "TooltipText.h"

#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/transform_to.h>

#include <algorithm>
#include <vector>

namespace tooltipreport {

namespace {

using corvanemarkup::MarkupText;
using corvanemarkup::VizInTooltipProperties;
namespace VizInTooltip = corvanemarkup::VizInTooltip;

using Lines = std::vector<std::string>;

std::string Join(const Lines& items, const std::string& separator)
{
    std::string joined;
    for (const std::string& item : items)
        joined += joined.empty() ? item : separator + item;
    return joined;
}

std::string Quoted(const TString& name)
{
    return '"' + ToUtf8(name) + '"';
}

std::string Bracketed(const TString& field)
{
    return ToUtf8(SurroundWithAngleBrackets(field));
}

std::string Section(const std::string& title, const Lines& lines)
{
    std::string section = title + '\n';
    for (const std::string& line : lines)
        section += "  " + OnOneLine(line) + '\n';
    return lines.empty() ? section + "  none\n" : section;
}

std::string SizeText(const VizInTooltipProperties& sheet)
{
    const TSize size = sheet.GetSheetSize();
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

std::string FilterText(const VizInTooltipProperties& sheet)
{
    if (!sheet.HasFilter())
        return "no filter";
    const auto fields = sheet.GetFilterFields();
    return fields.empty() ? "filter without fields"
                          : "filter " + Join(corvane::transform_to<Lines>(fields, Bracketed), ", ");
}

std::string RangeText(corvanemarkup::CorvaneCharRange range)
{
    return "[" + std::to_string(range.start) + ", " + std::to_string(range.end) + ")";
}

std::string Describe(const TString& content, const Lines& faults)
{
    const auto sheet = VizInTooltipProperties::FromMarkupText(MarkupText(content));
    if (sheet && sheet->IsValid())
        return "sheet " + Quoted(sheet->GetSheetName()) + ", " + SizeText(*sheet) + ", " + FilterText(*sheet);
    if (sheet)
        return "invalid sheet element (" + Join(faults, ", ") + "): " + Bracketed(content);
    return (faults.empty() ? "" : "not readable as a sheet element (" + Join(faults, ", ") + "): ") +
           Bracketed(content);
}

Lines DescribeElements(const TString& tooltip)
{
    Lines lines;
    const auto faults = VizInTooltip::FindMarkupFaults(tooltip);
    auto fault = faults.begin();
    for (const VizInTooltip::ElementRanges& element : VizInTooltip::FindElementRanges(tooltip)) {
        if (element.End == VizInTooltip::ElementEnd::Restart)
            continue;
        if (element.End == VizInTooltip::ElementEnd::EndOfText) {
            lines.push_back("an element without end begins at " + std::to_string(element.Element.start) +
                            "; nothing from there on is read");
            continue;
        }
        Lines kinds;
        for (; fault != faults.end() && fault->Range.start < element.Element.end; ++fault) {
            if (fault->Range.start >= element.Element.start)
                kinds.push_back(Identifier(fault->Kind));
        }
        std::string line = RangeText(element.Element);
        line.resize(std::max<std::size_t>(line.size() + 1, 14), ' ');
        const auto start = static_cast<int>(element.Content.start);
        const auto length = static_cast<int>(element.Content.end - element.Content.start);
        lines.push_back(line + Describe(tooltip.mid(start, length), kinds));
    }
    return lines;
}

} // namespace

std::string Show(const TString& tooltip)
{
    const auto filters = VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip);
    const auto filterText = [](const auto& filter) {
        return Quoted(filter.first) + ": " +
               Join(corvane::transform_to<Lines>(filter.second, Bracketed), ", ");
    };
    return Section("Elements", DescribeElements(tooltip)) +
           Section("Target sheets", corvane::transform_to<Lines>(
                                        VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip), Quoted)) +
           Section("Filters by sheet", corvane::transform_to<Lines>(filters, filterText)) +
           Section("Filter fields",
                   corvane::transform_to<Lines>(
                       VizInTooltip::GetFilterFieldsFromSheetMarkupInTooltipText(tooltip), Bracketed));
}

std::string ShowChanges(const TString& previousTooltip, const TString& currentTooltip)
{
    const auto sheets =
        VizInTooltip::CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(previousTooltip, currentTooltip);
    return Section("Sheets with deleted or modified filters", corvane::transform_to<Lines>(sheets, Quoted));
}

} // namespace tooltipreport
