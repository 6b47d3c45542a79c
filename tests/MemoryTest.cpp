/// An operator new that can be told to fail, and what an operation leaves behind then.

#include "Agreements.h"

#include <corvanemarkup/TokenizeAttributedMarkupText.h>

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;
using namespace corvanemarkup::VizInTooltip::Impl;

static thread_local int allocationsLeft = -1; ///< before one fails; none does if negative
static thread_local int liveAllocations = 0;

void* operator new(std::size_t size)
{
    if (allocationsLeft == 0)
        throw std::bad_alloc();
    allocationsLeft -= allocationsLeft > 0 ? 1 : 0;
    ++liveAllocations;
    return std::malloc(size);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    liveAllocations -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

namespace {

/// Arguments and out-parameters, with texts too long to be held without an allocation.
struct Arguments
{
    MarkupText Markup = ::Markup(u"Sheet MAXWIDTH=\"300\" MAXHEIGHT=\"0200\" name=\"the \"\"sheet\"\"\" "
                                 u"filter=\"<a long \"\"field\"\">,<another one>\"");
    TString Tooltip = Text(u"a <b> <<<") + Markup + Text(u"> <Sheet name=\"two\"> <Sheet  name=\"two\">");
    TString Quoted = Text(u"\"in \"\"doubled\"\" quotes\"");
    TString Content = Text(u"content before");
    MarkupText Replaced{Content};
    int Length = 99;
    AttributeNamesAndValues List{{{Name(u"MaxHeight"), Quoted}, {Name(u"maxheight"), Quoted}}};
    VizInTooltipProperties Properties{List};
    CorvaneMarkupTokenizer Tokenizer{Tooltip};
    std::vector<AttributeNameAndValue> Out;
};

#define CALL(call) std::pair(#call, [](Arguments& a) { (void)a, (void)(call); })

TEST(Memory, AnyAllocationMayFail)
{
    const std::pair<const char*, void (*)(Arguments&)> rows[] = {
        CALL(a.List.HasDuplicates() && a.List.GetAttributeValueForName(Name(u"maxHeight"))),
        CALL(a.List.ReplaceOrAdd(Name(u"maxHeight"), a.Quoted).ToMarkupText(a.Content)),
        CALL(MakeSheetMarkupAttributeString(*a.List.begin())),
        CALL(ExtractNameAndValue(Text(u"MAXHEIGHT=\"doubled \"\" quotes\""))),
        CALL(StripEnclosingQuotes(a.Quoted)),
        CALL(UnescapeQuotes(a.Quoted)),
        CALL(FindNameValuePairs(Text(u"MAXHEIGHT=\"doubled \"\" quotes\" MAXWIDTH=\"\""), a.Out)),
        CALL(TokenizeAttributedMarkupText(a.Markup)),
        CALL(a.Tokenizer.FindNextMarkupElement(8)),
        CALL(IsSheetMarkupText(a.Tooltip, 9)),
        CALL(FindNextMarkupElement(a.Tooltip, 8, a.Content)),
        CALL(FindNextKnownMarkupElement(a.Tooltip, 8, a.Length, a.Content, [](auto&) { return true; })),
        CALL(FindCharRangesOfKnownMarkupElements(a.Tooltip, [](auto& text) { return text.length() > 3; })),
        CALL(CollectMarkupElements(a.Tooltip)),
        CALL(VizInTooltipProperties::FromMarkupText(a.Markup)->IsValid()),
        CALL(VizInTooltipProperties::GetDefault(a.Content, a.Quoted).GetFilterValue()),
        CALL(VizInTooltipProperties::FromMarkupText(a.Markup)->GetFilterFields()),
        CALL(a.Properties.WithSheetName(a.Quoted).WithFilterFields({a.Content}).ToSheetMarkupText()),
        CALL(GetTargetSheetNamesFromMarkupElementSet({a.Markup, a.Content})),
        CALL(GetTargetSheetNamesFromTooltipText(a.Tooltip)),
        CALL(ReplaceSheetNameInSheetMarkupText(a.Markup, Text(u"the \"sheet\""), a.Quoted, a.Replaced)),
        CALL(ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond(a.Markup, a.Markup)),
        CALL(GetCharRangeOfSheetNameAttributeValue(a.Markup).end + FindFilterAttributeToken(a.Markup)->end),
        CALL(GetIndexOfFiltersAtCharRange(a.Markup, {0, 200})),
        CALL(InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(a.Markup, {0, 9}, a.Quoted, a.Content)),
        CALL(CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(a.Tooltip, a.Tooltip)),
        CALL(GetFilterFieldsFromSheetMarkupInTooltipText(a.Tooltip)),
    };
    const auto showWritten = [](const Arguments& a) {
        return Show(a.Quoted) + Show(a.Content) + Show(a.Replaced) + Show(a.Length) +
               Show(a.Tokenizer.GetOffset());
    };
    for (const auto& [operation, call] : rows) {
        SCOPED_TRACE(operation);
        bool failed = true;
        for (int count = 0; failed; ++count) { // each allocation in turn, until none is left to fail
            Arguments arguments;
            const std::string before = showWritten(arguments);
            const int liveBefore = liveAllocations;
            allocationsLeft = count;
            try {
                call(arguments);
                failed = false;
            } catch (const std::bad_alloc&) {
            }
            allocationsLeft = -1;
            EXPECT_TRUE(failed || count > 0) << "without an allocation, nothing is tested";
            decltype(arguments.Out)().swap(arguments.Out);
            ASSERT_TRUE(!failed || (liveAllocations == liveBefore && showWritten(arguments) == before))
                << count;
        }
    }
}

} // namespace
