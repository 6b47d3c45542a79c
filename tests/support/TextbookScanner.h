#pragma once

/// The rules of scanning, one step after the other, with no thought of speed: what the library is held
/// against.

#include <corvanemarkup/MarkupElementFinders.h>

#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace textbook {

bool IsSheetMarkupText(const TString& text, int offset);

struct Tokenizer
{
    TString text;
    int offset = -1;
    int tokenStart = -1;

    int FindNextMarkupElement(int from);
    TString GetContentOfCurrentMarkupElement() const;
    int GetOffset() const { return offset; }
    int GetTokenStart() const { return tokenStart; }

private:
    void FindOneOfNotEscaped(const TString& delimiters);
    void FindEnd(bool isSheetMarkup);
};

using Element = std::pair<corvanemarkup::CorvaneCharRange, TString>;

std::vector<Element>
FindCharRangesOfKnownMarkupElements(const TString& text,
                                    const std::function<bool(const TString&)>& isKnownElement);
std::set<TString> CollectMarkupElements(const TString& text);

} // namespace textbook
