#pragma once

/// The reports of `rename`, one per output format.

#include "Edits.h"
#include "Files.h"

#include <memory>
#include <string>

namespace tooltipreport {

/// What `rename` has done so far.
struct RenameCounts
{
    std::size_t Files = 0;
    std::size_t Renamed = 0;
    std::size_t Kept = 0;
    std::size_t Unreadable = 0;
};

/// Receives each file in turn, and the end.
class RenameReport
{
public:
    RenameReport() = default;
    RenameReport(const RenameReport&) = delete;
    RenameReport& operator=(const RenameReport&) = delete;
    virtual ~RenameReport() = default;

    virtual void Renamed(const TooltipFile& file, const std::vector<MetName>& names) = 0;
    virtual void Unreadable(const std::string& path, const std::string& problem) = 0;
    /// `missing` holds the old names that no file contains.
    virtual void End(const RenameCounts& counts, const Renaming& missing) = 0;
};

/// For people: where and why names were kept, and the counts.
[[nodiscard]] std::unique_ptr<RenameReport> MakeRenameTextReport(std::ostream& out);
/// For scripts; docs/checking.md describes the format.
[[nodiscard]] std::unique_ptr<RenameReport> MakeRenameJsonReport(std::ostream& out);

} // namespace tooltipreport
