#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/WrittenForm.h>

#include <algorithm>
#include <cstdint>

namespace corvanemarkup::Internal {

using namespace VizInTooltip::Impl;

namespace {

/// An attribute's name with the `="` after it, in words.
struct WrittenName
{
    static constexpr std::size_t MostWords = 3;
    static constexpr std::size_t MostUnits = MostWords * UnitsInWord;

    std::size_t Length;
    std::uint64_t Words[MostWords]; ///< with zeros after the end
    std::uint64_t Masks[MostWords]; ///< the bits of `Words` that belong to the name
};

constexpr WrittenName WrittenNameOf(TextView literal)
{
    char16_t units[WrittenName::MostUnits] = {};
    char16_t masks[WrittenName::MostUnits] = {};
    WrittenName name{};
    for (const TextView part : {literal, TextView(u"=\"")})
        for (const char16_t unit : part) {
            units[name.Length] = unit;
            masks[name.Length++] = 0xFFFF;
        }
    for (std::size_t i = 0; i < WrittenName::MostWords; ++i) {
        name.Words[i] = WordAt(units + i * UnitsInWord);
        name.Masks[i] = WordAt(masks + i * UnitsInWord);
    }
    return name;
}

constexpr std::size_t NameCount = std::size(SheetMarkupAttributeLiterals);

struct WrittenNames
{
    WrittenName Names[NameCount];
};

constexpr WrittenNames MakeWrittenNames()
{
    WrittenNames all{};
    for (std::size_t i = 0; i < NameCount; ++i)
        all.Names[i] = WrittenNameOf(SheetMarkupAttributeLiterals[i]);
    return all;
}

constexpr WrittenNames AllNames = MakeWrittenNames();

constexpr bool FirstWordsTellNamesApart()
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
static_assert(FirstWordsTellNamesApart());

/// Tells which of the names stands at `units`, of which as many as the longest name has can be read. Which one
/// it is can't be foreseen, so that no branch depends on it.
inline bool FindName(const char16_t* units, std::size_t& index)
{
    const std::uint64_t firstWord = WordAt(units);
    index = 0;
    for (std::size_t i = 1; i < NameCount; ++i)
        index |= i & -std::size_t(firstWord == AllNames.Names[i].Words[0]);
    const WrittenName& name = AllNames.Names[index];
    std::uint64_t difference = firstWord ^ name.Words[0];
    for (std::size_t i = 1; i < WrittenName::MostWords; ++i)
        difference |= (WordAt(units + i * UnitsInWord) & name.Masks[i]) ^ name.Words[i];
    return difference == 0;
}

/// Moves `position` past one of the names, with its `=` and the opening quote, and tells which it was.
inline bool SkipName(TextView text, std::size_t& position, SheetMarkupAttribute& attribute)
{
    std::size_t index = 0;
    if (text.size() - position >= WrittenName::MostUnits) {
        if (!FindName(text.data() + position, index))
            return false;
    } else {
        char16_t rest[WrittenName::MostUnits] = {};
        std::copy(text.begin() + static_cast<std::ptrdiff_t>(position), text.end(), rest);
        if (!FindName(rest, index))
            return false;
    }
    attribute = static_cast<SheetMarkupAttribute>(index);
    position += AllNames.Names[index].Length;
    return true;
}

} // namespace

bool ReadWrittenElement(TextView text, std::size_t position, SheetAttributeValues& values, std::size_t& end)
{
    bool hasAttributes = false;
    while (position < text.size() && text[position] == u' ') {
        do
            ++position;
        while (position < text.size() && text[position] == u' ');
        SheetMarkupAttribute attribute{};
        if (!SkipName(text, position, attribute))
            break;
        const std::size_t closingQuote = FindNotEscaped<u'"'>(text, position);
        if (closingQuote == NotFound || values.Has(attribute))
            return false;
        values[attribute] = text.substr(position, closingQuote - position);
        position = closingQuote + 1;
        hasAttributes = true;
    }
    end = position;
    return hasAttributes && end < text.size() && text[end] == u'>' && !IsDoubled(text, end);
}

} // namespace corvanemarkup::Internal
