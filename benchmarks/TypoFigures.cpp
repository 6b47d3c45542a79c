/// Prints how diagnostics report typos: corvanemarkup-typos [--misses N] [TOOLTIP_FILE...]. Files are UTF-8
/// texts that replace the built-in tooltips. `--misses` prints N random examples of what each figure counts.

#include "Typos.h"

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupRanges.h>

#include <boost/locale/encoding_utf.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace corvanemarkup::VizInTooltip;
namespace conv = boost::locale::conv;

TString ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file)
        throw std::runtime_error("can't read " + path);
    const std::u16string units = conv::utf_to_utf<char16_t>(bytes, conv::stop);
    return TString(units.data(), static_cast<int>(units.size()));
}

/// On one line, with symbols for control characters.
std::string ToUtf8(const TString& text)
{
    constexpr char16_t symbols = 0x2400;
    std::u16string units;
    for (int i = 0; i < text.length(); ++i)
        units += static_cast<char16_t>(text[i] < u' ' ? symbols + text[i] : text[i]);
    return conv::utf_to_utf<char>(units);
}

std::string TwoDecimals(double number)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%.2f", number);
    return buffer;
}

/// Prints a row for each figure: all typos, then the percentage of each group.
template <typename GroupOf>
void PrintTable(const std::vector<Typo>& typos, const std::vector<std::string>& groups, GroupOf groupOf)
{
    std::printf("%-55s %6s %6s %6s", "", "misses", "of", "%");
    for (const std::string& group : groups)
        std::printf(" %11s", group.c_str());
    for (const TypoFigure& figure : TypoFigures()) {
        TypoShare all;
        std::vector<TypoShare> shares(groups.size());
        for (const Typo& typo : typos) {
            all.Add(figure, typo);
            if (const std::size_t group = groupOf(typo); group < shares.size())
                shares[group].Add(figure, typo);
        }
        std::printf("\n%-55s %6d %6d %6.2f", figure.Name, all.Misses, all.Typos, all.Percent());
        for (const TypoShare& share : shares)
            std::printf(" %11s", share.Typos == 0 ? "-" : TwoDecimals(share.Percent()).c_str());
    }
    std::printf("\n\n");
}

void PrintMiss(const Typo& typo)
{
    auto shown = typo.Element;
    if (shown.end == 0 && !typo.Edits.empty())
        shown = {typo.Edits[0].Range.start - 30, typo.Edits[0].Range.end + 30};
    const TString& text = typo.MistypedText;
    std::printf("  %s\n  %s\n", ToUtf8(TextIn(*typo.Tooltip, shown)).c_str(), ToUtf8(text).c_str());
    for (const Diagnostic& diagnostic : FindDiagnostics(text))
        std::printf(
            "    %s: %s [%s]\n", diagnostic.Severity == DiagnosticSeverity::Error ? "error" : "warning",
            ToUtf8(GetDiagnosticMessage(text, diagnostic)).c_str(), GetDiagnosticIdentifier(diagnostic.Kind));
    std::printf("\n");
}

void PrintMisses(const std::vector<Typo>& typos, std::size_t count)
{
    for (const TypoFigure& figure : TypoFigures()) {
        std::vector<const Typo*> misses;
        for (const Typo& typo : typos)
            if (figure.IsAmong(typo) && figure.IsMiss(typo))
                misses.push_back(&typo);
        std::shuffle(misses.begin(), misses.end(), std::mt19937(1));
        std::printf("%s (%zu)\n\n", figure.Name, misses.size());
        misses.resize(std::min(misses.size(), count));
        for (const Typo* const miss : misses)
            PrintMiss(*miss);
    }
}

void Run(std::vector<std::string> arguments)
{
    std::size_t missCount = 0;
    if (arguments.size() > 1 && arguments[0] == "--misses") {
        missCount = std::stoul(arguments[1]);
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    std::vector<TString> tooltips;
    for (const std::string& path : arguments)
        tooltips.push_back(ReadFile(path));
    if (tooltips.empty())
        tooltips = TypoTooltips();

    const std::vector<Typo> typos = FindTypos(tooltips);
    PrintTable(typos, {"deleted", "inserted", "replaced", "letter case", "swapped"},
               [](const Typo& typo) { return static_cast<std::size_t>(typo.Kind) - 1; });
    std::vector<std::string> numbers;
    for (std::size_t i = 0; i < tooltips.size(); ++i)
        numbers.push_back("tooltip " + std::to_string(i + 1));
    PrintTable(typos, numbers, [&](const Typo& typo) {
        const auto isOf = [&typo](const TString& tooltip) { return &tooltip == typo.Tooltip; };
        return static_cast<std::size_t>(std::find_if(tooltips.begin(), tooltips.end(), isOf) -
                                        tooltips.begin());
    });
    if (missCount > 0)
        PrintMisses(typos, missCount);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        Run({argv + 1, argv + argc});
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s\n", exception.what());
        return EXIT_FAILURE;
    }
}
