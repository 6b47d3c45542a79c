#include "Testing.h"
#include "TextbookScanner.h"

#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <algorithm>
#include <climits>
#include <random>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

namespace {

std::string ReadByLibrary(const TString& tooltip)
{
    return Show(GetTargetSheetNamesFromTooltipText(tooltip)) + '\n' +
           Show(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip)) + '\n' +
           Show(GetFilterFieldsFromSheetMarkupInTooltipText(tooltip));
}

std::string ReadByTextbook(const TString& tooltip)
{
    std::set<TString> names;
    std::map<TString, std::set<TString>> fieldsBySheet;
    std::vector<TString> allFields;
    for (const TString& content : textbook::CollectMarkupElements(tooltip)) {
        const auto element = VizInTooltipProperties::FromMarkupText(MarkupText(content));
        const bool isValid = element && element->IsValid();
        EXPECT_EQ(Show(GetTargetSheetNameFromMarkupText(content)),
                  isValid ? Show(element->GetSheetName()) : "");
        if (!isValid)
            continue;
        const auto fields = element->GetFilterFields();
        names.insert(element->GetSheetName());
        if (!element->HasFilter())
            fieldsBySheet.insert({element->GetSheetName(), {Text(u"All Fields")}});
        else if (!fields.empty())
            fieldsBySheet.insert({element->GetSheetName(), {fields.begin(), fields.end()}});
        allFields.insert(allFields.begin(), fields.begin(), fields.end());
    }
    return Show(names) + '\n' + Show(fieldsBySheet) + '\n' + Show(allFields);
}

TEST(Tooltip, TooltipsReadByTheTextbook)
{
    constexpr std::u16string_view few[] = {
        u"<", u">", u"'", u" ", u"<Sheet name='a", u"' filter='<b", u"Sheet N", u"ame='"};
    ForEachText(few, 6, [](const std::u16string& text) {
        ASSERT_EQ(ReadByLibrary(Text(text)), ReadByTextbook(Text(text))) << Show(Text(text));
    });
    constexpr std::u16string_view many[] = {u"<",
                                            u"<<",
                                            u">",
                                            u">>",
                                            u"'",
                                            u" ",
                                            u"<Sheet name='A'",
                                            u"<Sheet filter='<x>,<y>'",
                                            u" NAME='B'",
                                            u">",
                                            u"<b ",
                                            u"\t",
                                            u"''",
                                            u"<Sheet maxwidth='200' name='A''C'",
                                            u" maxheight='150'",
                                            u" filter='<a''b>, <<c><d>'",
                                            u" maxwidth='02'",
                                            u" MaxHeight='1501'",
                                            u"<Sheet  name='B' filter=''>"};
    std::mt19937 random(20240301);
    for (int i = 0; i < 60000; ++i) {
        std::u16string text;
        for (auto count = 3 + random() % 12; count > 0; --count)
            text += many[random() % std::size(many)];
        ASSERT_EQ(ReadByLibrary(Text(text)), ReadByTextbook(Text(text))) << Show(Text(text));
    }
}

TEST(Tooltip, SheetNamesAndFilterFields)
{
    const Rows<const char*, std::u16string_view, const char*, const char*, const char*> rows = {
        {"no element", u"a <<b>", "", "", ""},
        {"sorted, and the first element text decides",
         u"<Sheet name='B' filter='<y>,<x>'> <b> <Sheet name='A' filter='<q>'> <Sheet name='A'>", "[A][B]",
         "[A [All Fields]][B [x][y]]", "[y][x][q]"},
        {"a filter without fields gives way", u"<Sheet name='D' filter=''> <Sheet name='D' filter='<k>'>",
         "[D]", "[D [k]]", "[k]"},
        {"and the sheet is absent without another", u"<Sheet name='E' filter='zzz'>", "[E]", "", ""},
        {"repeats", u"<Sheet name='A' filter='<x>,<x>'>", "[A]", "[A [x]]", "[x][x]"},
        {"fields of the last element first, each in their order",
         u"<Sheet name='1' filter='<b>,<a>'><Sheet name='2' filter='<c>,<a>'><Sheet name='3' filter='<d>'>",
         "[1][2][3]", "[1 [a][b]][2 [a][c]][3 [d]]", "[d][c][a][b][a]"},
        {"an invalid element counts nowhere", u"<Sheet name='A' filter='<x>' maxwidth='2001'>", "", "", ""},
        {"an element without end hides what follows", u"<Sheet name='A'><Sheet name='<Sheet name='B'>", "[A]",
         "[A [All Fields]]", ""},
        {"restarts, doubled brackets and quotes",
         u"<<Sheet name='A'><b <Sheet filter='<a''b>' NAME='B>'><<<Sheet maxwidth='1' name='C'>>><Sheet "
         u"\tname='D'>",
         "[B>]", "[B> [a'b]]", "[a'b]"},
    };
    for (const auto& [rule, text, names, fieldsBySheet, fields] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(Show(GetTargetSheetNamesFromTooltipText(Text(text))), names);
        EXPECT_EQ(Show(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(Text(text))),
                  fieldsBySheet);
        EXPECT_EQ(Show(GetFilterFieldsFromSheetMarkupInTooltipText(Text(text))), fields);
    }
    EXPECT_EQ(Show(GetTargetSheetNamesFromMarkupElementSet(
                  {Text(u"Sheet name='A' "), Text(u"b"), Text(u"Sheet name='A'")})),
              "[A]");
}

TEST(Tooltip, DeletedOrModifiedFilters)
{
    const Rows<const char*, std::u16string_view, std::u16string_view, const char*, const char*> rows = {
        {"deleted, the same, modified and new",
         u"<Sheet name='A' filter='<x>'><Sheet name='B' filter='<x>'><Sheet name='D'><Sheet name='E' "
         u"filter='<y>,<z>'>",
         u"<Sheet name='A' filter='<x>'><Sheet name='D' filter='<All Fields>'><Sheet name='E' "
         u"filter='<z>,<y>,<w>'><Sheet name='F'>",
         "[B][E]", "[E][F]"},
        {"order and repeats don't count", u"<Sheet name='A' filter='<x>,<y>'>",
         u"<Sheet name='A' filter='<y>,<x>,<y>'>", "", ""},
        {"as many, but others", u"<Sheet name='A' filter='<x>'>", u"<Sheet name='A' filter='<z>'>", "[A]",
         "[A]"},
        {"emptied", u"<Sheet name='A' filter='<x>'>", u"<Sheet name='A' filter=''>", "[A]", ""},
    };
    for (const auto& [rule, previous, current, sheets, sheetsOfTheExchange] : rows) {
        SCOPED_TRACE(rule);
        const auto changes = CollectSheetsWithDeletedOrModifiedSheetMarkupFilters;
        EXPECT_EQ(Show(changes(Text(previous), Text(current))), sheets);
        EXPECT_EQ(Show(changes(Text(current), Text(previous))), sheetsOfTheExchange);
    }
}

TEST(Tooltip, RenamingASheet)
{
    const Rows<const char*, std::u16string_view, std::u16string_view, bool, const char*> rows = {
        {"spacing becomes the written form", u"Sheet  name='S'  maxwidth='300' ", u"T", true,
         "Sheet name='T' maxwidth='300'"},
        {"the new name isn't judged", u"Sheet name='S'", u"", true, "Sheet name=''"},
        {"another sheet", u"Sheet name='s'", u"T", false, "as before"},
        {"an invalid element", u"Sheet name='S' maxwidth='0'", u"T", false, "as before"},
        {"no sheet element", u"b", u"T", false, "as before"},
    };
    for (const auto& [rule, text, name, isReplaced, textAfter] : rows) {
        SCOPED_TRACE(rule);
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
    EXPECT_EQ(renamed(u"Sheet  name='S'", u"Sheet name='T' x=''"), "Sheet  name='S'") << "as it came";
    for (const std::u16string_view invalid : {u"Sheet", u"Sheet name=''"})
        EXPECT_EQ(renamed(invalid, u"Sheet name='T'"),
                  "corvanemarkup/VizInTooltip: vizInTooltipProperties && vizInTooltipProperties->IsValid()");
}

TEST(Tooltip, RangesInASheetElement)
{
    const std::string noName = "corvanemarkup/VizInTooltip: nameToken";
    const Rows<std::u16string_view, std::string, std::string> rows = {
        {u"Sheet name='S' filter='<a>,<b>'", "12-13", "15-31"},
        {u"Sheet filter='' maxwidth='3'  NAME='a''b'", "36-40", "6-15"},
        {u"Other filter='<a>'", noName, "6-18"},
        {u"Sheet name=''", "12-12", "none"},
    };
    for (const auto& [text, name, filter] : rows) {
        EXPECT_EQ(ShowOrCondition(GetCharRangeOfSheetNameAttributeValue, Markup(text)), name);
        EXPECT_EQ(ShowOrCondition(FindFilterAttributeToken, Markup(text)), filter);
    }
}

TEST(Tooltip, FieldsAtARange)
{
    constexpr std::u16string_view two = u"Sheet name='S' filter='<a>,<b>'";
    constexpr std::u16string_view quoted = u"Sheet name='S' filter='<a''b>,<c>'";
    constexpr std::int64_t turn = std::int64_t(1) << 32;
    const Rows<const char*, std::u16string_view, CorvaneCharRange, const char*> rows = {
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
        {"no element", u"Sheet filter='junk'", {16, 16}, ""},
        {"no filter", u"Sheet name='<a>'", {14, 14}, ""},
    };
    for (const auto& [rule, text, range, indices] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(Show(GetIndexOfFiltersAtCharRange(Markup(text), range)), indices);
    }
}

TEST(Tooltip, InsertingAField)
{
    const std::string refused = "corvanemarkup/VizInTooltip: vizInTooltipProperties";
    const std::string outside =
        "corvanemarkup/VizInTooltip: first >= 0 && first - 1 <= last && last < fieldCount";
    constexpr std::u16string_view abc = u"Sheet filter='<a>,<b>,<c>'";
    const Rows<const char*, std::u16string_view, std::u16string_view, std::vector<int>, std::string> rows = {
        {"in place of one", abc, u"x", {1}, "Sheet filter='<a>,<x>,<c>'"},
        {"only the first and last index count", abc, u"x", {0, 99, -1, 1}, "Sheet filter='<x>,<c>'"},
        {"at the end", abc, u"x", {}, "Sheet filter='<a>,<b>,<c>,<x>'"},
        {"once at the end", abc, u"a", {}, "Sheet filter='<b>,<c>,<a>'"},
        {"but twice in place of another", abc, u"c", {1}, "Sheet filter='<a>,<c>,<c>'"},
        {"the exclusive field, whatever the indices", abc, u"ALL", {99}, "Sheet filter='<ALL>'"},
        {"it goes behind the insertion",
         u"Sheet filter='<ALL>,<b>,<c>'",
         u"x",
         {1},
         "Sheet filter='<x>,<c>'"},
        {"nothing erased", abc, u"x", {3, 2}, "Sheet filter='<a>,<b>,<c>,<x>'"},
        {"nothing erased in front", abc, u"x", {0, -1}, "Sheet filter='<x>,<a>,<b>,<c>'"},
        {"an invalid element keeps its faults",
         u"Sheet  A='1' filter='y<a>z'",
         u"x",
         {},
         "Sheet A='1' filter='<a>,<x>'"},
        {"no filter", u"Sheet name='S'", u"x", {}, "Sheet name='S' filter='<x>'"},
        {"the first of two filters",
         u"Sheet filter='' filter='<b>'",
         u"x",
         {},
         "Sheet filter='<x>' filter='<b>'"},
        {"no sheet element", u"Other filter='<a>'", u"x", {}, refused},
        {"nor for the exclusive field", u"Sheet filter='<a>' x", u"ALL", {}, refused},
        {"behind the end", abc, u"x", {1, 3}, outside},
        {"far behind", abc, u"x", {INT_MAX}, outside},
        {"in front", abc, u"x", {-1, 1}, outside},
        {"far in front", abc, u"x", {0, INT_MIN}, outside},
        {"the wrong way round", abc, u"x", {2, 0}, outside},
        {"an index into no fields", u"Sheet name='S'", u"x", {0}, outside},
    };
    for (const auto& [rule, text, field, indices, edited] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(ShowOrCondition(InsertFilterFieldIntoMarkupText, Markup(text), Text(field), Text(u"ALL"),
                                  indices),
                  edited);
    }
}

TEST(Tooltip, InsertingAFieldAtTheCursor)
{
    const Rows<const char*, std::u16string_view, CorvaneCharRange, std::u16string_view, std::string> rows = {
        {"in a field",
         u"Sheet name='S' filter='<a>,<b>'",
         {24, 24},
         u"x",
         "Sheet name='S' filter='<x>,<b>' 31"},
        {"in no field", u"Sheet filter='<a>'  name='S'", {3, 3}, u"x", "Sheet filter='<a>,<x>' name='S' 22"},
        {"no filter", u"Sheet name='S'", {3, 3}, u"x", "Sheet name='S' filter='<x>' 27"},
        {"a token that is found in a text that is refused",
         u"Sheet filter='<a>' x",
         {0, 0},
         u"x",
         "corvanemarkup/VizInTooltip: vizInTooltipProperties"},
        {"no tokens", u"Sheet", {0, 0}, u"x", "corvanemarkup/VizInTooltipImpl: tokenizeResult.Success"},
    };
    for (const auto& [rule, text, range, field, edited] : rows) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(ShowOrCondition(InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition, Markup(text), range,
                                  Text(field), Text(u"ALL")),
                  edited);
    }
}

/// What an editor counts on when it inserts `field` into an element.
void CheckEdit(const MarkupText& text, CorvaneCharRange range, const TString& field)
{
    const TString all = Text(u"ALL");
    const auto edited = InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(text, range, field, all);
    SCOPED_TRACE(Show(text) + ' ' + Show(range) + " -> " + Show(edited));

    auto expected = VizInTooltipProperties::FromMarkupText(text)->GetFilterFields();
    const auto remove = [&](const TString& removed) {
        expected.erase(std::remove(expected.begin(), expected.end(), removed), expected.end());
    };
    const auto indices = GetIndexOfFiltersAtCharRange(text, range);
    if (indices.empty()) {
        remove(field);
        expected.push_back(field);
    } else {
        expected.erase(expected.begin() + indices.front(), expected.begin() + indices.back() + 1);
        expected.insert(expected.begin() + indices.front(), field);
    }
    if (field == all)
        expected = {all};
    else
        remove(all);
    const auto element = VizInTooltipProperties::FromMarkupText(edited.NewMarkupText);
    ASSERT_TRUE(element) << "the new text is a sheet element";
    ASSERT_EQ(Show(element->GetFilterFields()), Show(expected));

    const TString& newText = edited.NewMarkupText;
    const int cursor = edited.NewCursorPosition;
    ASSERT_EQ(FindFilterAttributeToken(edited.NewMarkupText)->end, cursor);
    ASSERT_EQ(newText[cursor - 1], u'"') << "the cursor stands behind the closing quote";
    ASSERT_TRUE(cursor == newText.length() || newText[cursor] == u' ');

    const auto editAgain = [&](const MarkupText& markup) {
        return InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(markup, {cursor, cursor}, field, all);
    };
    const auto again = editAgain(edited.NewMarkupText);
    ASSERT_EQ(Show(editAgain(again.NewMarkupText)), Show(again)) << "without a selection, once is enough";
}

TEST(Tooltip, LawsOfEditing)
{
    for (const auto value :
         {u"", u"junk", u"<a>", u"<a>,<b>,<a>", u"x<a><<b>y", u"<ALL>,<b>,<ALL>", u"<a''b>,<>,<c d>"})
        for (const auto rest : {u"'", u"' name='S'", u"'   filter='<z>' maxwidth='0'"})
            for (const auto field : {u"a", u"new", u"ALL", u"q'r"})
                for (int start = 0; start < 45; ++start)
                    for (int end = start; end < 45; end += 3)
                        CheckEdit(MarkupText(Text(u"Sheet filter='") + Text(value) + Text(rest)),
                                  {start, end}, Text(field));
}

} // namespace
