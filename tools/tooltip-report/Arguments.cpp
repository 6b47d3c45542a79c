#include "Arguments.h"

#include "Manual.h"
#include "TooltipText.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace tooltipreport {

namespace {

const std::vector<HelpSection> sections = {
    {"Files",
     "Files are UTF-8 text; - is standard input. A byte order mark is preserved, and positions do not\n"
     "include it."},
    {"Positions",
     "Lines and columns start at 1; a column is a character (code point). Offsets start at 0; they are in\n"
     "UTF-16 code units. The end of a range is exclusive."},
    {"Exit status",
     "0 on success; 1 if check found errors, if rename did not rename or did not find a name, or if insert "
     "found\n"
     "no element for the field; 2 if something could not be read or written, or the command line is\n"
     "invalid."},
    {"Environment", "NO_COLOR, if set and not empty, turns colours off for --color=auto."}};

/// Adds an option whose value is one of `words`.
void AddChoice(CLI::App& verb, const std::string& name, std::string& choice,
               const std::vector<std::string>& words, const std::string& description)
{
    std::string alternatives;
    for (const std::string& word : words)
        alternatives += (alternatives.empty() ? "" : "|") + word;
    verb.add_option(name, choice, description)
        ->check(CLI::IsMember(words).description(""))
        ->type_name(alternatives)
        ->capture_default_str();
}

void AddFile(CLI::App& verb, const std::string& name, std::vector<std::string>& files,
             const std::string& description)
{
    verb.add_option_function<std::string>(
            name, [&files](const std::string& file) { files.push_back(file); },
            description + "; - is standard input")
        ->required()
        ->type_name("");
}

/// Adds an option that may be repeated, with one value each time.
CLI::Option* AddList(CLI::App& verb, const std::string& name, std::vector<std::string>& list,
                     const std::string& description)
{
    return verb.add_option(name, list, description)->allow_extra_args(false);
}

void AddFilesAndPattern(CLI::App& verb, Arguments& arguments)
{
    verb.add_option("FILE", arguments.Files,
                    "The tooltips; - is standard input, and a folder is searched\nfor tooltips at any depth")
        ->required()
        ->type_name("");
    verb.add_option("--pattern", arguments.Pattern, "Which files in folders are tooltips")
        ->type_name("PATTERN")
        ->capture_default_str();
}

void AddOutput(CLI::App& verb, Arguments& arguments)
{
    CLI::Option* inPlace =
        verb.add_flag("--in-place", arguments.InPlace, "Replace the file with the result, atomically");
    verb.add_flag("--diff", arguments.Diff, "Print a unified diff for patch -p1 or git apply")
        ->excludes(inPlace);
}

void AddCheck(CLI::App& app, Arguments& arguments)
{
    CLI::App* check = app.add_subcommand("check", "Report what is wrong with tooltips, and where");
    AddFilesAndPattern(*check, arguments);
    AddList(*check, "--sheet", arguments.Sheets,
            "A sheet that exists; each other one that is named is an error")
        ->type_name("NAME");
    check
        ->add_option("--sheets", arguments.SheetsFile,
                     "A file with the names of the existing sheets, one per line")
        ->type_name("FILE");
    check->add_flag("--warnings-as-errors", arguments.WarningsAsErrors, "Treat warnings as errors");
    AddChoice(*check, "--format", arguments.Format, {"text", "json", "sarif"}, "The output format");
    AddChoice(*check, "--color", arguments.Color, {"auto", "always", "never"},
              "When to use colours; auto uses them on a terminal");
    check->footer(
        "A diagnostic is an error if a sheet is lost. Otherwise it is a warning, since the text may be\n"
        "intended.");
}

void AddShow(CLI::App& app, Arguments& arguments)
{
    CLI::App* show = app.add_subcommand("show", "List the elements, sheets and filters of a tooltip");
    AddFile(*show, "FILE", arguments.Files, "The tooltip");
    AddChoice(*show, "--format", arguments.Format, {"text", "json"}, "The output format");
}

void AddChanges(CLI::App& app, Arguments& arguments)
{
    CLI::App* changes =
        app.add_subcommand("changes", "List the sheets whose filters were deleted or modified");
    AddFile(*changes, "OLD", arguments.Files, "The old tooltip");
    AddFile(*changes, "NEW", arguments.Files, "The new tooltip");
    AddChoice(*changes, "--format", arguments.Format, {"text", "json"}, "The output format");
}

/// OLD=NEW arguments, unparsed.
struct RenamingTexts
{
    std::vector<std::string> Sheets;
    std::vector<std::string> Fields;
};

void AddRename(CLI::App& app, Arguments& arguments, RenamingTexts& texts)
{
    CLI::App* rename = app.add_subcommand("rename", "Rename sheets and fields");
    AddFilesAndPattern(*rename, arguments);
    AddList(*rename, "--sheet", texts.Sheets, "A sheet and its new name")->type_name("OLD=NEW");
    AddList(*rename, "--field", texts.Fields, "A field and its new name")->type_name("OLD=NEW");
    AddOutput(*rename, arguments);
    AddChoice(*rename, "--format", arguments.Format, {"text", "json"}, "The format of the report");
    rename->footer(
        "Repeat --sheet and --field as needed. Each name is replaced once, so two names can be swapped.\n"
        "Write == for a = in a name. Sheets are renamed in valid sheet elements, fields in their filters\n"
        "and in plain elements. A name is not renamed anywhere else, or where the new name would change "
        "other\n"
        "elements. Standard error receives how many names were renamed, and where and why others were not.\n"
        "With --format=json, the report replaces the tooltip on standard output, and only --in-place\n"
        "changes files.");
}

void AddInsert(CLI::App& app, Arguments& arguments)
{
    CLI::App* insert =
        app.add_subcommand("insert", "Insert a field into the filter at a cursor or selection");
    AddFile(*insert, "FILE", arguments.Files, "The tooltip");
    insert->add_option("--at", arguments.At, "The cursor or selection, as offsets or LINE:COLUMN")
        ->required()
        ->type_name("START[-END]");
    insert->add_option("--field", arguments.Field, "The field to insert")->required()->type_name("NAME");
    insert
        ->add_option("--exclusive", arguments.ExclusiveField,
                     "The field that excludes all others in a filter")
        ->type_name("NAME")
        ->capture_default_str();
    insert->add_flag("--caret", arguments.Caret, "Also show the line, with a caret below the new cursor");
    AddOutput(*insert, arguments);
    insert->footer(
        "The position must be between the brackets of a readable sheet element. The field replaces those\n"
        "that contain the cursor or overlap the selection; if there are none, it is appended to the filter.\n"
        "Standard error reports the new cursor.");
}

/// Parses OLD=NEW, and adds it to `newNames`.
void ReadRenaming(const std::string& option, const std::string& argument,
                  std::map<TString, TString>& newNames)
{
    std::vector<std::string> names(1);
    for (std::size_t i = 0; i < argument.size(); ++i) {
        if (argument[i] != '=')
            names.back() += argument[i];
        else if (argument.compare(i, 2, "==") == 0)
            names.back() += argument[i++];
        else
            names.emplace_back();
    }
    if (names.size() != 2)
        throw CLI::ValidationError(option, Quoted(argument) + " is not OLD=NEW; write == for a = in a name");
    const TString oldName = FromUtf8(names[0], option);
    const TString newName = FromUtf8(names[1], option);
    const auto known = newNames.emplace(oldName, newName).first;
    if (known->second != newName)
        throw CLI::ValidationError(option, Quoted(oldName) + " has two new names; omit one of them");
    if (option == "--sheet" ? newName.empty() : !corvanemarkup::VizInTooltip::IsFieldName(newName))
        throw CLI::ValidationError(option, Quoted(newName) + " cannot be the name of a " + option.substr(2));
}

void CheckArguments(const Arguments& arguments)
{
    const auto standardInputs = std::count(arguments.Files.begin(), arguments.Files.end(), StandardInput);
    if (standardInputs > 1)
        throw CLI::ValidationError("FILE", "only one can be standard input");
    if (arguments.InPlace && standardInputs > 0)
        throw CLI::ValidationError("--in-place",
                                   "cannot replace standard input; omit --in-place, or name only files");
    if (arguments.Verb == "rename") {
        if (arguments.NewNames.Sheets.empty() && arguments.NewNames.Fields.empty())
            throw CLI::ValidationError("nothing to rename", "give --sheet OLD=NEW or --field OLD=NEW");
        std::error_code unknown;
        const bool isOneFile =
            arguments.Files.size() == 1 &&
            !std::filesystem::is_directory(std::filesystem::u8path(arguments.Files[0]), unknown);
        if (arguments.Diff && arguments.Format == "json")
            throw CLI::ValidationError("--diff", "cannot be combined with --format=json; omit one of them");
        if (!isOneFile && !arguments.InPlace && !arguments.Diff && arguments.Format == "text")
            throw CLI::ValidationError(
                "FILE", "several files cannot go to standard output; add --in-place or --diff");
    }
    if (arguments.Verb == "insert" &&
        !corvanemarkup::VizInTooltip::IsFieldName(FromUtf8(arguments.Field, "--field")))
        throw CLI::ValidationError("--field", Quoted(arguments.Field) + " cannot be the name of a field");
}

std::string VerbNames(const CLI::App& app)
{
    std::string names;
    for (const CLI::App* verb : app.get_subcommands([](const CLI::App*) { return true; }))
        names += (names.empty() ? "" : ", ") + verb->get_name();
    return names;
}

std::string HelpFooter()
{
    std::string footer;
    for (const HelpSection& section : sections) {
        footer += (footer.empty() ? "" : "\n\n") + section.Title + ":\n  ";
        for (const char character : section.Text)
            footer += character == '\n' ? "\n  " : std::string(1, character);
    }
    return footer;
}

} // namespace

Arguments ReadArguments(std::vector<std::string> commandLine)
{
    CLI::App app("Check, show and edit the markup of tooltips", "tooltip-report");
    app.set_version_flag("--version", "tooltip-report " TOOLTIP_REPORT_VERSION);
    app.require_subcommand(0, 1);
    for (const auto& [label, word] : {std::pair("SUBCOMMAND", "VERB"), std::pair("Positionals", "Arguments"),
                                      std::pair("REQUIRED", "(required)")})
        app.get_formatter()->label(label, word);
    app.group("Verbs"); // inherited by the verbs
    Arguments arguments;
    RenamingTexts renaming;
    AddCheck(app, arguments);
    AddShow(app, arguments);
    AddChanges(app, arguments);
    AddRename(app, arguments, renaming);
    AddInsert(app, arguments);
    const CLI::Option* manPage = app.add_flag("--man-page", "Print the man page");
    const CLI::Option* bashCompletion = app.add_flag("--bash-completion", "Print the Bash completion");
    app.footer(HelpFooter());

    std::string help = "tooltip-report --help";
    const auto usageError = [&help](const std::string& message) {
        return UsageError(message + "; see " + help);
    };
    try {
        std::reverse(commandLine.begin(), commandLine.end()); // CLI11 expects the first one last
        app.parse(commandLine);
        if (*manPage)
            arguments.Text = ManPage(app, sections);
        else if (*bashCompletion)
            arguments.Text = BashCompletion(app);
        if (!arguments.Text.empty())
            return arguments;
        if (app.get_subcommands().empty())
            throw usageError("no verb is given; type one of " + VerbNames(app));
        arguments.Verb = app.get_subcommands().front()->get_name();
        help = "tooltip-report " + arguments.Verb + " --help";
        for (const std::string& text : renaming.Sheets)
            ReadRenaming("--sheet", text, arguments.NewNames.Sheets);
        for (const std::string& text : renaming.Fields)
            ReadRenaming("--field", text, arguments.NewNames.Fields);
        CheckArguments(arguments);
        return arguments;
    } catch (const CLI::Success& helpOrVersion) {
        std::ostringstream text;
        app.exit(helpOrVersion, text, text);
        arguments.Text = text.str();
        return arguments;
    } catch (const CLI::Error& error) {
        const std::vector<std::string> unexpected = app.remaining(true);
        if (app.get_subcommands().empty()) {
            const bool isOption = !unexpected.empty() && unexpected.front().compare(0, 1, "-") == 0;
            throw usageError(unexpected.empty()
                                 ? error.what()
                                 : Quoted(unexpected.front()) + " is not " +
                                       (isOption ? "an option" : "a verb; type one of " + VerbNames(app)));
        }
        help = "tooltip-report " + app.get_subcommands().front()->get_name() + " --help";
        // The unexpected argument may be the misspelt required one.
        throw usageError(unexpected.empty() ? error.what() : "unexpected " + Quoted(unexpected.front()));
    }
}

} // namespace tooltipreport
