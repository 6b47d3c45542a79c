#pragma once

/// A cache of element contents for `FindCharRangesOfKnownMarkupElements`.

#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Caches the contents of the last six elements, for a walk whose offsets never decrease and which finds a
/// rejected element repeatedly.
///
/// While the walk is before the `<` of such an element, which element a scan finds depends only on two
/// things: its state at that `<` (outside, in a sheet element, or inside quotes; a plain element is
/// interrupted there, and isn't a state of its own), and whether it reads a run of delimiters from an even or
/// an odd position. These are at most six different elements: none is copied twice while the walk can find it
/// again.
class RecentContents
{
public:
    explicit RecentContents(TextView text) : m_text(text) {}

    /// Returns the content of an element; an empty string if there is none. A caller may move from the string
    /// if it never asks for that element again.
    TString& ContentOf(ElementBounds element);

private:
    struct Content
    {
        ElementBounds Bounds;
        TString Text;
    };

    TextView m_text;
    TString m_nothing;
    Content m_recent[6];
    std::size_t m_oldest = 0;
};

} // namespace corvanemarkup::Internal
