#pragma once

/// The man page and the Bash completion, generated from the program's help.

#include <CLI/App.hpp>

#include <string>

namespace tooltipreport {

/// A section of the program's general help.
struct HelpSection
{
    std::string Title;
    std::string Text;
};

/// Returns the source of the man page, for section 1.
[[nodiscard]] std::string ManPage(const CLI::App& app, const std::vector<HelpSection>& sections);

/// Returns the Bash completion, as a script to source. An option with a fixed set of values has them as its
/// type name, separated by `|`.
[[nodiscard]] std::string BashCompletion(const CLI::App& app);

} // namespace tooltipreport
