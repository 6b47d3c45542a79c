#pragma once

/// The reference implementation of scanning: the literal rules, without regard to speed.

#include <corvanemarkup/MarkupElementFinders.h>

namespace reference {

inline bool IsSheetMarkupText(const TString& text, int offset)
{
    const TString prefix(u"Sheet ", -1);
    if (text.mid(offset, prefix.length()) != prefix)
        return false;
    const TString rest = text.mid(offset + prefix.length(), -1).Trim();
    const TString first = rest.split(u'=', TString::SplitBehavior(0)).front();
    for (const char16_t* name : {u"name", u"maxwidth", u"maxheight", u"filter"})
        if (first.compare(TString(name, -1), TString::CaseSensitivity(0)) == 0)
            return true;
    return false;
}

struct Tokenizer
{
    TString text;
    int offset = -1;
    int tokenStart = -1;

    int GetOffset() const { return offset; }
    int GetTokenStart() const { return tokenStart; }
    bool IsTextAtOffsetSheetMarkup(int at) const { return at >= 0 && IsSheetMarkupText(text, at); }
    TString GetContentOfCurrentMarkupElement() const
    {
        return text.mid(tokenStart + 1, offset - tokenStart - 1);
    }

    void FindOneOfNotEscaped(const TString& delimiters)
    {
        while (offset != -1) {
            offset = text.findOneOf(delimiters, offset);
            if (offset == -1 || offset == text.length() - 1 || text[offset] != text[offset + 1])
                return;
            offset = offset == text.length() - 2 ? -1 : offset + 2;
        }
    }

    void FindStartOfToken()
    {
        FindOneOfNotEscaped(TString(u"<", -1));
        if (offset >= 0)
            tokenStart = offset;
    }

    void FindEndOfTokenAndUpdateStartIfNeeded(bool isSheetMarkup)
    {
        for (;;) {
            ++offset;
            FindOneOfNotEscaped(TString(isSheetMarkup ? u"<>\"" : u"<>", -1));
            if (offset >= 0 && text[offset] == u'"') {
                ++offset;
                FindOneOfNotEscaped(TString(u"\"", -1));
            } else if (offset >= 0 && text[offset] == u'<') {
                tokenStart = offset;
                isSheetMarkup = isSheetMarkup || IsSheetMarkupText(text, offset + 1);
            } else if (offset >= 0) {
                return;
            }
            if (offset < 0) {
                tokenStart = -1;
                return;
            }
        }
    }

    int FindNextMarkupElement(int from)
    {
        offset = from;
        FindStartOfToken();
        if (offset < 0)
            return -1;
        FindEndOfTokenAndUpdateStartIfNeeded(IsSheetMarkupText(text, offset + 1));
        return tokenStart;
    }
};

using Element = std::pair<corvanemarkup::CorvaneCharRange, TString>;

inline std::vector<Element>
FindCharRangesOfKnownMarkupElements(const TString& text,
                                    const std::function<bool(const TString&)>& isKnownElement)
{
    std::vector<Element> result;
    for (int offset = 0; offset < text.length();) {
        Tokenizer tokenizer{text};
        const int start = tokenizer.FindNextMarkupElement(offset);
        const TString content = start < 0 ? TString() : tokenizer.GetContentOfCurrentMarkupElement();
        if (!isKnownElement(content) || start < 0) {
            ++offset;
            continue;
        }
        offset = start + content.length() + 2;
        result.push_back({{start, offset}, content});
    }
    return result;
}

inline std::set<TString> CollectMarkupElements(const TString& text)
{
    std::set<TString> contents;
    Tokenizer tokenizer{text};
    for (int offset = 0; offset < text.length() && tokenizer.FindNextMarkupElement(offset) >= 0;
         offset = tokenizer.offset + 1)
        contents.insert(tokenizer.GetContentOfCurrentMarkupElement());
    return contents;
}

} // namespace reference
