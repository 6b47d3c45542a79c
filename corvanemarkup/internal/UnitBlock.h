#pragma once

/// Comparing several code units at once. The only place that knows of vector instructions.

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__) && !defined(CORVANEMARKUP_PLAIN_BLOCKS)
#define CORVANEMARKUP_SSE2_BLOCKS
#include <emmintrin.h>
#endif

namespace corvanemarkup::Internal {

/// A bit for each code unit of a block, the lowest for the first.
using UnitMask = std::uint32_t;

/// `Length` code units, to be compared with ASCII characters other than U+0000.
class UnitBlock
{
public:
    static constexpr std::size_t Length = 16;

    /// The code units from `units` on.
    explicit UnitBlock(const char16_t* units);

    /// Which of the code units are `unit`.
    [[nodiscard]] UnitMask MaskOf(char16_t unit) const;

private:
#if defined(CORVANEMARKUP_SSE2_BLOCKS)
    /// The units as bytes: those beyond a byte become 255 or 0, and so none of the characters asked for.
    __m128i m_bytes;
#else
    const char16_t* m_units;
#endif
};

/// The same with more code units at once.
class WideUnitBlock
{
public:
    static constexpr std::size_t Length = 64;

    explicit WideUnitBlock(const char16_t* units) : m_units(units) {}

    [[nodiscard]] std::uint64_t MaskOf(char16_t unit) const;

    /// Takes the code units by twos: which of these are `first` and `second`, or `second` and `third`. The
    /// bit is that of the first of the two.
    [[nodiscard]] std::uint64_t MaskOfTwos(char16_t first, char16_t second, char16_t third) const;

private:
    const char16_t* m_units;
};

#if defined(CORVANEMARKUP_SSE2_BLOCKS)

inline UnitBlock::UnitBlock(const char16_t* units)
{
    const auto* const vectors = reinterpret_cast<const __m128i*>(units);
    m_bytes = _mm_packus_epi16(_mm_loadu_si128(vectors), _mm_loadu_si128(vectors + 1));
}

inline UnitMask UnitBlock::MaskOf(char16_t unit) const
{
    const __m128i sought = _mm_set1_epi8(static_cast<char>(unit));
    return static_cast<UnitMask>(_mm_movemask_epi8(_mm_cmpeq_epi8(m_bytes, sought)));
}

inline std::uint64_t WideUnitBlock::MaskOfTwos(char16_t first, char16_t second, char16_t third) const
{
    const __m128i firstTwo = _mm_set1_epi16(static_cast<short>(second << 8 | first));
    const __m128i lastTwo = _mm_set1_epi16(static_cast<short>(third << 8 | second));
    const auto matches = [&](std::size_t at) {
        const auto* const vectors = reinterpret_cast<const __m128i*>(m_units + at);
        const __m128i bytes = _mm_packus_epi16(_mm_loadu_si128(vectors), _mm_loadu_si128(vectors + 1));
        return _mm_or_si128(_mm_cmpeq_epi16(bytes, firstTwo), _mm_cmpeq_epi16(bytes, lastTwo));
    };
    const __m128i parts[] = {matches(0), matches(16), matches(32), matches(48)};
    const __m128i any = _mm_or_si128(_mm_or_si128(parts[0], parts[1]), _mm_or_si128(parts[2], parts[3]));
    if (_mm_movemask_epi8(any) == 0)
        return 0;
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < 4; ++i)
        mask |= std::uint64_t(static_cast<std::uint32_t>(_mm_movemask_epi8(parts[i]))) << (16 * i);
    return mask & 0x5555555555555555;
}

#else

inline UnitBlock::UnitBlock(const char16_t* units) : m_units(units) {}

inline UnitMask UnitBlock::MaskOf(char16_t unit) const
{
    UnitMask mask = 0;
    for (std::size_t i = 0; i < Length; ++i)
        mask |= UnitMask(m_units[i] == unit) << i;
    return mask;
}

inline std::uint64_t WideUnitBlock::MaskOfTwos(char16_t first, char16_t second, char16_t third) const
{
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < Length; i += 2) {
        const bool isFirstTwo = m_units[i] == first && m_units[i + 1] == second;
        const bool isLastTwo = m_units[i] == second && m_units[i + 1] == third;
        mask |= std::uint64_t(isFirstTwo || isLastTwo) << i;
    }
    return mask;
}

#endif

inline std::uint64_t WideUnitBlock::MaskOf(char16_t unit) const
{
    std::uint64_t mask = 0;
    for (std::size_t i = 0; i < Length; i += UnitBlock::Length)
        mask |= std::uint64_t(UnitBlock(m_units + i).MaskOf(unit)) << i;
    return mask;
}

/// The position of the lowest bit of a mask that isn't 0.
[[nodiscard]] inline std::size_t FirstIn(std::uint64_t mask)
{
#if defined(__GNUC__)
    return static_cast<std::size_t>(__builtin_ctzll(mask));
#else
    std::size_t position = 0;
    for (; (mask & 1) == 0; mask >>= 1)
        ++position;
    return position;
#endif
}

} // namespace corvanemarkup::Internal
