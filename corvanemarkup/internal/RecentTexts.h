#pragma once

#include <corvanemarkup/internal/TextView.h>

#include <iterator>

namespace corvanemarkup::Internal {

/// Remembers some of the texts seen last, so that a result that many elements share is built once.
class RecentTexts
{
public:
    /// False if `text`, which isn't empty, is remembered.
    bool Add(TextView text)
    {
        TextView& place =
            m_texts[(5 * text.size() + std::size_t(3) * text.front() + text.back()) % std::size(m_texts)];
        const bool isNew = !AreSame(place, text);
        place = text;
        return isNew;
    }

private:
    TextView m_texts[32];
};

} // namespace corvanemarkup::Internal
