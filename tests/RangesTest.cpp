#include "RangeLaws.h"

#include <climits>
#include <random>

namespace {

TEST(Ranges, EveryShortTooltipKeepsTheLaws)
{
    constexpr std::u16string_view fragments[] = {u"<", u">", u"'", u" ", u"=", u"a", u"Sheet ", u"name"};
    ForEachText(fragments, LONGEST_TEXT - 1,
                [](const std::u16string& text) { ExpectRangesAndFaults(Text(text)); });
}

TEST(Ranges, LongerTooltipsKeepTheLaws)
{
    const std::vector<TString> fragments =
        Text(u"<|>|'| |=|a|\t|,|<<|>>|''|<a>|<>|<Sheet |<sheet |<Sheet name='q' |name='a'| Filter='<a>,<b>'| "
             u"filter='x<a''b>,<a>,<a>| filter='<Sheet name=''q'' <b>,<b>,<d ''e>,<b>'|'>|name = 'a'| "
             u"maxwidth='2001'| "
             u"maxheight='3:'|foo='1'|a=b|<ALL>|\u00A0")
            .split(u'|', TString::SplitBehavior(0));
    std::mt19937 random(20240302);
    for (int i = 0; i < RANDOM_TEXTS; ++i) {
        TString text;
        for (auto count = 2 + random() % 12; count > 0; --count)
            text = text + fragments[random() % fragments.size()];
        ASSERT_NO_FATAL_FAILURE(ExpectRangesAndFaults(text));
        const std::int64_t start = random() % (static_cast<unsigned>(text.length()) + 1);
        for (const std::u16string_view field : {u"a", u"new'", u"ALL"})
            for (const std::int64_t length : {0, 1, 9})
                ASSERT_NO_FATAL_FAILURE(ExpectInsertion(text, {start, start + length}, Text(field)));
        ExpectRenaming(text, Text(u"a"), Text(random() % 2 == 0 ? u"b" : u"a'b"));
        ASSERT_FALSE(HasFailure());
    }
}

TEST(Ranges, ElementsAndAttributes)
{
    const Rows<const char*, std::u16string_view, const char*> rows = {
        {"given up, and without end", u"<b> if < 5, see <Total> <Sheet name='S",
         "[0 0-3][1 7-16][0 16-23][2 24-38]"},
        {"escaped brackets neither start nor end one", u"<<a> <a<<b>> <c>", "[1 5-13][0 13-16]"},
        {"quotes that protect to the end", u"<a><Sheet name='>", "[0 0-3][2 3-17]"},
    };
    for (const auto& [rule, text, expected] : rows) {
        std::string shown;
        for (const ElementRanges& element : FindElementRanges(Text(text)))
            shown += '[' + Show(static_cast<int>(element.End)) + ' ' + Show(element.Element) + ']';
        EXPECT_EQ(shown, expected) << rule;
    }
    const auto show = [](std::u16string_view text, CorvaneCharRange range) {
        std::string shown;
        for (const AttributeRanges& attribute : FindAttributeRanges(Text(text), range))
            shown += '[' + Show(attribute.Attribute) + ' ' + Show(attribute.Name) + ' ' +
                     Show(attribute.Value) + ' ' + Show(attribute.NameAndValue) + ' ' +
                     Show(attribute.Fields) + ']';
        return shown;
    };
    EXPECT_EQ(show(u"<Any FILTER='x<a''''b>,<c>' filter='<d>' e= name='1", {1, 51}),
              "[5-27 5-11 13-26 FILTER=x<a''b>,<c> [14-22 a''b][23-26 c]]"
              "[28-40 28-34 36-39 filter=<d> [36-39 d]][41-43 41-42 43-43 none ][44-51 44-48 50-51 none ]")
        << "of any element, every filter, a missing value, and quotes that are open";
    EXPECT_EQ(show(u"Sheet x='", {0, 9}), "[6-9 6-7 9-9 none ]");
    EXPECT_EQ(show(u"Sheet x='a''", {0, 12}), "[6-12 6-7 9-12 none ]") << "no quote closes it";
    for (const CorvaneCharRange outside : {CorvaneCharRange{-1, 9}, {0, 10}, {5, 4}, {INT64_MIN, INT64_MAX}})
        EXPECT_EQ(show(u"Sheet a=''", {outside.start, outside.end == 10 ? 11 : outside.end}), "");
}

/// A line for each fault: a ruler below the tooltip, the kind, and `!` if it is an error.
std::vector<std::string> ShowFaults(const TString& tooltip)
{
    constexpr const char* kinds[] = {"MissingEnd",        "OpenQuotes",         "Restart",
                                     "OtherLetterCase",   "NoAttributes",       "OtherWhiteSpace",
                                     "SpaceAroundEquals", "UnquotedValue",      "MissingValue",
                                     "UnprotectedQuotes", "DuplicateAttribute", "MissingSheetName",
                                     "InvalidSheetSize",  "UnallowedAttribute", "StrayFilterText",
                                     "DuplicateField"};
    std::vector<std::string> lines;
    for (const MarkupFault& fault : FindMarkupFaults(tooltip)) {
        const auto start = static_cast<std::size_t>(fault.Range.start);
        lines.push_back(std::string(start, ' ') +
                        std::string(static_cast<std::size_t>(fault.Range.end) - start, '^') + ' ' +
                        kinds[static_cast<int>(fault.Kind)] + (fault.IsError ? "!" : ""));
    }
    return lines;
}

TEST(Ranges, Faults)
{
    const std::pair<std::u16string_view, std::vector<std::string>> rows[] = {
        {u"a < b <<c> <d> <e", {"               ^^ MissingEnd"}},
        {u"<Sheet name='q' <Sheet name='",
         {"^^^^^^^^^^^^^^^^ Restart!", "                ^^^^^^^^^^^^^ OpenQuotes!"}},
        {u"<sheet name='S'> <SHEET> <Sheet> <Sheets a=>",
         {" ^^^^^ OtherLetterCase!", "                  ^^^^^ OtherLetterCase",
          "                          ^^^^^ NoAttributes"}},
        {u"<Sheet\tname='a'> <Sheet name='a'\t> <Sheet \t name=a>",
         {"      ^ OtherWhiteSpace!", "                                ^ OtherWhiteSpace!",
          "                                          ^ OtherWhiteSpace!"}},
        {u"<Sheet name = 'a' filter ='' maxwidth=\t'3' x =y>",
         {"       ^^^^^^^^^^ SpaceAroundEquals!", "                  ^^^^^^^^^^ SpaceAroundEquals!",
          "                             ^^^^^^^^^^^^^ SpaceAroundEquals!",
          "                                           ^^^^ SpaceAroundEquals!"}},
        {u"<Sheet name='a' x=y z w= /'='><Sheet y=b'c>",
         {"                ^^^ UnquotedValue!", "                    ^ MissingValue!",
          "                      ^^ MissingValue!", "                         ^^^^ UnquotedValue!",
          "                                     ^^^^^ UnquotedValue!"}},
        {u"<Sheet foo='1' name='a>b'> <Sheet name=<a>",
         {"               ^^^^^^^ UnprotectedQuotes!", "                           ^^^^^^^^^^^^ Restart!",
          "                                  ^^^^^ MissingValue!"}},
        {u"<Sheet name='' NAME='a' \tfilter='<x>,x' x='' X=''> <Sheet >",
         {"       ^^^^^^^ MissingSheetName!", "               ^^^^^^^^ DuplicateAttribute!",
          "                        ^ OtherWhiteSpace!",
          "                        ^^^^^^^^^^^^^^^ UnallowedAttribute!",
          "                                        ^^^^ UnallowedAttribute!",
          "                                             ^^^^ DuplicateAttribute!",
          "                                             ^^^^ UnallowedAttribute!",
          "                                                   ^^^^^^^^ MissingSheetName"}},
        {u"<Sheet maxwidth='0' maxheight='1501' name='a' filter='x'>",
         {"       ^^^^^^^^^^^^ InvalidSheetSize!", "                    ^^^^^^^^^^^^^^^^ InvalidSheetSize!"}},
        {u"<Sheet name='a' filter='<x>, y z,<x''>,<x>;<x''>,<z'>",
         {"                             ^^^ StrayFilterText",
          "                                       ^^^ DuplicateField",
          "                                          ^ StrayFilterText",
          "                                           ^^^^^ DuplicateField",
          "                                                 ^^ StrayFilterText"}},
        {u"<Sheet name='a' filter='<x> ,,<y>'> <b c = d>", {}},
        {u"<Sheet name='a' filter='<0><1><2><3><4><5><6><7><8><9>'><Sheet name='a' filter='<x>,<x>'>",
         {"                                                                                    ^^^ "
          "DuplicateField"}},
        {u"<Sheet name='a' filter\t='b'>",
         {"                ^^^^^^^^^^^ UnallowedAttribute!", "                      ^ OtherWhiteSpace!"}},
    };
    for (const auto& [text, faults] : rows)
        EXPECT_EQ(ShowFaults(Text(text)), faults) << Show(Text(text));
}

TEST(Ranges, FieldNames)
{
    for (const std::u16string_view name :
         {u"a", u" ", u"a'b", u"a<<b", u"a>>", u"a,b", u"Sheet", u"Sheet name"})
        EXPECT_TRUE(IsFieldName(Text(name))) << Show(Text(name));
    for (const std::u16string_view name :
         {u"", u"<", u"<<a", u"a<b", u"a>", u"a>b", u"Sheet ", u"Sheet a=''", u"Sheet name=x"})
        EXPECT_FALSE(IsFieldName(Text(name))) << Show(Text(name));
}

TEST(Ranges, Renaming)
{
    const Rows<const char*, std::u16string_view, const char*> rows = {
        {"sheets and fields, all else as it is", u"<b> <Sheet  name='A' filter='<b>,  <a''c>;' ><a'c>",
         "<y'> <Sheet  name='A1' filter='<y''>,  <b>;' ><b>"},
        {"old and new exchanged, each once", u"<c><Sheet name='B' filter='<d>,<c>'>",
         "<d><Sheet name='''' filter='<c>,<d>'>"},
        {"not in invalid elements, nor in parts of names",
         u"<bb><Sheet name='A' maxwidth='0' filter='<b>'><Sheet x='A'><Sheet name=x>",
         "<bb><Sheet name='A' maxwidth='0' filter='<b>'><Sheet x='A'><Sheet name=x>"},
        {"a quote that would open stays out", u"<Sheet name='q' <b> and <Sheet name='T'>",
         "<Sheet name='q' <b> and <Sheet name='T'>"},
        {"each occurrence by itself", u"<Sheet name='q' filter='<b>' <b> <b><c>",
         "<Sheet name='q' filter='<b>' <b> <y'><d>"},
        {"what would take other fields with it stays",
         u"<Sheet name='A' filter='<Sheet name=''q'' <b>,<c>,<e ''f>'>",
         "<Sheet name='A1' filter='<Sheet name=''q'' <b>,<d>,<e ''f>'>"},
        {"in a filter whose own quotes protect", u"<Sheet name='A' filter='<Sheet name=''''<b>,<c>,<d>'>",
         "<Sheet name='A1' filter='<Sheet name=''''<y''>,<d>,<c>'>"},
    };
    for (const auto& [rule, text, expected] : rows) {
        const auto edits =
            RenameSheetsAndFields(Text(text), {{Text(u"A"), Text(u"A1")}, {Text(u"B"), Text(u"'")}},
                                  {{Text(u"b"), Text(u"y'")},
                                   {Text(u"a'c"), Text(u"b")},
                                   {Text(u"c"), Text(u"d")},
                                   {Text(u"d"), Text(u"c")},
                                   {Text(u"Sheet name=x"), Text(u"x")}});
        EXPECT_EQ(Show(ApplyTextEdits(Text(text), edits)), expected) << rule;
    }
    const std::string source = "corvanemarkup/TextEdits: ";
    const auto rename = [](const TString& sheet, const TString& field) {
        return RenameSheetsAndFields(Text(u"<a><Sheet name='a' filter='<a>'>"), {{Text(u"a"), sheet}},
                                     {{Text(u"a"), field}})
            .size();
    };
    const auto tried = [&](std::u16string_view sheet, std::u16string_view field) {
        return ShowOrCondition([&] { return static_cast<int>(rename(Text(sheet), Text(field))); });
    };
    EXPECT_EQ(tried(u"", u"a"), source + "!newSheetName.empty()");
    EXPECT_EQ(tried(u"a", u"<"), source + "IsFieldName(newField)");
    EXPECT_EQ(tried(u"a", u"a"), "0") << "old equal to new";

    std::u16string filter;
    for (int i = 0; i < 100; ++i)
        filter += u"<Sheet name= <b>,";
    const TString manyKept = Text(u"<Sheet filter='" + filter + u"' name='A'>");
    const auto edits =
        RenameSheetsAndFields(manyKept, {{Text(u"A"), Text(u"B")}}, {{Text(u"b"), Text(u"y'z")}});
    ASSERT_FALSE(edits.empty());
    EXPECT_EQ(Show(edits.back().Text), "B") << "however many fields stay, in front of the sheet's name";
}

TEST(Ranges, InsertingAtACursor)
{
    constexpr std::u16string_view quoted = u"<b> <Sheet name='S' filter='<a ''b''>,<c>'>";
    const Rows<const char*, std::u16string_view, CorvaneCharRange, std::u16string_view, const char*> rows = {
        {"strictly inside a field", quoted, {40, 40}, u"x", "<b> <Sheet name='S' filter='<a ''b''>,<x>'> 42"},
        {"at its other edge", quoted, {37, 37}, u"x", "<b> <Sheet name='S' filter='<a ''b''>,<c>,<x>'> 46"},
        {"at its edge", quoted, {38, 38}, u"x", "<b> <Sheet name='S' filter='<a ''b''>,<c>,<x>'> 46"},
        {"a unit of both selected", quoted, {36, 39}, u"x", "<b> <Sheet name='S' filter='<x>'> 32"},
        {"all of the value", quoted, {28, 41}, u"x", "<b> <Sheet name='S' filter='<x>'> 32"},
        {"the exclusive field", quoted, {38, 38}, u"ALL", "<b> <Sheet name='S' filter='<ALL>'> 34"},
        {"from one end of the content to the other",
         quoted,
         {5, 42},
         u"x",
         "<b> <Sheet name='S' filter='<x>'> 32"},
        {"across a bracket", quoted, {4, 30}, u"x", "none"},
        {"in another element", quoted, {1, 1}, u"x", "none"},
        {"the wrong way round", quoted, {30, 28}, u"x", "none"},
        {"no field", quoted, {30, 30}, u"Sheet name=x", "none"},
        {"outside", quoted, {INT64_MIN, INT64_MAX}, u"x", "none"},
        {"no filter",
         u"<Sheet name='S' maxwidth='9'  ><b>",
         {16, 16},
         u"q'",
         "<Sheet name='S' maxwidth='9' filter='<q''>'  ><b> 43"},
        {"no attributes", u"<Sheet  >", {6, 6}, u"x", "<Sheet filter='<x>'  > 19"},
        {"no quotes protect", u"<Sheet foo=''>", {9, 9}, u"x", "none"},
        {"not readable", u"<Sheet name=S>", {9, 9}, u"x", "none"},
        {"the exclusive field goes",
         u"<Sheet filter='<ALL>,x,<a>'>",
         {9, 9},
         u"a",
         "<Sheet filter='<a>'> 19"},
    };
    for (const auto& [rule, text, selection, field, expected] : rows) {
        const auto insertion = InsertFilterFieldAt(Text(text), selection, Text(field), Text(u"ALL"));
        EXPECT_EQ(insertion ? Show(ApplyTextEdits(Text(text), {insertion->Edit})) + ' ' +
                                  Show(insertion->NewCursorPosition)
                            : "none",
                  expected)
            << rule;
    }
}

TEST(Ranges, ApplyingEdits)
{
    const auto apply = [](const std::vector<TextEdit>& edits) {
        return ShowOrCondition(ApplyTextEdits, Text(u"abc"), edits);
    };
    const std::string refused = "corvanemarkup/TextEdits: isInOrder";
    EXPECT_EQ(apply({{{0, 0}, Text(u"1")}, {{0, 0}, Text(u"2")}, {{1, 3}, Text(u"3")}, {{3, 3}, Text(u"4")}}),
              "12a34");
    for (const CorvaneCharRange& range :
         {CorvaneCharRange{-1, 0}, {2, 1}, {3, 4}, {0, 1}, {INT64_MIN, INT64_MAX}})
        EXPECT_EQ(apply({{{1, 2}, Text(u"x")}, {range, TString()}}), refused) << Show(range);
}

} // namespace
