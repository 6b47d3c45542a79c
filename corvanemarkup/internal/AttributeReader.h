#pragma once

/// Reading one attribute, `name="value"`, on views of the text.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/internal/TextView.h>

#include <boost/optional.hpp>

#include <string>

namespace corvanemarkup::Internal {

/// Whether the texts are equal as attribute names. Asks of the platform's rule of letter case that it makes
/// no texts of different lengths equal.
[[nodiscard]] bool AreSameAttributeName(TextView left, TextView right);

/// Appends the value that `escapedValue` stands for, with its doubled quotes made single.
void AppendUnescaped(TextView escapedValue, std::u16string& value);
/// The same as a string. A value that is known to hold no quotes isn't searched for them.
[[nodiscard]] TString Unescape(TextView escapedValue, bool mayHoldQuotes = true);

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
