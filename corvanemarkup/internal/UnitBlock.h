#pragma once

/// Compares several code units at once, by vector instructions: SSE2, which every x86-64 processor has, or
/// NEON, which every 64-bit Arm processor has; otherwise by words of 64 bits. Only the search for sheet
/// elements uses further ones: AVX2, which most x86-64 processors have.

#include <cstddef>
#include <cstdint>

#if defined(CORVANEMARKUP_PLAIN_BLOCKS)
#elif defined(__SSE2__)
#define CORVANEMARKUP_SSE2_BLOCKS
#include <emmintrin.h>
// Emscripten has SSE2, but no AVX2. On Windows, GCC may misalign AVX2 vectors on the stack.
#if defined(__x86_64__) || defined(__i386__)
#if defined(__GNUC__) && !defined(_WIN32) && !defined(__CYGWIN__) && !defined(CORVANEMARKUP_NO_AVX2)
#define CORVANEMARKUP_AVX2_BLOCKS
#include <immintrin.h>
#endif
#endif
#elif defined(__aarch64__) && defined(__ARM_NEON) && !defined(__ARM_BIG_ENDIAN)
#define CORVANEMARKUP_NEON_BLOCKS
#include <arm_neon.h>
#endif

namespace corvanemarkup::Internal {

// A `UnitBlock` holds the `Length` code units from a pointer. `MaskOf` returns which of them equal a
// character, which must be ASCII and not U+0000: one bit for each unit, `BitsPerUnit` apart, the lowest for
// the first.

#if defined(CORVANEMARKUP_SSE2_BLOCKS)

class UnitBlock
{
public:
    using Mask = std::uint32_t;
    static constexpr std::size_t Length = 16;
    static constexpr std::size_t BitsPerUnit = 1;

    explicit UnitBlock(const char16_t* units)
    {
        const auto* const vectors = reinterpret_cast<const __m128i*>(units);
        m_bytes = _mm_packus_epi16(_mm_loadu_si128(vectors), _mm_loadu_si128(vectors + 1));
    }

    [[nodiscard]] Mask MaskOf(char16_t unit) const
    {
        const __m128i sought = _mm_set1_epi8(static_cast<char>(unit));
        return static_cast<Mask>(_mm_movemask_epi8(_mm_cmpeq_epi8(m_bytes, sought)));
    }

private:
    /// The units as bytes. Those that don't fit saturate to 255 or 0, which `MaskOf` never searches for.
    __m128i m_bytes;
};

#elif defined(CORVANEMARKUP_NEON_BLOCKS)

class UnitBlock
{
public:
    using Mask = std::uint64_t;
    static constexpr std::size_t Length = 16;
    static constexpr std::size_t BitsPerUnit = 4;

    explicit UnitBlock(const char16_t* units)
    {
        const auto* const numbers = reinterpret_cast<const std::uint16_t*>(units);
        m_bytes = vqmovn_high_u16(vqmovn_u16(vld1q_u16(numbers)), vld1q_u16(numbers + Length / 2));
    }

    [[nodiscard]] Mask MaskOf(char16_t unit) const
    {
        const uint8x16_t equal = vceqq_u8(m_bytes, vdupq_n_u8(static_cast<std::uint8_t>(unit)));
        // No instruction extracts one bit of each byte, but a narrowing shift leaves four.
        const uint8x8_t narrowed = vshrn_n_u16(vreinterpretq_u16_u8(equal), 4);
        return vget_lane_u64(vreinterpret_u64_u8(narrowed), 0) & 0x1111111111111111;
    }

private:
    uint8x16_t m_bytes; ///< the units as bytes; those that don't fit saturate to 255
};

#else

class UnitBlock
{
public:
    using Mask = std::uint64_t;
    static constexpr std::size_t Length = 4;
    static constexpr std::size_t BitsPerUnit = 16;

    explicit UnitBlock(const char16_t* units)
    {
        // The first unit is the lowest, whatever the byte order. Compiles to a single load where possible.
        const std::uint64_t word = std::uint64_t(units[0]) | std::uint64_t(units[1]) << 16 |
                                   std::uint64_t(units[2]) << 32 | std::uint64_t(units[3]) << 48;
        m_lowBits = word & LowBits;
        m_noHighBit = ~word & ~LowBits;
    }

    [[nodiscard]] Mask MaskOf(char16_t unit) const
    {
        // If any low bit differs, the sum has the highest bit of the unit set. If the highest bit differs, it
        // is set in the unit, since ASCII characters don't have it.
        const std::uint64_t difference = m_lowBits ^ (unit * OfEachUnit);
        return ~(difference + LowBits) & m_noHighBit;
    }

private:
    static constexpr std::uint64_t OfEachUnit = 0x0001000100010001;
    static constexpr std::uint64_t LowBits = 0x7FFF * OfEachUnit;

    std::uint64_t m_lowBits;   ///< of each unit, all but the highest
    std::uint64_t m_noHighBit; ///< the highest bit of each unit, inverted
};

#endif

using UnitMask = UnitBlock::Mask;

/// Returns the position of the lowest bit of a mask that isn't 0.
[[nodiscard]] inline std::size_t LowestBit(std::uint64_t mask)
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

/// Returns the index in its block of the first unit of a mask that isn't 0.
[[nodiscard]] inline std::size_t FirstIn(UnitMask mask)
{
    return LowestBit(mask) / UnitBlock::BitsPerUnit;
}

/// Returns the mask without its first `count` units, which must be fewer than `UnitBlock::Length`. The next
/// one becomes the first.
[[nodiscard]] inline UnitMask After(UnitMask mask, std::size_t count)
{
    return mask >> (count * UnitBlock::BitsPerUnit);
}

/// 64 code units, with one bit for each in a mask.
class WideUnitBlock
{
public:
    static constexpr std::size_t Length = 64;

    explicit WideUnitBlock(const char16_t* units) : m_units(units) {}

    [[nodiscard]] std::uint64_t MaskOf(char16_t unit) const
    {
        std::uint64_t mask = 0;
        for (std::size_t i = 0; i < Length; i += UnitBlock::Length) {
            UnitMask part = UnitBlock(m_units + i).MaskOf(unit);
            if constexpr (UnitBlock::BitsPerUnit == 1)
                mask |= std::uint64_t(part) << i;
            else
                for (; part != 0; part &= part - 1)
                    mask |= std::uint64_t(1) << (i + FirstIn(part));
        }
        return mask;
    }

private:
    const char16_t* m_units;
};

} // namespace corvanemarkup::Internal
