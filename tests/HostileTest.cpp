#include "../benchmarks/HostileTexts.h"
#include "../benchmarks/Operations.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

class Hostile : public testing::TestWithParam<benchmarks::HostileFamily>
{
};

TEST_P(Hostile, EveryOperationEndsInTime)
{
    const benchmarks::OperationInput input(GetParam().Make(1000000));
    std::cout << GetParam().Name() << ", up to: ";
    for (const benchmarks::Operation& operation : benchmarks::Operations()) {
        std::cout << operation.Name << std::endl; // which tells what a timeout ended
        operation.Run(input);
    }
}

INSTANTIATE_TEST_SUITE_P(Families, Hostile, testing::ValuesIn(benchmarks::HostileFamilies()));

} // namespace
