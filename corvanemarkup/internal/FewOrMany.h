#pragma once

/// A vector with inline storage for a few items.

#include <cstddef>
#include <new>
#include <type_traits>
#include <vector>

namespace corvanemarkup::Internal {

/// Allocates nothing for up to `Few` items, and leaves unused inline storage uninitialized.
template <typename Item>
class FewOrMany
{
    static_assert(std::is_trivially_copyable_v<Item> && std::is_trivially_destructible_v<Item>);

public:
    static constexpr std::size_t Few = 8;

    FewOrMany() = default;
    FewOrMany(const FewOrMany&) = delete;
    FewOrMany& operator=(const FewOrMany&) = delete;

    [[nodiscard]] std::size_t Count() const { return m_count; }
    [[nodiscard]] Item* begin() { return m_items; }
    [[nodiscard]] Item* end() { return m_items + m_count; }
    [[nodiscard]] Item& operator[](std::size_t number) { return m_items[number]; }
    [[nodiscard]] const Item& operator[](std::size_t number) const { return m_items[number]; }

    /// Appends an uninitialized item and returns it. The reference is valid until the next call.
    Item& Add()
    {
        Item& item = m_count < Few ? *new (m_few + m_count * sizeof(Item)) Item : AddToMany();
        ++m_count;
        return item;
    }

    /// Removes all items and keeps the memory.
    void Clear()
    {
        m_items = reinterpret_cast<Item*>(m_few);
        m_count = 0;
    }

private:
    Item& AddToMany()
    {
        if (m_count == Few)
            m_many.assign(m_items, m_items + Few);
        m_many.emplace_back();
        m_items = m_many.data();
        return m_many.back();
    }

    alignas(Item) unsigned char m_few[Few * sizeof(Item)];
    Item* m_items = reinterpret_cast<Item*>(m_few);
    std::size_t m_count = 0;
    std::vector<Item> m_many;
};

} // namespace corvanemarkup::Internal
