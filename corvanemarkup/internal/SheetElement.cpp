#include <corvanemarkup/internal/CanonicalForm.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/SheetSize.h>
#include <corvanemarkup/internal/UnitBlock.h>

#include <algorithm>

namespace corvanemarkup::Internal {

using VizInTooltip::Impl::SheetMarkupAttribute;

namespace {

int NumberOr(const SheetAttributeValues& values, SheetMarkupAttribute attribute, int defaultNumber)
{
    return values.Has(attribute) ? ReadSheetLength(values[attribute]) : defaultNumber;
}

constexpr TextView SheetStart = u"<Sheet ";
static_assert(SheetStart.substr(1, SheetStart.size() - 2) == VizInTooltip::Impl::SheetMarkupElementLiteral);

#if defined(CORVANEMARKUP_SSE2_BLOCKS)

// `Sse2Fours` and `Avx2Fours` split 64 code units into 16 aligned groups of four. `MaskOf` returns which
// groups equal four successive units of the seven at `sought`, which must be ASCII and not U+0000: four bits
// for each group, the lowest for the first.

/// Returns four code units as the bytes of a number, the first in the lowest bits.
constexpr int FourBytesOf(const char16_t* units)
{
    return units[0] | units[1] << 8 | units[2] << 16 | units[3] << 24;
}

struct Sse2Fours
{
    static constexpr std::size_t Length = 64;

    [[nodiscard]] static std::uint64_t MaskOf(const char16_t* units, const char16_t* sought)
    {
        __m128i matches[4];
        for (std::size_t i = 0; i < 4; ++i) {
            const auto* const vectors = reinterpret_cast<const __m128i*>(units + 16 * i);
            const __m128i bytes = _mm_packus_epi16(_mm_loadu_si128(vectors), _mm_loadu_si128(vectors + 1));
            matches[i] = _mm_cmpeq_epi32(bytes, _mm_set1_epi32(FourBytesOf(sought)));
            for (int j = 1; j < 4; ++j)
                matches[i] =
                    _mm_or_si128(matches[i], _mm_cmpeq_epi32(bytes, _mm_set1_epi32(FourBytesOf(sought + j))));
        }
        const __m128i any =
            _mm_or_si128(_mm_or_si128(matches[0], matches[1]), _mm_or_si128(matches[2], matches[3]));
        if (_mm_movemask_epi8(any) == 0)
            return 0;
        std::uint64_t mask = 0;
        for (std::size_t i = 0; i < 4; ++i)
            mask |= std::uint64_t(static_cast<std::uint32_t>(_mm_movemask_epi8(matches[i]))) << (16 * i);
        return mask;
    }
};

#if defined(CORVANEMARKUP_AVX2_BLOCKS)

struct Avx2Fours
{
    static constexpr std::size_t Length = 64;

    /// Returns whether the processor has AVX2. May return false while the program is being loaded.
    [[nodiscard]] static bool Exist() { return __builtin_cpu_supports("avx2"); }

    /// REQUIRES: `Exist()`.
    [[nodiscard, gnu::target("avx2")]] static std::uint64_t MaskOf(const char16_t* units,
                                                                   const char16_t* sought)
    {
        __m256i matches[2];
        for (std::size_t i = 0; i < 2; ++i) {
            const auto* const vectors = reinterpret_cast<const __m256i*>(units + 32 * i);
            const __m256i bytes =
                _mm256_packus_epi16(_mm256_loadu_si256(vectors), _mm256_loadu_si256(vectors + 1));
            matches[i] = _mm256_cmpeq_epi32(bytes, _mm256_set1_epi32(FourBytesOf(sought)));
            for (int j = 1; j < 4; ++j)
                matches[i] = _mm256_or_si256(
                    matches[i], _mm256_cmpeq_epi32(bytes, _mm256_set1_epi32(FourBytesOf(sought + j))));
        }
        const __m256i any = _mm256_or_si256(matches[0], matches[1]);
        if (_mm256_testz_si256(any, any) != 0)
            return 0;
        std::uint64_t mask = 0;
        for (std::size_t i = 0; i < 2; ++i) {
            // Packing leaves the quarters of the 32 units in the order 0, 2, 1, 3.
            const __m256i inOrder = _mm256_permute4x64_epi64(matches[i], 0b11'01'10'00);
            mask |= std::uint64_t(static_cast<std::uint32_t>(_mm256_movemask_epi8(inOrder))) << (32 * i);
        }
        return mask;
    }
};

#endif

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

/// Returns whether an element with these attributes, none of which occurs twice, is valid as
/// `VizInTooltipProperties::IsValid` defines it.
bool AreValid(const SheetAttributeValues& values)
{
    const TSize size(NumberOr(values, SheetMarkupAttribute::MaxWidth, VizInTooltip::DefaultMaxSize.width),
                     NumberOr(values, SheetMarkupAttribute::MaxHeight, VizInTooltip::DefaultMaxSize.height));
    return !values[SheetMarkupAttribute::Name].empty() && IsValidSheetSize(size);
}

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

bool ReadSheetElement(TextView content, SheetElement& element)
{
    if (!HasElementNameAt(content, 0))
        return false;
    element = {content, {}};
    element.Values.MayHoldQuotes = true;
    ContentReader reader(content);
    for (AttributeParts attribute; reader.Next(attribute);) {
        const auto allowed = FindAllowedAttribute(attribute.Name);
        if (!attribute.IsNameAndValue || !allowed || element.Values.Has(*allowed))
            return false;
        element.Values[*allowed] = attribute.RawValue;
    }
    return AreValid(element.Values);
}

bool SheetElementWalk::Next(SheetElement& element)
{
    // Plain elements can be skipped without finding their ends. Quotes always protect brackets in a valid
    // sheet element, since the look-ahead recognizes its first attribute. And a plain element doesn't affect
    // where such an element starts: quotes have no meaning in it, and any `<` that isn't escaped interrupts
    // it.
    for (;;) {
        const std::size_t start = FindSheetStart(m_text, m_position);
        if (start == NotFound)
            return false;
        const bool isNotEscaped = IsNotEscapedAt<u'<'>(m_text, m_position, start);
        m_position = start + 1;
        if (isNotEscaped && ReadElementAt(start, element))
            return true;
    }
}

/// Returns whether a valid sheet element starts at the `<` at `start`, which the element's name follows.
/// Advances the walk. Tries the fast path first; this is the only place that falls back to the general path.
bool SheetElementWalk::ReadElementAt(std::size_t start, SheetElement& element)
{
    const std::size_t afterName = start + 1 + VizInTooltip::Impl::SheetMarkupElementLiteral.size();
    const std::size_t end = ReadCanonicalElement(m_text, afterName, element.Values);
    if (end != NotFound) {
        m_position = end + 1;
        element.Content = TextView(m_text.data() + start + 1, end - start - 1);
        return AreValid(element.Values);
    }

    if (!StartsSheetElement(m_text, start + 1))
        return false;
    const ElementBounds bounds = FindEndOfElement(m_text, start, start + 1, true);
    m_position = bounds.Found() ? bounds.End + 1 : m_text.size();
    return bounds.Found() && ReadSheetElement(bounds.ContentIn(m_text), element);
}

} // namespace corvanemarkup::Internal
