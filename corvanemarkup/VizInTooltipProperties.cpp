#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/SheetSize.h>

#include <algorithm>

namespace corvanemarkup {

using namespace Internal;
using VizInTooltip::Impl::SheetMarkupAttribute;

namespace {

TString ElementName()
{
    return ToString(VizInTooltip::Impl::SheetMarkupElementLiteral);
}

AttributeName NameOf(SheetMarkupAttribute attribute)
{
    return AttributeName(ToString(LiteralOf(attribute)));
}

TString DecimalText(int value)
{
    return TString::number(value, 10, 0, u' ');
}

} // namespace

boost::optional<VizInTooltipProperties> VizInTooltipProperties::FromMarkupText(const MarkupText& markupText)
{
    auto attributes = ParseAttributedMarkupText(markupText, ElementName());
    if (!attributes)
        return boost::none;
    return VizInTooltipProperties(std::move(*attributes));
}

VizInTooltipProperties VizInTooltipProperties::GetDefault(const TString& sheetName,
                                                          const TString& filterValue)
{
    return VizInTooltipProperties(AttributeNamesAndValues(
        {{NameOf(SheetMarkupAttribute::Name), sheetName},
         {NameOf(SheetMarkupAttribute::MaxWidth), DecimalText(VizInTooltip::DefaultMaxSize.width)},
         {NameOf(SheetMarkupAttribute::MaxHeight), DecimalText(VizInTooltip::DefaultMaxSize.height)},
         {NameOf(SheetMarkupAttribute::Filter), filterValue}}));
}

bool VizInTooltipProperties::IsValid() const
{
    return !HasDuplicateAttributes() && !MissingSheetName() && !HasInvalidSheetSize() &&
           !HasUnallowedAttributes();
}

bool VizInTooltipProperties::HasDuplicateAttributes() const
{
    return m_attributes.HasDuplicates();
}

bool VizInTooltipProperties::MissingSheetName() const
{
    return GetSheetName().empty();
}

bool VizInTooltipProperties::HasInvalidSheetSize() const
{
    return !IsValidSheetSize(GetSheetSize());
}

bool VizInTooltipProperties::HasUnallowedAttributes() const
{
    return std::any_of(m_attributes.begin(), m_attributes.end(), [](const AttributeNameAndValue& attribute) {
        return !FindAllowedAttribute(ViewOf(attribute.Name.GetName()));
    });
}

TSize VizInTooltipProperties::GetSheetSize() const
{
    const auto number = [this](SheetMarkupAttribute attribute, int defaultValue) {
        const auto value = m_attributes.GetAttributeValueForName(NameOf(attribute));
        return value ? value->toInt(nullptr, 10) : defaultValue;
    };
    return TSize(number(SheetMarkupAttribute::MaxWidth, VizInTooltip::DefaultMaxSize.width),
                 number(SheetMarkupAttribute::MaxHeight, VizInTooltip::DefaultMaxSize.height));
}

TString VizInTooltipProperties::GetSheetName() const
{
    return m_attributes.GetAttributeValueForName(NameOf(SheetMarkupAttribute::Name)).get_value_or(TString());
}

bool VizInTooltipProperties::HasFilter() const
{
    return GetFilterValue().has_value();
}

boost::optional<TString> VizInTooltipProperties::GetFilterValue() const
{
    return m_attributes.GetAttributeValueForName(NameOf(SheetMarkupAttribute::Filter));
}

std::vector<TString> VizInTooltipProperties::GetFilterFields() const
{
    std::vector<TString> fields;
    if (const auto value = GetFilterValue()) {
        const TextView view = ViewOf(*value);
        ForEachField(view,
                     [&](const ElementBounds& field) { fields.push_back(ToString(field.ContentIn(view))); });
    }
    return fields;
}

MarkupText VizInTooltipProperties::ToSheetMarkupText() const
{
    return m_attributes.ToMarkupText(ElementName());
}

VizInTooltipProperties VizInTooltipProperties::WithFilterFields(const std::vector<TString>& fields) const
{
    std::vector<TString> items(fields.size());
    std::transform(fields.begin(), fields.end(), items.begin(), SurroundWithAngleBrackets);
    return VizInTooltipProperties(
        m_attributes.ReplaceOrAdd(NameOf(SheetMarkupAttribute::Filter), TString::join(items, u',')));
}

VizInTooltipProperties VizInTooltipProperties::WithSheetName(const TString& sheetName) const
{
    return VizInTooltipProperties(m_attributes.ReplaceOrAdd(NameOf(SheetMarkupAttribute::Name), sheetName));
}

} // namespace corvanemarkup
