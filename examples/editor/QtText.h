#pragma once

#include <corvaneplatform/TString.h>

#include <QString>

#include <climits>
#include <stdexcept>

/// Where Qt's text and the library's meet. Both are UTF-16, and each is copied unit for unit: a byte order
/// mark, U+0000 and lone surrogates stay as they are.

/// Throws `std::length_error` if `text` has more than `INT_MAX` code units.
[[nodiscard]] inline TString ToTString(const QString& text)
{
    if (text.size() > INT_MAX)
        throw std::length_error("text too long");
    return TString(QStringView(text).utf16(), static_cast<int>(text.size()));
}

[[nodiscard]] inline QString ToQString(const TString& text)
{
    // QString::fromUtf16 would take a byte order mark away.
    return QStringView(text.constData(), text.length()).toString();
}
