#include "Arguments.h"
#include "CheckReport.h"
#include "Diff.h"
#include "Edits.h"
#include "Files.h"
#include "Positions.h"
#include "RenameReport.h"
#include "Reports.h"
#include "System.h"
#include "TooltipText.h"

#include <corvanemarkup/TextEdits.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <exception>
#include <ios>
#include <iostream>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace tooltipreport {

namespace {

namespace VizInTooltip = corvanemarkup::VizInTooltip;

enum ExitStatus { AllIsWell = 0, Refused = 1, Failed = 2 };

void Complain(const std::string& message)
{
    std::cerr << "tooltip-report: " << OnOneLine(message) << '\n';
}

bool UsesColours(const Arguments& arguments)
{
    const char* const noColour = std::getenv("NO_COLOR"); // NOLINT(concurrency-mt-unsafe): nothing else runs
    if (arguments.Color != "auto")
        return arguments.Color == "always";
    return (noColour == nullptr || *noColour == '\0') && IsTerminalOutput();
}

/// Calls `use` with each tooltip, and `fail` with each path that can't be read and the problem.
template <typename Use, typename Fail>
void ForEachTooltip(const Arguments& arguments, Use use, Fail fail)
{
    for (const FoundFile& found : FindFiles(arguments.Files, arguments.Pattern)) {
        try {
            if (!found.Problem.empty())
                throw FileError(found.Problem);
            use(ReadTooltip(found.Path));
        } catch (const FileError& error) {
            fail(found.Path, error.what());
            Complain(error.what());
        }
    }
}

int Check(const Arguments& arguments)
{
    VizInTooltip::KnownNames knownNames;
    if (!arguments.Sheets.empty() || !arguments.SheetsFile.empty())
        knownNames.Sheets.emplace();
    for (const std::string& sheet : arguments.Sheets)
        knownNames.Sheets->insert(FromUtf8(sheet, "--sheet"));
    if (!arguments.SheetsFile.empty()) {
        for (const TString& sheet : ReadLines(arguments.SheetsFile))
            knownNames.Sheets->insert(sheet);
    }

    const auto report = arguments.Format == "json"    ? MakeJsonReport(std::cout)
                        : arguments.Format == "sarif" ? MakeSarifReport(std::cout)
                                                      : MakeTextReport(std::cout, UsesColours(arguments));
    CheckCounts counts;
    ForEachTooltip(
        arguments,
        [&](const TooltipFile& tooltip) {
            std::vector<Finding> findings = FindAll(tooltip.Text, knownNames);
            for (Finding& finding : findings) {
                if (arguments.WarningsAsErrors)
                    finding.Severity = VizInTooltip::DiagnosticSeverity::Error;
                ++(finding.Severity == VizInTooltip::DiagnosticSeverity::Error ? counts.Errors
                                                                               : counts.Warnings);
            }
            ++counts.Files;
            report->Checked(tooltip, findings);
        },
        [&](const std::string& path, const std::string& problem) {
            ++counts.Unreadable;
            report->Unreadable(path, problem);
        });
    report->End(counts);
    return counts.Unreadable > 0 ? Failed : counts.Errors > 0 ? Refused : AllIsWell;
}

int ShowOne(const Arguments& arguments)
{
    (arguments.Format == "json" ? ShowAsJson : ShowAsText)(std::cout, ReadTooltip(arguments.Files.front()));
    return AllIsWell;
}

int ShowTwo(const Arguments& arguments)
{
    const auto show = arguments.Format == "json" ? ShowChangesAsJson : ShowChangesAsText;
    show(std::cout, ReadTooltip(arguments.Files.front()), ReadTooltip(arguments.Files.back()));
    return AllIsWell;
}

/// Prints or writes the edited tooltip, or a diff, depending on the arguments.
void Deliver(const Arguments& arguments, const TooltipFile& tooltip,
             const std::vector<VizInTooltip::TextEdit>& edits)
{
    if (arguments.Diff)
        WriteDiff(std::cout, tooltip, edits);
    else if (!arguments.InPlace)
        PrintTooltip(std::cout, tooltip, VizInTooltip::ApplyTextEdits(tooltip.Text, edits));
    else if (!edits.empty())
        ReplaceTooltip(tooltip, VizInTooltip::ApplyTextEdits(tooltip.Text, edits));
}

int RenameAll(const Arguments& arguments)
{
    const bool isJson = arguments.Format == "json";
    const auto report = isJson ? MakeRenameJsonReport(std::cout) : MakeRenameTextReport(std::cerr);
    RenameCounts counts;
    Renaming missing = arguments.NewNames;
    ForEachTooltip(
        arguments,
        [&](const TooltipFile& tooltip) {
            const RenamingEdits renaming = Rename(tooltip.Text, arguments.NewNames);
            for (const MetName& name : renaming.Met) {
                const bool isSheet = name.Occurrence.Kind == VizInTooltip::NameKind::Sheet;
                (isSheet ? missing.Sheets : missing.Fields).erase(name.Occurrence.Name);
            }
            if (!isJson || arguments.InPlace)
                Deliver(arguments, tooltip, renaming.Edits);
            for (const MetName& name : renaming.Met) {
                counts.Renamed += name.Result == MetName::Outcome::Renamed ? 1 : 0;
                counts.Kept += name.Result == MetName::Outcome::Kept ? 1 : 0;
            }
            ++counts.Files;
            report->Renamed(tooltip, renaming.Met);
        },
        [&](const std::string& path, const std::string& problem) {
            ++counts.Unreadable;
            report->Unreadable(path, problem);
        });
    std::cout.flush();
    report->End(counts, missing);
    if (counts.Unreadable > 0)
        return Failed;
    return counts.Kept == 0 && missing.Sheets.empty() && missing.Fields.empty() ? AllIsWell : Refused;
}

int Insert(const Arguments& arguments)
{
    const TooltipFile tooltip = ReadTooltip(arguments.Files.front());
    const auto selection = ReadSelection(arguments.At, tooltip.Text);
    const auto insertion =
        VizInTooltip::InsertFilterFieldAt(tooltip.Text, selection, FromUtf8(arguments.Field, "--field"),
                                          FromUtf8(arguments.ExclusiveField, "--exclusive"));
    if (!insertion) {
        Complain("no sheet element at " + arguments.At +
                 " can take this field; give a position inside a readable one (see tooltip-report check)");
        return Refused;
    }
    Deliver(arguments, tooltip, {insertion->Edit});
    std::cout.flush();

    const TString edited = VizInTooltip::ApplyTextEdits(tooltip.Text, {insertion->Edit});
    const int cursor = insertion->NewCursorPosition;
    std::cerr << "cursor at " << ToText(Positions(edited).At(cursor)) << ", offset " << cursor << '\n';
    if (arguments.Caret) {
        const RuledLine ruled = RuleLine(edited, {cursor, cursor});
        std::cerr << ruled.Line << '\n' << ruled.Ruler << '\n';
    }
    return AllIsWell;
}

int Run(std::vector<std::string> commandLine)
{
    const Arguments arguments = ReadArguments(std::move(commandLine));
    if (arguments.Verb == "check")
        return Check(arguments);
    if (arguments.Verb == "show")
        return ShowOne(arguments);
    if (arguments.Verb == "changes")
        return ShowTwo(arguments);
    if (arguments.Verb == "rename")
        return RenameAll(arguments);
    if (arguments.Verb == "insert")
        return Insert(arguments);
    std::cout << arguments.Text;
    return AllIsWell;
}

} // namespace

} // namespace tooltipreport

int main(int argc, char** argv)
{
    using namespace tooltipreport;
    PassBytesAsTheyAre();
    try {
        // A synchronized std::cin doesn't report read errors.
        std::ios::sync_with_stdio(false);
        std::cout.exceptions(std::ios::badbit);
        const int status = Run(ReadCommandLine(argc, argv));
        std::cout.flush();
        return status;
    } catch (const std::ios_base::failure&) {
        const int error = errno;
        std::cout.exceptions(std::ios::goodbit); // std::cerr and the end of the program flush it
        Complain("cannot write to standard output: " + std::generic_category().message(error));
    } catch (const std::exception& error) {
        Complain(error.what());
    }
    return Failed;
}
