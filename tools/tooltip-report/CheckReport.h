#pragma once

/// The reports of `check`, one per output format.

#include "Files.h"
#include "Findings.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace tooltipreport {

/// What `check` has found so far.
struct CheckCounts
{
    std::size_t Files = 0;
    std::size_t Errors = 0;
    std::size_t Warnings = 0;
    std::size_t Unreadable = 0;
};

/// Receives each file in turn, and the end.
class CheckReport
{
public:
    CheckReport() = default;
    CheckReport(const CheckReport&) = delete;
    CheckReport& operator=(const CheckReport&) = delete;
    virtual ~CheckReport() = default;

    virtual void Checked(const TooltipFile& file, const std::vector<Finding>& findings) = 0;
    virtual void Unreadable(const std::string& path, const std::string& problem) = 0;
    virtual void End(const CheckCounts& counts) = 0;
};

/// For people, in the style of compilers: a line per diagnostic, then the line of the tooltip and a ruler.
[[nodiscard]] std::unique_ptr<CheckReport> MakeTextReport(std::ostream& out, bool hasColours);
/// For scripts; docs/checking.md describes the format.
[[nodiscard]] std::unique_ptr<CheckReport> MakeJsonReport(std::ostream& out);
/// SARIF 2.1.0, for code review.
[[nodiscard]] std::unique_ptr<CheckReport> MakeSarifReport(std::ostream& out);

} // namespace tooltipreport
