#include "Edits.h"

#include "Names.h"
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

/// None unless `text` is a number of digits alone.
boost::optional<int> ReadNumber(std::string_view text)
{
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || text.front() == '-')
        return boost::none;
    return number;
}

/// An offset or LINE:COLUMN. None if it is neither, or doesn't stand in the text.
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

RenamingEdits Rename(const TooltipFile& tooltip, const Renaming& renaming)
{
    RenamingEdits result;
    result.Edits = VizInTooltip::RenameSheetsAndFields(tooltip.Text, renaming.Sheets, renaming.Fields);

    const Positions positions(tooltip.Text);
    auto edit = result.Edits.begin();
    ForEachName(tooltip.Text, [&](NameKind kind, const TString& name, CorvaneCharRange range) {
        const auto& newNames = kind == NameKind::Sheet ? renaming.Sheets : renaming.Fields;
        const auto newName = newNames.find(name);
        if (newName == newNames.end())
            return;
        (kind == NameKind::Sheet ? result.SheetsMet : result.FieldsMet).insert(name);
        while (edit != result.Edits.end() && edit->Replaced.start < range.start)
            ++edit;
        const bool isRenamed = edit != result.Edits.end() && edit->Replaced.end <= range.end;
        if (!isRenamed && newName->second != name)
            result.Kept.push_back(tooltip.Path + ':' + ToText(positions.At(range.start)) + ": " +
                                  Quoted(name) + " stays: with " + Quoted(newName->second) +
                                  " in its place, the text would read as other elements");
    });
    return result;
}

CorvaneCharRange ReadSelection(const std::string& argument, const TString& tooltip)
{
    const std::string_view whole = argument;
    const std::size_t dash = whole.find('-');
    const auto start = ReadPosition(whole.substr(0, dash), tooltip);
    const auto end = dash == std::string_view::npos ? start : ReadPosition(whole.substr(dash + 1), tooltip);
    if (!start || !end || *end < *start)
        throw std::runtime_error(
            "--at " + Quoted(argument) +
            " is not a place in the tooltip: give an offset or LINE:COLUMN, or two of them "
            "as START-END");
    return {*start, *end};
}

} // namespace tooltipreport
