/// The small types that every host operation shares.
#pragma once
#include <cstdint>

namespace zarn
{
/// A colour as 0x00BBGGRR: red in the low byte.
using COLORREF = uint32_t;

/// A place in pixels of the surface at hand: x to the right, y downward.
struct POINT
{
    int32_t x = 0;
    int32_t y = 0;
    friend bool operator==(POINT const&, POINT const&) = default;
};

/// Width and height in pixels.
struct SIZE
{
    int32_t cx = 0;
    int32_t cy = 0;
    friend bool operator==(SIZE const&, SIZE const&) = default;
};

/// A box in pixels: left and top belong to it, right and bottom don't.
struct RECT
{
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
    friend bool operator==(RECT const&, RECT const&) = default;
};

/// lNumber * lNumerator / lDenominator in 64 bits, rounded to nearest, halves away from zero; -1 for a denominator of 0
/// or a result beyond 32 bits.
[[nodiscard]] int32_t MulDiv(int32_t lNumber, int32_t lNumerator, int32_t lDenominator);
} // namespace zarn
