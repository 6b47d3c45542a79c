#pragma once

/// The platform's type of sizes.

struct TSize
{
    constexpr TSize(int sizeWidth, int sizeHeight) : width(sizeWidth), height(sizeHeight) {}

    int width;
    int height;
};
