#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/RangeOf.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;

std::vector<ElementRanges> FindElementRanges(const TString& tooltipText)
{
    using Ending = WalkedElement::Ending;
    const TextView text = ViewOf(tooltipText);
    std::vector<ElementRanges> elements;
    ElementWalk walk(text);
    for (WalkedElement element; walk.Next(element);) {
        ElementEnd end = ElementEnd::EndOfText;
        if (element.EndsWith == Ending::Bracket)
            end = ElementEnd::Bracket;
        else if (element.EndsWith == Ending::Restart)
            end = ElementEnd::Restart;
        elements.push_back({RangeOf(element.Whole, text), RangeOf(element.Content, text), end});
    }
    return elements;
}

std::vector<AttributeRanges> FindAttributeRanges(const TString& text, CorvaneCharRange contentRange)
{
    const TextView whole = ViewOf(text);
    std::vector<AttributeRanges> attributes;
    if (!IsIn(whole, contentRange))
        return attributes;

    ContentReader reader(PartOf(whole, contentRange));
    std::u16string scratch;
    for (AttributeParts parts; reader.Next(parts);) {
        AttributeRanges& attribute =
            attributes.emplace_back(AttributeRanges{RangeOf(parts.Whole, whole),
                                                    RangeOf(parts.Name, whole),
                                                    RangeOf(parts.EscapedValue, whole),
                                                    {},
                                                    {}});
        if (parts.IsNameAndValue)
            attribute.NameAndValue = AttributeView{parts.Name, parts.EscapedValue}.ToNameAndValue();
        if (AreSameAttributeName(parts.Name, LiteralOf(Impl::SheetMarkupAttribute::Filter)))
            ForEachFieldInText(parts.EscapedValue, scratch, [&](TextView written, TextView meant) {
                attribute.Fields.emplace_back(RangeOf(written, whole),
                                              ToString(meant.substr(1, meant.size() - 2)));
            });
    }
    return attributes;
}

} // namespace corvanemarkup::VizInTooltip
