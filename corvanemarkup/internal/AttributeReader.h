#pragma once

/// Parses one attribute, `name="value"`, on views of the text.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/internal/TextView.h>

#include <boost/optional.hpp>

#include <string>

namespace corvanemarkup::Internal {

/// Returns whether the texts are equal as attribute names. Requires that the platform's case folding doesn't
/// make texts of different lengths equal.
[[nodiscard]] bool AreSameAttributeName(TextView left, TextView right);

/// Appends the unescaped value, with doubled quotes made single.
void AppendUnescaped(TextView rawValue, std::u16string& value);
/// Returns the unescaped value. Doesn't search for quotes unless `mayHoldQuotes`.
[[nodiscard]] TString Unescape(TextView rawValue, bool mayHoldQuotes = true);

/// An attribute token split at its first `=`.
struct AttributeView
{
    TextView Name;
    TextView RawValue; ///< without the enclosing quotes

    [[nodiscard]] AttributeNameAndValue ToNameAndValue() const;
};

/// Returns none if the token has no `=`, or if what follows it isn't enclosed in quotes.
[[nodiscard]] boost::optional<AttributeView> SplitAttribute(TextView token);

} // namespace corvanemarkup::Internal
