#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/internal/MarkupWriter.h>

#include <algorithm>
#include <functional>
#include <set>

namespace corvanemarkup {

using namespace Internal;

bool AttributeNamesAndValues::HasDuplicates() const
{
    std::set<std::reference_wrapper<const AttributeName>, std::less<AttributeName>> names;
    for (const AttributeNameAndValue& attribute : m_attributes)
        names.insert(attribute.Name);
    return names.size() < m_attributes.size();
}

AttributeNamesAndValues::const_iterator AttributeNamesAndValues::Find(const AttributeName& name) const
{
    return std::find_if(m_attributes.begin(), m_attributes.end(),
                        [&](const AttributeNameAndValue& attribute) { return attribute.Name == name; });
}

boost::optional<TString> AttributeNamesAndValues::GetAttributeValueForName(const AttributeName& name) const
{
    const auto found = Find(name);
    return found == m_attributes.end() ? boost::optional<TString>() : found->Value;
}

AttributeNamesAndValues AttributeNamesAndValues::ReplaceOrAdd(const AttributeName& name,
                                                              const TString& value) const
{
    std::vector<AttributeNameAndValue> attributes = m_attributes;
    const auto index = Find(name) - m_attributes.begin();
    if (index < static_cast<std::ptrdiff_t>(attributes.size()))
        attributes[static_cast<std::size_t>(index)] = {name, value};
    else
        attributes.push_back({name, value});
    return AttributeNamesAndValues(std::move(attributes));
}

MarkupText AttributeNamesAndValues::ToMarkupText(const TString& elementName) const
{
    std::uint64_t length = ViewOf(elementName).size();
    for (const AttributeNameAndValue& attribute : m_attributes)
        length += 1 + CanonicalLength(ViewOf(attribute.Name.GetName()), ViewOf(attribute.Value));

    std::u16string text = TextWithRoomFor(length);
    text.append(ViewOf(elementName));
    for (const AttributeNameAndValue& attribute : m_attributes) {
        text += u' ';
        AppendCanonical(ViewOf(attribute.Name.GetName()), ViewOf(attribute.Value), text);
    }
    return MarkupText(ToString(text));
}

TString VizInTooltip::Impl::MakeSheetMarkupAttributeString(const AttributeNameAndValue& attribute)
{
    const TextView name = ViewOf(attribute.Name.GetName());
    const TextView value = ViewOf(attribute.Value);
    std::u16string text = TextWithRoomFor(CanonicalLength(name, value));
    AppendCanonical(name, value, text);
    return ToString(text);
}

} // namespace corvanemarkup
