#pragma once

/// Reading sheet markup on views of the text.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/TextView.h>

#include <boost/optional.hpp>

namespace corvanemarkup::Internal {

/// Whether `text` is equal to `name` as an attribute name. Asks of the platform's rule of letter case that it
/// makes no texts of different lengths equal.
[[nodiscard]] bool IsAttributeName(TextView text, const AttributeName& name);

/// `IsSheetMarkupText` on a view. Reads the element name, a run of white space, and at most the length of the
/// longest attribute name, or white space to the end of the text.
[[nodiscard]] bool IsSheetMarkup(TextView text, std::size_t offset);

/// The value that `escapedValue` stands for, with its doubled quotes made single.
[[nodiscard]] TString Unescape(TextView escapedValue);

/// An attribute token split at its first `=`.
struct AttributeView
{
    TextView Name;
    TextView EscapedValue; ///< between the quotes, with doubled quotes

    [[nodiscard]] AttributeNameAndValue ToNameAndValue() const;
};

/// None if the token has no `=`, or if what follows it isn't enclosed in quotes.
[[nodiscard]] boost::optional<AttributeView> SplitAttribute(TextView token);

} // namespace corvanemarkup::Internal
