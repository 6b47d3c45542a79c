#pragma once

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Whether the platform's `TString::Trim` strips `unit`. Spaces and printable ASCII, which is nearly all that
/// is asked for, are answered here.
[[nodiscard]] inline bool IsWhiteSpace(char16_t unit)
{
    if (unit >= u' ' && unit <= u'~')
        return unit == u' ';
    return TString(&unit, 1).Trim().empty();
}

/// The first position at or after `from` without white space; the length of the text if there is none.
[[nodiscard]] inline std::size_t SkipWhiteSpace(TextView text, std::size_t from)
{
    while (from < text.size() && IsWhiteSpace(text[from]))
        ++from;
    return from;
}

} // namespace corvanemarkup::Internal
