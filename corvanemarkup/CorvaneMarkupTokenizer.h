#pragma once

/// Finds the elements of a tooltip text one by one:
///
///     See <b>the <Sheet name="Q1 > Q2"> of <<2024>>
///         ^^^    ^^^^^^^^^^^^^^^^^^^^^^
///         elements; `<<` and `>>` are escaped
///
/// - A doubled delimiter is escaped and delimits nothing. A run of the same delimiter is read in pairs, from
///   its left end.
/// - An element is interrupted by a further `<` before its `>`: another element starts there.
/// - Quotes protect brackets only in a sheet element, and from there up to the next `>` that ends an element,
///   even if the sheet element is interrupted.

#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <utility>

namespace corvanemarkup {

/// A scanner over one text. Positions are in UTF-16 code units; -1 means not found. Each search takes time
/// linear in the text.
class CORVANEMARKUP_EXPORT CorvaneMarkupTokenizer
{
public:
    explicit CorvaneMarkupTokenizer(const TString& text) : m_text(text) {}
    explicit CorvaneMarkupTokenizer(TString&& text) : m_text(std::move(text)) {}

    /// Finds the first element that starts at or after `offset`, and returns the position of its `<`. Returns
    /// -1 if there is none or if it is unterminated, without searching for later elements, and for an offset
    /// outside the text.
    ///
    /// Afterwards, `GetOffset` and `GetTokenStart` return:
    /// - if an element was found, the positions of its `>` and of its `<`;
    /// - if there is no `<`, -1 and the previous start;
    /// - if the element is unterminated, -1 and -1.
    int FindNextMarkupElement(int offset);

    /// Returns the text between the brackets of the current element; doubled delimiters stay doubled. Throws
    /// through `ThrowLogicException` ("m_offset >= 0") before any search and after one that found nothing.
    [[nodiscard]] TString GetContentOfCurrentMarkupElement() const;

    /// Returns `VizInTooltip::Impl::IsSheetMarkupText` for this text.
    [[nodiscard]] bool IsTextAtOffsetSheetMarkup(int offset) const;

    /// Returns the scanning position; -1 before any search and after one that failed.
    [[nodiscard]] int GetOffset() const { return m_offset; }
    /// Returns the start that the last search or step left, or -1; see `FindNextMarkupElement`.
    [[nodiscard]] int GetTokenStart() const { return m_tokenStart; }

    /// \name The steps of a search
    /// For custom scans. Each step continues from the scanning position; from -1, only
    /// `FindEndOfTokenAndUpdateStartIfNeeded` moves. In whatever order they are called,
    /// positions are -1 or within the text.
    /// @{

    /// Moves to the next of `delimiters` that isn't escaped, or to -1. Stays at -1.
    void FindOneOfNotEscaped(const TString& delimiters);
    /// Moves to the next `<` that isn't escaped, which becomes the start of the current element; or moves to
    /// -1.
    void FindStartOfToken();
    /// From the `<` of an element, moves to its `>`. If the element is interrupted, its start moves to the
    /// further `<`, and so forth. If it is unterminated, the position and the start become -1. Quotes protect
    /// brackets from the beginning if `isSheetMarkup`, and otherwise once a sheet element starts at a further
    /// `<`. From -1, the search begins at the beginning of the text.
    void FindEndOfTokenAndUpdateStartIfNeeded(bool isSheetMarkup);

    /// @}

private:
    TString m_text;
    int m_offset = -1;
    int m_tokenStart = -1;
};

} // namespace corvanemarkup
