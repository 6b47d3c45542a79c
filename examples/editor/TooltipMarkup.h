#pragma once

/// What the library tells of a tooltip, in the words and kinds of an editor.

#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvaneplatform/TString.h>

#include <QString>

namespace editor {

enum class ElementKind { Plain, Sheet, InvalidSheet, Unfinished };

/// `element` must be one of the elements of `tooltip`.
[[nodiscard]] ElementKind KindOf(const TString& tooltip,
                                 const corvanemarkup::VizInTooltip::ElementRanges& element);

/// The target sheet of the element; empty unless it is a valid sheet element.
[[nodiscard]] TString SheetOf(const TString& tooltip,
                              const corvanemarkup::VizInTooltip::ElementRanges& element);

/// What is wrong, as an English sentence.
[[nodiscard]] QString SentenceOn(corvanemarkup::VizInTooltip::MarkupFaultKind kind);

/// What a range of the text holds.
[[nodiscard]] TString Piece(const TString& text, corvanemarkup::CorvaneCharRange range);

} // namespace editor
