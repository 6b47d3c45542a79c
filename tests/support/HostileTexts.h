#pragma once

/// Texts that are made to take long.

#include "Testing.h"

#include <algorithm>

/// Texts of one kind, in every length. A pattern is stretches between `|`: each once, or over and over after
/// a `*`, `#` in it counting up, and `%` counting up to 2,000 over and over. `'` stands for a quote.
struct HostileFamily
{
    std::string Name;
    std::u16string Pattern;

    /// A text of about `length` code units, of which the repeated stretches have equal shares.
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
                    else
                        text += part[j];
        }
        return Text(text);
    }

private:
    /// The lowest digit first, so that these don't come in the order of texts. Always as wide, so that the
    /// texts of all lengths are of one kind.
    static std::u16string Number(int number)
    {
        std::u16string digits = TString::number(number, 10, 6, u'0').constData();
        std::reverse(digits.begin(), digits.end());
        return digits;
    }
};

/// All families, each as it is and as the filter value of a sheet element.
inline std::vector<HostileFamily> HostileFamilies()
{
    std::vector<HostileFamily> families = {
        {"run of <", u"*<"},
        {"run of >", u"*>"},
        {"run of quotes", u"*'"},
        {"quotes behind a sheet's start", u"<Sheet name=|*'"},
        {"unfinished sheet elements", u"*<Sheet name='a' "},
        {"unfinished quotes", u"*<Sheet name='"},
        {"elements that restart", u"*<a|>"},
        {"sheet elements that restart", u"*<Sheet name='a' |>"},
        {"doubled delimiters in one element", u"<a|*b>>''|>"},
        {"doubled delimiters in one sheet element", u"<Sheet name='a' |*b>>''|>"},
        {"doubled < in elements", u"*<a<<b<<c<<d<<e>"},
        // A walk that refuses the whole element meets another one, up to the same end, from the second `<` of
        // each pair. The contents that its predicate sees are quadratic in the text; the long stretches keep
        // them small.
        {"doubled < far apart in one element", u"<a|*<<" + std::u16string(30000, u'b') + u"|>"},
        {"doubled < in front of elements", u"*<<a>"},
        {"doubled > behind elements", u"*<a>>"},
        // Read from an even offset, the run restarts as the second element, and from an odd one as the first:
        // a walk that refuses both meets them by turns.
        {"long elements by turns", u"<|*<<|*a|><|*b|>"},
        {"elements by turns over and over", u"*<<<a><b>"},
        {"white space behind the element name", u"<Sheet |* \t|<Sheet name"},
        {"white space behind the attribute name", u"<Sheet name|*\t |<Sheet name"},
        {"names that white space follows", u"*<Sheet name\t"},
        {"numbered fields", u"*<f#>,"},
        {"a wide number", u"<Sheet name='a' maxwidth='|*1|'>"},
        {"attributes", u"<Sheet name='a'|* n#='v'|>"},
        {"attributes of one name", u"<Sheet name='a'|* filter='<v#>'|>"},
        {"numbered elements", u"*<a#>"},
        {"sheets", u"*<Sheet name='s#' filter='<f>'>"},
        {"elements of 2,000 sheets", u"*<Sheet name='s%' filter='<f#>'>"},
        {"elements of one sheet", u"*<Sheet name='s' filter='<f#>'>"},
        {"elements in elements that restart", u"*<Sheet name= <f>,"},
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
