#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/internal/ElementLookup.h>
#include <corvanemarkup/internal/MarkupScanner.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvanemarkup {

using namespace Internal;

namespace {

/// Caches the contents of the last six elements, for a walk whose offsets never decrease and which finds a
/// rejected element repeatedly.
///
/// While the walk is before the `<` of such an element, which element a scan finds depends only on two
/// things: its state at that `<` (outside, in a sheet element, or inside quotes; a plain element is
/// interrupted there, and isn't a state of its own), and whether it reads a run of delimiters from an even or
/// an odd position. These are at most six different elements: none is copied twice while the walk can find it
/// again.
class RecentContents
{
public:
    explicit RecentContents(TextView text) : m_text(text) {}

    /// Returns the content of an element; an empty string if there is none. A caller may move from the string
    /// if it never asks for that element again.
    TString& ContentOf(ElementBounds element);

private:
    struct Content
    {
        ElementBounds Bounds;
        TString Text;
    };

    TextView m_text;
    TString m_nothing;
    Content m_recent[6];
    std::size_t m_oldest = 0;
};

TString& RecentContents::ContentOf(ElementBounds element)
{
    if (!element.Found())
        return m_nothing;
    auto* const found = std::find_if(std::begin(m_recent), std::end(m_recent),
                                     [&](const Content& recent) { return recent.Bounds == element; });
    if (found != std::end(m_recent))
        return found->Text;
    Content& oldest = m_recent[m_oldest++ % std::size(m_recent)];
    oldest = {element, ToString(element.ContentIn(m_text))};
    return oldest.Text;
}

} // namespace

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
