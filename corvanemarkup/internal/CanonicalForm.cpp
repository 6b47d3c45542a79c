#include <corvanemarkup/internal/CanonicalForm.h>
#include <corvanemarkup/internal/DelimiterSearch.h>

#include <algorithm>
#include <cstdint>

namespace corvanemarkup::Internal {

using namespace VizInTooltip::Impl;

namespace {

/// The name of an attribute and the `="` after it, as words.
struct CanonicalName
{
    static constexpr std::size_t MostWords = 3;
    static constexpr std::size_t MostUnits = MostWords * UnitsInWord;

    std::size_t Length;
    std::uint64_t Words[MostWords]; ///< zero after the end
    std::uint64_t Masks[MostWords]; ///< the bits of `Words` that belong to the name
};

constexpr CanonicalName CanonicalNameOf(TextView literal)
{
    char16_t units[CanonicalName::MostUnits] = {};
    char16_t masks[CanonicalName::MostUnits] = {};
    CanonicalName name{};
    for (const TextView part : {literal, TextView(u"=\"")})
        for (const char16_t unit : part) {
            units[name.Length] = unit;
            masks[name.Length++] = 0xFFFF;
        }
    for (std::size_t i = 0; i < CanonicalName::MostWords; ++i) {
        name.Words[i] = WordAt(units + i * UnitsInWord);
        name.Masks[i] = WordAt(masks + i * UnitsInWord);
    }
    return name;
}

constexpr std::size_t NameCount = std::size(SheetMarkupAttributeLiterals);

struct CanonicalNames
{
    CanonicalName Names[NameCount];
};

constexpr CanonicalNames MakeCanonicalNames()
{
    CanonicalNames all{};
    for (std::size_t i = 0; i < NameCount; ++i)
        all.Names[i] = CanonicalNameOf(SheetMarkupAttributeLiterals[i]);
    return all;
}

constexpr CanonicalNames AllNames = MakeCanonicalNames();

constexpr bool FirstWordsDiffer()
{
    for (std::size_t i = 0; i < NameCount; ++i) {
        if (SheetMarkupAttributeLiterals[i].size() < UnitsInWord)
            return false;
        for (std::size_t j = 0; j < i; ++j)
            if (AllNames.Names[i].Words[0] == AllNames.Names[j].Words[0])
                return false;
    }
    return true;
}
static_assert(FirstWordsDiffer());

/// Finds the name at `units`. REQUIRES: `CanonicalName::MostUnits` units can be read. No branch depends on
/// the name, which is unpredictable: the index is computed, since compilers turn conditionals into branches.
inline bool FindName(const char16_t* units, std::size_t& index)
{
    const std::uint64_t firstWord = WordAt(units);
    index = 0;
    for (std::size_t i = 1; i < NameCount; ++i)
        index += i * std::size_t(firstWord == AllNames.Names[i].Words[0]);
    const CanonicalName& name = AllNames.Names[index];
    std::uint64_t difference = firstWord ^ name.Words[0];
    for (std::size_t i = 1; i < CanonicalName::MostWords; ++i)
        difference |= (WordAt(units + i * UnitsInWord) & name.Masks[i]) ^ name.Words[i];
    return difference == 0;
}

/// Finds the name at `position`.
inline bool FindName(TextView text, std::size_t position, std::size_t& index)
{
    if (text.size() - position >= CanonicalName::MostUnits)
        return FindName(text.data() + position, index);
    char16_t rest[CanonicalName::MostUnits] = {};
    std::copy(text.begin() + static_cast<std::ptrdiff_t>(position), text.end(), rest);
    return FindName(rest, index);
}

/// Finds the quotes of a text, in text order.
class QuoteReader
{
public:
    QuoteReader(TextView text, std::size_t from) : m_text(text) { ReadFrom(from); }

    /// Returns the position of the next quote, or `NotFound`.
    std::size_t Next()
    {
        while (m_mask == 0) {
            if (m_end == m_text.size())
                return NotFound;
            ReadFrom(m_end);
        }
        const std::size_t position = m_start + LowestBit(m_mask);
        m_mask &= m_mask - 1;
        return position;
    }

private:
    void ReadFrom(std::size_t from)
    {
        m_start = from;
        m_end = std::min(from + WideUnitBlock::Length, m_text.size());
        if (m_end - from == WideUnitBlock::Length) {
            m_mask = WideUnitBlock(m_text.data() + from).MaskOf(u'"');
        } else {
            m_mask = 0;
            for (std::size_t i = from; i < m_end; ++i)
                m_mask |= std::uint64_t(m_text[i] == u'"') << (i - from);
        }
    }

    TextView m_text;
    std::size_t m_start; ///< of the units that `m_mask` covers
    std::size_t m_end;
    std::uint64_t m_mask;
};

} // namespace

std::size_t ReadCanonicalElement(TextView text, std::size_t position, SheetAttributeValues& values)
{
    values = {};
    bool hasAttributes = false;
    QuoteReader quotes(text, position);
    while (position < text.size() && text[position] == u' ') {
        do
            ++position;
        while (position < text.size() && text[position] == u' ');
        std::size_t index = 0;
        if (!FindName(text, position, index))
            break;
        // The start of the value also follows from the length of the name, but then the position of each
        // attribute would depend on the name of the previous one.
        const std::size_t openingQuote = quotes.Next();
        std::size_t closingQuote = quotes.Next();
        while (closingQuote != NotFound && IsDoubled(text, closingQuote)) {
            values.MayHoldQuotes = true;
            quotes.Next();
            closingQuote = quotes.Next();
        }
        const auto attribute = static_cast<SheetMarkupAttribute>(index);
        if (closingQuote == NotFound || values.Has(attribute))
            return NotFound;
        values[attribute] = TextView(text.data() + openingQuote + 1, closingQuote - openingQuote - 1);
        position = closingQuote + 1;
        hasAttributes = true;
    }
    const bool isAtEnd = position < text.size() && text[position] == u'>' && !IsDoubled(text, position);
    return hasAttributes && isAtEnd ? position : NotFound;
}

} // namespace corvanemarkup::Internal
