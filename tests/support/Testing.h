#pragma once

/// Short ways to write texts down and to show results, so that a case is one row of a table.

#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvaneplatform/ThrowLogicException.h>

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

/// `'` stands for a quote, here and in what is shown.
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

/// Printable ASCII as it is, any other code unit as `{1F}`.
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

/// What `function` gives, shown; or the condition that it finds broken, with the source.
template <typename Function, typename... Arguments>
std::string ShowOrCondition(Function function, const Arguments&... arguments)
{
    try {
        return Show(function(arguments...));
    } catch (const LogicException& exception) {
        return std::string(exception.File()) + ": " + exception.Condition();
    }
}

/// A table of cases.
template <typename... Columns>
using Rows = std::vector<std::tuple<Columns...>>;

/// Calls `visit` with every text that is made of up to `count` of the fragments.
template <typename Fragments, typename Visit>
void ForEachText(const Fragments& fragments, int count, Visit visit, const std::u16string& text = {})
{
    visit(text);
    if (count > 0)
        for (const std::u16string_view fragment : fragments)
            ForEachText(fragments, count - 1, visit, text + std::u16string(fragment));
}
