#pragma once

/// Transforms one container into another.

#include <iterator>

namespace corvane {

template <typename Destination, typename Source, typename Function>
Destination transform_to(const Source& source, Function function)
{
    Destination destination;
    auto place = std::inserter(destination, destination.end());
    for (const auto& element : source)
        *place++ = function(element);
    return destination;
}

} // namespace corvane
