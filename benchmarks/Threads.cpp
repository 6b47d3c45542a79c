/// Measures contention between concurrent calls: the time of two threads of one process against that of two
/// processes, on the same tooltips.

#include "KeepMemory.h"
#include "Texts.h"

#include <corvanemarkup/VizInTooltip.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace benchmarks;
using namespace corvanemarkup;

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// Queries all tooltips a few times. Keeps the answers until the end of each round, as a host would.
template <typename Query>
void Ask(Query query, const std::vector<TString>& tooltips)
{
    constexpr int rounds = 20;
    for (int round = 0; round < rounds; ++round) {
        std::vector<decltype(query(tooltips.front()))> answers;
        answers.reserve(tooltips.size());
        for (const TString& tooltip : tooltips)
            answers.push_back(query(tooltip));
    }
}

template <typename Work>
pid_t StartProcess(Work work)
{
    const pid_t process = fork();
    if (process < 0)
        std::abort();
    if (process > 0)
        return process;
    work();
    _exit(0);
}

void WaitFor(pid_t process)
{
    int status = 0;
    if (waitpid(process, &status, 0) != process || status != 0)
        std::abort();
}

template <typename Query>
Milliseconds TimeOfTwoThreads(Query query, const std::vector<TString>& tooltips)
{
    const Clock::time_point start = Clock::now();
    const pid_t both = StartProcess([&] {
        std::thread other([&] { Ask(query, tooltips); });
        Ask(query, tooltips);
        other.join();
    });
    WaitFor(both);
    return Clock::now() - start;
}

template <typename Query>
Milliseconds TimeOfTwoProcesses(Query query, const std::vector<TString>& tooltips)
{
    const Clock::time_point start = Clock::now();
    const pid_t one = StartProcess([&] { Ask(query, tooltips); });
    const pid_t other = StartProcess([&] { Ask(query, tooltips); });
    WaitFor(one);
    WaitFor(other);
    return Clock::now() - start;
}

template <typename Query>
void Print(const char* name, Query query, const std::vector<TString>& tooltips)
{
    // Interleaved, which exposes both to the same load of the machine.
    std::array<Milliseconds, 9> threads{};
    std::array<Milliseconds, 9> processes{};
    for (std::size_t i = 0; i < threads.size(); ++i) {
        processes[i] = TimeOfTwoProcesses(query, tooltips);
        threads[i] = TimeOfTwoThreads(query, tooltips);
    }
    std::sort(threads.begin(), threads.end());
    std::sort(processes.begin(), processes.end());
    const std::size_t median = threads.size() / 2;
    std::printf("%-10s %9.1f ms %9.1f ms %9.2f\n", name, processes[median].count(), threads[median].count(),
                threads[median] / processes[median]);
}

} // namespace

int main()
{
    KeepMemory();
    std::vector<TString> tooltips;
    for (const std::u16string& text : ShortTooltips(20000))
        tooltips.push_back(ToTString(text));
    std::printf("%-10s %12s %12s %9s\n", "wall time", "2 processes", "2 threads", "ratio");
    Print("names S", VizInTooltip::GetTargetSheetNamesFromTooltipText, tooltips);
    Print("fields S", VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText, tooltips);
    return 0;
}
