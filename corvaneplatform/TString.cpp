#include <corvaneplatform/TString.h>

#include <charconv>
#include <climits>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace {

/// Returns the maximum length of a text. `max_size` is less than `INT_MAX` if `std::size_t` has 32 bits.
std::size_t LongestText()
{
    return std::min<std::size_t>(INT_MAX, std::u16string().max_size());
}

/// Throws if the length is too large. Called before any allocation. Sums and products of lengths fit 64 bits.
std::size_t CheckedLength(std::uint64_t length)
{
    if (length > LongestText())
        throw std::length_error("TString: a text that is too long");
    return static_cast<std::size_t>(length);
}

constexpr bool IsWhiteSpace(char16_t unit)
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

constexpr char16_t ToLowerAscii(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// Clamps a position to [0, length].
std::size_t Clamped(int position, std::size_t length)
{
    return position < 0 ? 0 : std::min(static_cast<std::size_t>(position), length);
}

int ValidBase(int base)
{
    return std::clamp(base, 2, 36);
}

int ToIndex(std::size_t found)
{
    return found == std::u16string::npos ? -1 : static_cast<int>(found);
}

} // namespace

std::size_t TString::LengthUpToZero(const char16_t* text)
{
    return CheckedLength(std::char_traits<char16_t>::length(text));
}

int TString::Find(char16_t unit, int from) const noexcept
{
    return ToIndex(m_text.find(unit, Clamped(from, m_text.size())));
}

int TString::findOneOf(const TString& set, int from) const noexcept
{
    return ToIndex(m_text.find_first_of(set.m_text, Clamped(from, m_text.size())));
}

TString TString::left(int count) const
{
    return TString(m_text.substr(0, Clamped(count, m_text.size())));
}

TString TString::mid(int position, int count) const
{
    const std::size_t start = Clamped(position, m_text.size());
    return TString(m_text.substr(start, count < 0 ? std::u16string::npos : static_cast<std::size_t>(count)));
}

int TString::compare(const TString& other, CaseSensitivity sensitivity) const noexcept
{
    if (sensitivity == CaseSensitivity::CaseSensitive)
        return m_text.compare(other.m_text);
    const auto folded = [](char16_t left, char16_t right) {
        return ToLowerAscii(left) == ToLowerAscii(right);
    };
    const auto difference =
        std::mismatch(m_text.begin(), m_text.end(), other.m_text.begin(), other.m_text.end(), folded);
    if (difference.first == m_text.end())
        return difference.second == other.m_text.end() ? 0 : -1;
    if (difference.second == other.m_text.end())
        return 1;
    return ToLowerAscii(*difference.first) < ToLowerAscii(*difference.second) ? -1 : 1;
}

TString TString::JoinedWith(const std::u16string& text) const
{
    std::u16string joined;
    joined.reserve(CheckedLength(std::uint64_t(m_text.size()) + text.size()));
    joined.append(m_text).append(text);
    return TString(std::move(joined));
}

void TString::Append(const std::u16string& text)
{
    (void)CheckedLength(std::uint64_t(m_text.size()) + text.size());
    m_text.append(text);
}

TString& TString::Trim() noexcept
{
    const auto isText = [](char16_t unit) { return !IsWhiteSpace(unit); };
    m_text.erase(std::find_if(m_text.rbegin(), m_text.rend(), isText).base(), m_text.end());
    m_text.erase(m_text.begin(), std::find_if(m_text.begin(), m_text.end(), isText));
    return *this;
}

TString& TString::replace(char16_t before, const TString& after)
{
    return replace(TString(&before, 1), after, CaseSensitivity::CaseSensitive);
}

TString& TString::replace(const TString& before, const TString& after, CaseSensitivity sensitivity)
{
    if (before.empty())
        return *this;
    const auto equal = [sensitivity](char16_t left, char16_t right) {
        return left == right ||
               (sensitivity == CaseSensitivity::CaseInsensitive && ToLowerAscii(left) == ToLowerAscii(right));
    };
    const auto find = [&](std::u16string::const_iterator from) {
        return std::search(from, m_text.cend(), before.m_text.begin(), before.m_text.end(), equal);
    };

    // Counts the matches first, to check the length of the result and to allocate it once.
    const auto beforeLength = static_cast<std::ptrdiff_t>(before.m_text.size());
    std::size_t count = 0;
    for (auto found = find(m_text.cbegin()); found != m_text.cend(); found = find(found + beforeLength))
        ++count;
    if (count == 0)
        return *this;

    std::u16string result;
    const std::uint64_t kept = m_text.size() - count * before.m_text.size();
    result.reserve(CheckedLength(kept + std::uint64_t(count) * after.m_text.size()));
    auto copied = m_text.cbegin();
    for (auto found = find(copied); found != m_text.cend(); found = find(copied)) {
        result.append(copied, found).append(after.m_text);
        copied = found + beforeLength;
    }
    result.append(copied, m_text.cend());
    m_text = std::move(result);
    return *this;
}

TString& TString::removeAt(int position, int count)
{
    if (position >= 0 && position < length() && count > 0)
        m_text.erase(static_cast<std::size_t>(position), static_cast<std::size_t>(count));
    return *this;
}

std::vector<TString> TString::split(char16_t separator, SplitBehavior behavior) const
{
    std::vector<TString> pieces;
    for (std::size_t start = 0; start <= m_text.size();) {
        const std::size_t end = std::min(m_text.find(separator, start), m_text.size());
        if (end > start || behavior == SplitBehavior::KeepEmptyParts)
            pieces.push_back(TString(m_text.substr(start, end - start)));
        start = end + 1;
    }
    if (pieces.empty())
        pieces.emplace_back();
    return pieces;
}

TString TString::join(const std::vector<TString>& items, char16_t separator)
{
    if (items.empty())
        return TString();
    std::uint64_t length = items.size() - 1;
    for (const TString& item : items)
        length += item.m_text.size();

    std::u16string result;
    result.reserve(CheckedLength(length));
    result.append(items.front().m_text);
    for (auto item = items.begin() + 1; item != items.end(); ++item)
        result.append(1, separator).append(item->m_text);
    return TString(std::move(result));
}

TString TString::number(int value, int base, int width, char16_t fill)
{
    char digits[CHAR_BIT * sizeof(int) + 1]; // base 2 and a sign need the most
    const char* const end = std::to_chars(std::begin(digits), std::end(digits), value, ValidBase(base)).ptr;
    const auto digitCount = static_cast<std::size_t>(end - digits);
    std::u16string result(std::max(Clamped(width, LongestText()), digitCount) - digitCount, fill);
    result.append(std::cbegin(digits), end);
    return TString(std::move(result));
}

int TString::toInt(bool* ok, int base) const
{
    // Code units beyond ASCII become U+0000, where from_chars stops.
    std::string digits(m_text.size(), '\0');
    std::transform(m_text.begin(), m_text.end(), digits.begin(),
                   [](char16_t unit) { return unit < 0x80 ? static_cast<char>(unit) : '\0'; });
    int value = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, ValidBase(base));
    const bool isNumber = error == std::errc() && end == digits.data() + digits.size();
    if (ok != nullptr)
        *ok = isNumber;
    return isNumber ? value : 0;
}

TString SurroundWithAngleBrackets(const TString& text)
{
    return TString(u"<", 1) + text + u'>';
}
