#include "HostileTexts.h"
#include "Operations.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

class Hostile : public testing::TestWithParam<HostileFamily>
{
};

TEST_P(Hostile, EveryOperationEndsInTime)
{
    Arguments arguments(GetParam().Make(1000000));
    std::cout << GetParam().Name << ", up to: ";
    for (const Operation& operation : Operations()) {
        std::cout << operation.Name << std::endl; // which tells what a timeout ended
        operation.Run(arguments);
    }
}

INSTANTIATE_TEST_SUITE_P(Families, Hostile, testing::ValuesIn(HostileFamilies()));

} // namespace
