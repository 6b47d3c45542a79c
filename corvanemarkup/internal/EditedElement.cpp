#include <corvanemarkup/internal/EditedElement.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::Internal {

bool ReadElement(TextView content, ReadableElement& element)
{
    if (!HasElementNameAt(content, 0))
        return false;
    element.Attributes.Clear();
    element.Filter = NotFound;
    ContentReader reader(content);
    for (AttributeParts attribute; reader.Next(attribute);) {
        if (!attribute.IsNameAndValue)
            return false;
        if (element.Filter == NotFound &&
            AreSameAttributeName(attribute.Name, LiteralOf(VizInTooltip::Impl::SheetMarkupAttribute::Filter)))
            element.Filter = element.Attributes.Count();
        element.Attributes.Add() = attribute;
    }
    return true;
}

bool IsPlain(TextView text, TextView content)
{
    const auto start = static_cast<std::size_t>(content.data() - text.data());
    ReadableElement element;
    return !StartsSheetElement(text, start) && !ReadElement(content, element);
}

bool CanNameField(TextView name)
{
    std::u16string element = u"<";
    element.append(name).append(1, u'>');
    const ElementBounds found = FindElement(element, 0);
    return !name.empty() && found.Found() && found.ContentIn(element).size() == name.size() &&
           IsPlain(element, found.ContentIn(element));
}

namespace {

/// Returns whether the element with that content still ends at its bracket.
bool EndsAtItsBracket(const WalkedElement& old, TextView newContent)
{
    std::u16string text;
    text.reserve(newContent.size() + 1);
    text.append(newContent).append(1, u'>');
    const bool quotesProtect = old.InheritsProtection || StartsSheetElement(text, 0);
    return FindStop(text, 0, quotesProtect).Position == newContent.size();
}

} // namespace

bool ReadsBackAs(const WalkedElement& old, const ExpectedElement& expected)
{
    ReadableElement element;
    if (!EndsAtItsBracket(old, expected.NewContent) || !ReadElement(expected.NewContent, element) ||
        element.Attributes.Count() != expected.AttributeCount || element.Filter != expected.Filter)
        return false;
    if (expected.Filter == NotFound)
        return true;
    std::size_t count = 0;
    bool areEqual = true;
    std::u16string scratch;
    ForEachRawField(element.Attributes[element.Filter].RawValue, scratch, [&](TextView, TextView unescaped) {
        areEqual = areEqual && count < expected.Fields.size() &&
                   unescaped.substr(1, unescaped.size() - 2) == expected.Fields[count];
        ++count;
    });
    return areEqual && count == expected.Fields.size();
}

bool ReadsBackAsPlain(const WalkedElement& old, TextView newContent)
{
    return EndsAtItsBracket(old, newContent);
}

} // namespace corvanemarkup::Internal
