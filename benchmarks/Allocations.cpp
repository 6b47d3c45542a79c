/// Counts the allocations of the operations that hosts call most, and how many of them the result keeps.

#include "Texts.h"

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/VizInTooltip.h>

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

int allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

using namespace benchmarks;
using namespace corvanemarkup;

template <typename Function>
void Print(const char* operation, const char* textName, Function function)
{
    function(); // excludes one-time allocations
    const int before = allocations;
    const auto result = function();
    const int afterCall = allocations;
    const auto copy = result;
    const int afterCopy = allocations;
    std::printf("%-62s %-26s %5d %10d\n", operation, textName, afterCall - before, afterCopy - afterCall);
}

} // namespace

int main()
{
    const struct
    {
        const char* Name;
        TString Text;
        CorvaneCharRange Cursor;
    } tooltips[] = {
        {"no element", ToTString(std::u16string(1000, u'.')), {500, 500}},
        {"two sheets, three fields",
         ToTString(u"Sales of <Region> compared with the year before:\n"
                   u"<Sheet name=\"Sales by Region\" maxwidth=\"300\" maxheight=\"300\" "
                   u"filter=\"<Region>,<Year>\">\n"
                   u"and the products that contributed to <Profit>:\n"
                   u"<Sheet name=\"Top 10\" maxwidth=\"640\" maxheight=\"480\" filter=\"<Category>\">\n"),
         {110, 110}},
    };
    const struct
    {
        const char* Name;
        MarkupText Text;
    } elements[] = {
        {"no filter", MarkupText(ToTString(u"Sheet name=\"Sales\""))},
        {"size and two fields", MarkupText(ToTString(u"Sheet name=\"Sales\" maxwidth=\"300\" "
                                                     u"maxheight=\"300\" filter=\"<Region>,<Year>\""))},
    };

    std::printf("%-62s %-26s %5s %10s\n", "allocations", "text", "call", "its result");
    for (const auto& tooltip : tooltips) {
        const TString& text = tooltip.Text;
        Print("CollectMarkupElements", tooltip.Name, [&] { return CollectMarkupElements(text); });
        Print("GetTargetSheetNamesFromTooltipText", tooltip.Name,
              [&] { return VizInTooltip::GetTargetSheetNamesFromTooltipText(text); });
        Print("GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText", tooltip.Name, [&] {
            return VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(text);
        });
        Print("FindElementRanges", tooltip.Name, [&] { return VizInTooltip::FindElementRanges(text); });
        Print("FindDiagnostics", tooltip.Name, [&] { return VizInTooltip::FindDiagnostics(text); });
        Print("InsertFilterFieldAt", tooltip.Name, [&] {
            return VizInTooltip::InsertFilterFieldAt(text, tooltip.Cursor, ToTString(u"Category"),
                                                     ToTString(u"All"));
        });
    }
    for (const auto& element : elements) {
        const MarkupText& text = element.Text;
        Print("InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition", element.Name, [&] {
            return VizInTooltip::InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(
                text, {60, 60}, ToTString(u"Category"), ToTString(u"All"));
        });
    }
    return 0;
}
