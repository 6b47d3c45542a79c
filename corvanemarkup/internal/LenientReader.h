#pragma once

/// Reads the attributes of an unreadable sheet element as its author probably meant them.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// An attribute, and why the parser rejects it.
struct LenientAttribute
{
    enum class Problem { None, SpaceAroundEquals, UnquotedValue, MissingValue, UnterminatedQuotes };

    TextView Whole;
    Problem FirstProblem; ///< the first that applies
};

/// Returns the attribute that starts at `position`, which must not be at white space. Unlike for the parser,
/// any white space outside quotes ends it, unless its `=` or its value follows. In a content whose only white
/// space outside quotes is spaces, none of them next to a `=`, the parser accepts an attribute exactly if it
/// has `Problem::None`.
[[nodiscard]] LenientAttribute ReadLenientAttribute(TextView content, std::size_t position);

} // namespace corvanemarkup::Internal
