#pragma once

/// Concise notations for texts and results, which make a test case one row of a table.

#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvaneplatform/ThrowLogicException.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

using namespace std::string_view_literals;
using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;
using namespace corvanemarkup::VizInTooltip::Impl;

/// Each `'` becomes a double quote; `Show` does the reverse.
inline TString Text(std::u16string_view text)
{
    return TString(text.data(), static_cast<int>(text.size())).replace(u'\'', TString(u"\"", 1));
}

inline MarkupText Markup(std::u16string_view text)
{
    return MarkupText(Text(text));
}

inline AttributeName Name(std::u16string_view name)
{
    return AttributeName(Text(name));
}

/// Names of eight units, distinct for numbers below 0x8000, that have one hash in the library's table of
/// texts: the last four units undo the effect of the first four.
inline TString NameOfOneHash(int number)
{
    std::u16string units;
    do {
        units = TString::number(number, 16, 4, u'0').constData();
        std::uint64_t hash = 8;
        for (std::size_t i = 0; i < 4; ++i)
            hash ^= std::uint64_t(units[i]) << (16 * i);
        hash *= 0x9E3779B97F4A7C15;
        hash ^= hash >> 32;
        for (int i = 0; i < 4; ++i)
            units += static_cast<char16_t>(hash >> (16 * i));
        number += 0x8000;
    } while (units.find_first_of(u"<>\"\0"sv) != units.npos);
    return TString(units.data(), 8);
}

/// Printable ASCII unchanged, other code units as `{1F}`.
inline std::string Show(const TString& text)
{
    std::string shown;
    for (int i = 0; i < text.length(); ++i) {
        const char16_t unit = text[i] == u'"' ? u'\'' : text[i];
        char buffer[8] = {};
        if (unit >= u' ' && unit <= u'~')
            shown += static_cast<char>(unit);
        else if (std::snprintf(buffer, sizeof buffer, "{%X}", unit) > 0)
            shown += buffer;
    }
    return shown;
}

inline std::string Show(const AttributeNameAndValue& attribute)
{
    return Show(attribute.Name.GetName()) + '=' + Show(attribute.Value);
}

inline std::string Show(int value)
{
    return std::to_string(value);
}

inline std::string Show(const CorvaneCharRange& range)
{
    return std::to_string(range.start) + '-' + std::to_string(range.end);
}

inline std::string Show(const AttributeTokenOffsetAndContent& token)
{
    return Show(token.Offset) + ' ' + Show(token.Content);
}

inline std::string Show(const NewCursorPositionAndMarkupText& edited)
{
    return Show(edited.NewMarkupText) + ' ' + Show(edited.NewCursorPosition);
}

template <typename List>
auto Show(const List& list) -> decltype(list.begin(), std::string());

template <typename First, typename Second>
std::string Show(const std::pair<First, Second>& pair)
{
    return Show(pair.first) + ' ' + Show(pair.second);
}

template <typename Value>
std::string Show(const boost::optional<Value>& value)
{
    return value ? Show(*value) : "none";
}

/// A list, `[a][b]`.
template <typename List>
auto Show(const List& list) -> decltype(list.begin(), std::string())
{
    std::string shown;
    for (const auto& item : list)
        shown += '[' + Show(item) + ']';
    return shown;
}

/// The result of `function`, or the source and condition of its precondition violation.
template <typename Function, typename... Arguments>
std::string ShowOrCondition(Function function, const Arguments&... arguments)
{
    try {
        return Show(function(arguments...));
    } catch (const LogicException& exception) {
        return std::string(exception.File()) + ": " + exception.Condition();
    }
}

template <typename... Columns>
using Rows = std::vector<std::tuple<Columns...>>;

/// Calls `visit` with every concatenation of up to `count` fragments.
template <typename Fragments, typename Visit>
void ForEachText(const Fragments& fragments, int count, Visit visit, const std::u16string& text = {})
{
    visit(text);
    if (count > 0)
        for (const std::u16string_view fragment : fragments)
            ForEachText(fragments, count - 1, visit, text + std::u16string(fragment));
}
