#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/internal/Check.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::VizInTooltip::Impl {

using namespace Internal;

bool IsSheetMarkupText(const TString& text, int offset)
{
    return StartsSheetElement(ViewOf(text), FromOffset(offset));
}

boost::optional<AttributeNameAndValue> ExtractNameAndValue(const TString& text)
{
    const AttributeParts attribute = SplitAttribute(ViewOf(text));
    if (!attribute.IsNameAndValue)
        return boost::none;
    return attribute.ToNameAndValue();
}

bool StripEnclosingQuotes(TString& value)
{
    const int last = value.length() - 1;
    if (last < 1 || value[0] != u'"' || value[last] != u'"')
        return false;
    value = value.mid(1, last - 1);
    return true;
}

void UnescapeQuotes(TString& value)
{
    value = Unescape(ViewOf(value));
}

bool FindNameValuePairs(const TString& phrase, std::vector<AttributeNameAndValue>& out)
{
    const char16_t* pCh = phrase.constData();
    const char16_t* pairStart = pCh;
    bool insideQuotes = false;
    bool sawOtherCharacter = false;

    for (;;) {
        // Only fails if a platform's `constData` isn't terminated by U+0000: otherwise the scan ends there.
        CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltipImpl", pCh <= phrase.constData() + phrase.length());
        if (*pCh == u'\0')
            break;
        if (*pCh == u' ' && !insideQuotes) {
            if (pCh != pairStart)
                return false;
            ++pairStart;
        } else if (*pCh == u'"' && !insideQuotes) {
            insideQuotes = true;
        } else if (*pCh == u'"' && pCh[1] == u'"') {
            ++pCh; // a doubled quote
        } else if (*pCh == u'"') {
            if (pCh[1] != u' ' && pCh[1] != u'\0')
                return false;
            const AttributeParts attribute =
                SplitAttribute(TextView(pairStart, static_cast<std::size_t>(pCh + 1 - pairStart)));
            if (!attribute.IsNameAndValue)
                return false;
            out.push_back(attribute.ToNameAndValue());
            pairStart = pCh + 1;
            insideQuotes = false;
            sawOtherCharacter = false;
        } else if (*pCh != u' ') {
            sawOtherCharacter = true;
        }
        ++pCh;
    }
    return !insideQuotes && !sawOtherCharacter && !phrase.empty() && !out.empty();
}

boost::optional<AttributeTokenOffsetAndContent>
FindAttributeTokenOffsetAndContent(const MarkupText& markupText, const AttributeName& attributeName)
{
    const TokenViews tokenizeResult = ReadTokens(ViewOf(markupText));
    CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltipImpl", tokenizeResult.Success);

    int offset = 0;
    for (const TokenView& token : tokenizeResult.Tokens) {
        if (token.Kind == TokenKind::Attribute) {
            const AttributeParts attribute = SplitAttribute(token.Text);
            const bool attributeNameAndValue = attribute.IsNameAndValue;
            CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltipImpl", attributeNameAndValue);
            if (AreSameAttributeName(attribute.Name, ViewOf(attributeName.GetName())))
                return AttributeTokenOffsetAndContent{offset, ToString(token.Text)};
        }
        offset += static_cast<int>(token.Text.size());
    }
    return boost::none;
}

} // namespace corvanemarkup::VizInTooltip::Impl
