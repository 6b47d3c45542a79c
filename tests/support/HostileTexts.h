#pragma once

/// Texts that provoke the worst case.

#include "Testing.h"

#include <algorithm>

/// Texts of one kind and any length. A pattern has parts between `|`; one that starts with `*` is repeated.
/// In a part, `#` is the number of the repetition, `%` that number modulo 2,000, `@` a name with the hash of
/// all others, and `'` a quote.
struct HostileFamily
{
    std::string Name;
    std::u16string Pattern;

    /// A text of about `length` code units, of which the repeated parts have equal shares.
    TString Make(std::size_t length) const
    {
        const auto repeated = std::count(Pattern.begin(), Pattern.end(), u'*');
        std::u16string text;
        for (TString part : TString(Pattern.c_str(), -1).split(u'|', TString::SplitBehavior(0))) {
            const bool isRepeated = part[0] == u'*';
            const std::size_t end =
                text.size() + (isRepeated ? length / static_cast<std::size_t>(repeated) : 1);
            for (int i = 0; text.size() < end; ++i)
                for (int j = isRepeated ? 1 : 0; j < part.length(); ++j)
                    if (part[j] == u'#')
                        text += Number(i);
                    else if (part[j] == u'%')
                        text += Number(i % 2000);
                    else if (part[j] == u'@')
                        text += NameOfOneHash(i).constData();
                    else
                        text += part[j];
        }
        return Text(text);
    }

private:
    /// Lowest digit first, for texts that aren't sorted, and of fixed width, which keeps texts of all lengths
    /// alike.
    static std::u16string Number(int number)
    {
        std::u16string digits = TString::number(number, 10, 6, u'0').constData();
        std::reverse(digits.begin(), digits.end());
        return digits;
    }
};

/// All families, each by itself and as the filter value of a sheet element.
inline std::vector<HostileFamily> HostileFamilies()
{
    std::vector<HostileFamily> families = {
        {"run of <", u"*<"},
        {"run of >", u"*>"},
        {"run of quotes", u"*'"},
        {"quotes after a sheet's start", u"<Sheet name=|*'"},
        {"unterminated sheet elements", u"*<Sheet name='a' "},
        {"unterminated quotes", u"*<Sheet name='"},
        {"interrupted elements", u"*<a|>"},
        {"interrupted sheet elements", u"*<Sheet name='a' |>"},
        {"doubled delimiters in one element", u"<a|*b>>''|>"},
        {"doubled delimiters in one sheet element", u"<Sheet name='a' |*b>>''|>"},
        {"doubled < in elements", u"*<a<<b<<c<<d<<e>"},
        // A walk that rejects the whole element finds another one, with the same end, at the second `<` of
        // each pair. The contents passed to its predicate are quadratic in the text; the long parts keep them
        // small.
        {"doubled < far apart in one element", u"<a|*<<" + std::u16string(30000, u'b') + u"|>"},
        {"doubled < before elements", u"*<<a>"},
        {"doubled > after elements", u"*<a>>"},
        // From even and odd offsets, the run leads to different elements: a walk that rejects both
        // alternates.
        {"alternating long elements", u"<|*<<|*a|><|*b|>"},
        // Reaches the last delimiters outside elements, in a sheet element and between quotes in turn.
        {"three alternating long elements", u"*<<Sheet name='| '<c'<d|*b|'>'>"},
        {"repeated alternating elements", u"*<<<a><b>"},
        {"white space after the element name", u"<Sheet |* \t|<Sheet name"},
        {"white space after the attribute name", u"<Sheet name|*\t |<Sheet name"},
        {"names with white space after them", u"*<Sheet name\t"},
        {"numbered fields", u"*<f#>,"},
        {"a long number", u"<Sheet name='a' maxwidth='|*1|'>"},
        {"attributes", u"<Sheet name='a'|* n#='v'|>"},
        {"attributes of one name", u"<Sheet name='a'|* filter='<v#>'|>"},
        {"numbered elements", u"*<a#>"},
        {"sheets", u"*<Sheet name='s#' filter='<f>'>"},
        {"elements of 2,000 sheets", u"*<Sheet name='s%' filter='<f#>'>"},
        {"elements of one sheet", u"*<Sheet name='s' filter='<f#>'>"},
        {"sheets with equal hashes", u"*<Sheet name='@' filter='<f>'>"},
        {"one large element of a sheet and small ones",
         u"<Sheet name='s' filter='|*<a>,|'>|*<Sheet name='s' filter='<f#>'>"},
        {"one large element of each kind and small ones",
         u"*<a#>|<a|*b|>|*<b#>|<Sheet name='s' x='|*c|'>|*<Sheet name='s' x='#'>"},
        {"elements in interrupted elements", u"*<Sheet name= <f>,"},
        {"invalid sheet elements", u"*<Sheet name='' name='#'>"},
    };
    for (std::size_t i = 0, count = families.size(); i < count; ++i) {
        std::u16string pattern = u"<Sheet name='a' filter='|";
        for (const char16_t unit : families[i].Pattern)
            pattern.append(unit == u'\'' ? 2 : 1, unit);
        families.push_back({families[i].Name + ", as a filter value", pattern + u"|'>"});
    }
    return families;
}
