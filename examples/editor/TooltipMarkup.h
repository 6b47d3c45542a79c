#pragma once

/// The library's names, and the colours of elements.

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>

#include <QPalette>

namespace editor {

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

enum Hue { Red = 0, Amber = 35, Green = 130, Blue = 215, Violet = 285 };

/// Colours of text and of its background that are legible on the palette's base, light or dark.
[[nodiscard]] inline QColor Ink(const QPalette& palette, Hue hue)
{
    return QColor::fromHsl(hue, 200, palette.base().color().lightness() < 128 ? 190 : 75);
}
[[nodiscard]] inline QColor Tint(const QPalette& palette, Hue hue)
{
    return QColor::fromHsl(hue, 120, palette.base().color().lightness() < 128 ? 50 : 235);
}

} // namespace editor
