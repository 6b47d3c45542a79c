#pragma once

/// The platform's size.

/// A width and a height.
struct TSize
{
    constexpr TSize(int sizeWidth, int sizeHeight) : width(sizeWidth), height(sizeHeight) {}

    int width;
    int height;
};
