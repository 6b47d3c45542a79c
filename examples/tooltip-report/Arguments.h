#pragma once

/// What the program is called with.

#include "Edits.h"

#include <boost/optional.hpp>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tooltipreport {

/// The call is wrong. The message is for the user, and tells what to type next.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The arguments of all verbs; each reads its own.
struct Arguments
{
    std::string Verb;
    std::string Text; ///< if `Verb` is empty: what to print instead, such as the help

    std::vector<std::string> Files;
    std::string Pattern = "*.tooltip";
    std::string Format = "text";
    std::string Color = "auto";

    std::vector<std::string> Sheets; ///< those that exist
    std::string SheetsFile;
    bool WarningsAsErrors = false;

    Renaming NewNames;
    bool InPlace = false;
    bool Diff = false;

    std::string At;
    std::string Field;
    std::string ExclusiveField = "All";
    bool Caret = false;
};

/// Reads the arguments of the program, without its name. Throws `UsageError`.
[[nodiscard]] Arguments ReadArguments(std::vector<std::string> commandLine);

} // namespace tooltipreport
