#include "Testing.h"
#include "Typos.h"

#include <corvanemarkup/MarkupDiagnostics.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace {

TEST(Typos, LosesASheet)
{
    const TString tooltip = Text(u"<Sheet name='ab'><<<Sheet name='\U0001F600'> <b>");
    const Rows<const char*, std::u16string_view, const char*> rows = {
        {"a name", u"<Sheet name='=b'><<<Sheet name='\U0001F600'> <b>", "kept"},
        {"an attribute's letter case", u"<Sheet nAme='ab'><<<Sheet name='\U0001F600'> <b>", "kept"},
        {"a letter of an attribute's name", u"<Sheet nme='ab'><<<Sheet name='\U0001F600'> <b>", "lost"},
        {"a quote in a name", u"<Sheet name='a'b'><<<Sheet name='\U0001F600'> <b>", "lost"},
        {"a closing quote, which moves", u"<Sheet name='a'b><<<Sheet name='\U0001F600'> <b>", "lost"},
        {"a bracket before the element's own", u"<<Sheet name='ab'><<<Sheet name='\U0001F600'> <b>",
         "escaped"},
        {"a bracket of a pair before it", u"<Sheet name='ab'><<Sheet name='\U0001F600'> <b>", "escaped"},
        {"a bracket, which moves", u"S<heet name='ab'><<<Sheet name='\U0001F600'> <b>", "escaped"},
        {"half of a surrogate pair", u"<Sheet name='ab'><<<Sheet name='\xD83D'> <b>", "none"},
        {"two keys", u"<Sheet name='ab'><<<Sheet name='\U0001F600'> b", "none"},
    };
    const std::vector<Typo> typos = FindTypos(tooltip);
    for (const auto& [where, mistyped, expected] : rows) {
        const auto typo =
            std::find_if(typos.begin(), typos.end(),
                         [text = Text(mistyped)](const Typo& other) { return other.MistypedText == text; });
        const char* const found = typo == typos.end() ? "none"
                                  : !typo->Loses      ? "kept"
                                  : typo->IsEscaped   ? "escaped"
                                                      : "lost";
        EXPECT_STREQ(found, expected) << where;
    }
}

TEST(Typos, Figures)
{
    for (const TString& tooltip : TypoTooltips())
        EXPECT_TRUE(FindDiagnostics(tooltip).empty() && !GetTargetSheetNamesFromTooltipText(tooltip).empty())
            << Show(tooltip);
    // The largest percentages, in the order of `TypoFigures`. Lower them whenever diagnostics improve.
    constexpr double limits[] = {0.19, 0.12, 77, 0.25, 0.31, 0.25, 17.5, 2.1, 0.4, 0};
    ASSERT_EQ(TypoFigures().size(), std::size(limits));
    std::vector<TypoShare> shares(std::size(limits));
    for (const Typo& typo : FindTypos(TypoTooltips()))
        for (std::size_t i = 0; i < shares.size(); ++i)
            shares[i].Add(TypoFigures()[i], typo);
    for (std::size_t i = 0; i < shares.size(); ++i)
        EXPECT_TRUE(shares[i].Typos > 0 && shares[i].Percent() <= limits[i])
            << TypoFigures()[i].Name << ": " << shares[i].Misses << " of " << shares[i].Typos;
}

} // namespace
