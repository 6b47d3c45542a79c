/// Measures how the time of every operation grows with its text, on worst-case texts. A linear cost doubles
/// with the text, a quadratic one quadruples.

#include "HostileTexts.h"
#include "KeepMemory.h"
#include "Operations.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr std::array<std::size_t, 4> Sizes = {125000, 250000, 500000, 1000000};
using Times = std::array<double, Sizes.size()>; // in milliseconds

/// All operations and, last, a baseline without code of the library: the copy of a set, for the cost of
/// standard containers with many texts that are scattered in memory.
std::vector<Operation> OperationsAndCopy()
{
    std::vector<Operation> operations = Operations();
    operations.emplace_back("a.Elements, copied as a std::set",
                            [](Arguments& a) { (void)std::set<TString>(a.Elements); });
    return operations;
}

/// The time of the fastest run, which other processes disturbed least.
double ShortestTimeOf(const Operation& operation, Arguments& arguments)
{
    constexpr int fewestRuns = 3; // the first may touch new pages
    constexpr int mostRuns = 10;
    constexpr double longEnough = 40;
    double shortest = HUGE_VAL;
    double total = 0;
    for (int run = 0; run < mostRuns && (run < fewestRuns || total < longEnough); ++run) {
        const double time = operation.TimeOf(arguments);
        shortest = std::min(shortest, time);
        total += time;
    }
    return shortest;
}

double Growth(const Times& times)
{
    constexpr double shortestMeasurable = 0.1; // the clock has microseconds
    return times.back() < shortestMeasurable ? 0 : times.back() / times.front();
}

// Allows for the logarithm of sorting and for cache misses. For eight times the text, a quadratic cost takes
// 64 times as long, and more than a few milliseconds.
bool IsSuperlinear(const Times& times)
{
    return Growth(times) > 30 && times.back() > 5;
}

/// The times of all operations. Repeats what looks superlinear, since it may have been disturbed.
std::vector<Times> Measure(const std::vector<Operation>& operations, const HostileFamily& family)
{
    std::vector<Times> times(operations.size());
    std::vector<bool> isDoubtful(operations.size(), true);
    for (Times& ofOperation : times)
        ofOperation.fill(HUGE_VAL);

    for (int round = 0; round < 3; ++round) {
        for (std::size_t size = 0; size < Sizes.size(); ++size) {
            Arguments arguments(family.Make(Sizes[size]));
            for (std::size_t i = 0; i < operations.size(); ++i)
                if (isDoubtful[i])
                    times[i][size] = std::min(times[i][size], ShortestTimeOf(operations[i], arguments));
        }
        std::transform(times.begin(), times.end(), isDoubtful.begin(), IsSuperlinear);
        if (std::find(isDoubtful.begin(), isDoubtful.end(), true) == isDoubtful.end())
            break;
    }
    return times;
}

void Print(const Operation& operation, const HostileFamily& family, const Times& times)
{
    std::printf("%-99s %8.2f  %5.2f %5.2f %5.2f  %s%s\n", operation.Name, times.back(), times[1] / times[0],
                times[2] / times[1], times[3] / times[2], family.Name.c_str(),
                IsSuperlinear(times) ? "  <-- SUPERLINEAR" : "");
}

} // namespace

int main()
{
    KeepMemory();
    const std::vector<HostileFamily> families = HostileFamilies();
    const std::vector<Operation> operations = OperationsAndCopy();

    std::vector<std::vector<Times>> times; // by family, then by operation
    for (const HostileFamily& family : families)
        times.push_back(Measure(operations, family));

    std::printf(
        "%zu operations on %zu families of texts. For each operation: the family on which its time\n"
        "grows fastest, and all on which it is superlinear. The last row is a baseline, the copy of a\n"
        "standard container: growth up to that may be due to memory.\n\n",
        operations.size() - 1, families.size());
    std::printf("%-99s %8s  %5s %5s %5s  %s\n", "operation", "ms at 8n", "2n/n", "4n/2n", "8n/4n", "family");
    for (std::size_t i = 0; i < operations.size(); ++i) {
        const auto worst =
            std::max_element(times.begin(), times.end(), [i](const auto& left, const auto& right) {
                return Growth(left[i]) < Growth(right[i]);
            });
        for (std::size_t family = 0; family < families.size(); ++family)
            if (&times[family] == &*worst || IsSuperlinear(times[family][i]))
                Print(operations[i], families[family], times[family][i]);
    }
    return 0;
}
