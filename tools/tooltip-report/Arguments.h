#pragma once

/// Command line arguments.

#include "Edits.h"

#include <boost/optional.hpp>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tooltipreport {

/// The command line is invalid. The message is for the user, and says what to type next.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The arguments of all verbs. Each verb reads only its own.
struct Arguments
{
    std::string Verb;
    std::string Text; ///< what to print if `Verb` is empty, such as the help

    std::vector<std::string> Files;
    std::string Pattern = "*.tooltip";
    std::string Format = "text";
    std::string Color = "auto";

    std::vector<std::string> Sheets; ///< the sheets that exist
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

/// Parses the arguments, which don't include the program's name. Throws `UsageError`.
[[nodiscard]] Arguments ReadArguments(std::vector<std::string> commandLine);

} // namespace tooltipreport
