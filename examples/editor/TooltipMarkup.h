#pragma once

/// What the library tells of a tooltip, in the words, kinds and colours of an editor.

#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <QPalette>
#include <QString>

namespace editor {

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

enum class ElementKind { Plain, Sheet, InvalidSheet, Unfinished };

/// `element` must be one of the elements of `tooltip`, as in what follows.
[[nodiscard]] ElementKind KindOf(const TString& tooltip, const ElementRanges& element);

/// The element as a sheet element, valid or not; none if it can't be read as one.
[[nodiscard]] boost::optional<VizInTooltipProperties> SheetIn(const TString& tooltip,
                                                              const ElementRanges& element);

/// The target sheet of the element; empty unless it is a valid sheet element.
[[nodiscard]] QString SheetOf(const TString& tooltip, const ElementRanges& element);

/// What is wrong, as an English sentence.
[[nodiscard]] QString SentenceOn(MarkupFaultKind kind);

[[nodiscard]] TString Piece(const TString& text, CorvaneCharRange range);

enum Hue { Red = 0, Amber = 35, Green = 130, Blue = 215, Violet = 285 };

/// Colours of letters and of their ground that can be read on the palette's base, light or dark.
[[nodiscard]] inline QColor Ink(const QPalette& palette, Hue hue)
{
    return QColor::fromHsl(hue, 200, palette.base().color().lightness() < 128 ? 190 : 75);
}
[[nodiscard]] inline QColor Tint(const QPalette& palette, Hue hue)
{
    return QColor::fromHsl(hue, 120, palette.base().color().lightness() < 128 ? 50 : 235);
}

} // namespace editor
