/// Makes allocations fail: an operation that throws leaks nothing and leaves its arguments unchanged.

#include "Operations.h"
#include "Testing.h"

#include <gtest/gtest.h>

static thread_local int allocationsLeft = -1; ///< until one fails; negative if none does
static thread_local int liveAllocations = 0;

[[gnu::noinline]] void* operator new(std::size_t size)
{
    constexpr std::size_t mostThatTestsNeed = 0x10000000;
    if (allocationsLeft == 0 || size > mostThatTestsNeed)
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

TEST(Memory, AnyAllocationMayFail)
{
#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 16000
    GTEST_SKIP() << "std::vector of this standard library leaks if copying an element throws";
#endif
    // Too long for the small-string optimization.
    const TString element = Text(u"<Sheet MAXWIDTH='300' MAXHEIGHT='0200' name='the ''sheet''' "
                                 u"filter='<a long ''field''>,<another one>'>");
    const TString tooltip = Text(u"a <b> <<") + element + Text(u" <Sheet name='two'> <Sheet  name='two'>");
    const auto showWritten = [](const Arguments& a) {
        return Show(a.Written) + Show(a.Replaced) + Show(a.Length) + Show(a.Tokenizer.GetOffset()) +
               Show(a.Tokenizer.GetTokenStart());
    };
    std::size_t count = 0;
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.Name);
        for (const TString& text : {element, tooltip}) {
            bool failed = true;
            for (int left = 0; failed; ++left, ++count) { // fails each allocation in turn
                Arguments arguments(text);
                const std::string before = showWritten(arguments);
                const int liveBefore = liveAllocations;
                allocationsLeft = left;
                try {
                    operation.Run(arguments);
                    failed = false;
                } catch (const std::bad_alloc&) {
                }
                allocationsLeft = -1;
                decltype(arguments.Pairs)().swap(arguments.Pairs);
                ASSERT_TRUE(!failed || (liveAllocations == liveBefore && showWritten(arguments) == before))
                    << left;
            }
        }
    }
    EXPECT_GT(count, 4 * Operations().size()) << "too few allocations failed";
}

TEST(Memory, LengthsAreCheckedBeforeAllocating)
{
    // The results have 0x100000000 code units or slightly more; truncated to 32 bits, the length is small.
    TString commas = Text(std::u16string(0x10000, u','));
    std::u16string fields;
    for (int i = 0; i < 0x10000; ++i)
        fields += u"<a>";
    const TString tooltip = Text(u"<Sheet name='s' filter='" + fields + u"'>");
    const std::map<TString, TString> newFields{{Text(u"a"), Text(std::u16string(0x8000, u'b'))}};
    EXPECT_THROW(commas.replace(u',', commas), std::length_error);
    EXPECT_THROW((void)RenameSheetsAndFields(tooltip, {}, newFields), std::length_error);

    EXPECT_EQ(Show(ApplyTextEdits(Text(u"abcdef"), {{{0, 2}, Text(u"x")}, {{3, 6}, TString()}})), "xc")
        << "edits that shorten the text";
}

} // namespace
