#pragma once

/// Typos of one key in tooltips, and figures of how diagnostics report them.

#include <corvanemarkup/TextEdits.h>

#include <vector>

enum class TypoKind { None, Deletion, Insertion, Replacement, LetterCase, Swap, Two };

struct Typo
{
    TypoKind Kind;
    const TString* Tooltip; ///< without the typo
    std::vector<corvanemarkup::VizInTooltip::TextEdit> Edits;
    TString MistypedText;
    /// The valid sheet element of the tooltip that contains the edit, or all from the first to the last of
    /// two. Empty if there is none.
    corvanemarkup::CorvaneCharRange Element;
    bool IsInName; ///< in the raw value of such an element's `name`
    /// A sheet isn't in the mistyped text, in the same order and with the same name. A typo in a name may
    /// change that name, and further sheets are no loss.
    bool Loses;
    bool IsEscaped;         ///< the `<` of a valid sheet element is edited, or one half of a pair
    int Diagnostics;        ///< of the mistyped text, less those of the tooltip
    int Errors;             ///< likewise
    bool IsInValue = false; ///< of an attribute of such an element, or at its edge
    /// What the first fix of the first error gives, or of the first diagnostic; for those that lose a sheet.
    enum class Fixed {
        NotAtAll,
        OtherSheets,
        FewerOrMoreSheets,
        SameSheets,
        SameText
    } FirstFix = Fixed::NotAtAll;
};

/// Tooltips with valid sheet elements and without diagnostics.
const std::vector<TString>& TypoTooltips();
/// HTML-like texts in which no sheet is lost.
const std::vector<TString>& CleanPages();

/// Returns the typos of `tooltip`, which must outlive them, each mistyped text once: at each position, a unit
/// is removed, inserted, replaced by another one, in the other letter case (ASCII), or swapped with the next.
/// No surrogate pair is changed.
std::vector<Typo> FindTypos(const TString& tooltip);

/// Returns the typos of all tooltips, then 3,000 random pairs of those that lose a sheet, in two sheet
/// elements of one tooltip, then the tooltips and the clean pages themselves.
std::vector<Typo> FindTypos(const std::vector<TString>& tooltips);

/// Which of some typos are badly reported.
struct TypoFigure
{
    const char* Name;
    bool (*IsAmong)(const Typo&);
    bool (*IsMiss)(const Typo&);
};

const std::vector<TypoFigure>& TypoFigures();

struct TypoShare
{
    int Misses = 0;
    int Typos = 0;
    void Add(const TypoFigure& figure, const Typo& typo)
    {
        Typos += figure.IsAmong(typo) ? 1 : 0;
        Misses += figure.IsAmong(typo) && figure.IsMiss(typo) ? 1 : 0;
    }
    [[nodiscard]] double Percent() const { return Typos == 0 ? 0 : 100.0 * Misses / Typos; }
};
