#include "Agreements.h"

#include <climits>
#include <random>

using namespace corvanemarkup;

namespace {

constexpr std::u16string_view Fragments[] = {u"<", u">", u"'", u" ", u"=", u"a", u"Sheet ", u"name"};

TEST(Scanning, EveryShortTextScansByTheTextbook)
{
    ForEachText(Fragments, 6, [](const std::u16string& text) {
        const TString scanned = Text(text);
        ASSERT_EQ(ScanByLibrary(scanned), ScanByTextbook(scanned)) << Show(scanned);
    });
}

TEST(Scanning, LongerTextsScanByTheTextbook)
{
    // Sheet elements that restart inside, so that what a `<` begins depends on where the search for it began,
    // and stretches that are longer than what is compared at once.
    const std::vector<TString> longer =
        Text(u"<|<<|>|>>|'|<Sheet name='|' <|='x>|'>|<Sheet Filter='|\t |<Sheet "
             u"\n|maxheight2=|maxwidth|a|\u3C3C\u223C text, longer than one block of code units ")
            .split(u'|', TString::SplitBehavior(0));
    std::mt19937 random(20240229);
    for (int i = 0; i < 30000; ++i) {
        TString text;
        for (auto count = 5 + random() % 20; count > 0; --count)
            text = text + longer[random() % longer.size()];
        ASSERT_EQ(ScanByLibrary(text), ScanByTextbook(text)) << Show(text);
    }
}

TEST(Scanning, FindsElementsByTheRules)
{
    const Rows<const char*, std::u16string_view, int, const char*> rows = {
        {"a doubled < is escaped, the third of three counts", u"<<<a>", 2, "a"},
        {"a pair that ends the text ends the search", u"<a>>", -1, ""},
        {"a doubled > inside an element stays doubled", u"<a>>b>", 0, "a>>b"},
        {"an element restarts at a further <", u"<a <b>", 3, "b"},
        {"quotes mean nothing in a plain element", u"<a b='c>d'>", 0, "a b='c"},
        {"quotes protect brackets in a sheet element", u"<Sheet name='a>b'>", 0, "Sheet name='a>b'"},
        {"a doubled quote doesn't close a value", u"<Sheet name='a''b>'>", 0, "Sheet name='a''b>'"},
        {"quotes still protect after a sheet element restarts", u"<Sheet name='a' <b c='x>y'>", 16,
         "b c='x>y'"},
        {"quotes begin to protect at a restart", u"<a <Sheet name='x>y'>", 3, "Sheet name='x>y'"},
        {"another first attribute makes no sheet element", u"<Sheet foo='1' name='a>b'>", 0,
         "Sheet foo='1' name='a"},
    };
    for (const auto& [rule, text, start, found] : rows) {
        SCOPED_TRACE(rule);
        TString content;
        EXPECT_EQ(FindNextMarkupElement(Text(text), 0, content), start);
        EXPECT_EQ(Show(content), found);
    }
}

TEST(Scanning, RecognisesSheetElementsByTheirFirstAttribute)
{
    const Rows<const char*, std::u16string_view, bool> rows = {
        {"letter case of attribute names doesn't count", u"Sheet MaxHeight=", true},
        {"that of the element name does", u"sheet name=", false},
        {"a tab doesn't end the element name", u"Sheet\tname=", false},
        {"white space behind the first space is passed over", u"Sheet \t\r\n name=", true},
        {"a no-break space isn't white space", u"Sheet \u00A0name=", false},
        {"nothing may stand between the name and its =", u"Sheet name =", false},
        {"a name that only white space follows", u"Sheet filter \t", true},
        {"a name that more follows", u"Sheet filter x", false},
        {"no name", u"Sheet =name=", false},
        {"a name that goes on", u"Sheet maxheights=", false},
    };
    for (const auto& [rule, text, isSheet] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(VizInTooltip::Impl::IsSheetMarkupText(Text(text), 0), isSheet);
        EXPECT_EQ(textbook::IsSheetMarkupText(Text(text), 0), isSheet);
        for (const int outside : {INT_MIN, -1, Text(text).length() + 1, INT_MAX})
            EXPECT_FALSE(VizInTooltip::Impl::IsSheetMarkupText(Text(text), outside));
    }
}

TEST(Scanning, TokenizerStepsAndBrokenCalls)
{
    const TString text = Text(u"<a>;;b;c<Sheet name='d>e'>");
    CorvaneMarkupTokenizer tokenizer(text);
    const auto content = [&] { return tokenizer.GetContentOfCurrentMarkupElement(); };
    const std::string broken = "corvanemarkup/CorvaneMarkupTokenizer: m_offset >= 0";
    EXPECT_EQ(ShowOrCondition(content), broken);
    EXPECT_EQ(tokenizer.FindNextMarkupElement(0), 0);
    EXPECT_EQ(ShowOrCondition(content), "a");
    tokenizer.FindOneOfNotEscaped(Text(u"c;"));
    EXPECT_EQ(tokenizer.GetOffset(), 6) << "the doubled ; is escaped";
    tokenizer.FindStartOfToken();
    tokenizer.FindEndOfTokenAndUpdateStartIfNeeded(false);
    EXPECT_EQ(ShowOrCondition(content), "Sheet name='d") << "told that quotes don't protect";
    for (const int outside : {INT_MIN, -2, text.length(), text.length() + 1, INT_MAX}) {
        EXPECT_EQ(tokenizer.FindNextMarkupElement(outside), -1);
        EXPECT_EQ(tokenizer.GetTokenStart(), 8) << "no < leaves the start as it was";
        EXPECT_EQ(ShowOrCondition(content), broken);
        TString unchanged = text;
        EXPECT_EQ(FindNextMarkupElement(text, outside, unchanged), -1);
        EXPECT_EQ(unchanged, text);
    }
}

TEST(Scanning, OneKnownElement)
{
    const Rows<const char*, std::u16string_view, bool, int, int, const char*, const char*> rows = {
        {"accepted", u"<a>b", true, 0, 3, "a", "a"},
        {"refused: the content is told all the same", u"<a>b<c>", false, -1, 99, "a", "a"},
        {"none, and what content holds is accepted", u"ab", true, -1, 8, "before", "before"},
        {"none, and it is refused", u"ab", false, -1, 99, "before", "before"},
    };
    for (const auto& [rule, text, accept, result, elementLength, contentAfter, askedAbout] : rows) {
        SCOPED_TRACE(rule);
        TString content = Text(u"before");
        int length = 99;
        std::string asked;
        const auto predicate = [&asked, answer = accept](const TString& seen) {
            return asked = Show(seen), answer;
        };
        EXPECT_EQ(FindNextKnownMarkupElement(Text(text), 0, length, content, predicate), result);
        EXPECT_EQ(length, elementLength);
        EXPECT_EQ(Show(content), contentAfter);
        EXPECT_EQ(asked, askedAbout);
    }
    TString content = Text(u"before");
    int length = 99;
    EXPECT_THROW((void)FindNextKnownMarkupElement(Text(u"<a>"), 0, length, content, {}),
                 std::bad_function_call);
    EXPECT_EQ(Show(content), "before");
    EXPECT_TRUE(FindCharRangesOfKnownMarkupElements(TString(), {}).empty()) << "an empty text asks nothing";
}

} // namespace
