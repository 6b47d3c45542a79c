#include "Elements.h"

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/MarkupElementFinders.h>

namespace tooltipreport {

std::vector<Element> FindElements(const TString& tooltip)
{
    std::vector<Element> elements;
    TString content;
    int offset = 0;
    for (;;) {
        const int start = corvanemarkup::FindNextMarkupElement(tooltip, offset, content);
        if (start < 0)
            return elements;
        offset = start + content.length() + 2;
        elements.push_back({start, offset, content});
    }
}

int FindUnfinishedElement(const TString& tooltip, int offset)
{
    // The single steps of a tokenizer go on from the element found last. So one is put in front, with a space
    // that keeps its bracket from pairing with what follows.
    const TString lead(u"<> ", 3);
    corvanemarkup::CorvaneMarkupTokenizer tokenizer(lead + tooltip.mid(offset, -1));
    tokenizer.FindNextMarkupElement(0);
    tokenizer.FindStartOfToken();
    return tokenizer.GetOffset() < 0 ? -1 : tokenizer.GetOffset() - lead.length() + offset;
}

std::string RangeText(const Element& element)
{
    return "[" + std::to_string(element.Start) + ", " + std::to_string(element.End) + ")";
}

} // namespace tooltipreport
