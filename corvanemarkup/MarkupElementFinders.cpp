#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/MarkupScanner.h>

#include <algorithm>
#include <iterator>

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
    // Found apart, so that `content` is as it was if the predicate throws.
    TString found;
    const int start = FindNextMarkupElement(text, offset, found);
    const bool isKnown = isKnownElement(start < 0 ? content : found);
    if (start >= 0)
        content = std::move(found);
    if (!isKnown)
        return -1;
    // A content that wasn't found may be as long as a text can be; the sum wraps then.
    elementLength = static_cast<int>(static_cast<unsigned>(content.length()) + 2U);
    return start;
}

namespace {

/// The contents of the elements found last, for a walk whose offsets never fall.
///
/// A refused element is found again and again, maybe by turns with others. These all start behind the offset,
/// and what starts there depends on the state in which a scan comes by (outside, in a sheet element, between
/// quotes), and on whether it comes by in the middle of a pair: so there are at most six of them.
class RecentContents
{
public:
    explicit RecentContents(TextView text) : m_text(text) {}

    /// The content of an element; an empty string if there is none. Once emptied by the caller, it isn't
    /// asked for again.
    TString& ContentOf(ElementBounds element)
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

} // namespace

// By value, so that the predicate can't change the text that is walked.
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
