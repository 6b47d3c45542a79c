#pragma once

#include <QString>

namespace editor {

/// Tooltip files: UTF-8. A byte order mark is part of the text.

/// Throws `std::runtime_error` with a message for the user.
[[nodiscard]] QString ReadTooltipFile(const QString& path);

/// Writes the whole file, or leaves an existing one unchanged. Throws `std::runtime_error` with a message for
/// the user, also if `text` contains a lone surrogate, which UTF-8 cannot encode.
void WriteTooltipFile(const QString& path, const QString& text);

} // namespace editor
