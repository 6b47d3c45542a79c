#pragma once

/// The platform's text, which a host may replace by its own.

#include <corvaneplatform/Export.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// The platform's text value: a sequence of UTF-16 code units that needn't be well formed.
///
/// Lengths, offsets and counts are `int` and count code units. No argument makes an operation read outside
/// the text: an offset below 0 counts as 0 unless told otherwise, and one past the end finds nothing. A
/// text longer than `INT_MAX` code units is refused with `std::length_error`. An operation that throws leaves
/// its text as it was. Operations take time linear in their texts unless told otherwise.
class CORVANEPLATFORM_EXPORT TString
{
public:
    enum class CaseSensitivity {
        CaseInsensitive = 0, ///< `A` to `Z` equal `a` to `z`; nothing else is folded, whatever the locale
        CaseSensitive = 1
    };
    enum class SplitBehavior { KeepEmptyParts = 0, SkipEmptyParts = 1 };

    TString() = default;
    /// The first `count` code units of `text`; with a `count` below 0, those up to the terminating U+0000.
    /// A null `text` gives an empty string.
    TString(const char16_t* text, int count)
        : m_text(text == nullptr ? u"" : text, text == nullptr ? 0 : LengthOf(text, count))
    {
    }

    [[nodiscard]] int length() const noexcept { return static_cast<int>(m_text.size()); }
    [[nodiscard]] int GetLength() const noexcept { return length(); }
    [[nodiscard]] bool empty() const noexcept { return m_text.empty(); }
    [[nodiscard]] bool IsEmpty() const noexcept { return empty(); }

    /// The code unit at `index`; U+0000 at index `length()` and at every index outside the text.
    [[nodiscard]] char16_t operator[](int index) const noexcept
    {
        return index >= 0 && index < length() ? m_text[static_cast<std::size_t>(index)] : u'\0';
    }
    [[nodiscard]] char16_t at(int index) const noexcept { return (*this)[index]; }
    /// The code units, followed by U+0000. Valid until the text changes.
    [[nodiscard]] const char16_t* constData() const noexcept { return m_text.c_str(); }

    /// The first index at or after `from` that holds `unit`, or -1.
    [[nodiscard]] int Find(char16_t unit, int from) const noexcept;
    /// The first index at or after `from` that holds one of the code units of `set`, or -1.
    [[nodiscard]] int findOneOf(const TString& set, int from) const noexcept;

    /// The first `count` code units; none with a `count` below 0.
    [[nodiscard]] TString left(int count) const;
    /// At most `count` code units from `position` on; with a `count` below 0, all of them. Empty if
    /// `position` is at the end or past it.
    [[nodiscard]] TString mid(int position, int count) const;
    [[nodiscard]] TString Mid(int position, int count) const { return mid(position, count); }

    /// 0 if the texts are equal; below 0 if this one comes first, else above 0. Texts are ordered by code
    /// units; no locale plays a part.
    [[nodiscard]] int compare(const TString& other, CaseSensitivity sensitivity) const noexcept;

    friend bool operator==(const TString& left, const TString& right) noexcept
    {
        return std::equal(left.m_text.begin(), left.m_text.end(), right.m_text.begin(), right.m_text.end());
    }
    friend bool operator!=(const TString& left, const TString& right) noexcept { return !(left == right); }
    /// By code units, so that U+FFFF comes after both halves of a surrogate pair.
    friend bool operator<(const TString& left, const TString& right) noexcept
    {
        return left.m_text < right.m_text;
    }
    friend TString operator+(const TString& left, const TString& right)
    {
        return left.JoinedWith(right.m_text);
    }
    friend TString operator+(const TString& left, char16_t right)
    {
        return left.JoinedWith(std::u16string(1, right));
    }
    friend TString operator+(TString&& left, const TString& right)
    {
        left.Append(right.m_text);
        return std::move(left);
    }
    friend TString operator+(TString&& left, char16_t right)
    {
        left.Append(std::u16string(1, right));
        return std::move(left);
    }

    /// Strips U+0009 to U+000D and U+0020 from both ends, in place.
    TString& Trim() noexcept;
    /// Replaces every `before` by `after`, in place.
    TString& replace(char16_t before, const TString& after);
    /// Replaces every `before` by `after`, in place, from left to right; what was put in isn't looked at
    /// again. An empty `before` is found nowhere. At worst, the time is in proportion to `length()` times the
    /// length of `before`.
    TString& replace(const TString& before, const TString& after, CaseSensitivity sensitivity);
    /// Removes at most `count` code units from `position` on, in place; nothing if either is outside the
    /// text.
    TString& removeAt(int position, int count);

    /// The pieces between the separators: one more than there are separators. `SkipEmptyParts` leaves out the
    /// empty ones, but there is always at least one piece.
    [[nodiscard]] std::vector<TString> split(char16_t separator, SplitBehavior behavior) const;
    /// The items with one `separator` between each two; empty without items.
    [[nodiscard]] static TString join(const std::vector<TString>& items, char16_t separator);

    /// `value` in digits of `base` (2 to 36, clamped), in small letters beyond 9, filled from the left with
    /// `fill` up to `width` code units.
    [[nodiscard]] static TString number(int value, int base, int width, char16_t fill);
    /// The number that the whole text spells in digits of `base` (2 to 36, clamped), after a `-` if it is
    /// negative. Anything else gives 0, also white space, `+` and a value beyond `int`. `ok`, unless null,
    /// tells whether the text is a number.
    [[nodiscard]] int toInt(bool* ok, int base) const;

private:
    explicit TString(std::u16string text) noexcept : m_text(std::move(text)) {}
    static std::size_t LengthOf(const char16_t* text, int count)
    {
        return count < 0 ? LengthUpToZero(text) : static_cast<std::size_t>(count);
    }
    static std::size_t LengthUpToZero(const char16_t* text);
    [[nodiscard]] TString JoinedWith(const std::u16string& text) const;
    /// `text` may be this text itself.
    void Append(const std::u16string& text);

    std::u16string m_text;
};

/// `text` between `<` and `>`.
[[nodiscard]] CORVANEPLATFORM_EXPORT TString SurroundWithAngleBrackets(const TString& text);
