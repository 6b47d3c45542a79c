#pragma once

/// Walks over the elements of a whole text. What an element is, `CorvaneMarkupTokenizer` tells.

#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <cstdint>
#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace corvanemarkup {

/// A half-open range of UTF-16 code units.
///
///     a<b>c
///      ^  ^
///      |  end: 4, the one behind the last
///      start: 1, the first
struct CorvaneCharRange
{
    std::int64_t start;
    std::int64_t end;
};

/// The first element that starts at or after `offset`: the position of its `<`, with its content (without
/// brackets) in `content`. -1, with `content` unchanged, if there is none. Offsets outside the text find
/// nothing.
[[nodiscard]] CORVANEMARKUP_EXPORT int FindNextMarkupElement(const TString& text, int offset,
                                                             TString& content);

/// The same, if `isKnownElement` accepts the content of that element; else -1. Only this one element is
/// looked at.
///
/// The predicate is always asked: if there is no element, with what `content` holds on entry. If it accepts,
/// `elementLength` becomes the length of that content plus 2 for the brackets, also where the result is -1.
/// If it refuses, `elementLength` stays unchanged, and `content` is that of the refused element.
[[nodiscard]] CORVANEMARKUP_EXPORT int
FindNextKnownMarkupElement(const TString& text, int offset, int& elementLength, TString& content,
                           const std::function<bool(const TString&)>& isKnownElement);

/// All elements that `isKnownElement` accepts, in text order: their ranges, brackets included, and their
/// contents.
///
/// From each offset at which no element is found, or a refused one, the walk goes on one code unit further.
/// So it also reads the text afresh from the second `<` of a doubled pair, and from within an element without
/// end:
///
///     <x>y<<z>      x [0, 3) and z [5, 8); CollectMarkupElements finds x alone
///
/// The predicate is asked at every step, with the empty string where no element is found, and may be asked
/// about one element many times. Beside the predicate, all of it takes time linear in the text and in the
/// different contents that the predicate sees.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<std::pair<CorvaneCharRange, TString>>
FindCharRangesOfKnownMarkupElements(TString text, const std::function<bool(const TString&)>& isKnownElement);

/// The contents of all elements, walking from the end of each to the next, up to the first that has no end.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString> CollectMarkupElements(const TString& text);

} // namespace corvanemarkup
