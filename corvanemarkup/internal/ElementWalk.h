#pragma once

/// The walk over a tooltip from each element to the next, with what it gives up on its way.

#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// A `<` that the walk takes for the start of an element, up to where this ends or is given up.
struct WalkedElement
{
    enum class Ending { Bracket, Restart, EndOfText, EndOfTextInQuotes };

    TextView Whole;   ///< with its brackets
    TextView Content; ///< without
    Ending EndsWith;
    /// Whether quotes protect brackets in it, whatever it is, because they did in the one that restarted
    /// here.
    bool IsProtectedAnyway;
};

/// Gives each of them in text order. They don't overlap.
class ElementWalk
{
public:
    explicit ElementWalk(TextView text) : m_text(text) {}

    /// Sets `element` to the next one; false at the end.
    bool Next(WalkedElement& element);

private:
    TextView m_text;
    std::size_t m_position = 0; ///< where the search goes on, or the `<` at which the last element restarted
    bool m_isRestart = false;
    bool m_quotesProtect = false; ///< whether they did in the last element
};

} // namespace corvanemarkup::Internal
