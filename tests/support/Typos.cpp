#include "Typos.h"

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupFixes.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/VizInTooltipProperties.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <random>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

namespace {

std::vector<TString> TextsOf(std::initializer_list<const char16_t*> literals)
{
    std::vector<TString> texts;
    for (const char16_t* const literal : literals)
        texts.emplace_back(literal, -1);
    return texts;
}

struct Sheet
{
    CorvaneCharRange Element;
    CorvaneCharRange RawName;
    TString Name;
};

std::vector<Sheet> ValidSheetsOf(const TString& text)
{
    const AttributeName name(TString(u"name", -1));
    std::vector<Sheet> sheets;
    for (const ElementRanges& element : FindElementRanges(text))
        if (GetElementKind(text, element) == ElementKind::Sheet)
            for (const AttributeRanges& attribute : FindAttributeRanges(text, element.Content))
                if (attribute.NameAndValue->Name == name)
                    sheets.push_back({element.Element, attribute.Value, attribute.NameAndValue->Value});
    return sheets;
}

bool IsIn(CorvaneCharRange inner, CorvaneCharRange outer)
{
    return outer.start <= inner.start && inner.end <= outer.end;
}

bool Loses(const std::vector<Sheet>& sheets, const Typo& typo)
{
    const std::vector<Sheet> kept = ValidSheetsOf(typo.MistypedText);
    auto next = kept.begin();
    return !std::all_of(sheets.begin(), sheets.end(), [&](const Sheet& sheet) {
        // The element of an edited name still starts at the same position.
        const bool isRenamed = IsIn(typo.Edits[0].Range, sheet.RawName);
        next = std::find_if(next, kept.end(), [&](const Sheet& other) {
            return isRenamed ? other.Element.start == sheet.Element.start : other.Name == sheet.Name;
        });
        return next != kept.end() && next++ != kept.end();
    });
}

bool IsEscaped(const Sheet& sheet, const Typo& typo)
{
    const TextEdit& edit = typo.Edits[0];
    const auto bracket = static_cast<int>(sheet.Element.start);
    if (edit.Range.start <= bracket && bracket < edit.Range.end)
        return true;
    const auto growth = edit.NewText.length() - static_cast<int>(edit.Range.end - edit.Range.start);
    // The run of brackets that ends with the element's own, wherever the edit extends it.
    int end = bracket + 1 + (edit.Range.end <= bracket ? growth : 0);
    int start = end;
    while (typo.MistypedText[start - 1] == u'<')
        --start;
    while (typo.MistypedText[end] == u'<')
        ++end;
    return (end - start) % 2 == 0;
}

bool IsOne(const Typo& typo)
{
    return typo.Kind != TypoKind::None && typo.Kind != TypoKind::Two;
}

void CountDiagnostics(Typo& typo)
{
    const auto count = [&typo](const TString& text, int step) {
        for (const Diagnostic& diagnostic : FindDiagnostics(text)) {
            typo.Diagnostics += step;
            typo.Errors += diagnostic.Severity == DiagnosticSeverity::Error ? step : 0;
        }
    };
    count(typo.MistypedText, 1);
    if (typo.Kind != TypoKind::None)
        count(*typo.Tooltip, -1);
}

/// Returns the name, the size and the fields of each valid sheet element.
std::vector<std::tuple<TString, int, int, bool, std::vector<TString>>> SheetsOf(const TString& text)
{
    std::vector<std::tuple<TString, int, int, bool, std::vector<TString>>> sheets;
    for (const ElementRanges& element : FindElementRanges(text))
        if (GetElementKind(text, element) == ElementKind::Sheet) {
            const auto sheet =
                VizInTooltipProperties::FromMarkupText(MarkupText(TextIn(text, element.Content)));
            const TSize size = sheet->GetSheetSize();
            sheets.emplace_back(sheet->GetSheetName(), size.width, size.height, sheet->HasFilter(),
                                sheet->GetFilterFields());
        }
    return sheets;
}

void FixFirst(Typo& typo)
{
    const auto diagnostics = FindDiagnostics(typo.MistypedText);
    auto first = std::find_if(diagnostics.begin(), diagnostics.end(), [](const Diagnostic& diagnostic) {
        return diagnostic.Severity == DiagnosticSeverity::Error;
    });
    if (first == diagnostics.end())
        first = diagnostics.begin();
    const auto fixes =
        first == diagnostics.end() ? std::vector<MarkupFix>() : FindFixes(typo.MistypedText, *first);
    if (fixes.empty())
        return;
    const TString fixed = ApplyTextEdits(typo.MistypedText, fixes.front().Edits);
    const auto sheets = SheetsOf(fixed);
    const auto wanted = SheetsOf(*typo.Tooltip);
    typo.FirstFix = fixed == *typo.Tooltip           ? Typo::Fixed::SameText
                    : sheets == wanted               ? Typo::Fixed::SameSheets
                    : sheets.size() == wanted.size() ? Typo::Fixed::OtherSheets
                                                     : Typo::Fixed::FewerOrMoreSheets;
}

void AddPairs(std::vector<Typo>& typos)
{
    std::vector<Typo> losing;
    std::copy_if(typos.begin(), typos.end(), std::back_inserter(losing),
                 [](const Typo& typo) { return typo.Loses && typo.Element.end > 0; });
    std::mt19937 random(20240611);
    for (int pairs = 0, tries = 0; pairs < 3000 && tries < 1000000 && !losing.empty(); ++tries) {
        const Typo& first = losing[random() % losing.size()];
        const Typo& second = losing[random() % losing.size()];
        if (first.Tooltip != second.Tooltip || first.Element.start >= second.Element.start ||
            first.Edits[0].Range.end >= second.Edits[0].Range.start)
            continue;
        Typo two = first;
        two.Kind = TypoKind::Two;
        two.Edits.push_back(second.Edits[0]);
        two.MistypedText = ApplyTextEdits(*two.Tooltip, two.Edits);
        two.Element.end = second.Element.end;
        two.IsInName = first.IsInName || second.IsInName;
        two.IsEscaped = first.IsEscaped || second.IsEscaped;
        two.Diagnostics = two.Errors = 0;
        CountDiagnostics(two);
        typos.push_back(std::move(two));
        ++pairs;
    }
}

} // namespace

const std::vector<TString>& TypoTooltips()
{
    static const std::vector<TString> tooltips = TextsOf(
        {// several sheets, two of them without text between them
         uR"~(Sales of <Region>: <Sheet name="Sales" maxwidth="400" maxheight="200" filter="<Region>,<Year>"> and
<Sheet name="Costs" filter="<Region>"><Sheet name="Top 10">)~",
         // other scripts
         uR"~(Продажи за <Год>: <Sheet name="Продажи по регионам" filter="<Регион>,<Год>">
Источник: склад. <Sheet name="Прибыль" maxwidth="320"> Итого: <Сумма>)~",
         uR"~(Πωλήσεις: <Sheet filter="<Περιοχή>,<Έτος>" name="Πωλήσεις ανά έτος"> από
<Αποθήκη> <Sheet name="Κέρδος" filter="<Έτος>">)~",
         uR"~(売上：<Sheet maxwidth="480" maxheight="240" name="売上推移" filter="<地域>,<年>">と<Sheet name="利益">。目標：<目標>)~",
         // surrogate pairs
         uR"~(📊 <Region> 🚀 <Sheet name="Launch 🚀" filter="<Team 🏆>,<Week>"> 🎯 <Sheet name="📈" maxheight="90"> 🏁)~",
         // doubled quotes
         uR"~(<Sheet name="Output of ""Line A""" filter="<Shift ""late"">,<Line>"> vs. "B":
<Sheet filter="<x ""y"" z>" name="""B""">)~",
         // other orders and letter cases of attributes, more and fewer spaces
         uR"~(Map: <Sheet maxheight="1500" name="Map" maxwidth="2000"> 5" x 4" <Sheet  Filter="<City>, <Street>"  NAME="Streets" >,
<Sheet name="Parks"maxwidth="1">)~",
         // many fields
         uR"~(<Sheet name="All" filter="<Region>,<Year>,<Quarter>,<Month>,<Day>,<City>,<Product>,<Customer>,<Unit>,<Price>"> <Total>)~",
         // other elements, escaped brackets and names that resemble the sheet element's
         uR"~(<b>Margin</b> << 5 % >> <Sheets> <a name="top"><Sheet name="Q1 > Q2" filter="<Sheet 2>,<Sheet name>"></a>
<Sheet2> <<Total>> is <<<Sheet name="Rest"> )~",
         // a long name
         uR"~(See <Sheet name="Deliveries that arrived late, by warehouse, carrier and country of destination (2024)"> or <Note>)~"});
    return tooltips;
}

const std::vector<TString>& CleanPages()
{
    static const std::vector<TString> pages = TextsOf(
        {uR"~(<!DOCTYPE html><html lang="en"><head><meta name="author" content="A. Smith"><title>Sales</title></head>)~",
         uR"~(<p>See <a href="sales.html">Sales</a>, <a name="top"></a><a href='#top'>top</a> & <a href=x.html>more</a>.</p>)~",
         uR"~(<img src="a.png" alt="1 > 0"> <img src='b.png' alt='a "b" c' width=300 height='200'/> <IMG SRC="c.png">)~",
         uR"~(<table border="1" cellpadding=0><tr><th>Sheet</th><td colspan='2'>5</td></tr><!-- <tr> --></table>)~",
         uR"~(<!-- a > b, "c" < d --> <font name="Arial" size=3>Sales</font> <Sheets> <Sheet 2> <Sheet music> <Sheet>)~",
         uR"~(<form name="f"><select name="s"><option value="1">1</select><input name='q' maxlength="300" value=""></form>)~",
         uR"~(<svg width="90"><filter id="f"/><rect filter="url(#f)" maxwidth="3"/><text name="x">a < b</text></svg>)~",
         uR"~(<style>b > i { color: red }</style><script name="s">if (a < b && c > "d") e = '<b>';</script>)~",
         uR"~(<link rel="stylesheet" href="sheet.css"><slot name="t"/><object name="o"><param name="p" value="v"></object>)~",
         uR"~(name="Sales" > 5, <<b>> "x" = <Region>, <Total Sales>: <br/><Worksheet name="Sales"><iframe name="Sheet">)~"});
    return pages;
}

std::vector<Typo> FindTypos(const TString& tooltip)
{
    const std::vector<Sheet> sheets = ValidSheetsOf(tooltip);
    std::vector<CorvaneCharRange> values;
    for (const Sheet& sheet : sheets)
        for (const AttributeRanges& attribute :
             FindAttributeRanges(tooltip, {sheet.Element.start + 1, sheet.Element.end - 1}))
            values.push_back(attribute.Value);
    const auto isTrail = [](char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
    std::set<TString> texts = {tooltip};
    std::vector<Typo> typos;
    const auto add = [&](TypoKind kind, int start, int length, std::u16string_view newUnits) {
        const TString newText(newUnits.data(), static_cast<int>(newUnits.size()));
        if (isTrail(tooltip[start]) || isTrail(tooltip[start + length]) || isTrail(newText[0]))
            return;
        const std::vector<TextEdit> edits = {{{start, start + length}, newText}};
        Typo typo{kind, &tooltip, edits, ApplyTextEdits(tooltip, edits), {}, false, false, false, 0,
                  0,    false,    {}};
        if (!texts.insert(typo.MistypedText).second)
            return;
        for (const Sheet& sheet : sheets) {
            if (IsIn(edits[0].Range, sheet.Element))
                typo.Element = sheet.Element;
            typo.IsInName = typo.IsInName || IsIn(edits[0].Range, sheet.RawName);
            typo.IsEscaped = typo.IsEscaped || IsEscaped(sheet, typo);
        }
        typo.Loses = Loses(sheets, typo);
        for (const CorvaneCharRange& value : values)
            typo.IsInValue = typo.IsInValue || IsIn(edits[0].Range, value);
        CountDiagnostics(typo);
        if (typo.Loses)
            FixFirst(typo);
        typos.push_back(std::move(typo));
    };
    for (int i = 0; i <= tooltip.length(); ++i) {
        const char16_t unit = tooltip[i];
        const auto otherCase = static_cast<char16_t>(unit ^ 0x20);
        const char16_t swapped[] = {tooltip[i + 1], unit};
        for (const char16_t& typed : std::u16string_view(u"\"<>=,' \t\n")) {
            add(TypoKind::Insertion, i, 0, {&typed, 1});
            if (i < tooltip.length())
                add(TypoKind::Replacement, i, 1, {&typed, 1});
        }
        if (i < tooltip.length())
            add(TypoKind::Deletion, i, 1, {});
        if ((unit | 0x20) >= u'a' && (unit | 0x20) <= u'z')
            add(TypoKind::LetterCase, i, 1, {&otherCase, 1});
        if (i + 1 < tooltip.length())
            add(TypoKind::Swap, i, 2, {swapped, 2});
    }
    return typos;
}

std::vector<Typo> FindTypos(const std::vector<TString>& tooltips)
{
    std::vector<Typo> typos;
    for (const TString& tooltip : tooltips)
        for (Typo& typo : FindTypos(tooltip))
            typos.push_back(std::move(typo));
    AddPairs(typos);
    for (const auto* texts : {&tooltips, &CleanPages()})
        for (const TString& text : *texts) {
            typos.push_back({TypoKind::None, &text, {}, text, {}, false, false, false, 0, 0, false, {}});
            CountDiagnostics(typos.back());
        }
    return typos;
}

const std::vector<TypoFigure>& TypoFigures()
{
    static const std::vector<TypoFigure> figures = {
        {"typos that lose a sheet: no diagnostic", [](const Typo& typo) { return IsOne(typo) && typo.Loses; },
         [](const Typo& typo) { return typo.Diagnostics <= 0; }},
        {"likewise, unless escaped: no error",
         [](const Typo& typo) { return IsOne(typo) && typo.Loses && !typo.IsEscaped; },
         [](const Typo& typo) { return typo.Errors <= 0; }},
        {"likewise, if escaped: no error",
         [](const Typo& typo) { return IsOne(typo) && typo.Loses && typo.IsEscaped; },
         [](const Typo& typo) { return typo.Errors <= 0; }},
        {"all typos: two diagnostics or more", IsOne, [](const Typo& typo) { return typo.Diagnostics > 1; }},
        {"two that each lose a sheet: fewer than two diagnostics",
         [](const Typo& typo) { return typo.Kind == TypoKind::Two; },
         [](const Typo& typo) { return typo.Diagnostics < 2; }},
        {"likewise, unless one is escaped",
         [](const Typo& typo) { return typo.Kind == TypoKind::Two && !typo.IsEscaped; },
         [](const Typo& typo) { return typo.Diagnostics < 2; }},
        {"typos that lose a sheet: not the text of before",
         [](const Typo& typo) { return IsOne(typo) && typo.Loses; },
         [](const Typo& typo) { return typo.FirstFix != Typo::Fixed::SameText; }},
        {"likewise, unless in a value: not the sheets of before",
         [](const Typo& typo) { return IsOne(typo) && typo.Loses && !typo.IsInValue; },
         [](const Typo& typo) { return typo.FirstFix < Typo::Fixed::SameSheets; }},
        {"typos that lose a sheet: a sheet too few or too many",
         [](const Typo& typo) { return IsOne(typo) && typo.Loses; },
         [](const Typo& typo) { return typo.FirstFix == Typo::Fixed::FewerOrMoreSheets; }},
        {"texts without a typo: errors", [](const Typo& typo) { return typo.Kind == TypoKind::None; },
         [](const Typo& typo) { return typo.Errors > 0; }},
    };
    return figures;
}
