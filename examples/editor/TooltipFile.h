#pragma once

#include <QString>

namespace editor {

/// A tooltip as its file holds it: UTF-8, a byte order mark being part of the text.

/// Throws `std::runtime_error` with a message for the user.
[[nodiscard]] QString ReadTooltipFile(const QString& path);

/// Writes the whole file or leaves the one that is there. Throws `std::runtime_error` with a message for the
/// user, also if `text` holds a lone surrogate, for which UTF-8 has no form.
void WriteTooltipFile(const QString& path, const QString& text);

} // namespace editor
