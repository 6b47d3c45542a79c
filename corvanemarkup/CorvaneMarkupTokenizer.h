#pragma once

/// Finds the elements of a tooltip text one by one:
///
///     See <b>the <Sheet name="Q1 > Q2"> of <<2024>>
///         ^^^    ^^^^^^^^^^^^^^^^^^^^^^
///         elements; `<<` and `>>` are escaped
///
/// - A doubled delimiter is escaped, and no delimiter. A run of them is read in pairs from its left end.
/// - An element that meets another `<` before its `>` restarts there.
/// - Quotes protect brackets only inside a sheet element, and then up to its end, also if it restarts.

#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <utility>

namespace corvanemarkup {

/// A walk over one text. Positions count UTF-16 code units, and -1 means not found. Each search takes time
/// linear in the text.
class CORVANEMARKUP_EXPORT CorvaneMarkupTokenizer
{
public:
    explicit CorvaneMarkupTokenizer(const TString& text) : m_text(text) {}
    explicit CorvaneMarkupTokenizer(TString&& text) : m_text(std::move(text)) {}

    /// Finds the first element that starts at or after `offset`, and returns the position of its `<`. -1 if
    /// there is none, or if it has no end; later elements aren't looked for then. Offsets outside the text
    /// find nothing.
    ///
    /// What `GetOffset` and `GetTokenStart` tell after that:
    /// - element found: the position of its `>`, and of its `<`;
    /// - no `<`: -1, and the start as it was before;
    /// - no end: -1, and -1.
    int FindNextMarkupElement(int offset);

    /// The text between the brackets of the element just found, doubled delimiters left doubled. Throws
    /// through `ThrowLogicException` ("m_offset >= 0") before any search and after one that found nothing.
    [[nodiscard]] TString GetContentOfCurrentMarkupElement() const;

    /// `VizInTooltip::Impl::IsSheetMarkupText` on this text.
    [[nodiscard]] bool IsTextAtOffsetSheetMarkup(int offset) const;

    /// The scanning position; -1 before any search and after one that failed.
    [[nodiscard]] int GetOffset() const { return m_offset; }
    /// The position of the current element's `<`, or -1.
    [[nodiscard]] int GetTokenStart() const { return m_tokenStart; }

    /// \name The steps of a search
    /// For a walk of one's own. Each goes on from the scanning position. In whatever order they are called,
    /// positions stay within the text or are -1.
    /// @{

    /// Moves to the next of `delimiters` that isn't escaped, or to -1. Stays at -1.
    void FindOneOfNotEscaped(const TString& delimiters);
    /// Moves to the next `<` that isn't escaped, and takes it as the current element's start; or moves to -1.
    void FindStartOfToken();
    /// From an element's `<`, moves to its `>`, and moves the element's start to each `<` at which it
    /// restarts. If there is no end, both become -1. `isSheetMarkup` tells whether quotes protect brackets
    /// from the start; a restart as a sheet element turns this on. From -1 it searches the text from its
    /// beginning.
    void FindEndOfTokenAndUpdateStartIfNeeded(bool isSheetMarkup);

    /// @}

private:
    TString m_text;
    int m_offset = -1;
    int m_tokenStart = -1;
};

} // namespace corvanemarkup
