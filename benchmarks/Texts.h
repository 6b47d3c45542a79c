#pragma once

/// Benchmark inputs, the same on every machine: generated from fixed seeds. The order of attributes varies,
/// sizes and filters may be missing, some names hold doubled quotes, and one tooltip in three isn't in
/// English.

#include <corvaneplatform/TString.h>

#include <string>
#include <string_view>
#include <vector>

namespace benchmarks {

inline TString ToTString(std::u16string_view text)
{
    return TString(text.data(), static_cast<int>(text.size()));
}

/// Tooltips of 100 to 1,300 code units: prose, fields, and mostly a sheet. None names a sheet twice.
std::vector<std::u16string> ShortTooltips(std::size_t count);
/// One tooltip of the same kind with `length` code units, to within a sentence, and up to 2,000 sheets.
std::u16string LongTooltip(std::size_t length);
/// Prose with an element every 4,000 code units, every second one a sheet element.
std::u16string Prose(std::size_t length);

} // namespace benchmarks
