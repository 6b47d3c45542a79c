#pragma once

/// Completions at an editor's cursor.

#include "TooltipMarkup.h"

#include <QStringList>

#include <vector>

namespace editor {

/// The exclusive field: a filter with it has no other.
const QString AllFields = QStringLiteral("All");

/// The names that the tooltip or its host defines. `Fields` does not contain `AllFields`.
struct HostNames
{
    QStringList Fields;
    QStringList Sheets;
};

struct Completion
{
    QString Shown;
    TextEdit Edit; ///< replaces the text to complete
};

/// Returns the completions of the text before the cursor: fields in a filter, sheets in a `name`, attributes
/// elsewhere in a sheet element, and fields and sheets as elements in other text. Takes time linear in the
/// tooltip.
[[nodiscard]] std::vector<Completion> FindCompletions(const TString& tooltip, int cursor,
                                                      const HostNames& known);

} // namespace editor
