#pragma once

/// What is made from the program's help: its man page and its completion.

#include <CLI/App.hpp>

#include <string>

namespace tooltipreport {

/// A part of the help of the whole program.
struct HelpSection
{
    std::string Title;
    std::string Text;
};

/// The man page in section 1, as source of `man`.
[[nodiscard]] std::string ManPage(const CLI::App& app, const std::vector<HelpSection>& sections);

/// The completion for bash, to be sourced. The type name of an option that takes one of a few words is these
/// words with `|` in between.
[[nodiscard]] std::string BashCompletion(const CLI::App& app);

} // namespace tooltipreport
