#include "Edits.h"

#include "Positions.h"
#include "TooltipText.h"

#include <boost/optional.hpp>

#include <charconv>
#include <stdexcept>
#include <string_view>

namespace tooltipreport {

namespace {

using corvanemarkup::CorvaneCharRange;
namespace VizInTooltip = corvanemarkup::VizInTooltip;

/// Returns none unless `text` consists of digits and fits an `int`.
boost::optional<int> ReadNumber(std::string_view text)
{
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || text.front() == '-')
        return boost::none;
    return number;
}

/// Parses an offset or LINE:COLUMN. Returns none if it is neither, or isn't in the text.
boost::optional<int> ReadPosition(std::string_view argument, const TString& text)
{
    const std::size_t colon = argument.find(':');
    const auto number = ReadNumber(argument.substr(0, colon));
    if (!number)
        return boost::none;
    if (colon == std::string_view::npos)
        return boost::make_optional(*number <= text.length(), *number);
    const auto column = ReadNumber(argument.substr(colon + 1));
    if (!column)
        return boost::none;
    return Positions(text).OffsetOf({*number, *column});
}

} // namespace

RenamingEdits Rename(const TString& tooltip, const Renaming& renaming)
{
    RenamingEdits result;
    result.Edits = VizInTooltip::RenameSheetsAndFields(tooltip, renaming.Sheets, renaming.Fields);
    auto edit = result.Edits.begin();
    for (const VizInTooltip::SheetOrFieldName& name : VizInTooltip::FindSheetAndFieldNames(tooltip)) {
        const auto& newNames = name.Kind == VizInTooltip::NameKind::Sheet ? renaming.Sheets : renaming.Fields;
        const auto newName = newNames.find(name.Name);
        if (newName == newNames.end())
            continue;
        while (edit != result.Edits.end() && edit->Range.start < name.Range.start)
            ++edit;
        const bool hasEdit = name.Status == VizInTooltip::NameStatus::Reachable &&
                             edit != result.Edits.end() && edit->Range.start == name.Range.start;
        const auto outcome = hasEdit                        ? MetName::Outcome::Renamed
                             : newName->second == name.Name ? MetName::Outcome::IsNewName
                                                            : MetName::Outcome::Kept;
        result.Met.push_back({name, newName->second, outcome});
    }
    return result;
}

CorvaneCharRange ReadSelection(const std::string& argument, const TString& tooltip)
{
    const std::string_view whole = argument;
    const std::size_t dash = whole.find('-');
    const auto start = ReadPosition(whole.substr(0, dash), tooltip);
    const auto end = dash == std::string_view::npos ? start : ReadPosition(whole.substr(dash + 1), tooltip);
    if (!start || !end || *end < *start)
        throw std::runtime_error("--at " + Quoted(argument) +
                                 " is not a position or selection in the tooltip; give an offset or "
                                 "LINE:COLUMN, or two of them as START-END");
    return {*start, *end};
}

} // namespace tooltipreport
