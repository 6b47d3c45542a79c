#pragma once

/// What faults are called, and how they are told.

#include <corvanemarkup/MarkupFaults.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <set>
#include <string>
#include <vector>

namespace tooltipreport {

/// A fault that the library finds, or a sheet that doesn't exist.
struct Finding
{
    boost::optional<corvanemarkup::VizInTooltip::MarkupFaultKind> Kind; ///< none if the sheet doesn't exist
    corvanemarkup::CorvaneCharRange Range;
    bool IsError;
    TString SheetName; ///< the sheet that doesn't exist
};

/// All faults of a tooltip in text order. If `sheets` is given, every other sheet is an error.
[[nodiscard]] std::vector<Finding> FindFaults(const TString& tooltip,
                                              const boost::optional<std::set<TString>>& sheets);

/// What the output calls that fault, such as `missing-end`: the name of its kind in the library, in small
/// letters with hyphens, or `unknown-sheet`. It stays.
[[nodiscard]] std::string Identifier(const Finding& finding);

/// What is wrong, and what to do about it: one sentence.
[[nodiscard]] std::string Message(const Finding& finding);

/// One finding of each kind, in the order of the kinds.
[[nodiscard]] std::vector<Finding> OneOfEachKind();

} // namespace tooltipreport
