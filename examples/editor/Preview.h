#pragma once

#include "TooltipMarkup.h"

class QTextEdit;

namespace editor {

/// Draws a sketch of a tooltip: its fields as chips, and its sheets as boxes, all to one scale, so that the
/// widest fits. The library draws no tooltips, and what other elements stand for isn't guessed: they are
/// shown as they are written, the faulty ones marked. Of more than 20,000 units, it tells that alone.
/// `elements` and `faults` are those of the tooltip, and `fields` what counts as one.
void DrawPreview(QTextEdit& sketch, const TString& tooltip, const std::vector<ElementRanges>& elements,
                 const std::vector<MarkupFault>& faults, const QStringList& fields);

} // namespace editor
