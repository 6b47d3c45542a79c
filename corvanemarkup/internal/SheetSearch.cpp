#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/SheetSearch.h>
#include <corvanemarkup/internal/UnitBlock.h>

#include <algorithm>

namespace corvanemarkup::Internal {

namespace {

constexpr TextView SheetStart = u"<Sheet ";
static_assert(SheetStart.substr(1, SheetStart.size() - 2) == VizInTooltip::Impl::SheetMarkupElementLiteral);

#if defined(CORVANEMARKUP_SSE2_BLOCKS)

// Any seven successive units contain an aligned group of four.
static_assert(SheetStart.size() == 7);

/// Returns the position of `unit` in `SheetStart` if it is one of the first four, which differ.
constexpr std::size_t PlaceInSheetStart(char16_t unit)
{
    std::size_t place = 0;
    for (std::size_t i = 1; i < 4; ++i)
        place += i * std::size_t(unit == SheetStart[i]);
    return place;
}

static_assert(PlaceInSheetStart(SheetStart[0]) == 0 && PlaceInSheetStart(SheetStart[1]) == 1 &&
              PlaceInSheetStart(SheetStart[2]) == 2 && PlaceInSheetStart(SheetStart[3]) == 3);

/// Finds aligned groups of four units that are part of a start, then compares the whole start. The last block
/// may overlap the previous one, with groups at other offsets. It misses nothing: a start that begins at most
/// three units before the units not yet searched contains a group of either alignment. REQUIRES: `text` has
/// at least `Fours::Length` units.
template <typename Fours>
[[gnu::always_inline]] inline std::size_t FindByFours(TextView text, std::size_t from)
{
    const std::size_t lastBlock = text.size() - Fours::Length;
    for (std::size_t next = from; next < text.size();) {
        const std::size_t block = std::min(next, lastBlock);
        std::uint64_t mask = Fours::MaskOf(text.data() + block, SheetStart.data());
        while (mask != 0) {
            const std::size_t firstBit = LowestBit(mask);
            const std::size_t four = block + firstBit;
            const std::size_t before = PlaceInSheetStart(text[four]);
            if (four >= from + before && MatchesAt(text, four - before, SheetStart))
                return four - before;
            mask &= ~(std::uint64_t(0xF) << firstBit);
        }
        next = block + Fours::Length;
    }
    return NotFound;
}

#if defined(CORVANEMARKUP_AVX2_BLOCKS)

[[gnu::target("avx2")]] std::size_t FindByAvx2(TextView text, std::size_t from)
{
    return FindByFours<Avx2Fours>(text, from);
}

#endif
#endif

} // namespace

std::size_t FindSheetStart(TextView text, std::size_t from)
{
#if defined(CORVANEMARKUP_AVX2_BLOCKS)
    if (text.size() >= Avx2Fours::Length && Avx2Fours::Exist())
        return FindByAvx2(text, from);
#endif
#if defined(CORVANEMARKUP_SSE2_BLOCKS)
    if (text.size() >= Sse2Fours::Length)
        return FindByFours<Sse2Fours>(text, from);
#endif
    for (from = FindFirstOf<SheetStart[0]>(text, from); from != NotFound;
         from = FindFirstOf<SheetStart[0]>(text, from + 1))
        if (MatchesAt(text, from, SheetStart))
            return from;
    return NotFound;
}

} // namespace corvanemarkup::Internal
