#pragma once

#include <corvaneplatform/TString.h>

#include <string>
#include <vector>

namespace tooltipreport {

/// An element and where it stands in its tooltip, in UTF-16 code units.
struct Element
{
    int Start;       ///< of its `<`
    int End;         ///< one past its `>`
    TString Content; ///< between the two
};

/// All elements that a walk from the end of each to the next meets.
[[nodiscard]] std::vector<Element> FindElements(const TString& tooltip);

/// Where an element without end hides the rest of the tooltip: the position of the first `<` at or after
/// `offset`, which is the end of the last element. -1 if the tooltip is read to its end.
[[nodiscard]] int FindUnfinishedElement(const TString& tooltip, int offset);

/// `Start` and `End` as a half-open range, such as `[4, 12)`.
[[nodiscard]] std::string RangeText(const Element& element);

} // namespace tooltipreport
