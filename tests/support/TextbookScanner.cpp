#include "TextbookScanner.h"

namespace textbook {

bool IsSheetMarkupText(const TString& text, int offset)
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

void Tokenizer::FindOneOfNotEscaped(const TString& delimiters)
{
    while (offset != -1) {
        offset = text.findOneOf(delimiters, offset);
        if (offset == -1 || offset == text.length() - 1 || text[offset] != text[offset + 1])
            return;
        offset = offset == text.length() - 2 ? -1 : offset + 2;
    }
}

void Tokenizer::FindEnd(bool isSheetMarkup)
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

int Tokenizer::FindNextMarkupElement(int from)
{
    offset = from;
    FindOneOfNotEscaped(TString(u"<", -1));
    if (offset < 0)
        return -1;
    tokenStart = offset;
    FindEnd(IsSheetMarkupText(text, offset + 1));
    return tokenStart;
}

TString Tokenizer::GetContentOfCurrentMarkupElement() const
{
    return text.mid(tokenStart + 1, offset - tokenStart - 1);
}

std::vector<Element>
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

std::set<TString> CollectMarkupElements(const TString& text)
{
    std::set<TString> contents;
    for (int offset = 0; offset < text.length();) {
        Tokenizer tokenizer{text};
        const int start = tokenizer.FindNextMarkupElement(offset);
        if (start < 0)
            break;
        const TString content = tokenizer.GetContentOfCurrentMarkupElement();
        contents.insert(content);
        offset = start + content.length() + 2;
    }
    return contents;
}

} // namespace textbook
