#pragma once

/// The platform's text type, which a host may replace by its own.

#include <corvaneplatform/Export.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// A sequence of UTF-16 code units, which needn't be well-formed.
///
/// Lengths, offsets and counts are in code units. No argument makes an operation read outside the text:
/// unless specified otherwise, a negative offset is treated as 0, and one past the end finds nothing.
/// Operations whose result would be longer than `INT_MAX` code units throw `std::length_error`. An operation
/// that throws has no effect. Operations take time linear in their texts unless specified otherwise.
class CORVANEPLATFORM_EXPORT TString
{
public:
    enum class CaseSensitivity {
        CaseInsensitive = 0, ///< folds `A` to `Z` only, independent of the locale
        CaseSensitive = 1
    };
    enum class SplitBehavior { KeepEmptyParts = 0, SkipEmptyParts = 1 };

    TString() = default;
    /// Copies the first `count` code units of `text`; if `count` is negative, those up to the terminating
    /// U+0000. Empty if `text` is null.
    TString(const char16_t* text, int count)
        : m_text(text == nullptr ? u"" : text, text == nullptr ? 0 : LengthOf(text, count))
    {
    }

    [[nodiscard]] int length() const noexcept { return static_cast<int>(m_text.size()); }
    [[nodiscard]] int GetLength() const noexcept { return length(); }
    [[nodiscard]] bool empty() const noexcept { return m_text.empty(); }
    [[nodiscard]] bool IsEmpty() const noexcept { return empty(); }

    /// Returns the code unit at `index`; U+0000 if `index` is outside the text.
    [[nodiscard]] char16_t operator[](int index) const noexcept
    {
        return index >= 0 && index < length() ? m_text[static_cast<std::size_t>(index)] : u'\0';
    }
    [[nodiscard]] char16_t at(int index) const noexcept { return (*this)[index]; }
    /// Returns the code units, followed by U+0000. Valid until the text changes.
    [[nodiscard]] const char16_t* constData() const noexcept { return m_text.c_str(); }

    /// Returns the first index of `unit` at or after `from`, or -1.
    [[nodiscard]] int Find(char16_t unit, int from) const noexcept;
    /// Returns the first index of any code unit of `set` at or after `from`, or -1.
    [[nodiscard]] int findOneOf(const TString& set, int from) const noexcept;

    /// Returns at most the first `count` code units; empty if `count` is negative.
    [[nodiscard]] TString left(int count) const;
    /// Returns at most `count` code units from `position`; all of them if `count` is negative. Empty if
    /// `position` is at or past the end.
    [[nodiscard]] TString mid(int position, int count) const;
    [[nodiscard]] TString Mid(int position, int count) const { return mid(position, count); }

    /// Returns 0 if the texts are equal, a negative number if this one is less, and a positive one otherwise.
    /// Orders by code units, independent of the locale.
    [[nodiscard]] int compare(const TString& other, CaseSensitivity sensitivity) const noexcept;

    friend bool operator==(const TString& left, const TString& right) noexcept
    {
        return std::equal(left.m_text.begin(), left.m_text.end(), right.m_text.begin(), right.m_text.end());
    }
    friend bool operator!=(const TString& left, const TString& right) noexcept { return !(left == right); }
    /// Orders by code units, not by code points: U+FFFF is greater than a surrogate pair.
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
    /// Replaces every `before` by `after`, in place, from left to right, without searching replacements. An
    /// empty `before` matches nothing. Takes up to `length()` times `before.length()` comparisons.
    TString& replace(const TString& before, const TString& after, CaseSensitivity sensitivity);
    /// Removes at most `count` code units from `position`, in place. Does nothing if `position` is outside
    /// the text or `count` is negative.
    TString& removeAt(int position, int count);

    /// Returns the pieces between separators, without empty ones if `SkipEmptyParts`. There is always at
    /// least one piece: an empty one if all others are skipped.
    [[nodiscard]] std::vector<TString> split(char16_t separator, SplitBehavior behavior) const;
    /// Returns the items, separated by `separator`; empty if there are no items.
    [[nodiscard]] static TString join(const std::vector<TString>& items, char16_t separator);

    /// Returns `value` in `base` (clamped to 2 to 36), in lowercase, padded on the left with `fill` to
    /// `width` code units.
    [[nodiscard]] static TString number(int value, int base, int width, char16_t fill);
    /// Parses the whole text as a number in `base` (clamped to 2 to 36), with an optional leading `-`.
    /// Returns 0 for any other text, including white space or a `+`, and for a number out of range of `int`.
    /// Unless null, `ok` is set to whether the text is a number in range.
    [[nodiscard]] int toInt(bool* ok, int base) const;

private:
    explicit TString(std::u16string text) noexcept : m_text(std::move(text)) {}
    static std::size_t LengthOf(const char16_t* text, int count)
    {
        return count < 0 ? LengthUpToZero(text) : static_cast<std::size_t>(count);
    }
    static std::size_t LengthUpToZero(const char16_t* text);
    [[nodiscard]] TString JoinedWith(const std::u16string& text) const;
    /// `text` may be the one of this object.
    void Append(const std::u16string& text);

    std::u16string m_text;
};

/// Returns `text` between `<` and `>`.
[[nodiscard]] CORVANEPLATFORM_EXPORT TString SurroundWithAngleBrackets(const TString& text);
