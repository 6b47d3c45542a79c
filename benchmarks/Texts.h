#pragma once

/// Tooltips to measure on, the same on every machine: generated from fixed seeds.

#include <corvaneplatform/TString.h>

#include <string>
#include <string_view>
#include <vector>

namespace benchmarks {

inline TString ToTString(std::u16string_view text)
{
    return TString(text.data(), static_cast<int>(text.size()));
}

/// Tooltips of 100 to 1,500 code units, as a designer of dashboards writes them: prose, fields, and a sheet
/// or a few.
std::vector<std::u16string> ShortTooltips(std::size_t count);
/// One tooltip of the same kind with `length` code units, give or take a sentence.
std::u16string LongTooltip(std::size_t length);
/// Prose with an element every 4,000 code units, each second one a sheet element.
std::u16string Prose(std::size_t length);

} // namespace benchmarks
