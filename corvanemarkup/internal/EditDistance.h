#pragma once

#include <corvanemarkup/internal/TextView.h>

#include <set>

namespace corvanemarkup::Internal {

/// Returns how many edits separate the texts, whatever the case of ASCII letters: a unit inserted, deleted or
/// replaced, or two adjacent ones swapped. Returns `most` + 1 if there are more than `most`. Takes time
/// proportional to the length of a text and to `most`.
[[nodiscard]] std::size_t EditDistance(TextView left, TextView right, std::size_t most);

/// Returns the known name that is nearest, the first of several; null if none is within a third of the name's
/// length.
[[nodiscard]] const TString* FindNearest(TextView name, const std::set<TString>& knownNames);

} // namespace corvanemarkup::Internal
