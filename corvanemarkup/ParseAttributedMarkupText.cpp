#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/internal/ContentReader.h>

namespace corvanemarkup {

using namespace Internal;

boost::optional<AttributeNamesAndValues> ParseAttributedMarkupText(const MarkupText& markupText,
                                                                   const TString& elementName)
{
    ContentReader reader(ViewOf(markupText));
    TokenView name{};
    if (!reader.Next(name) || name.Text != ViewOf(elementName))
        return boost::none;

    std::vector<AttributeNameAndValue> attributes;
    for (AttributeParts attribute; reader.Next(attribute);) {
        if (!attribute.IsNameAndValue)
            return boost::none;
        attributes.push_back(attribute.ToNameAndValue());
    }
    return AttributeNamesAndValues(std::move(attributes));
}

} // namespace corvanemarkup
