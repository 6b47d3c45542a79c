#pragma once

/// The edits that the verbs make, and the selection that they edit.

#include "Files.h"

#include <corvanemarkup/MarkupRanges.h>
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

/// An occurrence of an old name.
struct MetName
{
    enum class Outcome { Renamed, Kept, IsNewName };

    corvanemarkup::VizInTooltip::SheetOrFieldName Occurrence;
    TString NewName;
    Outcome Result;
};

/// The edits that rename sheets and fields in a tooltip, and all occurrences of the old names, both in text
/// order.
struct RenamingEdits
{
    std::vector<corvanemarkup::VizInTooltip::TextEdit> Edits;
    std::vector<MetName> Met;
};
[[nodiscard]] RenamingEdits Rename(const TString& tooltip, const Renaming& renaming);

/// Parses the argument of `--at`, START[-END], where both are an offset or LINE:COLUMN. Without END, the
/// range is empty. Throws `std::runtime_error`, with a message for the user, if the argument is malformed,
/// reversed or outside the tooltip.
[[nodiscard]] corvanemarkup::CorvaneCharRange ReadSelection(const std::string& argument,
                                                            const TString& tooltip);

} // namespace tooltipreport
