#pragma once

/// Transforms one container into another.

#include <algorithm>
#include <iterator>

namespace corvane {

/// Returns a `Destination` that contains the result of `function` for every element of `source`, inserted at
/// the end in the order of `source`. A set or map sorts them and drops duplicates.
template <typename Destination, typename Source, typename Function>
[[nodiscard]] Destination transform_to(const Source& source, Function function)
{
    Destination destination;
    std::transform(source.begin(), source.end(), std::inserter(destination, destination.end()), function);
    return destination;
}

} // namespace corvane
