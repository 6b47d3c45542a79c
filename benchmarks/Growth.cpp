/// How the time of every operation grows with its text, on texts that are made to take long. A linear cost
/// doubles with the text, a quadratic one quadruples.

#include "HostileTexts.h"
#include "Operations.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace {

using namespace benchmarks;

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::array<std::size_t, 4> Sizes = {125000, 250000, 500000, 1000000};
using Times = std::array<Milliseconds, Sizes.size()>;

/// The processor time of the shortest of some runs, which is the one that the rest of the machine disturbed
/// least.
Milliseconds TimeOf(const Operation& operation, const OperationInput& input)
{
    constexpr int mostRuns = 20;
    constexpr Milliseconds longEnough(15);
    Milliseconds shortest = Milliseconds::max();
    Milliseconds total(0);
    for (int run = 0; run < 3 || (run < mostRuns && total < longEnough); ++run) {
        const std::clock_t start = std::clock();
        operation.Run(input);
        const Milliseconds time(1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        shortest = std::min(shortest, time);
        total += time;
    }
    return shortest;
}

double Growth(const Times& times)
{
    // The clock counts microseconds.
    constexpr Milliseconds shortestToTell(0.1);
    return times.back() < shortestToTell ? 0 : times.back() / times.front();
}

struct Worst
{
    const HostileFamily* Family = nullptr;
    Times TimesBySize = {};
};

void Print(const Operation& operation, const Worst& worst)
{
    // Sorting adds a logarithm, and a large result leaves the caches: eight times the text may take somewhat
    // more than eight times as long. A quadratic cost takes 64 times as long.
    constexpr double suspicious = 20;
    const Times& times = worst.TimesBySize;
    std::printf("%-68s %8.2f  %5.2f %5.2f %5.2f  %s%s\n", operation.Name, times.back().count(),
                times[1] / times[0], times[2] / times[1], times[3] / times[2], worst.Family->Name().c_str(),
                Growth(times) > suspicious ? "  <-- SUPERLINEAR" : "");
}

} // namespace

int main()
{
    std::vector<Worst> worst(Operations().size());
    for (const HostileFamily& family : HostileFamilies()) {
        std::vector<Times> times(Operations().size());
        for (std::size_t size = 0; size < Sizes.size(); ++size) {
            const OperationInput input(family.Make(Sizes[size]));
            for (std::size_t i = 0; i < Operations().size(); ++i)
                times[i][size] = TimeOf(Operations()[i], input);
        }
        for (std::size_t i = 0; i < Operations().size(); ++i)
            if (worst[i].Family == nullptr || Growth(times[i]) > Growth(worst[i].TimesBySize))
                worst[i] = {&family, times[i]};
    }

    std::printf(
        "%zu families of hostile texts; for each operation the one on which its time grows fastest\n\n",
        HostileFamilies().size());
    std::printf("%-68s %8s  %5s %5s %5s  %s\n", "operation", "ms at 8n", "2n/n", "4n/2n", "8n/4n", "family");
    for (std::size_t i = 0; i < Operations().size(); ++i)
        Print(Operations()[i], worst[i]);
    return 0;
}
