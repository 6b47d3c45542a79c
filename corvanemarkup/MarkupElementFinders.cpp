#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/internal/ElementLookup.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/RecentContents.h>

namespace corvanemarkup {

using namespace Internal;

int FindNextMarkupElement(const TString& text, int offset, TString& content)
{
    const ElementBounds element = FindElement(ViewOf(text), FromOffset(offset));
    if (!element.Found())
        return -1;
    content = ToString(element.ContentIn(ViewOf(text)));
    return ToOffset(element.Start);
}

int FindNextKnownMarkupElement(const TString& text, int offset, int& elementLength, TString& content,
                               const std::function<bool(const TString&)>& isKnownElement)
{
    // A local, since `content` must be unchanged if the predicate throws.
    TString found;
    const int start = FindNextMarkupElement(text, offset, found);
    const bool isKnown = isKnownElement(start < 0 ? content : found);
    if (start >= 0)
        content = std::move(found);
    if (!isKnown)
        return -1;
    // If no element was found, the caller's `content` may have the maximum length; the sum wraps then.
    elementLength = static_cast<int>(static_cast<unsigned>(content.length()) + 2U);
    return start;
}

// Takes `text` by value, since the predicate might modify the caller's.
std::vector<std::pair<CorvaneCharRange, TString>>
FindCharRangesOfKnownMarkupElements(TString text, const std::function<bool(const TString&)>& isKnownElement)
{
    std::vector<std::pair<CorvaneCharRange, TString>> result;
    const TextView view = ViewOf(text);
    RecentContents contents(view);
    ElementLookup elements(view);
    for (std::size_t offset = 0; offset < view.size();) {
        const ElementBounds element = elements.FindFrom(offset);
        TString& content = contents.ContentOf(element);
        if (isKnownElement(content) && element.Found()) {
            offset = element.End + 1;
            const CorvaneCharRange range{static_cast<std::int64_t>(element.Start),
                                         static_cast<std::int64_t>(offset)};
            result.emplace_back(range, std::exchange(content, TString()));
        } else {
            ++offset;
        }
    }
    return result;
}

std::set<TString> CollectMarkupElements(const TString& text)
{
    std::set<TString> contents;
    const TextView view = ViewOf(text);
    for (std::size_t offset = 0; offset < view.size();) {
        const ElementBounds element = FindElement(view, offset);
        if (!element.Found())
            break;
        contents.insert(ToString(element.ContentIn(view)));
        offset = element.End + 1;
    }
    return contents;
}

} // namespace corvanemarkup
