#include <corvanemarkup/internal/RecentContents.h>

#include <algorithm>
#include <iterator>

namespace corvanemarkup::Internal {

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

} // namespace corvanemarkup::Internal
