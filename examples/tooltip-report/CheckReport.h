#pragma once

/// What `check` tells, in each of its forms.

#include "Faults.h"
#include "Files.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace tooltipreport {

/// What `check` has met so far.
struct CheckCounts
{
    std::size_t Files = 0;
    std::size_t Errors = 0;
    std::size_t Warnings = 0;
    std::size_t Unreadable = 0;
};

/// Is told of each file in turn, and of the end.
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

/// For people, as compilers print: one line for each fault, the line of the tooltip and a ruler.
[[nodiscard]] std::unique_ptr<CheckReport> MakeTextReport(std::ostream& out, bool hasColours);
/// For scripts; docs/json.md tells the form.
[[nodiscard]] std::unique_ptr<CheckReport> MakeJsonReport(std::ostream& out);
/// SARIF 2.1.0, for pages of code review.
[[nodiscard]] std::unique_ptr<CheckReport> MakeSarifReport(std::ostream& out);

} // namespace tooltipreport
