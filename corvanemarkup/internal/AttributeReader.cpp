#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>

namespace corvanemarkup::Internal {

bool AreSameAttributeName(TextView left, TextView right)
{
    // Identical texts are equal under any case folding. The usual case needs no copy.
    return left.size() == right.size() &&
           (AreSame(left, right) || AttributeName(ToString(left)) == AttributeName(ToString(right)));
}

void AppendUnescaped(TextView rawValue, std::u16string& value)
{
    value.reserve(value.size() + rawValue.size());
    std::size_t copied = 0;
    for (std::size_t quote = FindFirstOf<u'"'>(rawValue, 0); quote != NotFound;
         quote = FindFirstOf<u'"'>(rawValue, copied)) {
        value.append(rawValue, copied, quote + 1 - copied);
        copied = quote + (IsDoubled(rawValue, quote) ? 2 : 1);
    }
    value.append(rawValue, copied, NotFound);
}

TString Unescape(TextView rawValue, bool mayHoldQuotes)
{
    if (!mayHoldQuotes || FindFirstOf<u'"'>(rawValue, 0) == NotFound)
        return ToString(rawValue);
    std::u16string value;
    AppendUnescaped(rawValue, value);
    return ToString(value);
}

boost::optional<AttributeView> SplitAttribute(TextView token)
{
    const std::size_t equals = FindFirstOf<u'='>(token, 0);
    if (equals == NotFound)
        return boost::none;
    const TextView value = token.substr(equals + 1);
    if (value.size() < 2 || value.front() != u'"' || value.back() != u'"')
        return boost::none;
    return AttributeView{token.substr(0, equals), value.substr(1, value.size() - 2)};
}

AttributeNameAndValue AttributeView::ToNameAndValue() const
{
    return {AttributeName(ToString(Name)), Unescape(RawValue)};
}

} // namespace corvanemarkup::Internal
