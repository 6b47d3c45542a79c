#pragma once

/// A unified diff, from the edits that make it.

#include "Files.h"

#include <corvanemarkup/TextEdits.h>

#include <ostream>
#include <vector>

namespace tooltipreport {

/// Writes what `edits`, which come in the order of the text, change in a file, for `patch -p1` and
/// `git apply`. Nothing without edits. An edit may not insert after the last line end.
void WriteDiff(std::ostream& out, const TooltipFile& file,
               const std::vector<corvanemarkup::VizInTooltip::TextEdit>& edits);

} // namespace tooltipreport
