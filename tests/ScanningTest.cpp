#include "Agreements.h"

#include <climits>
#include <random>

namespace {

constexpr std::u16string_view Fragments[] = {u"<", u">", u"'", u" ", u"=", u"a", u"Sheet ", u"name"};

TEST(Scanning, EveryShortTextScansAsTheReference)
{
    ForEachText(Fragments, LONGEST_TEXT, [](const std::u16string& text) {
        const TString scanned = Text(text);
        ASSERT_EQ(ScanByLibrary(scanned), ScanByReference(scanned)) << Show(scanned);
    });
}

TEST(Scanning, LongerTextsScanAsTheReference)
{
    // Interrupted sheet elements, where the element at a `<` depends on where the search began, and fragments
    // longer than one block of code units.
    const std::vector<TString> longer =
        Text(u"<|<<|>|>>|'|<Sheet name='|' <|='x>|'>|<Sheet Filter='|\t |<Sheet "
             u"\n|maxheight2=|maxwidth|a|\0|\u017F|\u3C3C\u223C text, longer than one block of code units "sv)
            .split(u'|', TString::SplitBehavior(0));
    std::mt19937 random(20240229);
    for (int i = 0; i < RANDOM_TEXTS; ++i) {
        TString text;
        for (auto count = 5 + random() % 20; count > 0; --count)
            text = text + longer[random() % longer.size()];
        ASSERT_EQ(ScanByLibrary(text), ScanByReference(text)) << Show(text);
    }
}

TEST(Scanning, RecognisesSheetElementsByTheirFirstAttribute)
{
    const Rows<std::u16string_view, bool> rows = {
        {u"Sheet MaxHeight=", true},       {u"sheet name=", false},       {u"Sheet\tname=", false},
        {u"Sheet \t\v\f\r\n name=", true}, {u"Sheet \u00A0name=", false}, {u"Sheet name =", false},
        {u"Sheet filter \t", true},        {u"Sheet filter x", false},    {u"Sheet =name=", false},
        {u"Sheet maxheights=", false},     {u"Sheet filtre=", false},
    };
    for (const auto& [text, isSheet] : rows)
        EXPECT_EQ(IsSheetMarkupText(Text(text), 0), isSheet) << Show(Text(text));
}

TEST(Scanning, OffsetsOutsideTheText)
{
    const TString text = Text(u"Sheet name=<a>");
    CorvaneMarkupTokenizer tokenizer(text);
    const auto content = [&] { return tokenizer.GetContentOfCurrentMarkupElement(); };
    const std::string noElement = "corvanemarkup/CorvaneMarkupTokenizer: m_offset >= 0";
    EXPECT_EQ(ShowOrCondition(content), noElement);
    EXPECT_EQ(tokenizer.FindNextMarkupElement(0), 11);
    for (const int outside : {INT_MIN, -2, text.length(), text.length() + 1, INT_MAX}) {
        EXPECT_FALSE(tokenizer.IsTextAtOffsetSheetMarkup(outside));
        EXPECT_EQ(tokenizer.FindNextMarkupElement(outside), -1);
        EXPECT_EQ(tokenizer.GetTokenStart(), 11) << "without a <, the start is unchanged";
        EXPECT_EQ(ShowOrCondition(content), noElement);
        TString unchanged = text;
        EXPECT_EQ(FindNextMarkupElement(text, outside, unchanged), -1);
        EXPECT_EQ(unchanged, text);
    }
}

TEST(Scanning, OneKnownElement)
{
    const Rows<const char*, std::u16string_view, bool, int, int, const char*, const char*> rows = {
        {"accepted", u"<x><a>b", true, 3, 3, "a", "a"},
        {"rejected: the content is set anyway", u" <a>b<c>", false, -1, 99, "a", "a"},
        {"no element: the predicate gets the old content", u"<b", true, -1, 8, "before", "before"},
    };
    for (const auto& [rule, text, accept, result, elementLength, contentAfter, askedAbout] : rows) {
        SCOPED_TRACE(rule);
        TString content = Text(u"before");
        int length = 99;
        std::string asked;
        const auto predicate = [&asked, answer = accept](const TString& seen) {
            return asked = Show(seen), answer;
        };
        EXPECT_EQ(FindNextKnownMarkupElement(Text(text), 1, length, content, predicate), result);
        EXPECT_EQ(length, elementLength);
        EXPECT_EQ(Show(content), contentAfter);
        EXPECT_EQ(asked, askedAbout);
    }
    TString content = Text(u"before");
    int length = 99;
    EXPECT_THROW((void)FindNextKnownMarkupElement(Text(u"<a>"), 0, length, content, {}),
                 std::bad_function_call);
    EXPECT_EQ(Show(content), "before");
}

TEST(Scanning, NoOtherCodeUnitIsADelimiter)
{
    for (int number = 0; number <= 0xFFFF; ++number) {
        const std::u16string unit(1, static_cast<char16_t>(number));
        if (unit.find_first_of(u"<>\"'") == 0) // the delimiters, and what Text() replaces by one
            continue;
        std::u16string run;
        while (run.size() < 20) // alternating, since a doubled delimiter is escaped
            run += unit + u'.';
        TString content;
        EXPECT_EQ(FindNextMarkupElement(Text(run + u"<" + run + u">"), 0, content), 20) << number;
        EXPECT_EQ(content.length(), 20) << number;
        const TString noSheet = Text(unit + u"Sheet name='a'>" + run);
        EXPECT_TRUE(VizInTooltip::GetTargetSheetNamesFromTooltipText(noSheet).empty()) << number;
        const TString sheet = Text(u"<Sheet name='" + run + u"'>");
        EXPECT_EQ(VizInTooltip::GetTargetSheetNamesFromTooltipText(sheet).size(), 1U) << number;
    }
}

} // namespace
