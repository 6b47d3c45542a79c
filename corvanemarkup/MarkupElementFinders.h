#pragma once

/// Walks over the elements of a whole text; see `CorvaneMarkupTokenizer` for what an element is.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace corvanemarkup {

/// Finds the first element that starts at or after `offset`, returns the position of its `<` in UTF-16 code
/// units, and sets `content` to its content, without brackets. Returns -1 and leaves `content` unchanged if
/// there is no element or if it is unterminated, and for an offset outside the text.
[[nodiscard]] CORVANEMARKUP_EXPORT int FindNextMarkupElement(const TString& text, int offset,
                                                             TString& content);

/// Finds the same element, but returns -1 unless `isKnownElement` accepts its content. Considers no other
/// element.
///
/// The predicate is always called; if there is no element, with the value of `content` on entry. `content`
/// becomes the argument of that call. If the predicate accepts, `elementLength` becomes the length of that
/// argument plus 2 for the brackets, even if the result is -1; otherwise it is unchanged.
[[nodiscard]] CORVANEMARKUP_EXPORT int
FindNextKnownMarkupElement(const TString& text, int offset, int& elementLength, TString& content,
                           const std::function<bool(const TString&)>& isKnownElement);

/// Returns all elements that `isKnownElement` accepts, in text order: their ranges in UTF-16 code units,
/// including brackets, and their contents.
///
/// The walk continues at the end of an accepted element. If it finds no element, or one that is rejected, it
/// retries one code unit further. It therefore also scans from the second `<` of a doubled one, and from
/// within an unterminated element:
///
///     <x>y<<z>      x [0, 3) and z [5, 8); CollectMarkupElements finds only x
///
/// The predicate is called at every step, with an empty string if no element is found, and may be called for
/// the same element many times. Apart from the predicate, takes time linear in the text and in the distinct
/// contents that are passed to the predicate. If it accepts every element, the total length of these is at
/// most that of the text. If it rejects elements, that length can be quadratic: an element that contains many
/// `<<` contains a shorter element at each of them.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<std::pair<CorvaneCharRange, TString>>
FindCharRangesOfKnownMarkupElements(TString text, const std::function<bool(const TString&)>& isKnownElement);

/// Returns the contents of all elements up to the first that is unterminated, searching for each from the end
/// of the one before. Takes linear time, plus sorting.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString> CollectMarkupElements(const TString& text);

} // namespace corvanemarkup
