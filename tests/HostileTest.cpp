#include "HostileTexts.h"
#include "KeepMemory.h"
#include "Operations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>

namespace {

[[maybe_unused]] const bool keepsMemory = (KeepMemory(), true);

using Hostile = testing::TestWithParam<HostileFamily>;

TEST_P(Hostile, NoOperationTakesMoreThanLinearTime)
{
    constexpr std::size_t length = 125000;
    Arguments arguments(GetParam().Make(length));
    Arguments eightTimes(GetParam().Make(8 * length));
    std::cout << GetParam().Name << ", up to: ";
    for (const Operation& operation : Operations()) {
        std::cout << operation.Name << std::endl; // flushed, to name the operation in a timeout
        // Allows for the logarithm of sorting, cache misses and newly mapped pages; a quadratic cost takes 64
        // times as long. Repeats what looks like one.
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
