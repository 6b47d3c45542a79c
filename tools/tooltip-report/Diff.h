#pragma once

/// Unified diffs.

#include "Files.h"

#include <corvanemarkup/TextEdits.h>

#include <ostream>
#include <vector>

namespace tooltipreport {

/// Writes what `edits` change in a file as a unified diff for `patch -p1` and `git apply`; nothing if there
/// are no edits. Precondition: the edits are in text order, and none inserts after the last line end.
void WriteDiff(std::ostream& out, const TooltipFile& file,
               const std::vector<corvanemarkup::VizInTooltip::TextEdit>& edits);

} // namespace tooltipreport
