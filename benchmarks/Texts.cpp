#include "Texts.h"

#include <random>

namespace benchmarks {

namespace {

using Random = std::mt19937; // the same numbers everywhere, unlike the distributions of the standard library

template <std::size_t count>
std::u16string_view OneOf(Random& random, const std::u16string_view (&items)[count])
{
    return items[random() % count];
}

constexpr std::u16string_view Sentences[] = {
    u"Sales of this region compared with the same quarter a year ago. ",
    u"Hover over a bar to see how the single products contributed to the total. ",
    u"Figures are preliminary until the books are closed.\n",
    u"Margin after discounts and returns, in thousands of euros. ",
    u"The line shows the moving average of the last twelve weeks. ",
    u"Customers who bought at least twice count as returning.\n\n",
    u"Source: monthly report of the warehouse. ",
    u"Target: ",
    u"Trend for the selected segment and the years since its launch: ",
};

constexpr std::u16string_view Fields[] = {
    u"Region",   u"Year",  u"Quarter",      u"Category", u"Sub-Category", u"Segment",  u"Product",
    u"Customer", u"State", u"Ship_Mode",    u"Manager",  u"Profit_Ratio", u"Discount", u"Order_Date",
    u"City",     u"Brand", u"Sales_Target", u"Channel",  u"Currency",     u"Returns",
};

constexpr std::u16string_view Sheets[] = {
    u"Sales",           u"Profit",          u"Sales by Region",      u"Trend",
    u"Top 10 products", u"Margin Detail",   u"Customer Overview",    u"Returns",
    u"Forecast",        u"Orders per Week", u"Discounts by Manager", u"Map",
};

/// `sheet` goes through the sheets one after the other, so that a short tooltip names each at most once.
void AppendSheetElement(Random& random, std::size_t sheet, std::u16string& text)
{
    text += u"<Sheet name=\"";
    text += Sheets[sheet % std::size(Sheets)];
    text += random() % 2 == 0 ? u"\" maxwidth=\"300\" maxheight=\"300\""
                              : u"\" maxwidth=\"640\" maxheight=\"480\"";
    if (const auto fields = random() % 4; fields > 0) {
        text += u" filter=\"";
        for (auto i = fields; i > 0; --i) {
            text += u'<';
            text += OneOf(random, Fields);
            text += i > 1 ? u">," : u">";
        }
        text += u'"';
    }
    text += u">\n";
}

void AppendProse(Random& random, std::u16string& text)
{
    text += OneOf(random, Sentences);
    if (random() % 2 == 0) {
        text += u'<';
        text += OneOf(random, Fields);
        text += u"> ";
    }
}

std::u16string MakeTooltip(Random& random, std::size_t length)
{
    constexpr std::size_t longestItems =
        250; // about what a sheet element and a sentence with a field may take
    std::u16string text;
    std::size_t sheet = random();
    do {
        while (text.size() < 50)
            AppendProse(random, text);
        for (auto sentences = 5 + random() % 6; sentences > 0 && text.size() + longestItems < length;
             --sentences)
            AppendProse(random, text);
        AppendSheetElement(random, sheet++, text);
    } while (text.size() + longestItems < length);
    return text;
}

} // namespace

std::vector<std::u16string> ShortTooltips(std::size_t count)
{
    Random random(1);
    std::vector<std::u16string> tooltips;
    while (tooltips.size() < count)
        tooltips.push_back(MakeTooltip(random, 100 + random() % 1400));
    return tooltips;
}

std::u16string LongTooltip(std::size_t length)
{
    Random random(2);
    return MakeTooltip(random, length);
}

std::u16string Prose(std::size_t length)
{
    Random random(3);
    std::u16string text;
    for (std::size_t i = 0; text.size() < length; ++i) {
        for (const std::size_t end = text.size() + 4000; text.size() < end;)
            text += OneOf(random, Sentences);
        if (i % 2 == 0)
            AppendSheetElement(random, i, text);
        else
            AppendProse(random, text);
    }
    return text;
}

} // namespace benchmarks
