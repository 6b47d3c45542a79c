#include <corvanemarkup/internal/EditedElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::Internal {

bool ReadElement(TextView content, ReadableElement& element)
{
    if (!HasElementNameAt(content, 0))
        return false;
    ContentReader reader(content);
    for (AttributeParts parts; reader.Next(parts);) {
        if (!parts.IsNameAndValue)
            return false;
        if (element.Filter == NotFound &&
            AreSameAttributeName(parts.Name, LiteralOf(VizInTooltip::Impl::SheetMarkupAttribute::Filter)))
            element.Filter = element.Attributes.size();
        element.Attributes.push_back(parts);
    }
    return true;
}

namespace {

/// Whether the element's bracket ends it when it gets that content.
bool EndsAtItsBracket(const WalkedElement& old, TextView newContent)
{
    std::u16string text;
    text.reserve(newContent.size() + 1);
    text.append(newContent).append(1, u'>');
    const bool quotesProtect = old.IsProtectedAnyway || StartsSheetElement(text, 0);
    return FindStop(text, 0, quotesProtect).Position == newContent.size();
}

} // namespace

bool ReadsAs(const WalkedElement& old, const ExpectedElement& expected)
{
    ReadableElement element;
    if (!EndsAtItsBracket(old, expected.NewContent) || !ReadElement(expected.NewContent, element) ||
        element.Attributes.size() != expected.AttributeCount || element.Filter != expected.Filter)
        return false;
    if (expected.Filter == NotFound)
        return true;
    std::size_t count = 0;
    bool areEqual = true;
    std::u16string scratch;
    ForEachFieldInText(element.Attributes[element.Filter].EscapedValue, scratch,
                       [&](TextView, TextView meant) {
                           areEqual = areEqual && count < expected.Fields.size() &&
                                      meant.substr(1, meant.size() - 2) == expected.Fields[count];
                           ++count;
                       });
    return areEqual && count == expected.Fields.size();
}

bool ReadsAsPlain(const WalkedElement& old, TextView newContent)
{
    return EndsAtItsBracket(old, newContent);
}

} // namespace corvanemarkup::Internal
