#pragma once

#include "TooltipMarkup.h"

class QTextEdit;

namespace editor {

/// Draws a sketch of a tooltip: fields as chips, and sheets as boxes on the one scale at which the widest
/// fits. Other elements are shown as text, in red if they have a diagnostic. Shows a notice instead if the
/// tooltip is longer than 20,000 UTF-16 code units.
///
/// `elements` and `diagnostics` are those of the tooltip. A plain element is a field if `fields` contains it.
void DrawPreview(QTextEdit& sketch, const TString& tooltip, const std::vector<ElementRanges>& elements,
                 const std::vector<Diagnostic>& diagnostics, const QStringList& fields);

} // namespace editor
