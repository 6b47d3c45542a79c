#include "Manual.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace tooltipreport {

namespace {

using Options = std::vector<const CLI::Option*>;

Options OptionsOf(const CLI::App& app)
{
    return app.get_options([](const CLI::Option* option) { return option->nonpositional(); });
}

std::vector<const CLI::App*> VerbsOf(const CLI::App& app)
{
    return app.get_subcommands([](const CLI::App*) { return true; });
}

/// `text` as it stands, in the source of a man page.
std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (const char character : text) {
        if (character == '\\')
            escaped += "\\e";
        else if (character == '-')
            escaped += "\\-";
        else if ((character == '.' || character == '\'') && (escaped.empty() || escaped.back() == '\n'))
            escaped += std::string("\\&") + character;
        else
            escaped += character;
    }
    return escaped;
}

void AddOptions(std::ostream& page, const Options& options)
{
    for (const CLI::Option* option : options) {
        page << ".TP\n.B " << Escaped(option->get_name(!option->nonpositional(), true));
        if (option->nonpositional() && option->get_items_expected_max() > 0)
            page << " \\fI" << Escaped(option->get_type_name()) << "\\fR";
        page << '\n' << Escaped(option->get_description());
        if (!option->get_default_str().empty())
            page << "; " << Escaped(option->get_default_str()) << " if it isn\\(aqt given";
        page << '\n';
    }
}

/// The positional arguments as in a usage line, such as `FILE...`.
std::string Usage(const CLI::App& verb)
{
    std::string usage;
    for (const CLI::Option* option : verb.get_options()) {
        if (option->nonpositional())
            continue;
        const bool isList = option->get_items_expected_max() > 1;
        const std::string name = option->get_name(true) + (isList ? "..." : "");
        usage += ' ' + (option->get_required() ? name : '[' + name + ']');
    }
    return usage;
}

std::string InCapitals(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
    return text;
}

/// The names of options as a shell's words.
std::string Words(const Options& options)
{
    std::string words;
    for (const CLI::Option* option : options) {
        for (const std::string& name : option->get_lnames())
            words += (words.empty() ? "--" : " --") + name;
    }
    return words;
}

} // namespace

std::string ManPage(const CLI::App& app, const std::vector<HelpSection>& sections)
{
    const std::string& program = app.get_name();
    std::ostringstream page;
    page << ".TH " << Escaped(InCapitals(program)) << R"( 1 "" ")" << Escaped(app.version())
         << "\"\n.SH NAME\n"
         << Escaped(program) << " \\- " << Escaped(app.get_description()) << "\n.SH SYNOPSIS\n";
    for (const CLI::App* verb : VerbsOf(app))
        page << ".B " << Escaped(program + ' ' + verb->get_name()) << "\n[OPTIONS]" << Escaped(Usage(*verb))
             << "\n.br\n";
    page << ".SH OPTIONS\n";
    AddOptions(page, OptionsOf(app));
    page << ".SH VERBS\n";
    for (const CLI::App* verb : VerbsOf(app)) {
        page << ".SS " << Escaped(verb->get_name() + Usage(*verb)) << '\n'
             << Escaped(verb->get_description()) << ".\n";
        AddOptions(page, verb->get_options());
        page << ".PP\n" << Escaped(verb->get_footer()) << '\n';
    }
    for (const HelpSection& section : sections)
        page << ".SH " << Escaped(InCapitals(section.Title)) << '\n' << Escaped(section.Text) << '\n';
    return page.str();
}

std::string BashCompletion(const CLI::App& app)
{
    std::ostringstream verbWords;
    std::ostringstream verbs;
    std::ostringstream choices;
    for (const CLI::App* verb : VerbsOf(app)) {
        verbWords << verb->get_name() << ' ';
        verbs << "    " << verb->get_name() << ") words='" << Words(OptionsOf(*verb)) << "' ;;\n";
        for (const CLI::Option* option : OptionsOf(*verb)) {
            std::string words = option->get_type_name();
            if (words.find('|') == std::string::npos)
                continue;
            std::replace(words.begin(), words.end(), '|', ' ');
            choices << "    " << verb->get_name() << ".--" << option->get_lnames().front() << ") words='"
                    << words << "' ;;\n";
        }
    }
    return "# Completion for bash; made by `" + app.get_name() +
           " --bash-completion`.\n"
           "_tooltip_report()\n{\n"
           "    local words='" +
           verbWords.str() + Words(OptionsOf(app)) +
           "'\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}\n"
           "    # An equals sign is a word of its own.\n"
           "    [ \"$word\" != = ] || word=\n"
           "    [ \"$option\" != = ] || option=${COMP_WORDS[COMP_CWORD - 2]}\n"
           "    [ \"${COMP_WORDS[COMP_CWORD]}\" != = ] || option=${COMP_WORDS[COMP_CWORD - 1]}\n"
           "    if [ \"$COMP_CWORD\" -gt 1 ]; then\n"
           "    case ${COMP_WORDS[1]} in\n" +
           verbs.str() +
           "    esac\n"
           "    case ${COMP_WORDS[1]}.$option in\n" +
           choices.str() +
           "    *) [[ $word == -* ]] || words= ;;\n"
           "    esac\n    fi\n"
           "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$word\")\n"
           "}\n"
           "complete -o bashdefault -o default -F _tooltip_report " +
           app.get_name() + "\n";
}

} // namespace tooltipreport
