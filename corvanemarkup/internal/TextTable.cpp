#include <corvanemarkup/internal/TextTable.h>

#include <cstdint>
#include <map>

namespace corvanemarkup::Internal {

namespace {

constexpr std::uint64_t OddBits = 0x9E3779B97F4A7C15; // 2^64 divided by the golden ratio

inline std::uint64_t Mixed(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * OddBits;
    return hash ^ (hash >> 32);
}

std::uint32_t HashOf(TextView text)
{
    std::uint64_t hash = text.size();
    if (text.size() < UnitsInWord) {
        for (const char16_t unit : text)
            hash = Mixed(hash, unit);
    } else {
        const char16_t* const lastWord = text.data() + text.size() - UnitsInWord;
        for (const char16_t* units = text.data(); units < lastWord; units += UnitsInWord)
            hash = Mixed(hash, WordAt(units));
        hash = Mixed(hash, WordAt(lastWord));
    }
    // The last unit of a text affects only the highest bits. Names that differ in a trailing number differ
    // only there, but the lowest bits of the result select the slot.
    return static_cast<std::uint32_t>(hash * OddBits >> 32);
}

} // namespace

/// Maps texts to their numbers.
class TextTable::Index
{
public:
    explicit Index(const FewOrMany<TextView>& texts) : m_texts(texts) { Rebuild(64); }

    /// Returns the number of the text, which is `newNumber` if the text is new.
    std::size_t Add(TextView text, std::size_t newNumber)
    {
        if (2 * (newNumber + 1) > m_slots.size())
            Rebuild(2 * m_slots.size());
        return Add(text, HashOf(text), newNumber);
    }

private:
    struct Slot
    {
        std::uint32_t Hash;
        std::uint32_t NumberPlusOne; ///< 0 if empty; fits, as the texts are parts of one `TString`
    };

    std::size_t Add(TextView text, std::uint32_t hash, std::size_t newNumber)
    {
        constexpr std::size_t mostProbes = 16;
        for (std::size_t i = 0; i < mostProbes; ++i) {
            Slot& slot = m_slots[(hash + i) & (m_slots.size() - 1)];
            if (slot.NumberPlusOne == 0) {
                slot = {hash, static_cast<std::uint32_t>(newNumber + 1)};
                return newNumber;
            }
            if (slot.Hash == hash && AreSame(m_texts[slot.NumberPlusOne - 1], text))
                return slot.NumberPlusOne - 1;
        }
        return m_crowded.emplace(text, newNumber).first->second;
    }

    void Rebuild(std::size_t slotCount)
    {
        m_slots.assign(slotCount, Slot{0, 0});
        m_crowded.clear();
        for (std::size_t number = 0; number < m_texts.Count(); ++number)
            Add(m_texts[number], HashOf(m_texts[number]), number);
    }

    const FewOrMany<TextView>& m_texts;
    std::vector<Slot> m_slots;                 ///< the size is a power of two; at least half are empty
    std::map<TextView, std::size_t> m_crowded; ///< texts that exceeded the number of probes
};

void TextTable::IndexDeleter::operator()(Index* index) const
{
    delete index;
}

std::size_t TextTable::AddByHash(TextView text)
{
    if (!m_index)
        m_index.reset(new Index(m_texts));
    const std::size_t count = m_texts.Count();
    const std::size_t number = m_index->Add(text, count);
    if (number == count)
        m_texts.Add() = text;
    return number;
}

} // namespace corvanemarkup::Internal
