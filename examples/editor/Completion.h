#pragma once

/// What can stand at an editor's cursor.

#include "TooltipMarkup.h"

#include <QStringList>

#include <vector>

namespace editor {

/// The field that stands alone in a filter.
const QString AllFields = QStringLiteral("All");

/// What the tooltip or its host knows; the fields without the one that stands alone.
struct KnownNames
{
    QStringList Fields;
    QStringList Sheets;
};

struct Completion
{
    QString Shown;
    TextEdit Edit; ///< replaces what was begun
};

/// All that goes on from what stands in front of the cursor: fields in a filter, sheets in a `name`, names of
/// attributes elsewhere in a sheet element, and fields and sheets as elements in other text. Takes time
/// linear in the tooltip.
[[nodiscard]] std::vector<Completion> FindCompletions(const TString& tooltip, int cursor,
                                                      const KnownNames& known);

} // namespace editor
