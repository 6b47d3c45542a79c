#pragma once

/// The attributes of one element: their names, values, ordered list and canonical form, such as
/// `Sheet name="Sales" filter="<Region>"`.

#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <utility>
#include <vector>

namespace corvanemarkup {

/// The name of an attribute. Names are compared by `TString::compare`, ignoring letter case.
class AttributeName
{
public:
    explicit AttributeName(TString name) : m_name(std::move(name)) {}

    [[nodiscard]] const TString& GetName() const { return m_name; }

    friend bool operator==(const AttributeName& left, const AttributeName& right)
    {
        return left.Compare(right) == 0;
    }
    friend bool operator!=(const AttributeName& left, const AttributeName& right) { return !(left == right); }
    friend bool operator<(const AttributeName& left, const AttributeName& right)
    {
        return left.Compare(right) < 0;
    }

private:
    [[nodiscard]] int Compare(const AttributeName& other) const
    {
        return m_name.compare(other.m_name, TString::CaseSensitivity(0));
    }

    TString m_name;
};

/// The markup text of one element: its content, without the angle brackets.
class MarkupText
{
public:
    MarkupText() = default;
    explicit MarkupText(TString text) : m_text(std::move(text)) {}

    operator const TString&() const { return m_text; } // NOLINT: implicit, as a markup text is a text

private:
    TString m_text;
};

/// One attribute. `Value` is unescaped: without its enclosing quotes, and with its doubled quotes made
/// single.
struct AttributeNameAndValue
{
    AttributeName Name;
    TString Value;
};

/// The attributes of one element in text order, including duplicates. Immutable.
class CORVANEMARKUP_EXPORT AttributeNamesAndValues
{
public:
    using const_iterator = std::vector<AttributeNameAndValue>::const_iterator;

    explicit AttributeNamesAndValues(const std::vector<AttributeNameAndValue>& attributes)
        : m_attributes(attributes)
    {
    }
    explicit AttributeNamesAndValues(std::vector<AttributeNameAndValue>&& attributes) noexcept
        : m_attributes(std::move(attributes))
    {
    }

    [[nodiscard]] const_iterator begin() const noexcept { return m_attributes.begin(); }
    [[nodiscard]] const_iterator end() const noexcept { return m_attributes.end(); }

    /// Returns whether two attributes have equal names. Takes O(n log n) comparisons.
    [[nodiscard]] bool HasDuplicates() const;

    /// Returns the value of the first attribute with that name; none if there is no such attribute.
    [[nodiscard]] boost::optional<TString> GetAttributeValueForName(const AttributeName& name) const;

    /// Returns a copy in which the first attribute with an equal name is replaced, in its place, by `name`
    /// and `value`. If there is none, the attribute is appended.
    [[nodiscard]] AttributeNamesAndValues ReplaceOrAdd(const AttributeName& name, const TString& value) const;

    /// Returns the canonical form of the element's content: `elementName`, then for each attribute a space
    /// and its canonical form. Names are not escaped. The result reads back if there is at least one
    /// attribute and no name contains a space, an `=` or a quote. Throws `std::length_error` if the result is
    /// too long.
    [[nodiscard]] MarkupText ToMarkupText(const TString& elementName) const;

private:
    [[nodiscard]] const_iterator Find(const AttributeName& name) const;

    std::vector<AttributeNameAndValue> m_attributes;
};

namespace VizInTooltip::Impl {

/// Returns the canonical form of the attribute: `name="value"`, with each quote in the value doubled and
/// nothing else escaped. Throws `std::length_error` if it is too long.
[[nodiscard]] CORVANEMARKUP_EXPORT TString
MakeSheetMarkupAttributeString(const AttributeNameAndValue& attribute);

} // namespace VizInTooltip::Impl

} // namespace corvanemarkup
