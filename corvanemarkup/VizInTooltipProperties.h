#pragma once

/// One sheet element: its values, its faults, and edits by copy.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TSize.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <utility>
#include <vector>

namespace corvanemarkup {

/// The view on the attributes of one sheet element, such as
///
///     Sheet name="Sales" maxwidth="300" maxheight="300" filter="<Region>,<Year>"
///
/// It holds the attributes as they come, valid or not, and never changes: an edit gives a new object. An
/// attribute that occurs twice is read and edited where it occurs first. Each operation takes time linear in
/// the attributes; `HasDuplicateAttributes`, and so `IsValid`, sorts their names.
class CORVANEMARKUP_EXPORT VizInTooltipProperties
{
public:
    explicit VizInTooltipProperties(const AttributeNamesAndValues& attributes) : m_attributes(attributes) {}
    explicit VizInTooltipProperties(AttributeNamesAndValues&& attributes) noexcept
        : m_attributes(std::move(attributes))
    {
    }

    /// The element that `Sheet` and its attributes make, valid or not. None if the text isn't of that shape:
    /// another element name, no space, or an attribute that isn't a name and a quoted value.
    [[nodiscard]] static boost::optional<VizInTooltipProperties> FromMarkupText(const MarkupText& markupText);

    /// The element for a sheet as the editor first inserts it: all four attributes, with the default size.
    /// `filterValue` is a whole filter value, such as `<Region>,<Year>`. Valid unless `sheetName` is empty.
    [[nodiscard]] static VizInTooltipProperties GetDefault(const TString& sheetName,
                                                           const TString& filterValue);

    /// Whether the element is a valid sheet element: none of the four faults below.
    [[nodiscard]] bool IsValid() const;
    /// Two attributes have the same name.
    [[nodiscard]] bool HasDuplicateAttributes() const;
    /// There is no `name`, or it is empty.
    [[nodiscard]] bool MissingSheetName() const;
    /// `maxwidth` isn't a number from 1 to 2000, or `maxheight` not one from 1 to 1500.
    [[nodiscard]] bool HasInvalidSheetSize() const;
    /// Some attribute is none of `name`, `maxwidth`, `maxheight` and `filter`.
    [[nodiscard]] bool HasUnallowedAttributes() const;

    /// The largest size of the sheet: 300 for an absent attribute, else the number as it stands, also one out
    /// of range. What isn't a decimal number gives 0.
    [[nodiscard]] TSize GetSheetSize() const;
    /// The target sheet; empty if there is no `name`.
    [[nodiscard]] TString GetSheetName() const;

    /// Whether there is a `filter` attribute, whatever its value.
    [[nodiscard]] bool HasFilter() const;
    /// The whole filter value, such as `<Region>,<Year>`; none if there is no `filter`.
    [[nodiscard]] boost::optional<TString> GetFilterValue() const;
    /// The contents of the elements in the filter value, in text order, repeats included. What stands between
    /// them is passed over. Field n is element n that `FindCharRangesOfKnownMarkupElements` finds in the
    /// filter value with a predicate that accepts all.
    [[nodiscard]] std::vector<TString> GetFilterFields() const;

    /// The element's content, `Sheet name="Sales"`; the host adds the brackets.
    [[nodiscard]] MarkupText ToSheetMarkupText() const;

    /// The element with a filter of those fields, written `<field>,<field>`, in the place of the `filter`
    /// attribute, or at the end. Brackets in a field are written as they are, so that a field with a single
    /// `<` or `>` doesn't read back.
    [[nodiscard]] VizInTooltipProperties WithFilterFields(const std::vector<TString>& fields) const;
    /// The element with that name, in the place of the `name` attribute, or at the end.
    [[nodiscard]] VizInTooltipProperties WithSheetName(const TString& sheetName) const;

private:
    AttributeNamesAndValues m_attributes;
};

} // namespace corvanemarkup
