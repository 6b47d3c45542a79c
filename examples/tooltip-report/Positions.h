#pragma once

/// Lines and columns of a tooltip, and lines with a ruler below.

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <string>
#include <vector>

namespace tooltipreport {

/// Both count from 1. A line ends with U+000A, which is its last column. Columns count characters, that is
/// code points.
struct LineAndColumn
{
    int Line;
    int Column;
};

/// Such as `2:14`.
[[nodiscard]] std::string ToText(LineAndColumn position);

/// Translates between offsets in a text, in UTF-16 code units, and lines and columns. Reads the text once;
/// then a translation takes a fixed time. The text must outlive it.
class Positions
{
public:
    explicit Positions(const TString& text);

    /// `offset` lies in the text or at its end.
    [[nodiscard]] LineAndColumn At(std::int64_t offset) const;
    /// None if the text has no such line, or the line no such column. The end of the last line has one.
    [[nodiscard]] boost::optional<int> OffsetOf(LineAndColumn position) const;

private:
    const TString& m_text;
    std::vector<LineAndColumn> m_marks; // at every `interval`th code unit
};

/// The line where a range starts, and a line of `^` that stand below the range on a terminal. Of a long line
/// it is a part, with `…` where more follows; an empty range has one `^`.
struct RuledLine
{
    std::string Line;
    std::string Ruler;
};
[[nodiscard]] RuledLine RuleLine(const TString& text, corvanemarkup::CorvaneCharRange range);

} // namespace tooltipreport
