// Colours: a brush, a hair pen and a text colour over what the device had.
#include "render/colours.h"

#include "render/geometry.h"

namespace zarn
{
constexpr COLORREF colorRed = 0x0000FF;
constexpr COLORREF colorGreen = 0x00FF00;
constexpr COLORREF colorBlue = 0xFF0000;

static HBRUSH hbrSaved = nullptr;
static HPEN hpenSaved = nullptr; ///< null: no colour is in force
static COLORREF crSaved = 0;

static void Begin(HDC hdc, COLORREF color)
{
    if (hpenSaved)
        return;
    hbrSaved = SelectObject(hdc, CreateSolidBrush(color));
    hpenSaved = SelectObject(hdc, CreatePen(PS_SOLID, 1, color));
    crSaved = SetTextColor(hdc, color);
}

void BeginRed(HDC hdc)
{
    Begin(hdc, colorRed);
    bDrawRed = true;
}

void BeginGreen(HDC hdc)
{
    Begin(hdc, colorGreen);
    bDrawGreen = true;
}

void BeginBlue(HDC hdc)
{
    Begin(hdc, colorBlue);
    bDrawBlue = true;
}

void EndColour(HDC hdc)
{
    if (hpenSaved)
    {
        DeleteObject(SelectObject(hdc, hbrSaved));
        DeleteObject(SelectObject(hdc, hpenSaved));
        SetTextColor(hdc, crSaved);
        hbrSaved = hpenSaved = nullptr;
    }
    bDrawRed = bDrawBlue = bDrawGreen = false;
}

HPEN WidePen() { return bDrawBlue ? hpenBlue : bDrawRed ? hpenRed : bDrawGreen ? hpenGreen : hpenBlack; }
} // namespace zarn
