#include <corvanemarkup/MarkupScanner.h>
#include <corvanemarkup/ParseAttributedMarkupText.h>
#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/SheetSize.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <algorithm>

namespace corvanemarkup {

namespace {

namespace Names = VizInTooltip::Impl::SheetMarkupAttributeNames;

TString DecimalText(int value)
{
    return TString::number(value, 10, 0, u' ');
}

} // namespace

boost::optional<VizInTooltipProperties> VizInTooltipProperties::FromMarkupText(const MarkupText& markupText)
{
    auto attributes = ParseAttributedMarkupText(markupText, VizInTooltip::Impl::SheetMarkupElementName);
    if (!attributes)
        return boost::none;
    return VizInTooltipProperties(std::move(*attributes));
}

VizInTooltipProperties VizInTooltipProperties::GetDefault(const TString& sheetName,
                                                          const TString& filterValue)
{
    return VizInTooltipProperties(
        AttributeNamesAndValues({{Names::Name, sheetName},
                                 {Names::MaxWidth, DecimalText(VizInTooltip::DefaultMaxSize.width)},
                                 {Names::MaxHeight, DecimalText(VizInTooltip::DefaultMaxSize.height)},
                                 {Names::Filter, filterValue}}));
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
    return !Internal::IsValidSheetSize(GetSheetSize());
}

bool VizInTooltipProperties::HasUnallowedAttributes() const
{
    const AttributeName* const allowed[] = {&Names::Name, &Names::MaxWidth, &Names::MaxHeight,
                                            &Names::Filter};
    return std::any_of(m_attributes.begin(), m_attributes.end(), [&](const AttributeNameAndValue& attribute) {
        return std::none_of(std::begin(allowed), std::end(allowed),
                            [&](const AttributeName* name) { return *name == attribute.Name; });
    });
}

TSize VizInTooltipProperties::GetSheetSize() const
{
    const auto number = [this](const AttributeName& name, int defaultValue) {
        const auto value = m_attributes.GetAttributeValueForName(name);
        return value ? value->toInt(nullptr, 10) : defaultValue;
    };
    return TSize(number(Names::MaxWidth, VizInTooltip::DefaultMaxSize.width),
                 number(Names::MaxHeight, VizInTooltip::DefaultMaxSize.height));
}

TString VizInTooltipProperties::GetSheetName() const
{
    return m_attributes.GetAttributeValueForName(Names::Name).get_value_or(TString());
}

bool VizInTooltipProperties::HasFilter() const
{
    return GetFilterValue().has_value();
}

boost::optional<TString> VizInTooltipProperties::GetFilterValue() const
{
    return m_attributes.GetAttributeValueForName(Names::Filter);
}

std::vector<TString> VizInTooltipProperties::GetFilterFields() const
{
    std::vector<TString> fields;
    if (const auto value = GetFilterValue()) {
        const Internal::TextView view = Internal::ViewOf(*value);
        Internal::ForEachElement(view, [&](const Internal::ElementBounds& element) {
            fields.push_back(Internal::ToString(element.ContentIn(view)));
        });
    }
    return fields;
}

MarkupText VizInTooltipProperties::ToSheetMarkupText() const
{
    return m_attributes.ToMarkupText(VizInTooltip::Impl::SheetMarkupElementName);
}

VizInTooltipProperties VizInTooltipProperties::WithFilterFields(const std::vector<TString>& fields) const
{
    std::vector<TString> items(fields.size());
    std::transform(fields.begin(), fields.end(), items.begin(), SurroundWithAngleBrackets);
    return VizInTooltipProperties(m_attributes.ReplaceOrAdd(Names::Filter, TString::join(items, u',')));
}

VizInTooltipProperties VizInTooltipProperties::WithSheetName(const TString& sheetName) const
{
    return VizInTooltipProperties(m_attributes.ReplaceOrAdd(Names::Name, sheetName));
}

} // namespace corvanemarkup
