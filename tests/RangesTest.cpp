#include "RangeLaws.h"

#include <climits>
#include <random>

namespace {

TEST(Ranges, EveryShortTooltipKeepsTheLaws)
{
    constexpr std::u16string_view fragments[] = {u"<", u">", u"'", u" ", u"=", u"a", u"Sheet ", u"name"};
    ForEachText(fragments, LONGEST_TEXT - 1,
                [](const std::u16string& text) { ExpectRangesAndDiagnostics(Text(text)); });
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
        ASSERT_NO_FATAL_FAILURE(ExpectRangesAndDiagnostics(text));
        if (i % 8 == 0)
            ExpectFixes(text);
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
        {"interrupted and unterminated", u"<b> if < 5, see <Total> <Sheet name='S",
         "[0 0-3][1 7-16][0 16-23][2 24-38]"},
        {"escaped brackets neither start nor end one", u"<<a> <a<<b>> <c>", "[1 5-13][0 13-16]"},
        {"unterminated quotes", u"<a><Sheet name='>", "[0 0-3][2 3-17]"},
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
        << "any element, every filter, a missing value and unterminated quotes";
    EXPECT_EQ(show(u"Sheet x='", {0, 9}), "[6-9 6-7 9-9 none ]");
    EXPECT_EQ(show(u"Sheet x='a''", {0, 12}), "[6-12 6-7 9-12 none ]") << "a doubled quote doesn't close";
    EXPECT_EQ(show(u"Sheet x=b'c' filter='<a>,<b", {0, 27}),
              "[6-12 6-7 8-11 none ][13-27 13-19 21-27 none [21-24 a]]")
        << "text before a quote, and an unterminated filter";
    EXPECT_EQ(show(u"Sheet filter=<a'b>,<c>'", {0, 23}), "[6-23 6-12 13-22 none [13-18 a'b][19-22 c]]");
    EXPECT_EQ(show(u"Total", {0, 5}), "") << "no space, no attributes";
    for (const CorvaneCharRange outside : {CorvaneCharRange{-1, 9}, {0, 10}, {5, 4}, {INT64_MIN, INT64_MAX}})
        EXPECT_EQ(show(u"Sheet a=''", {outside.start, outside.end == 10 ? 11 : outside.end}), "");
}

/// One line per diagnostic: a ruler below the tooltip, the identifier, and `!` if it is an error.
std::vector<std::string> ShowDiagnostics(const TString& tooltip)
{
    std::vector<std::string> lines;
    for (const Diagnostic& diagnostic : FindDiagnostics(tooltip)) {
        const auto start = static_cast<std::size_t>(diagnostic.Range.start);
        lines.push_back(std::string(start, ' ') +
                        std::string(static_cast<std::size_t>(diagnostic.Range.end) - start, '^') + ' ' +
                        GetDiagnosticIdentifier(diagnostic.Kind) +
                        (diagnostic.Severity == DiagnosticSeverity::Error ? "!" : ""));
    }
    return lines;
}

TEST(Ranges, Diagnostics)
{
    const std::pair<std::u16string_view, std::vector<std::string>> rows[] = {
        {u"a < b <<c> <d> <2 <e <f<< <g",
         {"               ^^^ stray-angle-bracket", "                  ^^^ interrupted-element",
          "                     ^^^^^ interrupted-element",
          "                          ^^ unterminated-element"}},
        {u"<Sheet name='q' <Sheet name='",
         {"^^^^^^^^^^^^^^^ interrupted-element!", "                ^^^^^^^^^^^^^ unterminated-quotes!"}},
        {u"<sheet name='S'> <SHEET> <Sheet> <Sheets a=>",
         {" ^^^^^ wrong-letter-case!", "                  ^^^^^ wrong-letter-case",
          "                          ^^^^^ missing-attributes"}},
        {u"<Sheet\tname='a'> <Sheet name='a'\t> <Sheet \t name=a>",
         {"      ^ invalid-white-space!", "                                ^ invalid-white-space!",
          "                                          ^ invalid-white-space!",
          "                                            ^^^^^^ unquoted-value!"}},
        {u"<Sheet name = 'a' filter ='' maxwidth=\t'3'>",
         {"       ^^^^^^^^^^ space-around-equals!", "                  ^^^^^^^^^^ space-around-equals!",
          "                             ^^^^^^^^^^^^^ space-around-equals!"}},
        // too many mistakes for a guess
        {u"<Sheet 'a' = 'b'><Sheet a =b c d= e=f g>",
         {"       ^^^ missing-value!", "           ^^^^^ space-around-equals!",
          "                        ^^^^ space-around-equals!",
          "                             ^ missing-value!", "                               ^^ missing-value!",
          "                                  ^^^ unquoted-value!",
          "                                      ^ missing-value!"}},
        {u"<Sheet name='a''b' x> <Sheet x=y name='a' z=''> <Sheet name=S>",
         {"                   ^ missing-value!", "                             ^^^ unknown-attribute!",
          "                                          ^^^^ unknown-attribute!",
          "                                                       ^^^^^^ unquoted-value!"}},
        {u"<Sheet foo='1' name='a>b'> <Sheet name=<a>",
         {"       ^^^^^^^ unknown-attribute!", "                                  ^^^^^^^ unquoted-value!"}},
        // one mistake that breaks more than itself
        {u"<sheet name='A' filter='<b>'> <Shet name='A'> < Sheet name='A'> <Sheetname='A'> <Sh>eet name='A'>",
         {" ^^^^^ wrong-letter-case!", "                               ^^^^ misspelled-element!",
          "                                               ^^^^^^ misspelled-element!",
          "                                                                 ^^^^^ misspelled-element!",
          "                                                                                 ^^^^^^ "
          "misspelled-element!"}},
        {u"<Sheet nme='A' filter='<b>,<c>'> <Sheet name='A maxwidth='3' filter='<b>'> <Sheet name='A'",
         {"       ^^^^^^^ unknown-attribute!",
          "                                        ^^^^^^^ quotes-open-at-bracket!",
          "                                                                           ^^^^^^^^^^^^^^^ "
          "unterminated-element!"}},
        {u"<Sheet name=Sales by Month> <Sheet name='A'' maxwidth='3'> <Sheet name'A'>",
         {"       ^^^^^^^^^^^^^^^^^^^ unquoted-value!",
          "                                   ^^^^^^^^^ unterminated-quotes!",
          "                                                                  ^^^^^^^ missing-value!"}},
        // two in an element
        {u"<Shet name=A maxwidth='0'>",
         {" ^^^^ misspelled-element!", "      ^^^^^^ unquoted-value!",
          "             ^^^^^^^^^^^^ invalid-sheet-size!"}},
        {u"<Street name='Main'> <Short name='x'> <Seat filter='x'> <a name='top'> <Sheets> <Sheet2> <font "
         u"name='Arial'>",
         {}},
        {u"<<Sheet name='A' filter='<b>'> Sheet name='A'> <Sheet name='A'> maxwidth='3' filter='<Sheet 2>'> "
         u"<<heet name='a'>",
         {"^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^ escaped-element",
          "                               ^^^^^^^^^^^^^^^ missing-bracket",
          "                                                                ^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^ "
          "text-after-element",
          "                                                                                                  "
          " ^^^^ misspelled-element!"}},
        {u"<Sheet name='' maxwidht='3'> <Sheet nam='a'>",
         {"       ^^^^^^^ missing-sheet-name!", "               ^^^^^^^^^^^^ unknown-attribute!",
          "                                    ^^^^^^^ unknown-attribute!"}},
        {u"<Sheet name='' NAME='a' \tfilter='<x>,x' x='' X=''> <Sheet >",
         {"       ^^^^^^^ missing-sheet-name!", "               ^^^^^^^^ duplicate-attribute!",
          "                        ^ invalid-white-space!",
          "                                        ^^^^ unknown-attribute!",
          "                                             ^^^^ duplicate-attribute!",
          "                                             ^^^^ unknown-attribute!",
          "                                                    ^^^^^ missing-attributes"}},
        {u"<Sheet maxwidth='0' maxheight='1501' name='a' filter='x' maxwidth='0'>",
         {"       ^^^^^^^^^^^^ invalid-sheet-size!",
          "                    ^^^^^^^^^^^^^^^^ invalid-sheet-size!",
          "                                                         ^^^^^^^^^^^^ duplicate-attribute!"}},
        {u"<Sheet name='a' filter='<x>, y z ,<x''>,<x>;<x''>,<z'>",
         {"                             ^^^ stray-filter-text",
          "                                        ^^^ duplicate-field",
          "                                           ^ stray-filter-text",
          "                                            ^^^^^ duplicate-field",
          "                                                  ^^ stray-filter-text"}},
        {u"<Sheet name='a' filter='<x> ,,<y>'> <b c = d>", {}},
        // only within one element, however many fields it has
        {u"<Sheet name='a' filter='<0><1><2><3><4><5><6><7><8>'><Sheet name='a' filter='<a><b><c><d><e>"
         u"<f><g><h><a>'><Sheet name='b' filter='<a>'><Sheet name='c' filter='<a>'>",
         {std::string(101, ' ') + "^^^ duplicate-field"}},
        {u"<Sheet name='a' x=''><Sheet x='' name='b'>",
         {"                ^^^^ unknown-attribute!", "                            ^^^^ unknown-attribute!"}},
        {u"<Sheet name='a' filter\t\n='b'>", {"                      ^^ invalid-white-space!"}},
    };
    std::set<DiagnosticKind> kinds{DiagnosticKind::UnknownSheet, DiagnosticKind::UnknownField};
    for (const auto& [text, diagnostics] : rows) {
        EXPECT_EQ(ShowDiagnostics(Text(text)), diagnostics) << Show(Text(text));
        for (const Diagnostic& diagnostic : FindDiagnostics(Text(text)))
            kinds.insert(diagnostic.Kind);
    }
    EXPECT_EQ(kinds.size(), static_cast<std::size_t>(GetDiagnosticKindCount())) << "a row for each kind";

    const TString unknown =
        Text(u"<b> <Sheet name='Slaes' filter='<a''>,<c>'> <Sheet name='S' maxwidth='0'>");
    const KnownNames names{std::set<TString>{Text(u"Costs"), Text(u"Sales")},
                           std::set<TString>{Text(u"a'"), Text(u"bb")}};
    std::string shown;
    for (const Diagnostic& diagnostic : FindDiagnostics(unknown, names))
        shown += Show(GetDiagnosticMessage(unknown, diagnostic, names)) + '\n';
    EXPECT_EQ(shown, "'b' is not a known field; did you mean 'bb'?\n"
                     "'Slaes' is not a known sheet; did you mean 'Sales'?\n"
                     "'c' is not a known field; correct the name\n"
                     "'maxwidth='0'' is not a valid size; write a whole number from 1 to 2000\n");
    EXPECT_EQ(FindDiagnostics(unknown, {names.Sheets, boost::none}).size(), 2U);

    // More equal fields than std::sort sorts by insertion; all but the first are duplicates.
    std::u16string equalFields;
    std::vector<std::string> duplicates;
    for (std::size_t start = 24; duplicates.size() < 16; equalFields += u"<x>")
        duplicates.push_back(std::string(start += 3, ' ') + "^^^ duplicate-field");
    EXPECT_EQ(ShowDiagnostics(Text(u"<Sheet name='a' filter='<x>" + equalFields + u"'>")), duplicates);
}

TEST(Ranges, DiagnosticTexts)
{
    const auto kindOf = [](std::string_view identifier) {
        return FindDiagnosticKind(Text(std::u16string(identifier.begin(), identifier.end())));
    };
    const int count = GetDiagnosticKindCount();
    for (int value = 0; value < count; ++value) {
        const auto kind = static_cast<DiagnosticKind>(value);
        EXPECT_TRUE(kindOf(GetDiagnosticIdentifier(kind)) == kind) << value;
        EXPECT_EQ(std::string_view(GetDiagnosticDescription(kind)).back(), '.');
    }
    for (const int value : {INT_MIN, -1, count, INT_MAX}) {
        const auto kind = static_cast<DiagnosticKind>(value);
        EXPECT_EQ(GetDiagnosticIdentifier(kind), nullptr);
        EXPECT_EQ(GetDiagnosticDescription(kind), nullptr);
        EXPECT_EQ(Show(GetDiagnosticMessage(Text(u"a"), {kind, {}, {0, 1}, {0, 1}})), "");
    }
    for (const char* identifier : {"", "Missing-Value", "missing-valu", "missing-values"})
        EXPECT_FALSE(kindOf(identifier)) << identifier;
    for (const CorvaneCharRange outside : {CorvaneCharRange{-1, 1}, {1, 0}, {0, 2}})
        EXPECT_EQ(Show(GetDiagnosticMessage(Text(u"a"), {DiagnosticKind(0), {}, outside, {}})), "");

    const Rows<std::u16string_view, const char*> rows = {
        {u"x < 5 <b>", "'<' starts an element that is not closed; write '<<' for a literal '<'"},
        {u"<Sheet maxwidth='0' name='a'>",
         "'maxwidth='0'' is not a valid size; write a whole number from 1 to 2000"},
        {u"<Sheet MaxHeight='' name='a'>",
         "'MaxHeight=''' is not a valid size; write a whole number from 1 to 1500"},
        {u"<Sheet name='a' x=''>", "'x=''' is not an attribute of a sheet element; write one of name, "
                                   "maxwidth, maxheight, filter, or remove it"},
        {u"<Sheet\tname='a'>", "a tab does not separate attributes; write a space, or remove it"},
        {u"<Sheet\r\nname='a'>", "a line break does not separate attributes; write a space, or remove it"},
        {u"<Sheet name\t= 'a'>", "'name = 'a'' has white space around its '='; remove it"},
        {u"<Sheet name='a' filter='1234567890123456789012345678901234567890'>",
         "'1234567890123456789012345678901234567890' is outside all fields and has no effect; "
         "enclose a field in '<' and '>', or remove the text"},
        {u"<Sheet name='a' filter='12345678901234567890123456789012345678\xD83D\xDE80!'>",
         "'12345678901234567890123456789012345678{2026}' is outside all fields and has no effect; "
         "enclose a field in '<' and '>', or remove the text"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_EQ(Show(GetDiagnosticMessage(Text(text), FindDiagnostics(Text(text)).at(0))), message);
}

TEST(Ranges, Fixes)
{
    // The fixes of the first diagnostic, each with its result; `!` if it is safe.
    const Rows<std::u16string_view, std::string> rows = {
        {u"<Shet name='A'>", "Write 'Sheet' -> <Sheet name='A'>\n"},
        {u"< sheet name='A'>", "Write 'Sheet'! -> <Sheet name='A'>\n"},
        {u"<<heet name='A'>", "Write 'Sheet' -> <Sheet name='A'>\n"},
        {u"<Sheet name=A>", "Write 'name='A''! -> <Sheet name='A'>\n"},
        {u"<Sheet name=\u201CThe A\u201D>", "Write 'name='The A''! -> <Sheet name='The A'>\n"},
        {u"<Sheet name=The A>", "Write 'name='The A'' -> <Sheet name='The A'>\n"},
        {u"<Sheet name='A filter='<b>'>",
         "Add the closing quote after 'A' -> <Sheet name='A' filter='<b>'>\n"},
        {u"<Sheet name='A\n<b>", "Add the closing quote and '>' after 'A' -> <Sheet name='A'>{A}<b>\n"},
        {u"<Sheet name='A' <b>", "Add '>' after '<Sheet name='A'' -> <Sheet name='A'> <b>\n"},
        {u"<Sheet name='A'' maxwidth='3'>", "Remove ''' -> <Sheet name='A' maxwidth='3'>\n"},
        {u"<Sheet name = 'A'>", "Remove the white space around '='! -> <Sheet name='A'>\n"},
        {u"<Sheet\tname='A'\t>", "Write a space! -> <Sheet name='A'{9}>\n"},
        {u"<Sheet name='A'\tfilter\t='<b>'>", "Write a space! -> <Sheet name='A' filter{9}='<b>'>\n"},
        {u"<Sheet name='A' />", "Remove '/'! -> <Sheet name='A'>\n"},
        {u"<Sheet name='A' wide maxwidth='3'>", "Remove 'wide' -> <Sheet name='A' maxwidth='3'>\n"},
        {u"<Sheet name='A' name='B' width='3'>", "Remove 'name='B'' -> <Sheet name='A' width='3'>\n"},
        {u"<Sheet name='A' Name='A'>", "Remove 'Name='A''! -> <Sheet name='A'>\n"},
        {u"<Sheet name='A' color='red'>", "Remove 'color='red'' -> <Sheet name='A'>\n"},
        {u"<Sheet name='A' width='3'>",
         "Write 'maxwidth' -> <Sheet name='A' maxwidth='3'>\nRemove 'width='3'' -> <Sheet name='A'>\n"},
        {u"<Sheet name='A' maxwidth='+300px'>", "Write '300'! -> <Sheet name='A' maxwidth='300'>\n"},
        {u"<Sheet name='A' maxheight='9999'>", "Write '1500' -> <Sheet name='A' maxheight='1500'>\n"},
        {u"<Sheet name='A' maxheight='tall'>", "Remove 'maxheight='tall'' -> <Sheet name='A'>\n"},
        {u"<Sheet name='A' filter='<a>;<b>'>", "Write ',' -> <Sheet name='A' filter='<a>,<b>'>\n"},
        {u"<Sheet name='A' filter='a'>",
         "Write '<a>' -> <Sheet name='A' filter='<a>'>\nRemove 'a' -> <Sheet name='A' filter=''>\n"},
        {u"<Sheet name='A' filter='<a>, <b>, <a>'>", "Remove '<a>'! -> <Sheet name='A' filter='<a>, <b>'>\n"},
        {u"<<Sheet name='A'>", "Write '<' -> <Sheet name='A'>\n"},
        {u"x Sheet name='A'>", "Add '<' -> x <Sheet name='A'>\n"},
        {u"<Sheet name='A'>maxwidth='3'>",
         "Move 'maxwidth='3'' into the element -> <Sheet name='A' maxwidth='3'>\n"},
        {u"x < 5 <b>", "Write '<<' -> x << 5 <b>\n"},
        {u"<Region, <b>", "Add '>' after 'Region' -> <Region>, <b>\nWrite '<<' -> <<Region, <b>\n"},
        {u"<Sheet>", ""},
        {u"<Sheet filter='<a>'>", ""},
        {u"<Sheet name='Slaes''s'> <b>", "Write 'Sales's' -> <Sheet name='Sales''s'> <b>\n"},
    };
    const KnownNames names{std::set<TString>{Text(u"A"), Text(u"B"), Text(u"Sales's"), Text(u"The A")},
                           boost::none};
    for (const auto& [text, expected] : rows) {
        std::string shown;
        for (const MarkupFix& fix : FindFixes(Text(text), FindDiagnostics(Text(text), names).at(0), names))
            shown += Show(fix.Title) + (fix.IsSafe ? "! -> " : " -> ") +
                     Show(ApplyTextEdits(Text(text), fix.Edits)) + '\n';
        EXPECT_EQ(shown, expected) << Show(Text(text));
    }
    const TString text =
        Text(u"<b> < Sheet name = A maxwidth='300px' /><sheet name='A' filter='<c>,<c>,<c>'> < 5");
    EXPECT_EQ(Show(ApplyTextEdits(text, FixTooltip(text))),
              "<b> <Sheet name='A' maxwidth='300'><Sheet name='A' filter='<c>'> < 5");

    // What doesn't fit the text has no fixes.
    const Diagnostic diagnostic = FindDiagnostics(Text(u"<Sheet name=A>")).at(0);
    for (const std::u16string_view other : {u"", u"<Sheet", u"aaaaaaaaaaaaaaaaaaaa", u">>>>>>>>>>>>>>>>>>>>"})
        EXPECT_TRUE(FindFixes(Text(other), diagnostic).empty());
    for (int kind = -1; kind <= GetDiagnosticKindCount(); ++kind)
        for (const CorvaneCharRange range :
             {CorvaneCharRange{0, 3}, {3, 3}, {3, 9}, {2, 1}, {-1, 2}, {9, 99}})
            for (const CorvaneCharRange element : {CorvaneCharRange{0, 14}, {0, 0}, {3, 9}, {-1, 99}})
                for (const MarkupFix& fix :
                     FindFixes(Text(u"<Sheet name=A>"), {DiagnosticKind(kind), {}, range, element}))
                    (void)ApplyTextEdits(Text(u"<Sheet name=A>"), fix.Edits);
}

TEST(Ranges, KindsOfElements)
{
    const TString tooltip =
        Text(u"<b><Sheet name='S'><Sheet name='S' maxwidth='0'><Sheet x=1><sheet name='S'>"
             u"<SHEET><Sheet 2><Sheets name='S'><Sheet name='S' <b <Sheet name=S");
    std::string kinds;
    for (const ElementRanges& element : FindElementRanges(tooltip))
        kinds += "PSIU"[static_cast<int>(GetElementKind(tooltip, element))];
    EXPECT_EQ(kinds, "PSIUUUUPIPU");
    EXPECT_EQ(GetElementKind(Text(u"<Sheet 2>"), {{0, 9}, {1, 99}, ElementEnd::Bracket}), ElementKind::Plain);
}

TEST(Ranges, Names)
{
    const Rows<const char*, std::u16string_view, const char*> rows = {
        {"reachable", u"<a> <Sheet NAME='S''' filter='<b''>,<c>'><>",
         "[F0 a 1-2 in 0-3][S0 S' 17-20 in 4-41][F0 b' 31-34 in 4-41][F0 c 37-38 in 4-41][F0  42-42 in "
         "41-43]"},
        {"an invalid element", u"<Sheet name='S' name='' x='' filter='<b>,c'>",
         "[S1 S 13-14 in 0-44][F1 b 38-39 in 0-44][F1 c 41-42 in 0-44]"},
        {"unreadable ones, which can be fields, too", u"<Sheet name = 'S''' filter=b><sheet name=T><Sheet 2>",
         "[F0 Sheet name = 'S''' filter=b 1-28 in 0-29][S1 S' 15-18 in 0-29][F1 b 27-28 in 0-29][F0 sheet "
         "name=T 30-42 in 29-43][S1 T 41-42 in 29-43]"
         "[F0 Sheet 2 44-51 in 43-52]"},
        {"open quotes after spaces, and a tab next to a name", u"<Sheet name = 'S><Sheet x='' name\t='T'>",
         "[F0 Sheet name = 'S 1-16 in 0-17][S1 S 15-16 in 0-17][S1 T 36-37 in 17-39]"},
        {"interrupted and unterminated ones", u"<a <Sheet name='S' <Sheet filter='<b>,<c' <",
         "[F2 a  1-3 in 0-3][S2 S 16-17 in 3-19][F2 b 35-36 in 19-42]"},
        {"text in a filter, if it can be a field", u"<Sheet name='S' filter=', b c ;<d>e,<'>",
         "[S0 S 13-14 in 0-39][F3 b c ; 26-31 in 0-39][F0 d 32-33 in 0-39][F3 e 34-35 in 0-39]"},
    };
    for (const auto& [rule, text, expected] : rows) {
        std::string shown;
        for (const SheetOrFieldName& name : FindSheetAndFieldNames(Text(text)))
            shown += std::string("[") + "SF"[static_cast<int>(name.Kind)] +
                     Show(static_cast<int>(name.Status)) + ' ' + Show(name.Name) + ' ' + Show(name.Range) +
                     " in " + Show(name.Element) + ']';
        EXPECT_EQ(shown, expected) << rule;
    }
    for (const auto& [range, part] :
         {std::pair(CorvaneCharRange{1, 2}, "b"), std::pair(CorvaneCharRange{-1, 1}, "a"),
          std::pair(CorvaneCharRange{2, 9}, "c"), std::pair(CorvaneCharRange{2, 1}, ""),
          std::pair(CorvaneCharRange{INT64_MIN, INT64_MAX}, "abc"),
          std::pair(CorvaneCharRange{9, INT64_MIN}, "")})
        EXPECT_EQ(Show(TextIn(Text(u"abc"), range)), part) << Show(range);
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
        {"sheets and fields, the rest unchanged", u"<b> <Sheet  name='A' filter='<b>,  <a''c>;' ><a'c>",
         "<y'> <Sheet  name='A1' filter='<y''>,  <b>;' ><b>"},
        {"swapped names, each replaced once", u"<c><Sheet name='B' filter='<d>,<c>'>",
         "<d><Sheet name='''' filter='<c>,<d>'>"},
        {"not in invalid elements, nor in parts of names",
         u"<bb><Sheet name='A' maxwidth='0' filter='<b>'><Sheet x='A'><Sheet name=x>",
         "<bb><Sheet name='A' maxwidth='0' filter='<b>'><Sheet x='A'><Sheet name=x>"},
        {"kept if a quote in the new name would open", u"<Sheet name='q' <b> and <Sheet name='T'>",
         "<Sheet name='q' <b> and <Sheet name='T'>"},
        {"each occurrence separately", u"<Sheet name='q' filter='<b>' <b> <b><c>",
         "<Sheet name='q' filter='<b>' <b> <y'><d>"},
        {"kept if other fields would change", u"<Sheet name='A' filter='<Sheet name=''q'' <b>,<c>,<e ''f>'>",
         "<Sheet name='A1' filter='<Sheet name=''q'' <b>,<d>,<e ''f>'>"},
        {"possible only after other fields",
         u"<Sheet name='S' filter='<Sheet name=''q'' <b>,<h ''i>,<Sheet name= <b>,<d>,<a''c>'>",
         "<Sheet name='S' filter='<Sheet name=''q'' <b>,<h ''i>,<Sheet name= <y''>,<c>,<b>'>"},
        {"a filter with protecting quotes", u"<Sheet name='A' filter='<Sheet name=''''<b>,<c>,<d>'>",
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
    const auto showCount = [&](std::u16string_view sheet, std::u16string_view field) {
        return ShowOrCondition([&] { return static_cast<int>(rename(Text(sheet), Text(field))); });
    };
    EXPECT_EQ(showCount(u"", u"a"), source + "!newSheetName.empty()");
    EXPECT_EQ(showCount(u"a", u"<"), source + "IsFieldName(newField)");
    EXPECT_EQ(showCount(u"a", u"a"), "0") << "the new name equals the old";

    std::u16string filter;
    for (int i = 0; i < 100; ++i)
        filter += u"<Sheet name= <b>,";
    const TString manyKept = Text(u"<Sheet filter='" + filter + u"' name='A'>");
    const auto edits =
        RenameSheetsAndFields(manyKept, {{Text(u"A"), Text(u"B")}}, {{Text(u"b"), Text(u"y'z")}});
    ASSERT_FALSE(edits.empty());
    EXPECT_EQ(Show(edits.back().NewText), "B") << "however many fields before the sheet's name are kept";
}

TEST(Ranges, InsertingAtACursor)
{
    constexpr std::u16string_view quoted = u"<b> <Sheet name='S' filter='<a ''b''>,<c>'>";
    const Rows<const char*, std::u16string_view, CorvaneCharRange, std::u16string_view, const char*> rows = {
        {"strictly inside a field", quoted, {40, 40}, u"x", "<b> <Sheet name='S' filter='<a ''b''>,<x>'> 42"},
        {"at a field end", quoted, {37, 37}, u"x", "<b> <Sheet name='S' filter='<a ''b''>,<c>,<x>'> 46"},
        {"at a field start", quoted, {38, 38}, u"x", "<b> <Sheet name='S' filter='<a ''b''>,<c>,<x>'> 46"},
        {"one unit of each field selected", quoted, {36, 39}, u"x", "<b> <Sheet name='S' filter='<x>'> 32"},
        {"the whole value", quoted, {28, 41}, u"x", "<b> <Sheet name='S' filter='<x>'> 32"},
        {"the exclusive field", quoted, {38, 38}, u"ALL", "<b> <Sheet name='S' filter='<ALL>'> 34"},
        {"the whole content", quoted, {5, 42}, u"x", "<b> <Sheet name='S' filter='<x>'> 32"},
        {"across a bracket", quoted, {4, 30}, u"x", "none"},
        {"in another element", quoted, {1, 1}, u"x", "none"},
        {"reversed", quoted, {30, 28}, u"x", "none"},
        {"not a field name", quoted, {30, 30}, u"Sheet name=x", "none"},
        {"outside the text", quoted, {INT64_MIN, INT64_MAX}, u"x", "none"},
        {"no filter",
         u"<Sheet name='S' maxwidth='9'  ><b>",
         {16, 16},
         u"q'",
         "<Sheet name='S' maxwidth='9' filter='<q''>'  ><b> 43"},
        {"no attributes", u"<Sheet  >", {6, 6}, u"x", "<Sheet filter='<x>'  > 19"},
        {"quotes that protect nothing", u"<Sheet foo=''>", {9, 9}, u"x", "none"},
        {"an element that doesn't parse", u"<Sheet name=S>", {9, 9}, u"x", "none"},
        {"the exclusive field is removed, too",
         u"<Sheet filter='<ALL>,<a>'>",
         {22, 22},
         u"x",
         "<Sheet filter='<x>'> 19"},
        {"the exclusive field is removed",
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

/// Text after many elements gives the same results as by itself, shifted.
TEST(Ranges, FarIntoATooltip)
{
    std::u16string units;
    constexpr int sheets = 70000;
    for (int i = 0; i < sheets; ++i)
        units += u"<Sheet name='" + std::u16string(TString::number(i, 10, 0, u' ').constData()) + u"'>";
    const TString front = Text(units);
    const std::int64_t shift = front.length();
    const auto shifted = [shift](const CorvaneCharRange& range) {
        return Show(CorvaneCharRange{range.start + shift, range.end + shift});
    };
    const TString rest = Text(u"<b> <Sheet name='A' filter='<b>,c'> <Sheet x=''> < 5 <Sheet name='");
    const TString whole = front + rest;
    const auto diagnostics = FindDiagnostics(whole);
    const auto ofRest = FindDiagnostics(rest);
    ASSERT_EQ(diagnostics.size(), 5U);
    ASSERT_EQ(ofRest.size(), 5U);
    for (std::size_t i = 0; i < diagnostics.size(); ++i)
        EXPECT_EQ(Show(diagnostics[i].Range), shifted(ofRest[i].Range));
    const auto elements = FindElementRanges(whole);
    ASSERT_EQ(elements.size(), sheets + 5U);
    EXPECT_EQ(Show(elements.back().Content), shifted(FindElementRanges(rest).back().Content));
    EXPECT_EQ(Show(FindAttributeRanges(whole, elements.back().Content)[0].Name), shifted({60, 64}));
    const auto edits = RenameSheetsAndFields(whole, {}, {{Text(u"b"), Text(u"d")}});
    ASSERT_EQ(edits.size(), 2U);
    EXPECT_EQ(Show(edits[1].Range), shifted({29, 30}));
    const auto insertion = InsertFilterFieldAt(whole, {shift + 29, shift + 29}, Text(u"d"), TString());
    EXPECT_EQ(insertion->NewCursorPosition, shift + 32);
    EXPECT_EQ(GetTargetSheetNamesFromTooltipText(front + front).size(), sheets + 0U);
    EXPECT_EQ(GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(front + front).size(),
              sheets + 0U);
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
         {CorvaneCharRange{-1, 0}, {2, 1}, {3, 4}, {0, 1}, {1, 3}, {INT64_MIN, INT64_MAX}})
        EXPECT_EQ(apply({{{1, 2}, Text(u"x")}, {range, TString()}}), refused) << Show(range);
}

} // namespace
