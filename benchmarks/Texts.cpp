#include "Texts.h"

#include <algorithm>
#include <random>
#include <set>

namespace benchmarks {

namespace {

using Random = std::mt19937; // the same numbers everywhere, unlike the distributions of the standard library
using Words = std::vector<std::u16string_view>;

std::u16string_view OneOf(Random& random, const Words& words)
{
    return words[random() % words.size()];
}

bool OneIn(Random& random, unsigned count)
{
    return random() % count == 0;
}

struct Language
{
    Words Sentences;
    Words Fields;
    Words Sheets; ///< parts of sheet names
};

const Language English = {
    {u"Sales of this region compared with the same quarter a year ago. ",
     u"Hover over a bar to see how the single products contributed to the total. ",
     u"Figures are preliminary until the books are closed.\n",
     u"Margin after discounts and returns, in thousands of euros. ",
     u"The line shows the moving average of the last twelve weeks. ",
     u"Customers who bought at least twice count as \"returning\".\n\n",
     u"Source: monthly report of the warehouse. ", u"Target: ", u"\U0001F4C8 Above plan: ",
     u"Trend for the selected segment and the years since its launch: "},
    {u"Region",       u"Year",     u"Quarter",    u"Category", u"Sub-Category", u"Segment",  u"Product",
     u"Customer",     u"State",    u"Ship_Mode",  u"Manager",  u"Profit_Ratio", u"Discount", u"City",
     u"Sales_Target", u"Currency", u"Order_Date", u"Brand",    u"Channel",      u"Returns"},
    {u"Sales", u"Profit", u"Trend", u"Margin", u"Customers", u"Returns", u"Forecast", u"Orders", u"Discounts",
     u"Map"}};

const Language Greek = {{u"Οι πωλήσεις της περιοχής σε σύγκριση με το ίδιο τρίμηνο πέρυσι. ",
                         u"Τα ποσά είναι προσωρινά μέχρι να κλείσουν τα βιβλία.\n",
                         u"Μέσος όρος των τελευταίων δώδεκα εβδομάδων: ",
                         u"Πηγή: μηνιαία αναφορά της αποθήκης. ", u"Στόχος: "},
                        {u"Περιοχή", u"Έτος", u"Τρίμηνο", u"Κατηγορία", u"Προϊόν", u"Πελάτης", u"Πόλη"},
                        {u"Πωλήσεις", u"Κέρδος", u"Τάση", u"Περιθώριο", u"Πελάτες", u"Προβλέψεις"}};

const Language Japanese = {{u"この地域の売上を前年同期と比較しています。",
                            u"棒にカーソルを合わせると、製品ごとの内訳が表示されます。",
                            u"決算が確定するまでの暫定値です。\n", u"直近十二週間の移動平均を示します。",
                            u"目標：", u"\U0001F4CA 推移："},
                           {u"地域", u"年度", u"四半期", u"カテゴリ", u"製品", u"顧客", u"都市", u"割引率"},
                           {u"売上", u"利益", u"推移", u"粗利", u"顧客一覧", u"予測"}};

const Language& ALanguage(Random& random)
{
    const auto choice = random() % 6;
    return choice == 0 ? Greek : choice == 1 ? Japanese : English;
}

/// Distinct sheet names as raw values, such as `Trend by Region 7`.
std::vector<std::u16string> SheetNames(Random& random, std::size_t count)
{
    std::vector<std::u16string> names;
    std::set<std::u16string> known;
    while (names.size() < count) {
        const Language& language = ALanguage(random);
        std::u16string name(OneOf(random, language.Sheets));
        if (OneIn(random, 2))
            name.append(u" by ").append(OneOf(random, language.Fields));
        if (OneIn(random, 12))
            name.append(u" \"\"").append(OneOf(random, language.Sheets)).append(u"\"\"");
        if (OneIn(random, 16))
            name.append(u" \U0001F30D");
        if (OneIn(random, 2) || names.size() > 100)
            for (const char digit : ' ' + std::to_string(random() % 1000))
                name += static_cast<char16_t>(digit);
        if (known.insert(name).second)
            names.push_back(std::move(name));
    }
    return names;
}

void AppendAttribute(std::u16string_view name, std::u16string_view value, std::u16string& text)
{
    text.append(name).append(u"=\"").append(value).append(u"\"");
}

std::u16string AFilter(Random& random, const Language& language)
{
    std::u16string filter;
    for (auto i = OneIn(random, 10) ? 0 : 1 + random() % 3; i > 0; --i)
        filter.append(u"<").append(OneOf(random, language.Fields)).append(i > 1 ? u">," : u">");
    return filter;
}

void AppendSheetElement(Random& random, const Language& language, std::u16string_view escapedName,
                        std::u16string& text)
{
    const Words sizes = {u"300", u"640", u"480", u"1024", u"90", u"250", u"1200"};
    std::vector<std::u16string> attributes(1);
    AppendAttribute(u"name", escapedName, attributes[0]);
    const auto sizesThere = random() % 8;
    if (sizesThere < 5)
        AppendAttribute(u"maxwidth", OneOf(random, sizes), attributes.emplace_back());
    if (sizesThere < 4)
        AppendAttribute(u"maxheight", OneOf(random, sizes), attributes.emplace_back());
    if (!OneIn(random, 3))
        AppendAttribute(u"filter", AFilter(random, language), attributes.emplace_back());

    // Half of the elements have the order that tools write. People put the filter after the name, or use any
    // order.
    const auto order = random() % 4;
    if (order == 2 && attributes.size() > 2)
        std::rotate(attributes.begin() + 1, attributes.end() - 1, attributes.end());
    if (order == 3)
        for (std::size_t i = attributes.size(); i > 1; --i)
            std::swap(attributes[i - 1], attributes[random() % i]);

    text += u"<Sheet";
    for (const std::u16string& attribute : attributes)
        text.append(OneIn(random, 32) ? u"  " : u" ").append(attribute);
    text += u">\n";
}

void AppendProse(Random& random, const Language& language, std::u16string& text)
{
    text += OneOf(random, language.Sentences);
    if (OneIn(random, 2))
        text.append(u"<").append(OneOf(random, language.Fields)).append(u"> ");
}

constexpr std::size_t LongestSentence = 100; // with a field
constexpr std::size_t LongestSheetElement = 160;

} // namespace

std::vector<std::u16string> ShortTooltips(std::size_t count)
{
    Random random(1);
    const std::vector<std::u16string> names = SheetNames(random, 500);
    std::vector<std::u16string> tooltips;
    while (tooltips.size() < count) {
        const Language& language = ALanguage(random);
        const std::size_t length = 100 + random() % 1150;
        // Most tooltips embed one sheet, some two or none; prose is before each and after the last.
        const auto choice = random() % 8;
        const std::size_t sheetCount = choice == 0 ? 0 : choice == 1 && length > 400 ? 2 : 1;
        const std::size_t first = random();
        std::u16string& text = tooltips.emplace_back();
        for (std::size_t i = 0; i < sheetCount; ++i) {
            const std::size_t proseEnd = random() % (length / sheetCount) + i * length / sheetCount;
            while (text.size() + LongestSheetElement < proseEnd)
                AppendProse(random, language, text);
            AppendSheetElement(random, language, names[(first + i) % names.size()], text);
        }
        while (text.size() + LongestSentence / 2 < length)
            AppendProse(random, language, text);
    }
    return tooltips;
}

std::u16string LongTooltip(std::size_t length)
{
    Random random(2);
    const std::vector<std::u16string> names = SheetNames(random, 2000);
    std::u16string text;
    while (text.size() + LongestSentence < length) {
        const Language& language = ALanguage(random);
        for (auto sentences = 5 + random() % 6; sentences > 0 && text.size() + LongestSentence < length;
             --sentences)
            AppendProse(random, language, text);
        AppendSheetElement(random, language, names[random() % names.size()], text);
    }
    return text;
}

std::u16string Prose(std::size_t length)
{
    Random random(3);
    const std::vector<std::u16string> names = SheetNames(random, 500);
    std::u16string text;
    while (text.size() < length) {
        const Language& language = ALanguage(random);
        for (const std::size_t end = text.size() + 8000; text.size() < end;) {
            const std::size_t proseEnd = text.size() + 4000;
            while (text.size() < proseEnd)
                text += OneOf(random, language.Sentences);
            if (text.size() < end)
                AppendProse(random, language, text);
        }
        AppendSheetElement(random, language, OneOf(random, Words(names.begin(), names.end())), text);
    }
    return text;
}

} // namespace benchmarks
