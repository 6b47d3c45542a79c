#pragma once

/// Texts that are made to take long.

#include <corvaneplatform/TString.h>

#include <string>
#include <vector>

/// Texts of one kind, in every length. A pattern is stretches between `|`: each once, or over and over after
/// a `*`, `#` in it counting up. `'` stands for a quote.
struct HostileFamily
{
    std::string Name;
    std::u16string Pattern;

    /// A text of about `length` code units, of which the repeated stretches have equal shares.
    [[nodiscard]] TString Make(std::size_t length) const;
};

/// All families, each as it is and as the filter value of a sheet element.
std::vector<HostileFamily> HostileFamilies();
