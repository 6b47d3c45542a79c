#pragma once

#include <corvanemarkup/internal/FewOrMany.h>
#include <corvanemarkup/internal/TextView.h>

#include <memory>

namespace corvanemarkup::Internal {

/// Numbers different texts as they come, from 0 on. The texts are viewed, not copied.
///
/// A few texts are compared one by one. More of them are found by hash, and, since anyone may choose texts of
/// equal hashes, those that crowd in one place are found by their order: adding n texts never takes more than
/// their lengths times log n.
class TextTable
{
public:
    /// The number of the text: `Count()` as it was before, if the text is new.
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
    std::unique_ptr<Index, IndexDeleter> m_index; ///< none as long as the texts are few
};

} // namespace corvanemarkup::Internal
