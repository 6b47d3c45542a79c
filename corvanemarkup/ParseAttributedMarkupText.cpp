#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/TokenReader.h>

namespace corvanemarkup {

using namespace Internal;

boost::optional<AttributeNamesAndValues> ParseAttributedMarkupText(const MarkupText& markupText,
                                                                   const TString& elementName)
{
    TokenReader reader(ViewOf(markupText));
    TokenView token;
    if (!reader.Next(token) || token.Text != ViewOf(elementName))
        return boost::none;

    std::vector<AttributeNameAndValue> attributes;
    while (reader.Next(token)) {
        if (token.Kind != TokenKind::Attribute)
            continue;
        const auto attribute = SplitAttribute(token.Text);
        if (!attribute)
            return boost::none;
        attributes.push_back(attribute->ToNameAndValue());
    }
    if (reader.Failed())
        return boost::none;
    return AttributeNamesAndValues(std::move(attributes));
}

} // namespace corvanemarkup
