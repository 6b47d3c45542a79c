#pragma once

/// Diagnostics: what is wrong with a tooltip, where, and in which words. An element is called Sheet, readable
/// or valid as `ElementKind` defines it.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// The values are contiguous and never change; new kinds are appended.
enum class DiagnosticKind : std::int32_t {
    /// **Of any element**
    ///
    UnterminatedElement = 0, ///< no bracket closes it: from its `<` to the end of the text
    UnterminatedQuotes = 1,  ///< likewise, because the text ends inside quotes that protect brackets
    InterruptedElement = 2,  ///< abandoned at a further `<`: up to that

    /// **Of unreadable elements called Sheet, except unterminated ones:** each attribute has only the first
    /// that applies of `InvalidWhiteSpace` to `QuotesOpenAtBracket`
    ///
    WrongLetterCase = 3,     ///< the element's name, which isn't spelled `Sheet`
    MissingAttributes = 4,   ///< the element's name, which only white space follows
    InvalidWhiteSpace = 5,   ///< white space other than spaces between attributes; see `UnknownAttribute`
    SpaceAroundEquals = 6,   ///< an attribute with white space before or after its `=`
    UnquotedValue = 7,       ///< an attribute whose value isn't enclosed in quotes
    MissingValue = 8,        ///< an attribute without an `=`, or with nothing after it
    QuotesOpenAtBracket = 9, ///< an attribute whose quotes are still open where the element ends

    /// **Of readable elements that end with a bracket,** as `VizInTooltipProperties` validates them
    ///
    DuplicateAttribute = 10, ///< each attribute whose name an earlier one has
    MissingSheetName = 11,   ///< the empty `name`, or the element if it has none
    InvalidSheetSize = 12,   ///< the `maxwidth` or `maxheight` that is out of range
    /// An attribute that a sheet element can't have. Where white space other than spaces is part of its name
    /// and makes the difference, `InvalidWhiteSpace` is reported as well.
    UnknownAttribute = 13,

    /// **Of valid elements**
    ///
    StrayFilterText = 14, ///< text in a filter outside fields, other than commas and spaces
    DuplicateField = 15   ///< each field that occurs earlier in the same filter
};

enum class DiagnosticSeverity : std::int32_t {
    /// A sheet is lost: the kind is `UnterminatedQuotes`, or the element is called Sheet, contains an `=` and
    /// isn't valid.
    Error = 0,
    /// Possibly intended, such as the `<` in `x < 5`.
    Warning = 1
};

/// Ranges are half-open, in UTF-16 code units of the tooltip.
struct Diagnostic
{
    DiagnosticKind Kind;
    DiagnosticSeverity Severity;
    CorvaneCharRange Range;   ///< what to underline
    CorvaneCharRange Element; ///< the element that contains it, as in `ElementRanges::Element`
};

/// Returns all diagnostics of a tooltip, ascending by the start of their ranges, then by kind. Ranges may
/// overlap.
///
///     <Sheet name="A" filter="<x>,<x>,y"> <Sheet name = "B"> if < 5 <b>
///                                 ^^^                                      DuplicateField
///                                     ^                                    StrayFilterText
///                                                ^^^^^^^^^^                   SpaceAroundEquals, an error
///                                                               ^^^^       InterruptedElement
///
/// Takes time linear in the text, except for sorting fields and unknown attribute names.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<Diagnostic> FindDiagnostics(const TString& tooltipText);

/// Returns how many kinds there are. Their values are those from 0 to this number, exclusive.
[[nodiscard]] CORVANEMARKUP_EXPORT int GetDiagnosticKindCount() noexcept;

/// Returns the enumerator in kebab case, such as `unterminated-element`; null if `kind` isn't an enumerator.
/// An identifier never changes.
[[nodiscard]] CORVANEMARKUP_EXPORT const char* GetDiagnosticIdentifier(DiagnosticKind kind) noexcept;

/// Returns one English sentence, in ASCII, that explains the kind in general; null if `kind` isn't an
/// enumerator.
[[nodiscard]] CORVANEMARKUP_EXPORT const char* GetDiagnosticDescription(DiagnosticKind kind) noexcept;

/// Returns the kind with that identifier; none if there is no such kind.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<DiagnosticKind>
FindDiagnosticKind(const TString& identifier);

/// Returns a message in English: what is wrong, with the text in question, then what to do. It is on one
/// line, without a period at its end:
///
///     '<' is not closed before the next '<'; add '>', or write '<<' for a literal '<'
///
/// Text that is quoted is shortened to about 40 code units, and its control characters and line separators
/// become spaces. Returns an empty text if the kind isn't an enumerator or `Range` isn't within
/// `tooltipText`. The words may change between versions. Time doesn't depend on the length of the tooltip.
[[nodiscard]] CORVANEMARKUP_EXPORT TString GetDiagnosticMessage(const TString& tooltipText,
                                                                const Diagnostic& diagnostic);

} // namespace corvanemarkup::VizInTooltip
