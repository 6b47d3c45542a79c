#pragma once

/// Walks over all elements of a tooltip, including interrupted and unterminated ones.

#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// An element, from its `<` up to where it ends or is interrupted.
struct WalkedElement
{
    enum class Ending { Bracket, Interrupted, Unterminated, UnterminatedInQuotes };

    TextView Whole;   ///< including brackets
    TextView Content; ///< excluding brackets
    Ending EndsWith;
    /// Whether quotes protect brackets whatever the content, because they did in the element that this one
    /// interrupts.
    bool InheritsProtection;
};

/// Visits the elements in text order. They don't overlap.
class ElementWalk
{
public:
    /// Begins at `position`, as if no element were before it.
    explicit ElementWalk(TextView text, std::size_t position = 0) : m_text(text), m_position(position) {}

    /// Sets `element` to the next one; returns false at the end.
    bool Next(WalkedElement& element);

private:
    TextView m_text;
    std::size_t m_position; ///< the end of the last element, or the `<` that interrupted it
    bool m_wasInterrupted = false;
    bool m_quotesProtect = false; ///< in the last element
};

} // namespace corvanemarkup::Internal
