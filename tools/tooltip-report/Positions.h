#pragma once

/// Lines and columns of a tooltip, and lines with a ruler.

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <string>
#include <vector>

namespace tooltipreport {

/// Both start at 1. A line ends with U+000A, which is its last column. A column is a code point.
struct LineAndColumn
{
    int Line;
    int Column;
};

/// Returns, for example, `2:14`.
[[nodiscard]] std::string ToText(LineAndColumn position);

/// Converts between offsets in UTF-16 code units and lines and columns. Takes time linear in the text to
/// construct; `At` takes constant time, `OffsetOf` logarithmic time. The text must outlive it.
class Positions
{
public:
    explicit Positions(const TString& text);

    /// Precondition: `offset` is in the text or at its end.
    [[nodiscard]] LineAndColumn At(std::int64_t offset) const;
    /// Returns none if there is no such line or column. The end of the text has a column.
    [[nodiscard]] boost::optional<int> OffsetOf(LineAndColumn position) const;

private:
    const TString& m_text;
    std::vector<LineAndColumn> m_marks; // at every `interval`th code unit
};

/// The line where a range starts, and a line of `^` that underlines the range on a terminal; an empty range
/// has one `^`. A long line is shortened, with `…` at each cut.
struct RuledLine
{
    std::string Line;
    std::string Ruler;
};
[[nodiscard]] RuledLine RuleLine(const TString& text, corvanemarkup::CorvaneCharRange range);

} // namespace tooltipreport
