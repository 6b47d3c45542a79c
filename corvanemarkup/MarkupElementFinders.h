#pragma once

/// Walks over the elements of a whole text. What an element is, `CorvaneMarkupTokenizer` tells.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace corvanemarkup {

/// Finds the first element that starts at or after `offset`. Returns the position of its `<`, and writes its
/// content, without brackets, to `content`. -1, with `content` unchanged, if there is no element, or if the
/// one that starts there has no end. Offsets outside the text find nothing.
[[nodiscard]] CORVANEMARKUP_EXPORT int FindNextMarkupElement(const TString& text, int offset,
                                                             TString& content);

/// The same, if `isKnownElement` accepts the content of that element; else -1. No other element is looked at.
///
/// The predicate is always asked; if there is no element, about what `content` holds on entry. `content`
/// becomes what the predicate was asked about. If it accepts, `elementLength` becomes the length of this plus
/// 2 for the brackets, also where the result is -1; if it refuses, `elementLength` stays unchanged.
[[nodiscard]] CORVANEMARKUP_EXPORT int
FindNextKnownMarkupElement(const TString& text, int offset, int& elementLength, TString& content,
                           const std::function<bool(const TString&)>& isKnownElement);

/// All elements that `isKnownElement` accepts, in text order: their ranges, brackets included, and their
/// contents.
///
/// The walk goes on at the end of an accepted element. If it finds no element, or a refused one, it goes on
/// one code unit further. So it also reads the text anew from the second `<` of a doubled pair, and from
/// within an element without end:
///
///     <x>y<<z>      x [0, 3) and z [5, 8); CollectMarkupElements finds x alone
///
/// The predicate is asked at every step, with the empty string where no element is found, and may be asked
/// about one element many times. All but the predicate takes time linear in the text and in the different
/// contents that the predicate sees. If it accepts every element, these together are no longer than the text.
/// If it refuses, they can be quadratic in the text: in an element that holds `<<` again and again, a shorter
/// element starts at each.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<std::pair<CorvaneCharRange, TString>>
FindCharRangesOfKnownMarkupElements(TString text, const std::function<bool(const TString&)>& isKnownElement);

/// The contents of all elements, from the end of each to the next, up to the first that has no end. Sorting
/// them adds a logarithm to linear time.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString> CollectMarkupElements(const TString& text);

} // namespace corvanemarkup
