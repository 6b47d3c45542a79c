#pragma once

#include <corvaneplatform/TString.h>

#include <QString>

#include <climits>
#include <stdexcept>

/// Conversions between Qt's strings and the library's. Both are UTF-16; every code unit is preserved,
/// including a byte order mark, U+0000 and lone surrogates.

/// Throws `std::length_error` if `text` has more than `INT_MAX` code units.
[[nodiscard]] inline TString ToTString(const QString& text)
{
    if (text.size() > INT_MAX)
        throw std::length_error("text too long");
    return TString(QStringView(text).utf16(), static_cast<int>(text.size()));
}

[[nodiscard]] inline QString ToQString(const TString& text)
{
    // QString::fromUtf16 would remove a byte order mark.
    return QStringView(text.constData(), text.length()).toString();
}
