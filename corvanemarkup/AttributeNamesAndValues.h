#pragma once

/// The attributes of one element: names, values, their ordered list, and its written form, such as
/// `Sheet name="Sales" filter="<Region>"`.

#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <utility>
#include <vector>

namespace corvanemarkup {

/// An attribute's name. Names are equal, and ordered, by `TString::compare` with letter case disregarded.
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

/// The markup text of one element: what stands between its angle brackets.
class MarkupText
{
public:
    MarkupText() = default;
    explicit MarkupText(TString text) : m_text(std::move(text)) {}

    operator const TString&() const { return m_text; } // NOLINT: a markup text reads as a text

private:
    TString m_text;
};

/// One attribute. `Value` is the text as meant: no enclosing quotes, and each quote in it single.
struct AttributeNameAndValue
{
    AttributeName Name;
    TString Value;
};

/// The attributes of one element in the order of its text, duplicates included. Never changes.
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

    /// Whether two attributes have equal names. Sorts the names.
    [[nodiscard]] bool HasDuplicates() const;

    /// The value of the first attribute with that name; none if there is no such attribute.
    [[nodiscard]] boost::optional<TString> GetAttributeValueForName(const AttributeName& name) const;

    /// A new list with that attribute. The first attribute with an equal name gets `name` and `value`, and
    /// keeps its place. If there is none, the attribute is added at the end.
    [[nodiscard]] AttributeNamesAndValues ReplaceOrAdd(const AttributeName& name, const TString& value) const;

    /// The element's content as text: `elementName`, then for each attribute a space and its written form. An
    /// empty list gives `elementName` alone. Names are written as they are. What is written reads back if
    /// there is an attribute and no name holds a space, a `=` or a quote.
    [[nodiscard]] MarkupText ToMarkupText(const TString& elementName) const;

private:
    [[nodiscard]] const_iterator Find(const AttributeName& name) const;

    std::vector<AttributeNameAndValue> m_attributes;
};

namespace VizInTooltip::Impl {

/// The attribute's written form: `name="value"`, with each quote of the value doubled and nothing else
/// escaped.
[[nodiscard]] CORVANEMARKUP_EXPORT TString
MakeSheetMarkupAttributeString(const AttributeNameAndValue& attribute);

} // namespace VizInTooltip::Impl

} // namespace corvanemarkup
