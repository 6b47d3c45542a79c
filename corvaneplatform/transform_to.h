#pragma once

/// From one container to another.

#include <algorithm>
#include <iterator>

namespace corvane {

/// A new `Destination` with the result of `function` for every element of `source`, in the order of `source`.
/// Each result is moved in at the end; a set or map orders them, and drops those that it already holds.
template <typename Destination, typename Source, typename Function>
[[nodiscard]] Destination transform_to(const Source& source, Function function)
{
    Destination destination;
    std::transform(source.begin(), source.end(), std::inserter(destination, destination.end()), function);
    return destination;
}

} // namespace corvane
