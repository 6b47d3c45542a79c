#pragma once

/// Checks whether an edited element reads back as expected, within its tooltip.

#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/FewOrMany.h>
#include <corvanemarkup/internal/TextView.h>

#include <string>
#include <vector>

namespace corvanemarkup::Internal {

/// The attributes of a readable element, as `ElementKind` defines it.
struct ReadableElement
{
    FewOrMany<AttributeParts> Attributes;
    std::size_t Filter = NotFound; ///< the index of the first `filter`
};

/// Reads the attributes of `content` into `element`, whose memory is reused. Returns false if `content` isn't
/// readable; `element` is unspecified then.
[[nodiscard]] bool ReadElement(TextView content, ReadableElement& element);

/// Returns whether an element with that content, a view of a part of `text`, is plain: the look-ahead doesn't
/// recognize it as a sheet element, and it isn't readable.
[[nodiscard]] bool IsPlain(TextView text, TextView content);

/// Implements `IsFieldName` on a view.
[[nodiscard]] bool CanNameField(TextView name);

/// An edited content, and what it must read back as.
struct ExpectedElement
{
    std::u16string NewContent;
    std::size_t AttributeCount;
    std::size_t Filter;           ///< the index of the first `filter`; `NotFound` if there is none
    std::vector<TextView> Fields; ///< the unescaped fields of that filter, without brackets
};

/// Returns whether the edited element ends at the same bracket, and has that number of attributes and those
/// fields.
///
/// Re-parsing this one element suffices. Any earlier element ends or is interrupted before it; the walk has
/// no state after it; and the look-ahead at an earlier `<` never reads past the next bracket that isn't
/// escaped or protected.
[[nodiscard]] bool ReadsBackAs(const WalkedElement& old, const ExpectedElement& expected);

/// Returns whether a plain element with the content `newContent`, a field's name, still ends at its bracket.
[[nodiscard]] bool ReadsBackAsPlain(const WalkedElement& old, TextView newContent);

} // namespace corvanemarkup::Internal
