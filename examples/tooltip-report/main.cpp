#include "Edits.h"
#include "Reports.h"
#include "TooltipText.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>

namespace tooltipreport {

namespace {

bool ReadPosition(std::string_view text, std::int64_t& position)
{
    const char* const end = text.data() + text.size();
    int value = 0;
    const auto result = std::from_chars(text.data(), end, value);
    position = value;
    return result.ec == std::errc() && result.ptr == end && value >= 0;
}

/// Reads `START` or `START:END`.
corvanemarkup::CorvaneCharRange ReadSelection(std::string_view argument)
{
    const std::size_t colon = argument.find(':');
    const std::string_view start = argument.substr(0, colon);
    const std::string_view end = colon == std::string_view::npos ? start : argument.substr(colon + 1);
    corvanemarkup::CorvaneCharRange selection{};
    if (!ReadPosition(start, selection.start) || !ReadPosition(end, selection.end) ||
        selection.end < selection.start)
        throw CLI::ValidationError("--at", "'" + std::string(argument) +
                                               "' is not START or START:END, with positions from 0 to " +
                                               std::to_string(INT_MAX) + " and END not before START");
    return selection;
}

/// One call of the program: the arguments of all verbs, and the output of the one that runs. It is printed
/// when it is complete, so that a verb that fails prints nothing.
struct Call
{
    std::string File = "-";
    std::string NewFile;
    std::string From;
    std::string To;
    std::string At;
    std::string Field;
    std::string ExclusiveField = "All";
    std::string Output;
};

void AddShow(CLI::App& app, Call& call)
{
    CLI::App* show = app.add_subcommand("show", "List the elements, sheets and filters of a tooltip");
    show->add_option("FILE", call.File, "The tooltip; standard input if it is absent or -");
    show->footer("Ranges are half-open and count UTF-16 code units.");
    show->callback([&call] { call.Output = Show(ReadTooltip(call.File)); });
}

void AddChanges(CLI::App& app, Call& call)
{
    CLI::App* changes =
        app.add_subcommand("changes", "List the sheets whose filters were deleted or modified");
    changes->add_option("OLD", call.File, "The tooltip as it was")->required();
    changes->add_option("NEW", call.NewFile, "The tooltip as it is now")->required();
    changes->callback([&call] {
        if (call.File == "-" && call.NewFile == "-")
            throw CLI::ValidationError("OLD and NEW", "only one of them can be standard input");
        call.Output = ShowChanges(ReadTooltip(call.File), ReadTooltip(call.NewFile));
    });
}

void AddRename(CLI::App& app, Call& call)
{
    CLI::App* rename = app.add_subcommand("rename", "Print a tooltip with a sheet renamed");
    rename->add_option("FILE", call.File, "The tooltip")->required();
    rename->add_option("FROM", call.From, "The name of the sheet")->required();
    rename->add_option("TO", call.To, "Its new name")->required();
    rename->footer("Only valid sheet elements with that name change; all other text is printed as it is.");
    rename->callback([&call] {
        if (call.To.empty())
            throw CLI::ValidationError("TO", "a sheet name cannot be empty");
        call.Output =
            RenameSheet(ReadTooltip(call.File), FromUtf8(call.From, "FROM"), FromUtf8(call.To, "TO"));
    });
}

void AddInsert(CLI::App& app, Call& call)
{
    CLI::App* insert = app.add_subcommand("insert", "Print a tooltip with a filter field inserted");
    insert->add_option("FILE", call.File, "The tooltip")->required();
    insert->add_option("--at", call.At, "The cursor, or the ends of the selection")
        ->required()
        ->type_name("START[:END]");
    insert->add_option("--field", call.Field, "The field to insert")->required()->type_name("NAME");
    insert->add_option("--exclusive", call.ExclusiveField, "The field that stands alone in a filter")
        ->capture_default_str()
        ->type_name("NAME");
    insert->footer(
        "Positions count UTF-16 code units from the start of the tooltip, and must stand between\n"
        "the brackets of one sheet element. The field replaces those that the cursor stands in or\n"
        "the selection reaches; if there are none, it goes to the end of the filter. A caret shows\n"
        "the new cursor.");
    insert->callback([&call] {
        const auto selection = ReadSelection(call.At);
        if (call.Field.empty())
            throw CLI::ValidationError("--field", "a field name cannot be empty");
        call.Output = InsertField(ReadTooltip(call.File), selection, FromUtf8(call.Field, "--field"),
                                  FromUtf8(call.ExclusiveField, "--exclusive"));
    });
}

/// What the program prints for its arguments.
std::string Run(int argc, const char* const* argv)
{
    CLI::App app("Tells about the elements in the markup of tooltip templates, and edits them.",
                 "tooltip-report");
    app.set_version_flag("--version", "tooltip-report " TOOLTIP_REPORT_VERSION);
    app.require_subcommand(1);
    app.footer("Files are UTF-8 text. The file - stands for standard input.");
    Call call;
    AddShow(app, call);
    AddChanges(app, call);
    AddRename(app, call);
    AddInsert(app, call);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& helpOrVersion) {
        std::ostringstream text;
        app.exit(helpOrVersion, text, text);
        return text.str();
    } catch (const CLI::RequiredError&) {
        // What is missing may well be what was misspelt.
        if (app.remaining_size(true) > 0)
            throw CLI::ExtrasError(app.remaining_for_passthrough(true));
        throw;
    }
    return call.Output;
}

} // namespace

} // namespace tooltipreport

int main(int argc, char** argv)
{
    try {
        // Only a stream of its own tells when reading standard input fails.
        std::ios::sync_with_stdio(false);
        std::cout << tooltipreport::Run(argc, argv) << std::flush;
        if (!std::cout.good())
            throw std::system_error(errno, std::generic_category(), "cannot write to standard output");
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "tooltip-report: " << tooltipreport::OnOneLine(error.what()) << '\n';
        return EXIT_FAILURE;
    }
}
