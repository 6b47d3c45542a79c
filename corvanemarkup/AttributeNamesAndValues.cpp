#include <corvanemarkup/AttributeNamesAndValues.h>

#include <algorithm>
#include <functional>
#include <set>

namespace corvanemarkup {

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
    std::vector<TString> pieces;
    pieces.reserve(m_attributes.size() + 1);
    pieces.push_back(elementName);
    for (const AttributeNameAndValue& attribute : m_attributes)
        pieces.push_back(VizInTooltip::Impl::MakeSheetMarkupAttributeString(attribute));
    return MarkupText(TString::join(pieces, u' '));
}

TString VizInTooltip::Impl::MakeSheetMarkupAttributeString(const AttributeNameAndValue& attribute)
{
    TString escapedValue = attribute.Value;
    escapedValue.replace(u'"', TString(u"\"\"", 2));
    return attribute.Name.GetName() + u'=' + u'"' + escapedValue + u'"';
}

} // namespace corvanemarkup
