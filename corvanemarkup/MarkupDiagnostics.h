#pragma once

/// Diagnostics: what is wrong with a tooltip, where, and in which words. An element is called Sheet, readable
/// or valid as `ElementKind` defines it.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <set>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// The values are contiguous and never change; new kinds are appended.
enum class DiagnosticKind : std::int32_t {
    /// **Of any element**
    ///
    UnterminatedElement = 0, ///< no bracket closes it: from its `<` to the end of the text
    UnterminatedQuotes = 1,  ///< likewise, because the text ends inside quotes that protect brackets
    InterruptedElement = 2,  ///< abandoned at a further `<`: up to that
    StrayAngleBracket = 17, ///< instead of the above if white space or a digit follows the `<`, as in `x < 5`

    /// **Of broken sheet elements**
    ///
    MisspelledElement = 16,  ///< the element's name, at most one edit from `Sheet`
    WrongLetterCase = 3,     ///< the element's name, which differs from `Sheet` in letter case only
    MissingAttributes = 4,   ///< the element's name, which only white space follows
    InvalidWhiteSpace = 5,   ///< white space other than spaces between attributes
    SpaceAroundEquals = 6,   ///< an attribute with white space before or after its `=`
    UnquotedValue = 7,       ///< an attribute whose value isn't enclosed in quotes
    MissingValue = 8,        ///< an attribute without an `=`, or with nothing after it
    QuotesOpenAtBracket = 9, ///< an attribute whose quotes aren't closed where its value ends

    /// **Of readable elements that end with a bracket,** as `VizInTooltipProperties` validates them
    ///
    DuplicateAttribute = 10, ///< each attribute whose name an earlier one has
    MissingSheetName = 11,   ///< the empty `name`, or the element if it has none
    InvalidSheetSize = 12,   ///< the `maxwidth` or `maxheight` that is out of range
    UnknownAttribute = 13,   ///< an attribute that a sheet element can't have

    /// **Of valid elements**
    ///
    StrayFilterText = 14,  ///< text in a filter outside fields, other than commas and spaces
    DuplicateField = 15,   ///< each field that occurs earlier in the same filter
    TextAfterElement = 20, ///< attributes of a sheet element in the text right after one

    /// **Of text that would be a valid sheet element**
    ///
    EscapedElement = 18, ///< if its `<` were not doubled
    MissingBracket = 19, ///< if it had a `<`

    /// **Of names,** if the known ones are passed
    ///
    UnknownSheet = 21,
    UnknownField = 22
};

enum class DiagnosticSeverity : std::int32_t {
    /// A sheet is lost, or a name doesn't exist: the kind is `UnterminatedQuotes`, `MisspelledElement`,
    /// `UnknownSheet` or `UnknownField`, or the element was meant as a sheet element and isn't valid. It was
    /// if it is called Sheet, and contains an `=` or is guessed as described at `FindDiagnostics`.
    Error = 0,
    /// Possibly intended, such as the `<` in `x < 5`.
    Warning = 1
};

/// Ranges are half-open, in UTF-16 code units of the tooltip.
struct Diagnostic
{
    DiagnosticKind Kind;
    DiagnosticSeverity Severity;
    CorvaneCharRange Range; ///< what to underline
    /// The element that contains it, as in `ElementRanges::Element` or, if it was guessed, as it was meant.
    CorvaneCharRange Element;
};

/// The sheets and fields that a host has; none for what isn't to be checked.
struct KnownNames
{
    boost::optional<std::set<TString>> Sheets;
    boost::optional<std::set<TString>> Fields;
};

/// Returns all diagnostics of a tooltip, ascending by the start of their ranges, then by kind. Ranges may
/// overlap.
///
///     <Sheet name="A" filter="<x>,<x>,y"> <Sheet name = "B"> <Shet name="C"> if < 5 <b>
///                                 ^^^                                                      DuplicateField
///                                     ^                                                    StrayFilterText
///                                                ^^^^^^^^^^ SpaceAroundEquals
///                                                             ^^^^                         MisspelledElement
///                                                                               ^^^^       StrayAngleBracket
///
/// Each has a cause of its own: what follows from another mistake isn't reported. For that, a broken element
/// whose name is at most one edit from `Sheet` is read as the valid sheet element that the fewest mistakes
/// separate from it: an edit is a unit inserted, deleted or replaced, or two swapped; white space around a
/// `=`, missing and other quotes, and the like count as mistakes, too. This is a guess, and fails if there
/// are too many of them; the element is then read up to its end. In either case, it extends at most to the
/// next evident start of a sheet element, `<Sheet` and one of its attributes with a `=`. Diagnostics of the
/// text after it are those of a tooltip that begins there.
///
/// With `knownNames`, also reports the reachable names of `FindSheetAndFieldNames` that aren't known.
///
/// Takes time linear in the text, except for sorting fields and names.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<Diagnostic> FindDiagnostics(const TString& tooltipText,
                                                                           const KnownNames& knownNames = {});

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
/// For an unknown name, names the nearest of `knownNames`, if one is near.
/// Text that is quoted is shortened to about 40 code units, and its control characters and line separators
/// become spaces. Returns an empty text if the kind isn't an enumerator or `Range` isn't within
/// `tooltipText`. The words may change between versions. Time doesn't depend on the length of the tooltip,
/// but on the number of known names.
[[nodiscard]] CORVANEMARKUP_EXPORT TString GetDiagnosticMessage(const TString& tooltipText,
                                                                const Diagnostic& diagnostic,
                                                                const KnownNames& knownNames = {});

} // namespace corvanemarkup::VizInTooltip
