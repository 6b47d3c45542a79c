#pragma once

/// Fixes: what would mend a diagnostic.

#include <corvanemarkup/Export.h>
#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/TextEdits.h>
#include <corvaneplatform/TString.h>

#include <vector>

namespace corvanemarkup::VizInTooltip {

/// A change that mends one diagnostic.
struct MarkupFix
{
    TString Title;               ///< short, in English, such as `Write 'Sheet'`
    std::vector<TextEdit> Edits; ///< for `ApplyTextEdits`
    /// Whether what was meant is evident: the letter case of the element's name, white space, the quotes
    /// around a value whose end is evident, a `/` before the bracket, a repeated attribute with the same
    /// value, a repeated field, and the number in a size such as `+300` or `300px`. Anything else is a
    /// suggestion.
    bool IsSafe;
};

/// Returns what would mend a diagnostic of `FindDiagnostics`, the most likely first:
///
///     <Shet name="A">        Write 'Sheet'
///     <Sheet name=A>         Write 'name="A"', safe
///     <Sheet name="A         Add the closing quote and '>' after 'A'
///     if < 5, see <b>        Write '<<'
///     <Sheet name="Slaes">   Write 'Sales', with known names
///
/// After a fix, its diagnostic is gone, and no new error is in the edited element. A valid sheet element that
/// it edits keeps its name, its size and every different field if the fix is safe.
///
/// Returns nothing if no fix is known, or if the kind or the ranges don't fit the text. Takes time linear in
/// `Diagnostic::Element`, and in the number of known names; what was meant by elements of more than some
/// thousands of units isn't guessed.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<MarkupFix>
FindFixes(const TString& tooltipText, const Diagnostic& diagnostic, const KnownNames& knownNames = {});

/// Returns the edits of all safe fixes, and of those that become safe by them, for `ApplyTextEdits`. On the
/// result, it returns none. A long element with many diagnostics is left as it is: of more than 32,768 / n
/// units with n diagnostics, unless n is at most 2. Takes time linear in the text.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TextEdit> FixTooltip(const TString& tooltipText);

} // namespace corvanemarkup::VizInTooltip
