#pragma once

/// One sheet element: its values, its validity, and edited copies.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TSize.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <utility>
#include <vector>

namespace corvanemarkup {

/// The attributes of one sheet element, such as
///
///     Sheet name="Sales" maxwidth="300" maxheight="300" filter="<Region>,<Year>"
///
/// Holds any attributes, valid or not. Immutable: edits return a new object. If an attribute occurs twice,
/// its first occurrence is read and edited. Each operation takes time linear in the attributes, except that
/// `HasDuplicateAttributes`, and therefore `IsValid`, sorts their names.
class CORVANEMARKUP_EXPORT VizInTooltipProperties
{
public:
    explicit VizInTooltipProperties(const AttributeNamesAndValues& attributes) : m_attributes(attributes) {}
    explicit VizInTooltipProperties(AttributeNamesAndValues&& attributes) noexcept
        : m_attributes(std::move(attributes))
    {
    }

    /// Parses the content of an element. Returns none if its name isn't `Sheet`, if no space follows the
    /// name, if quotes are unterminated, or if an attribute isn't a name and a quoted value. The result
    /// needn't be valid.
    [[nodiscard]] static boost::optional<VizInTooltipProperties> FromMarkupText(const MarkupText& markupText);

    /// Returns a new element for a sheet, with all four attributes and the default size. `filterValue` is a
    /// whole filter value, such as `<Region>,<Year>`. The element is valid unless `sheetName` is empty.
    [[nodiscard]] static VizInTooltipProperties GetDefault(const TString& sheetName,
                                                           const TString& filterValue);

    /// Returns whether the element is valid: none of the four conditions below holds.
    [[nodiscard]] bool IsValid() const;
    /// Returns whether two attributes have the same name.
    [[nodiscard]] bool HasDuplicateAttributes() const;
    /// Returns whether `name` is missing or empty.
    [[nodiscard]] bool MissingSheetName() const;
    /// Returns whether `maxwidth` isn't a number from 1 to 2000, or `maxheight` isn't one from 1 to 1500. A
    /// missing attribute is valid.
    [[nodiscard]] bool HasInvalidSheetSize() const;
    /// Returns whether there is an attribute other than `name`, `maxwidth`, `maxheight` and `filter`.
    [[nodiscard]] bool HasUnallowedAttributes() const;

    /// Returns the maximum size of the sheet. A missing attribute yields 300, and a value that isn't a
    /// decimal number yields 0; other numbers are returned as they are, if they fit into an `int`.
    [[nodiscard]] TSize GetSheetSize() const;
    /// Returns the target sheet; empty if there is no `name`.
    [[nodiscard]] TString GetSheetName() const;

    /// Returns whether there is a `filter` attribute, even if its value is empty.
    [[nodiscard]] bool HasFilter() const;
    /// Returns the whole filter value, such as `<Region>,<Year>`; none if there is no `filter`.
    [[nodiscard]] boost::optional<TString> GetFilterValue() const;
    /// Returns the contents of the elements in the filter value, in text order, including duplicates. Text
    /// between elements is ignored. The elements are those that `FindCharRangesOfKnownMarkupElements` returns
    /// for the filter value if its predicate accepts all.
    [[nodiscard]] std::vector<TString> GetFilterFields() const;

    /// Returns the canonical form of the element's content, such as `Sheet name="Sales"`, without brackets.
    [[nodiscard]] MarkupText ToSheetMarkupText() const;

    /// Returns a copy whose `filter` has those fields, as `<field>,<field>`. The `filter` keeps its place, or
    /// is appended if there is none. Brackets are not escaped: a field with a single `<` or `>` doesn't read
    /// back.
    [[nodiscard]] VizInTooltipProperties WithFilterFields(const std::vector<TString>& fields) const;
    /// Returns a copy with that `name`, which keeps its place, or is appended if there is none.
    [[nodiscard]] VizInTooltipProperties WithSheetName(const TString& sheetName) const;

private:
    AttributeNamesAndValues m_attributes;
};

} // namespace corvanemarkup
