#pragma once

/// A set of texts with an index for each.

#include <corvanemarkup/internal/FewOrMany.h>
#include <corvanemarkup/internal/TextView.h>

#include <memory>

namespace corvanemarkup::Internal {

/// Numbers distinct texts in the order of their insertion, from 0. The texts are viewed, not copied.
///
/// A few texts are searched linearly, more of them by hash. Since untrusted input may contain many texts of
/// equal hashes, those that exceed a number of probes go into an ordered map: adding n texts takes at most
/// their total length times log n.
class TextTable
{
public:
    /// Returns the number of the text. If the text is new, this is the previous `Count()`.
    std::size_t Add(TextView text)
    {
        if (m_index)
            return AddByHash(text);
        for (std::size_t number = 0; number < m_texts.Count(); ++number)
            if (AreSame(m_texts[number], text))
                return number;
        if (m_texts.Count() == FewOrMany<TextView>::Few)
            return AddByHash(text);
        m_texts.Add() = text;
        return m_texts.Count() - 1;
    }

    [[nodiscard]] std::size_t Count() const { return m_texts.Count(); }
    [[nodiscard]] TextView operator[](std::size_t number) const { return m_texts[number]; }

private:
    class Index;
    struct IndexDeleter
    {
        void operator()(Index* index) const;
    };

    std::size_t AddByHash(TextView text);

    FewOrMany<TextView> m_texts;
    std::unique_ptr<Index, IndexDeleter> m_index; ///< null while there are few texts
};

} // namespace corvanemarkup::Internal
