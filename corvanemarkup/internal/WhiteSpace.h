#pragma once

/// White space as the platform defines it.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Returns whether the platform's `TString::Trim` strips `unit`. The platform isn't called for printable
/// ASCII characters, which nearly all units are.
[[nodiscard]] inline bool IsWhiteSpace(char16_t unit)
{
    if (unit >= u' ' && unit <= u'~')
        return unit == u' ';
    return TString(&unit, 1).Trim().empty();
}

/// Returns the first position at or after `from` without white space; the length of the text if there is
/// none.
[[nodiscard]] inline std::size_t SkipWhiteSpace(TextView text, std::size_t from)
{
    while (from < text.size() && IsWhiteSpace(text[from]))
        ++from;
    return from;
}

/// Returns `text` without white space at its ends.
[[nodiscard]] inline TextView Trimmed(TextView text)
{
    text.remove_prefix(SkipWhiteSpace(text, 0));
    while (!text.empty() && IsWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace corvanemarkup::Internal
