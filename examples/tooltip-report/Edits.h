#pragma once

/// What the program changes in tooltips.

#include "Files.h"

#include <corvanemarkup/TextEdits.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tooltipreport {

/// New names by old ones.
struct Renaming
{
    std::map<TString, TString> Sheets;
    std::map<TString, TString> Fields;
};

/// The edits that rename sheets and fields in a tooltip, and what to tell of it.
struct RenamingEdits
{
    std::vector<corvanemarkup::VizInTooltip::TextEdit> Edits;
    std::set<TString> SheetsMet; ///< those of the old names that occur
    std::set<TString> FieldsMet;
    std::vector<std::string> Kept; ///< a message for each occurrence that can't be renamed
};
[[nodiscard]] RenamingEdits Rename(const TooltipFile& tooltip, const Renaming& renaming);

/// The cursor or selection that `argument` tells for `--at`: an offset or LINE:COLUMN, or two of them with a
/// `-` in between. Throws `std::runtime_error` with a message for the user if it tells none, or none that
/// stands in the tooltip.
[[nodiscard]] corvanemarkup::CorvaneCharRange ReadSelection(const std::string& argument,
                                                            const TString& tooltip);

} // namespace tooltipreport
