#include "HostileTexts.h"
#include "Operations.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <iostream>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

#if defined(__GLIBC__)
// Memory that the system gives anew for each large text takes time for each of its pages, which looks like
// growth.
[[maybe_unused]] const int keepsPages = mallopt(M_MMAP_MAX, 0) + mallopt(M_TRIM_THRESHOLD, INT_MAX);
#endif

using Hostile = testing::TestWithParam<HostileFamily>;

TEST_P(Hostile, NoOperationTakesMoreThanLinearTime)
{
    constexpr std::size_t length = 125000;
    Arguments arguments(GetParam().Make(length));
    Arguments eightTimes(GetParam().Make(8 * length));
    std::cout << GetParam().Name << ", up to: ";
    for (const Operation& operation : Operations()) {
        std::cout << operation.Name << std::endl; // which tells what a timeout ended
        // Sorting adds a logarithm, a large result leaves the caches, and new pages for it take some time at
        // first. A quadratic cost takes 64 times as long. What looks like one is measured again.
        double time = HUGE_VAL;
        double timeOfEight = HUGE_VAL;
        const auto isLinear = [&] { return timeOfEight < 20 || timeOfEight < 40 * time; };
        for (int run = 0; run < 5 && (run == 0 || !isLinear()); ++run) {
            time = std::min(time, operation.TimeOf(arguments));
            timeOfEight = std::min(timeOfEight, operation.TimeOf(eightTimes));
        }
        EXPECT_TRUE(isLinear()) << operation.Name << ": " << time << " ms, " << timeOfEight << " ms";
    }
}

INSTANTIATE_TEST_SUITE_P(Families, Hostile, testing::ValuesIn(HostileFamilies()));

} // namespace
