#include "Agreements.h"

#include <atomic>
#include <climits>
#include <future>
#include <random>

namespace {

TEST(Tooltip, TooltipsReadAsTheReference)
{
    constexpr std::u16string_view few[] = {
        u"<", u">", u"'", u" ", u"<Sheet name='a", u"' filter='<b", u"Sheet N", u"ame='"};
    ForEachText(few, LONGEST_TEXT, [](const std::u16string& text) {
        ASSERT_EQ(ReadByLibrary(Text(text)), ReadByReference(Text(text))) << Show(Text(text));
    });
    const std::vector<TString> many =
        Text(u"<|<<|>|>>|'| |<Sheet name='A'|<Sheet filter='<x>,<y>'| NAME='B'|>|<b |\t|''|<Sheet "
             u"maxwidth='200' name='A''C'| maxheight='150'| filter='<a''b>, <<c><d>'| maxwidth='02'| "
             u"MaxHeight='1501'|<Sheet  name='B' filter=''>|<Sheet name='B' filter='<<a>'>|<Sheet name='B' "
             u"filter='<k>'>|<Sheep name='B'>|<sheet name='B'>")
            .split(u'|', TString::SplitBehavior(0));
    std::mt19937 random(20240301);
    for (int i = 0; i < 2 * RANDOM_TEXTS; ++i) {
        TString text;
        for (auto count = 3 + random() % 12; count > 0; --count)
            text = text + many[random() % many.size()];
        ASSERT_EQ(ReadByLibrary(text), ReadByReference(text)) << Show(text);
    }
    // Growing numbers of sheets, half of them with equal hashes, then repeated with other attributes.
    for (int sheets = 1; sheets < 130; ++sheets) {
        TString text;
        for (int i = 0; i < 2 * sheets; ++i) {
            const int sheet = i * 7 % sheets;
            text = text + Text(u"<Sheet name='") +
                   (sheet % 2 == 0 ? NameOfOneHash(sheet)
                                   : Text(u"sheet ") + TString::number(sheet, 10, 0, u' ')) +
                   Text(i < sheets ? u"'maxwidth='9' filter='<" : u"' filter='<") +
                   TString::number(2 * sheets - i, 10, 0, u' ') + Text(u">'>");
        }
        ASSERT_EQ(ReadByLibrary(text), ReadByReference(text)) << Show(text);
    }
}

TEST(Tooltip, DeletedOrModifiedFilters)
{
    // A: unchanged, B: deleted, C: reordered, D: `All Fields`, E: field added, F: replaced, G: emptied, H:
    // new
    const TString previous =
        Text(u"<Sheet name='A' filter='<x>'><Sheet name='B' filter='<x>'><Sheet name='C' filter='<x>,<y>'>"
             u"<Sheet name='D'><Sheet name='E' filter='<y>'><Sheet name='F' filter='<x>'><Sheet name='G'>");
    const TString current =
        Text(u"<Sheet name='A' filter='<x>'><Sheet name='C' filter='<y>,<x>,<y>'><Sheet name='D' "
             u"filter='<All Fields>'><Sheet name='E' filter='<y>,<z>'><Sheet name='F' filter='<z>'>"
             u"<Sheet name='G' filter=''><Sheet name='H'>");
    EXPECT_EQ(Show(CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(previous, current)), "[B][E][F][G]");
    EXPECT_EQ(Show(CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(current, previous)), "[E][F][H]");
}

TEST(Tooltip, RenamingASheet)
{
    const Rows<std::u16string_view, std::u16string_view, bool, const char*> rows = {
        {u"Sheet  name='S'  maxwidth='300' ", u"T", true, "Sheet name='T' maxwidth='300'"},
        {u"Sheet name='S'", u"", true, "Sheet name=''"}, // the new name isn't validated
        {u"Sheet name='s'", u"T", false, "as before"},
        {u"Sheet name='S' maxwidth='0'", u"T", false, "as before"},
        {u"b", u"T", false, "as before"},
    };
    for (const auto& [text, name, isReplaced, textAfter] : rows) {
        MarkupText replaced = Markup(u"as before");
        EXPECT_EQ(ReplaceSheetNameInSheetMarkupText(Markup(text), Text(u"S"), Text(name), replaced),
                  isReplaced);
        EXPECT_EQ(Show(replaced), textAfter);
    }

    const auto renamed = [](std::u16string_view first, std::u16string_view second) {
        return ShowOrCondition(ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond, Markup(first),
                               Markup(second));
    };
    EXPECT_EQ(renamed(u"Sheet  name='S'", u"Sheet name='T' filter='<a>'"), "Sheet name='T'");
    EXPECT_EQ(renamed(u"Sheet  name='S'", u"Sheet name='T' x=''"), "Sheet  name='S'") << "unchanged";
    for (const std::u16string_view invalid : {u"Sheet", u"Sheet name=''"})
        EXPECT_EQ(renamed(invalid, u"Sheet name='T'"),
                  "corvanemarkup/VizInTooltip: vizInTooltipProperties && vizInTooltipProperties->IsValid()");
}

TEST(Tooltip, RangesInASheetElement)
{
    const std::string noTokens = "corvanemarkup/VizInTooltipImpl: tokenizeResult.Success";
    const std::string noName = "corvanemarkup/VizInTooltip: nameToken";
    const std::string refused = "corvanemarkup/VizInTooltip: vizInTooltipProperties";
    const Rows<std::u16string_view, std::string, std::string, std::string> rows = {
        {u"Sheet name='S' filter='<a>,<b>'", "12-13", "15-31", "Sheet name='S' filter='<a>,<b>,<x>' 35"},
        {u"Sheet filter='' maxwidth='3'  NAME='a''b'", "36-40", "6-15",
         "Sheet filter='<x>' maxwidth='3' NAME='a''b' 18"},
        {u"Other filter='<a>'", noName, "6-18", refused},
        {u"Sheet name='' filter='<a>' x", "12-12", "14-26", refused},
        {u"Sheet name=''", "12-12", "none", "Sheet name='' filter='<x>' 26"},
        {u"Sheet", noTokens, noTokens, noTokens},
    };
    for (const auto& [text, name, filter, edited] : rows) {
        EXPECT_EQ(ShowOrCondition(GetCharRangeOfSheetNameAttributeValue, Markup(text)), name);
        EXPECT_EQ(ShowOrCondition(FindFilterAttributeToken, Markup(text)), filter);
        EXPECT_EQ(ShowOrCondition(InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition, Markup(text),
                                  CorvaneCharRange{3, 3}, Text(u"x"), Text(u"ALL")),
                  edited);
    }
}

TEST(Tooltip, InsertingAField)
{
    const std::string refused = "corvanemarkup/VizInTooltip: vizInTooltipProperties";
    const std::string outside =
        "corvanemarkup/VizInTooltip: first >= 0 && first - 1 <= last && last < fieldCount";
    constexpr std::u16string_view abc = u"Sheet filter='<a>,<b>,<c>'";
    const std::vector<int> none;
    const Rows<const char*, std::u16string_view, std::u16string_view, std::vector<int>, std::string> rows = {
        {"only the first and last index matter", abc, u"x", {0, 99, -1, 1}, "Sheet filter='<x>,<c>'"},
        {"the exclusive field, whatever the indices", abc, u"ALL", {99}, "Sheet filter='<ALL>'"},
        {"nothing erased", abc, u"x", {3, 2}, "Sheet filter='<a>,<b>,<c>,<x>'"},
        {"nothing erased, at the start", abc, u"x", {0, -1}, "Sheet filter='<x>,<a>,<b>,<c>'"},
        {"an invalid element stays invalid", u"Sheet  A='1' filter='y<a>z'", u"x", none,
         "Sheet A='1' filter='<a>,<x>'"},
        {"not a sheet element", u"Other filter='<a>'", u"x", none, refused},
        {"nor with the exclusive field", u"Sheet filter='<a>' x", u"ALL", none, refused},
        {"an index without fields", u"Sheet name='S'", u"x", {0}, outside},
    };
    const auto insert = InsertFilterFieldIntoMarkupText;
    for (const auto& [rule, text, field, indices, edited] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(ShowOrCondition(insert, Markup(text), Text(field), Text(u"ALL"), indices), edited);
    }
    // past the end, before the start, and reversed
    for (const auto& [first, last] : {std::pair(1, 3), {INT_MAX, INT_MAX}, {-1, 1}, {0, INT_MIN}, {2, 0}})
        EXPECT_EQ(ShowOrCondition(insert, Markup(abc), Text(u"x"), Text(u"ALL"), std::vector{first, last}),
                  outside);
}

TEST(Tooltip, LawsOfEditing)
{
    constexpr std::u16string_view values[] = {
        u"", u"junk", u"<a>", u"<a>,<b>,<a>", u"x<a><<b>y", u"<ALL>,<b>,<ALL>", u"<a'b>,<>,<c d>"};
    // Any pair of integers is a range, and rebasing it onto the value must not overflow. A start is compared
    // once in 32 bits: 2^32 further on, it is inside a field again.
    constexpr std::int64_t turn = std::int64_t(1) << 32;
    std::vector<std::int64_t> places = {INT64_MIN, INT64_MIN + 14, INT32_MIN, -1,
                                        INT32_MAX, INT64_MAX,      turn + 14, turn + 15};
    for (int place = 0; place < 45; place += 7 - LONGEST_TEXT)
        places.push_back(place);
    for (const std::u16string_view value : values)
        for (const auto& [front, rest] : {std::pair(u"", u""), std::pair(u"name='S' ", u""),
                                          std::pair(u"", u"   filter='<z>' maxwidth='0'")})
            for (const std::u16string_view field : {u"a", u"new", u"ALL", u"q'r"}) {
                TString escaped = Text(value);
                escaped.replace(u'"', Text(u"''"));
                const MarkupText text(Text(u"Sheet ") + Text(front) + Text(u"filter='") + escaped + u'"' +
                                      Text(rest));
                for (const std::int64_t start : places)
                    for (const std::int64_t end : places)
                        ASSERT_NO_FATAL_FAILURE(ExpectLawsOfEditing(text, {start, end}, Text(field)));
            }
}

/// Each test runs in a process of its own, which makes these the first calls. For the thread sanitizer.
TEST(Threads, FirstCallsAtOnceOnSharedTexts)
{
    const TString tooltip = Text(u"<b> <Sheet  MAXWIDTH='200' name='a''b' filter='<x>,<y>'>");
    std::atomic<int> waiting(8);
    std::vector<std::future<std::string>> results;
    for (int i = waiting; i > 0; --i)
        results.push_back(std::async(std::launch::async, [&] {
            for (--waiting; waiting > 0;) {
            }
            return testing::PrintToString(ScanByLibrary(tooltip)) + ReadByLibrary(tooltip);
        }));
    for (std::future<std::string>& result : results)
        EXPECT_EQ(result.get(), testing::PrintToString(ScanByReference(tooltip)) + ReadByReference(tooltip));
}

} // namespace
