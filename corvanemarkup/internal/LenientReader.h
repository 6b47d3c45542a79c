#pragma once

/// Reading the attributes of a sheet element as its author may have meant them, where the rules refuse them.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// An attribute as meant, and what the rules have against it.
struct MeantAttribute
{
    enum class Fault { None, SpaceAroundEquals, UnquotedValue, MissingValue, OpenQuotes };

    TextView Whole;
    Fault Reason; ///< the first that fits
};

/// Reads the attribute that starts at `position`, where no white space stands. Any white space outside of
/// quotes ends it, unless its `=` or its value follows. Apart from that it ends where the rules
/// end one. If no white space but spaces and no space at a `=` is met in a content, an attribute without a
/// `Reason` is one that the rules accept.
[[nodiscard]] MeantAttribute ReadMeantAttribute(TextView content, std::size_t position);

} // namespace corvanemarkup::Internal
