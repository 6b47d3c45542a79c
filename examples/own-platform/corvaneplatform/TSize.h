#pragma once

/// The host's type of sizes.

class TSize
{
public:
    constexpr TSize(int sizeWidth, int sizeHeight) : width(sizeWidth), height(sizeHeight) {}

    int width;
    int height;
};
