#pragma once

/// The host's string type.

#include <algorithm>
#include <climits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// Copies share their code units until one of them changes. Provides only what the library requires. The
/// enumerators have other names, since the library only uses their values.
class TString
{
    using Units = std::vector<char16_t>; // including a terminating 0

public:
    enum CaseSensitivity { IgnoreCase, RespectCase };
    enum SplitBehavior { KeepAll, KeepFilled };

    TString() : m_units(NoUnits()) {}
    TString(const char16_t* text, int count)
    {
        if (count < 0)
            for (count = 0; text[count] != 0; ++count)
                if (count == INT_MAX)
                    throw std::length_error("TString");
        Assign(text, text + count);
    }

    int length() const { return static_cast<int>(m_units->size()) - 1; }
    int GetLength() const { return length(); }
    bool empty() const { return length() == 0; }
    bool IsEmpty() const { return empty(); }
    char16_t operator[](int index) const
    {
        return index >= 0 && index < length() ? constData()[index] : u'\0';
    }
    char16_t at(int index) const { return (*this)[index]; }
    const char16_t* constData() const { return m_units->data(); }

    int Find(char16_t unit, int from) const { return findOneOf(TString(&unit, 1), from); }
    int findOneOf(const TString& set, int from) const
    {
        const char16_t* const found = std::find_first_of(At(from), End(), set.At(0), set.End());
        return found == End() ? -1 : static_cast<int>(found - constData());
    }

    TString left(int count) const { return mid(0, std::max(count, 0)); }
    TString mid(int position, int count) const
    {
        const char16_t* const start = At(position);
        TString result;
        result.Assign(start, count < 0 || count > End() - start ? End() : start + count);
        return result;
    }
    TString Mid(int position, int count) const { return mid(position, count); }

    int compare(const TString& other, CaseSensitivity sensitivity) const
    {
        const auto key = [sensitivity](char16_t unit) {
            const bool isUpper = unit >= u'A' && unit <= u'Z';
            return static_cast<int>(unit) + (isUpper && sensitivity == IgnoreCase ? u'a' - u'A' : 0);
        };
        for (int i = 0; i < length() && i < other.length(); ++i)
            if (key((*this)[i]) != key(other[i]))
                return key((*this)[i]) - key(other[i]);
        return length() - other.length();
    }
    friend bool operator==(const TString& left, const TString& right)
    {
        return *left.m_units == *right.m_units;
    }
    friend bool operator!=(const TString& left, const TString& right) { return !(left == right); }
    friend bool operator<(const TString& left, const TString& right)
    {
        return std::lexicographical_compare(left.At(0), left.End(), right.At(0), right.End());
    }

    friend TString operator+(const TString& left, const TString& right)
    {
        Units units(left.At(0), left.End());
        units.insert(units.end(), right.At(0), right.End());
        TString result;
        result.Assign(units.data(), units.data() + units.size());
        return result;
    }
    friend TString operator+(const TString& left, char16_t right) { return left + TString(&right, 1); }

    TString& Trim()
    {
        const auto isText = [](char16_t unit) { return unit != u' ' && (unit < u'\t' || unit > u'\r'); };
        const char16_t* const start = std::find_if(At(0), End(), isText);
        const char16_t* end = End();
        while (end > start && !isText(end[-1]))
            --end;
        return *this = mid(static_cast<int>(start - At(0)), static_cast<int>(end - start));
    }
    TString& replace(char16_t before, const TString& after)
    {
        return replace(TString(&before, 1), after, RespectCase);
    }
    TString& replace(const TString& before, const TString& after, CaseSensitivity sensitivity)
    {
        Units units;
        for (int i = 0; i < length();) {
            const bool isFound = !before.empty() && mid(i, before.length()).compare(before, sensitivity) == 0;
            if (isFound)
                units.insert(units.end(), after.At(0), after.End());
            else
                units.push_back((*this)[i]);
            i += isFound ? before.length() : 1;
        }
        Assign(units.data(), units.data() + units.size());
        return *this;
    }
    TString& removeAt(int position, int count)
    {
        if (position >= 0 && position < length() && count > 0)
            *this = left(position) + mid(position + std::min(count, length() - position), -1);
        return *this;
    }

    std::vector<TString> split(char16_t separator, SplitBehavior behavior) const
    {
        std::vector<TString> pieces;
        for (int start = 0, end = 0; end >= 0; start = end + 1) {
            end = Find(separator, start);
            const TString piece = mid(start, end < 0 ? -1 : end - start);
            if (behavior == KeepAll || !piece.empty())
                pieces.push_back(piece);
        }
        return pieces.empty() ? std::vector<TString>(1) : pieces;
    }
    static TString join(const std::vector<TString>& items, char16_t separator)
    {
        Units units;
        for (const TString& item : items) {
            units.insert(units.end(), item.At(0), item.End());
            units.push_back(separator);
        }
        TString result;
        if (!units.empty())
            result.Assign(units.data(), units.data() + units.size() - 1);
        return result;
    }
    static TString number(int value, int /*base*/, int /*width*/, char16_t /*fill*/)
    {
        const std::string digits = std::to_string(value);
        return TString(std::u16string(digits.begin(), digits.end()).c_str(), -1);
    }
    int toInt(bool* ok, int /*base*/) const
    {
        const bool isNegative = (*this)[0] == u'-';
        long long value = 0;
        bool isNumber = length() > (isNegative ? 1 : 0);
        for (int i = isNegative ? 1 : 0; i < length() && isNumber; ++i) {
            value = 10 * value + ((*this)[i] - u'0');
            isNumber = (*this)[i] >= u'0' && (*this)[i] <= u'9' && value <= INT_MAX;
        }
        if (ok != nullptr)
            *ok = isNumber;
        return isNumber ? static_cast<int>(isNegative ? -value : value) : 0;
    }

private:
    static const std::shared_ptr<const Units>& NoUnits()
    {
        static const auto noUnits = std::make_shared<const Units>(1, u'\0');
        return noUnits;
    }
    void Assign(const char16_t* start, const char16_t* end)
    {
        if (end - start >= INT_MAX)
            throw std::length_error("TString");
        auto units = std::make_shared<Units>(start, end);
        units->push_back(u'\0');
        m_units = std::move(units);
    }
    const char16_t* At(int position) const { return constData() + std::clamp(position, 0, length()); }
    const char16_t* End() const { return constData() + length(); }

    std::shared_ptr<const Units> m_units;
};

inline TString SurroundWithAngleBrackets(const TString& text)
{
    return TString(u"<", 1) + text + u'>';
}
