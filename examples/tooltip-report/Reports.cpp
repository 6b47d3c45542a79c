#include "Reports.h"

#include "Elements.h"
#include "TooltipText.h"

#include <corvanemarkup/SheetMarkupConstants.h>
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

std::string FaultsText(const VizInTooltipProperties& sheet)
{
    Lines faults;
    if (sheet.HasDuplicateAttributes())
        faults.emplace_back("duplicate attributes");
    if (sheet.MissingSheetName())
        faults.emplace_back("missing name");
    if (sheet.HasInvalidSheetSize())
        faults.emplace_back("invalid size, read as " + SizeText(sheet));
    if (sheet.HasUnallowedAttributes())
        faults.emplace_back("unallowed attributes");
    return Join(faults, "; ");
}

std::string Describe(const TString& content)
{
    if (const auto sheet = VizInTooltipProperties::FromMarkupText(MarkupText(content))) {
        if (sheet->IsValid())
            return "sheet " + Quoted(sheet->GetSheetName()) + ", " + SizeText(*sheet) + ", " +
                   FilterText(*sheet);
        return "invalid sheet element: " + FaultsText(*sheet) + ": " + Bracketed(content);
    }
    const TString sheetPrefix = VizInTooltip::Impl::SheetMarkupElementName + u' ';
    const bool meansSheet = content.left(sheetPrefix.length()) == sheetPrefix;
    return (meansSheet ? "not readable as a sheet element: " : "") + Bracketed(content);
}

Lines DescribeElements(const TString& tooltip)
{
    Lines lines;
    int end = 0;
    for (const Element& element : FindElements(tooltip)) {
        std::string line = RangeText(element);
        line.resize(std::max<std::size_t>(line.size() + 1, 14), ' ');
        lines.push_back(line + Describe(element.Content));
        end = element.End;
    }
    const int unfinished = FindUnfinishedElement(tooltip, end);
    if (unfinished >= 0)
        lines.push_back("an element without end begins at " + std::to_string(unfinished) +
                        "; nothing from there on is read");
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
