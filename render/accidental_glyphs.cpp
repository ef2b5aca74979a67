// Accidentals.
#include "render/accidental_glyphs.h"

#include "render/geometry.h"
#include "render/strokes.h"

namespace zarn
{
int32_t SharpGlyph(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    constexpr int32_t t = 30;
    int32_t const a = lBlobX;
    int32_t const b = lBlobY;
    Stroke(hdc, x - a / 4, y + b, x - a / 4 + a / 8, y - b, t, true);
    Stroke(hdc, x + a / 4 - a / 8, y + b, x + a / 4, y - b, t, true);
    Stroke(hdc, x - a / 2, y + b / 2, x + a / 2, y + b / 2 - b / 8, t);
    Stroke(hdc, x - a / 2, y - b / 2 + b / 8, x + a / 2, y - b / 2, t);
    return 1;
}

int32_t NaturalGlyph(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    constexpr int32_t t = 20;
    int32_t const a = lBlobX;
    int32_t const b = lBlobY;
    VLine(hdc, x - a / 2, y - b / 2 - b, y + b / 2, t);
    HLine(hdc, x - a / 2, y + b / 2, x + a / 2, t);
    HLine(hdc, x - a / 2, y - b / 2, x + a / 2, t);
    VLine(hdc, x + a / 2, y - b / 2, y + b + b / 2, t);
    return 1;
}

int32_t FlatGlyph(HDC hdc, int32_t x, int32_t y)
{
    if (OffPage(y))
        return 0;
    constexpr int32_t t = 40;
    int32_t const a = lBlobX;
    int32_t const b = lBlobY;
    int32_t const x0 = x - a / 2;
    int32_t const y0 = y - b / 2;
    Stroke(hdc, x0, y0, x0 + a, y0 - b / 4, t);
    Stroke(hdc, x0 + a, y0 - b / 4, x0 + a, y0 + b / 4, t, true);
    Stroke(hdc, x0 + a, y0 + b / 4, x0, y0 + b, t, true);
    VLine(hdc, x0, y0 + b, y0 - lStemLength, 15);
    return 1;
}
} // namespace zarn
