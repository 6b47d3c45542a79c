#include "Agreements.h"

#include <atomic>
#include <climits>
#include <future>
#include <random>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

namespace {

TEST(Tooltip, TooltipsReadByTheTextbook)
{
    constexpr std::u16string_view few[] = {
        u"<", u">", u"\"", u" ", u"<Sheet name=\"a", u"\" filter=\"<b", u"Sheet N", u"ame=\""};
    ForEachText(few, 6, [](const std::u16string& text) {
        ASSERT_EQ(ReadByLibrary(Text(text)), ReadByTextbook(Text(text))) << Show(Text(text));
    });
    const std::vector<TString> many =
        Text(u"<|<<|>|>>|\"| |<Sheet name=\"A\"|<Sheet filter=\"<x>,<y>\"| NAME=\"B\"|>|<b |\t|\"\"|"
             u"<Sheet maxwidth=\"200\" name=\"A\"\"C\"| maxheight=\"150\"|"
             u" filter=\"<a\"\"b>, <<c><d>\"| maxwidth=\"02\"| MaxHeight=\"1501\"|"
             u"<Sheet  name=\"B\" filter=\"\">")
            .split(u'|', TString::SplitBehavior(0));
    std::mt19937 random(20240301);
    for (int i = 0; i < 60000; ++i) {
        TString text;
        for (auto count = 3 + random() % 12; count > 0; --count)
            text = text + many[random() % many.size()];
        ASSERT_EQ(ReadByLibrary(text), ReadByTextbook(text)) << Show(text);
    }
}

TEST(Tooltip, SheetNamesAndFilterFields)
{
    constexpr struct
    {
        const char* rule;
        std::u16string_view text;
        const char* names;
        const char* fieldsBySheet;
        const char* fields;
    } rows[] = {
        {"no element", u"a <<b>", "", "", ""},
        {"sorted, and the first element text decides",
         u"<Sheet name=\"B\" filter=\"<y>,<x>\"> <b> <Sheet name=\"A\" filter=\"<q>\"> <Sheet name=\"A\">",
         "[A][B]", "[A [All Fields]][B [x][y]]", "[y][x][q]"},
        {"a filter without fields gives way",
         u"<Sheet name=\"D\" filter=\"\"> <Sheet name=\"D\" filter=\"<k>\">", "[D]", "[D [k]]", "[k]"},
        {"and the sheet is absent without another", u"<Sheet name=\"E\" filter=\"zzz\">", "[E]", "", ""},
        {"repeats", u"<Sheet name=\"A\" filter=\"<x>,<x>\">", "[A]", "[A [x]]", "[x][x]"},
        {"fields of the last element first, of names that are alike at both ends",
         u"<Sheet name=\"1a1\" filter=\"<b>,<a>\"><Sheet name=\"1b1\" filter=\"<c>,<a>\"><Sheet name=\"1c1\" "
         u"filter=\"<d>\">",
         "[1a1][1b1][1c1]", "[1a1 [a][b]][1b1 [a][c]][1c1 [d]]", "[d][c][a][b][a]"},
        {"an invalid element counts nowhere", u"<Sheet name=\"A\" filter=\"<x>\" maxwidth=\"2001\">", "", "",
         ""},
        {"an element without end hides what follows", u"<Sheet name=\"A\"><Sheet name=\"<Sheet name=\"B\">",
         "[A]", "[A [All Fields]]", ""},
        {"restarts, doubled brackets and quotes",
         u"<<Sheet name=\"A\"><b <Sheet filter=\"<a\"\"b>\" NAME=\"B>\"><<<Sheet maxwidth=\"1\" "
         u"name=\"C\">>><Sheet \tname=\"D\">",
         "[B>]", "[B> [a\"b]]", "[a\"b]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(Show(GetTargetSheetNamesFromTooltipText(Text(row.text))), row.names);
        EXPECT_EQ(Show(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(Text(row.text))),
                  row.fieldsBySheet);
        EXPECT_EQ(Show(GetFilterFieldsFromSheetMarkupInTooltipText(Text(row.text))), row.fields);
    }
    EXPECT_EQ(Show(GetTargetSheetNamesFromMarkupElementSet(
                  {Text(u"Sheet name=\"A\" "), Text(u"b"), Text(u"Sheet name=\"A\"")})),
              "[A]");
}

TEST(Tooltip, DeletedOrModifiedFilters)
{
    constexpr struct
    {
        const char* rule;
        std::u16string_view previous;
        std::u16string_view current;
        const char* sheets;
        const char* sheetsOfTheExchange;
    } rows[] = {
        {"deleted, the same, modified and new",
         u"<Sheet name=\"A\" filter=\"<x>\"><Sheet name=\"B\" filter=\"<x>\"><Sheet name=\"D\"><Sheet "
         u"name=\"E\" filter=\"<y>,<z>\">",
         u"<Sheet name=\"A\" filter=\"<x>\"><Sheet name=\"D\" filter=\"<All Fields>\"><Sheet name=\"E\" "
         u"filter=\"<z>,<y>,<w>\"><Sheet name=\"F\">",
         "[B][E]", "[E][F]"},
        {"order and repeats don't count", u"<Sheet name=\"A\" filter=\"<x>,<y>\">",
         u"<Sheet name=\"A\" filter=\"<y>,<x>,<y>\">", "", ""},
        {"as many, but others", u"<Sheet name=\"A\" filter=\"<x>\">", u"<Sheet name=\"A\" filter=\"<z>\">",
         "[A]", "[A]"},
        {"emptied", u"<Sheet name=\"A\" filter=\"<x>\">", u"<Sheet name=\"A\" filter=\"\">", "[A]", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        const auto collect = CollectSheetsWithDeletedOrModifiedSheetMarkupFilters;
        EXPECT_EQ(Show(collect(Text(row.previous), Text(row.current))), row.sheets);
        EXPECT_EQ(Show(collect(Text(row.current), Text(row.previous))), row.sheetsOfTheExchange);
    }
}

TEST(Tooltip, RenamingASheet)
{
    constexpr struct
    {
        const char* rule;
        std::u16string_view text;
        std::u16string_view name;
        bool isReplaced;
        const char* replaced;
    } rows[] = {
        {"spacing becomes the written form", u"Sheet  name=\"S\"  maxwidth=\"300\" ", u"T", true,
         "Sheet name=\"T\" maxwidth=\"300\""},
        {"the new name isn't judged", u"Sheet name=\"S\"", u"", true, "Sheet name=\"\""},
        {"another sheet", u"Sheet name=\"s\"", u"T", false, "as before"},
        {"an invalid element", u"Sheet name=\"S\" maxwidth=\"0\"", u"T", false, "as before"},
        {"no sheet element", u"b", u"T", false, "as before"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        MarkupText replaced = Markup(u"as before");
        EXPECT_EQ(ReplaceSheetNameInSheetMarkupText(Markup(row.text), Text(u"S"), Text(row.name), replaced),
                  row.isReplaced);
        EXPECT_EQ(Show(replaced), row.replaced);
    }

    const auto renamed = [](std::u16string_view first, std::u16string_view second) {
        return ShowOrCondition([&] {
            return ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond(Markup(first), Markup(second));
        });
    };
    EXPECT_EQ(renamed(u"Sheet  name=\"S\"", u"Sheet name=\"T\" filter=\"<a>\""), "Sheet name=\"T\"");
    EXPECT_EQ(renamed(u"Sheet  name=\"S\"", u"Sheet name=\"T\" x=\"\""), "Sheet  name=\"S\"") << "as it came";
    for (const std::u16string_view invalid : {u"Sheet", u"Sheet name=\"\""})
        EXPECT_EQ(renamed(invalid, u"Sheet name=\"T\""),
                  "corvanemarkup/VizInTooltip: vizInTooltipProperties && vizInTooltipProperties->IsValid()");
}

TEST(Tooltip, RangesInASheetElement)
{
    constexpr struct
    {
        std::u16string_view text;
        const char* name;
        const char* filter;
    } rows[] = {
        {u"Sheet name=\"S\" filter=\"<a>,<b>\"", "12-13", "15-31"},
        {u"Sheet filter=\"\" maxwidth=\"3\"  NAME=\"a\"\"b\"", "36-40", "6-15"},
        {u"Other filter=\"<a>\"", "corvanemarkup/VizInTooltip: nameToken", "6-18"},
        {u"Sheet name=\"\"", "12-12", "none"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ShowOrCondition([&] { return GetCharRangeOfSheetNameAttributeValue(Markup(row.text)); }),
                  row.name);
        EXPECT_EQ(ShowOrCondition([&] { return FindFilterAttributeToken(Markup(row.text)); }), row.filter);
    }
}

TEST(Tooltip, FieldsAtARange)
{
    constexpr std::u16string_view two = u"Sheet name=\"S\" filter=\"<a>,<b>\"";
    constexpr std::u16string_view quoted = u"Sheet name=\"S\" filter=\"<a\"\"b>,<c>\"";
    constexpr std::int64_t turn = std::int64_t(1) << 32;
    constexpr struct
    {
        const char* rule;
        std::u16string_view text;
        CorvaneCharRange range;
        const char* indices;
    } rows[] = {
        {"a cursor inside, behind the <", two, {24, 24}, "[0]"},
        {"a cursor inside, before the >", two, {25, 25}, "[0]"},
        {"a cursor in front of a field", two, {23, 23}, ""},
        {"a cursor behind a field", two, {26, 26}, ""},
        {"a cursor between fields", two, {27, 27}, ""},
        {"exactly a field", two, {27, 30}, "[1]"},
        {"from the start of a field into it", two, {23, 25}, ""},
        {"from inside one into the next", two, {24, 28}, "[0][1]"},
        {"from inside one up to the next", two, {24, 27}, "[0]"},
        {"from behind one into the next", two, {26, 29}, "[1]"},
        {"the whole value leaves out the first", two, {23, 30}, "[1]"},
        {"from far in front, up to the first", two, {5, 23}, ""},
        {"all around", two, {0, 40}, "[0][1]"},
        {"the wrong way round", two, {40, 0}, ""},
        {"a doubled quote shifts what follows", quoted, {30, 30}, "[1]"},
        {"and so the last place of all", quoted, {32, 32}, ""},
        {"starts are compared as 32-bit numbers", two, {24 + turn, 24 + turn}, "[0]"},
        {"but not in the other tests", two, {23 + turn, 26 + turn}, ""},
        {"the whole of 64 bits, where the end stays in range", two, {INT64_MIN + 23, INT64_MAX}, "[0][1]"},
        {"a start that wraps to the far end", two, {INT64_MIN, INT64_MAX}, ""},
        {"no element", u"Sheet filter=\"junk\"", {16, 16}, ""},
        {"no filter", u"Sheet name=\"<a>\"", {14, 14}, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(Show(GetIndexOfFiltersAtCharRange(Markup(row.text), row.range)), row.indices);
    }
}

TEST(Tooltip, InsertingAField)
{
    const std::string refused = "corvanemarkup/VizInTooltip: vizInTooltipProperties";
    const std::string outside =
        "corvanemarkup/VizInTooltip: first >= 0 && first - 1 <= last && last < fieldCount";
    constexpr std::u16string_view abc = u"Sheet filter=\"<a>,<b>,<c>\"";
    const std::vector<int> none;
    const struct
    {
        const char* rule;
        std::u16string_view text;
        std::u16string_view field;
        std::vector<int> indices;
        std::string edited;
    } rows[] = {
        {"in place of one", abc, u"x", {1}, "Sheet filter=\"<a>,<x>,<c>\""},
        {"only the first and last index count", abc, u"x", {0, 99, -1, 1}, "Sheet filter=\"<x>,<c>\""},
        {"at the end", abc, u"x", none, "Sheet filter=\"<a>,<b>,<c>,<x>\""},
        {"once at the end", abc, u"a", none, "Sheet filter=\"<b>,<c>,<a>\""},
        {"but twice in place of another", abc, u"c", {1}, "Sheet filter=\"<a>,<c>,<c>\""},
        {"the exclusive field, whatever the indices", abc, u"ALL", {99}, "Sheet filter=\"<ALL>\""},
        {"it goes behind the insertion", u"Sheet filter=\"<ALL>,<b>,<c>\"", u"x", std::vector<int>(1, 1),
         "Sheet filter=\"<x>,<c>\""},
        {"nothing erased", abc, u"x", {3, 2}, "Sheet filter=\"<a>,<b>,<c>,<x>\""},
        {"nothing erased in front", abc, u"x", {0, -1}, "Sheet filter=\"<x>,<a>,<b>,<c>\""},
        {"an invalid element keeps its faults", u"Sheet  A=\"1\" filter=\"y<a>z\"", u"x", none,
         "Sheet A=\"1\" filter=\"<a>,<x>\""},
        {"no filter", u"Sheet name=\"S\"", u"x", none, "Sheet name=\"S\" filter=\"<x>\""},
        {"the first of two filters", u"Sheet filter=\"\" filter=\"<b>\"", u"x", none,
         "Sheet filter=\"<x>\" filter=\"<b>\""},
        {"no sheet element", u"Other filter=\"<a>\"", u"x", none, refused},
        {"nor for the exclusive field", u"Sheet filter=\"<a>\" x", u"ALL", none, refused},
        {"behind the end", abc, u"x", {1, 3}, outside},
        {"far behind", abc, u"x", {INT_MAX}, outside},
        {"in front", abc, u"x", {-1, 1}, outside},
        {"far in front", abc, u"x", {0, INT_MIN}, outside},
        {"the wrong way round", abc, u"x", {2, 0}, outside},
        {"an index into no fields", u"Sheet name=\"S\"", u"x", {0}, outside},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(ShowOrCondition([&] {
                      return InsertFilterFieldIntoMarkupText(Markup(row.text), Text(row.field), Text(u"ALL"),
                                                             row.indices);
                  }),
                  row.edited);
    }
}

TEST(Tooltip, InsertingAFieldAtTheCursor)
{
    constexpr struct
    {
        const char* rule;
        std::u16string_view text;
        int cursor;
        const char* edited;
    } rows[] = {
        {"in a field", u"Sheet name=\"S\" filter=\"<a>,<b>\"", 24, "Sheet name=\"S\" filter=\"<x>,<b>\" 31"},
        {"in no field", u"Sheet filter=\"<a>\"  name=\"S\"", 3, "Sheet filter=\"<a>,<x>\" name=\"S\" 22"},
        {"no filter", u"Sheet name=\"S\"", 3, "Sheet name=\"S\" filter=\"<x>\" 27"},
        {"a token that is found in a text that is refused", u"Sheet filter=\"<a>\" x", 0,
         "corvanemarkup/VizInTooltip: vizInTooltipProperties"},
        {"no tokens", u"Sheet", 0, "corvanemarkup/VizInTooltipImpl: tokenizeResult.Success"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(ShowOrCondition([&] {
                      return InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(
                          Markup(row.text), {row.cursor, row.cursor}, Text(u"x"), Text(u"ALL"));
                  }),
                  row.edited);
    }
}

TEST(Tooltip, LawsOfEditing)
{
    constexpr std::u16string_view values[] = {
        u"", u"junk", u"<a>", u"<a>,<b>,<a>", u"x<a><<b>y", u"<ALL>,<b>,<ALL>", u"<a\"b>,<>,<c d>"};
    // Any pair of integers is a range, and none may overflow when it is told from where the value starts.
    std::vector<std::int64_t> places = {INT64_MIN, INT64_MIN + 14, INT32_MIN, -1, INT32_MAX, INT64_MAX};
    for (int place = 0; place < 45; ++place)
        places.push_back(place);
    for (const std::u16string_view value : values)
        for (const std::u16string_view rest : {u"", u" name=\"S\"", u"   filter=\"<z>\" maxwidth=\"0\""})
            for (const std::u16string_view field : {u"a", u"new", u"ALL", u"q\"r"}) {
                TString escaped = Text(value);
                escaped.replace(u'"', Text(u"\"\""));
                const MarkupText text(Text(u"Sheet filter=\"") + escaped + u'"' + Text(rest));
                for (const std::int64_t start : places)
                    for (const std::int64_t end : places)
                        ASSERT_NO_FATAL_FAILURE(ExpectLawsOfEditing(text, {start, end}, Text(field)));
            }
}

/// In a process of its own, so that these are the first calls; the thread sanitizer watches them.
TEST(Threads, FirstCallsAtOnceOnSharedTexts)
{
    const TString tooltip = Text(u"<b> <Sheet  MAXWIDTH=\"200\" name=\"a\"\"b\" filter=\"<x>,<y>\">");
    std::atomic<int> waiting(8);
    std::vector<std::future<std::string>> results;
    for (int i = waiting; i > 0; --i)
        results.push_back(std::async(std::launch::async, [&] {
            for (--waiting; waiting > 0;) {
            }
            return testing::PrintToString(ScanByLibrary(tooltip)) + ReadByLibrary(tooltip);
        }));
    for (std::future<std::string>& result : results)
        EXPECT_EQ(result.get(), testing::PrintToString(ScanByTextbook(tooltip)) + ReadByTextbook(tooltip));
}

} // namespace
