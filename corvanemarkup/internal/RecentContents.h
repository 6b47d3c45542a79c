#pragma once

#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// The contents of the elements found last, for a walk whose offsets never fall and which meets an element
/// that is refused over and over.
///
/// While the walk stands in front of such an element, what it meets by turns depends on two things alone: the
/// state in which a scan comes by the element's `<` (outside, in a sheet element, between quotes; a plain
/// element restarts there, and so makes no state of its own), and whether it reads a run of delimiters from
/// an even or an odd place. That makes six different elements at most, so that six are remembered: none is
/// copied again as long as the walk can meet it.
class RecentContents
{
public:
    explicit RecentContents(TextView text) : m_text(text) {}

    /// The content of an element; an empty string if there is none. A caller that takes the string doesn't
    /// ask for this element again.
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
