#include <corvanemarkup/Check.h>
#include <corvanemarkup/DelimiterSearch.h>
#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/SheetMarkupReader.h>
#include <corvanemarkup/TokenReader.h>
#include <corvanemarkup/VizInTooltipImpl.h>

namespace corvanemarkup {

namespace Internal {

namespace {

namespace Names = VizInTooltip::Impl::SheetMarkupAttributeNames;

/// Whether `TString::Trim` strips `unit`. Spaces and printable ASCII, which is nearly all that is asked for,
/// are answered here.
bool IsTrimmed(char16_t unit)
{
    if (unit >= u' ' && unit <= u'~')
        return unit == u' ';
    return TString(&unit, 1).Trim().empty();
}

std::size_t SkipWhiteSpace(TextView text, std::size_t from)
{
    while (from < text.size() && IsTrimmed(text[from]))
        ++from;
    return from;
}

bool IsSheetAttributeName(TextView name)
{
    return IsAttributeName(name, Names::Name) || IsAttributeName(name, Names::MaxWidth) ||
           IsAttributeName(name, Names::MaxHeight) || IsAttributeName(name, Names::Filter);
}

} // namespace

bool IsAttributeName(TextView text, const AttributeName& name)
{
    // Identical texts are equal names under any rule of letter case, so that the usual case needs no copy.
    const TextView nameText = ViewOf(name.GetName());
    return text.size() == nameText.size() &&
           (AreSame(text, nameText) || AttributeName(ToString(text)) == name);
}

bool IsSheetMarkup(TextView text, std::size_t offset)
{
    static const TString sheetMarkupElementNamePlusSpace = VizInTooltip::Impl::SheetMarkupElementName + u' ';
    const TextView prefix = ViewOf(sheetMarkupElementNamePlusSpace);
    if (offset >= text.size() || text.substr(offset, prefix.size()) != prefix)
        return false;

    // The first attribute name is the rest of the text, trimmed, up to its first `=`. So a name ends at the
    // `=`, or at white space that nothing else follows.
    const std::size_t longestName = ViewOf(Names::MaxHeight.GetName()).size();
    const std::size_t start = SkipWhiteSpace(text, offset + prefix.size());
    std::size_t end = start;
    while (end < text.size() && text[end] != u'=' && !IsTrimmed(text[end])) {
        if (end - start == longestName)
            return false;
        ++end;
    }
    const bool isWholeName =
        end == text.size() || text[end] == u'=' || SkipWhiteSpace(text, end) == text.size();
    return isWholeName && IsSheetAttributeName(text.substr(start, end - start));
}

TString Unescape(TextView escapedValue)
{
    TString value = ToString(escapedValue);
    if (FindFirstOf<u'"'>(escapedValue, 0) != NotFound)
        VizInTooltip::Impl::UnescapeQuotes(value);
    return value;
}

boost::optional<AttributeView> SplitAttribute(TextView token)
{
    const std::size_t equals = FindFirstOf<u'='>(token, 0);
    if (equals == NotFound)
        return boost::none;
    const TextView value = token.substr(equals + 1);
    if (value.size() < 2 || value.front() != u'"' || value.back() != u'"')
        return boost::none;
    return AttributeView{token.substr(0, equals), value.substr(1, value.size() - 2)};
}

AttributeNameAndValue AttributeView::ToNameAndValue() const
{
    return {AttributeName(ToString(Name)), Unescape(EscapedValue)};
}

} // namespace Internal

namespace VizInTooltip::Impl {

using namespace Internal;

bool IsSheetMarkupText(const TString& text, int offset)
{
    return IsSheetMarkup(ViewOf(text), FromOffset(offset));
}

boost::optional<AttributeNameAndValue> ExtractNameAndValue(const TString& text)
{
    const auto attribute = SplitAttribute(ViewOf(text));
    return attribute ? attribute->ToNameAndValue() : boost::optional<AttributeNameAndValue>();
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
    value.replace(TString(u"\"\"", 2), TString(u"\"", 1), TString::CaseSensitivity(1));
}

bool FindNameValuePairs(const TString& phrase, std::vector<AttributeNameAndValue>& out)
{
    const char16_t* pCh = phrase.constData();
    const char16_t* pairStart = pCh;
    bool insideQuotes = false;
    bool sawOtherCharacter = false;

    for (;;) {
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
            const auto attribute =
                SplitAttribute(TextView(pairStart, static_cast<std::size_t>(pCh + 1 - pairStart)));
            if (!attribute)
                return false;
            out.push_back(attribute->ToNameAndValue());
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
            const auto attributeNameAndValue = SplitAttribute(token.Text);
            CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltipImpl", attributeNameAndValue);
            if (IsAttributeName(attributeNameAndValue->Name, attributeName))
                return AttributeTokenOffsetAndContent{offset, ToString(token.Text)};
        }
        offset += static_cast<int>(token.Text.size());
    }
    return boost::none;
}

} // namespace VizInTooltip::Impl

} // namespace corvanemarkup
