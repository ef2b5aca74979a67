// The device interface on top of a Surface: what is selected, and boxes put straight before they are drawn.
#include "platform/gdi.h"

#include "platform/font_metrics.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zarn
{
namespace
{
constexpr COLORREF black = 0;
constexpr COLORREF white = 0xFFFFFF;
constexpr int32_t lSmallestHeight = 5; ///< pixels; a font that asks for less gets the surface's default size

GdiObject whiteBrush{.kind = GdiObject::BRUSH, .pen = {}, .brush = {false, white}, .font = {}, .bStock = true};
GdiObject blackBrush{.kind = GdiObject::BRUSH, .pen = {}, .brush = {false, black}, .font = {}, .bStock = true};
GdiObject nullBrush{.kind = GdiObject::BRUSH, .pen = {}, .brush = {true, black}, .font = {}, .bStock = true};
GdiObject nullPen{.kind = GdiObject::PEN, .pen = {true, 1, black}, .brush = {}, .font = {}, .bStock = true};
GdiObject blackPen{.kind = GdiObject::PEN, .pen = {false, 1, black}, .brush = {}, .font = {}, .bStock = true};
GdiObject systemFont{.kind = GdiObject::FONT, .pen = {}, .brush = {}, .font = {}, .bStock = true};

HGDIOBJ Make(GdiObject const& object)
{
    if (cGdiObjectsLeft == 0)
    {
        cGdiObjectsLeft = -1;
        return nullptr;
    }
    if (cGdiObjectsLeft > 0)
        --cGdiObjectsLeft;
    ++cGdiObjects;
    return new GdiObject(object);
}

bool CanDraw(HDC hdc) { return hdc && hdc->pSurface; }

Pen const& PenOf(HDC hdc) { return (hdc->hPen ? hdc->hPen : &blackPen)->pen; }

Brush const& BrushOf(HDC hdc) { return (hdc->hBrush ? hdc->hBrush : &whiteBrush)->brush; }

/// Left below right and top below bottom; false when nothing is inside.
bool Straighten(RECT& box)
{
    if (box.left > box.right)
        std::swap(box.left, box.right);
    if (box.top > box.bottom)
        std::swap(box.top, box.bottom);
    return box.left < box.right && box.top < box.bottom;
}

/// The box of a shape as the surface gets it; false when there is nothing to draw.
bool ShapeBox(HDC hdc, RECT& box)
{
    if (!Straighten(box))
        return false;
    if (!PenOf(hdc).bNull)
        return true;
    // What a pen would have drawn at the right and the bottom stays empty without one.
    --box.right;
    --box.bottom;
    return !BrushOf(hdc).bNull && Straighten(box);
}

/// The one place where a font becomes a size.
TextStyle Resolve(HDC hdc)
{
    Font const font = hdc->hFont ? hdc->hFont->font : Font{};
    TextStyle style{.emPixels = 0, .stretch = 1, .bBold = font.bBold, .color = hdc->textColor};
    if (font.lHeight >= lSmallestHeight)
        style.emPixels = double{1} * font.lHeight * lUnitsPerEm / (lFaceAscent + lFaceDescent);
    else if (font.lHeight <= -lSmallestHeight)
        style.emPixels = -double{1} * font.lHeight;
    else
        style.emPixels = hdc->defaultEm > 0 ? hdc->defaultEm : hdc->pSurface->DefaultEm();
    if (font.lWidth > 0)
        style.stretch = double{1} * font.lWidth * lUnitsPerEm / (Face_AverageAdvance(font.bBold) * style.emPixels);
    return style;
}

int32_t Rounded(double x)
{
    return static_cast<int32_t>(std::lround(std::clamp(x, double{INT32_MIN}, double{INT32_MAX})));
}

std::string Printable(std::string_view sText)
{
    std::string const sUtf8 = Utf8OrLatin1(sText);
    std::string sPrintable;
    for (size_t lAt = 0; lAt < sUtf8.size();)
    {
        size_t const lFrom = lAt;
        if (!IsControlCharacter(Utf8_Next(sUtf8, lAt)))
            sPrintable.append(sUtf8, lFrom, lAt - lFrom);
    }
    return sPrintable;
}
} // namespace

HGDIOBJ GetStockObject(int32_t lIndex)
{
    switch (lIndex)
    {
    case WHITE_BRUSH:
        return &whiteBrush;
    case BLACK_BRUSH:
        return &blackBrush;
    case NULL_BRUSH:
        return &nullBrush;
    case NULL_PEN:
        return &nullPen;
    case BLACK_PEN:
        return &blackPen;
    default:
        return nullptr;
    }
}

HPEN CreatePen(int32_t, int32_t lWidth, COLORREF color)
{
    return Make({.kind = GdiObject::PEN, .pen = {false, std::max(lWidth, 1), color}, .brush = {}, .font = {}});
}

HBRUSH CreateSolidBrush(COLORREF color)
{
    return Make({.kind = GdiObject::BRUSH, .pen = {}, .brush = {false, color}, .font = {}});
}

HFONT CreateFontA(int32_t lHeight, int32_t lWidth, int32_t lWeight)
{
    constexpr int32_t lSemiBold = 600; // the face has two weights; from here on the bold one is nearer
    return Make({.kind = GdiObject::FONT, .pen = {}, .brush = {}, .font = {lHeight, lWidth, lWeight >= lSemiBold}});
}

void DeleteObject(HGDIOBJ hObject)
{
    if (!hObject || hObject->bStock)
        return;
    --cGdiObjects;
    delete hObject;
}

HGDIOBJ SelectObject(HDC hdc, HGDIOBJ hObject)
{
    if (!hdc || !hObject)
        return nullptr;
    switch (hObject->kind)
    {
    case GdiObject::PEN:
        std::swap(hdc->hPen, hObject);
        return hObject ? hObject : &blackPen;
    case GdiObject::BRUSH:
        std::swap(hdc->hBrush, hObject);
        return hObject ? hObject : &whiteBrush;
    case GdiObject::FONT:
        std::swap(hdc->hFont, hObject);
        return hObject ? hObject : &systemFont;
    }
    return nullptr;
}

bool MoveToEx(HDC hdc, int32_t x, int32_t y)
{
    if (!hdc)
        return false;
    hdc->position = {x, y};
    return true;
}

bool LineTo(HDC hdc, int32_t x, int32_t y)
{
    if (!CanDraw(hdc))
        return false;
    POINT const to{x, y};
    if (!PenOf(hdc).bNull && hdc->position != to)
        hdc->pSurface->Line(hdc->position, to, PenOf(hdc));
    hdc->position = to;
    return true;
}

bool Ellipse(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    if (!CanDraw(hdc))
        return false;
    RECT box{left, top, right, bottom};
    if (ShapeBox(hdc, box))
        hdc->pSurface->Ellipse(box, PenOf(hdc), BrushOf(hdc));
    return true;
}

bool Rectangle(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom)
{
    if (!CanDraw(hdc))
        return false;
    RECT box{left, top, right, bottom};
    if (ShapeBox(hdc, box))
        hdc->pSurface->Box(box, PenOf(hdc), BrushOf(hdc));
    return true;
}

bool Polygon(HDC hdc, POINT const* aPoints, int32_t cPoints)
{
    if (!CanDraw(hdc) || !aPoints || cPoints < 2)
        return false;
    if (!PenOf(hdc).bNull || !BrushOf(hdc).bNull)
        hdc->pSurface->Polygon({aPoints, static_cast<size_t>(cPoints)}, PenOf(hdc), BrushOf(hdc));
    return true;
}

bool FillRect(HDC hdc, RECT const& box, HBRUSH hBrush)
{
    if (!CanDraw(hdc) || !hBrush)
        return false;
    RECT straight = box;
    if (!hBrush->brush.bNull && Straighten(straight))
        hdc->pSurface->Fill(straight, hBrush->brush.color);
    return true;
}

int32_t SetBkMode(HDC hdc, int32_t lMode) { return hdc ? std::exchange(hdc->bkMode, lMode) : 0; }

COLORREF SetTextColor(HDC hdc, COLORREF color) { return hdc ? std::exchange(hdc->textColor, color) : 0; }

uint32_t SetTextAlign(HDC hdc, uint32_t lAlign) { return hdc ? std::exchange(hdc->textAlign, lAlign) : TA_TOP; }

uint32_t GetTextAlign(HDC hdc) { return hdc ? hdc->textAlign : TA_TOP; }

bool ExtTextOutA(HDC hdc, int32_t x, int32_t y, std::string_view sText)
{
    if (!CanDraw(hdc))
        return false;
    std::string const sPrintable = Printable(sText);
    if (sPrintable.empty())
        return true;
    TextStyle const style = Resolve(hdc);
    bool const bBottom = (hdc->textAlign & TA_BOTTOM) != 0;
    double const fromCorner = style.emPixels * (bBottom ? -lFaceDescent : lFaceAscent) / lUnitsPerEm;
    hdc->pSurface->Text(x, y + fromCorner, sPrintable, style);
    return true;
}

bool GetTextExtentPoint32A(HDC hdc, std::string_view sText, SIZE* pSize)
{
    if (!CanDraw(hdc))
        return false;
    TextStyle const style = Resolve(hdc);
    double const unit = style.emPixels / lUnitsPerEm;
    double const advance = static_cast<double>(Face_Advance(sText, style.bBold));
    *pSize = {Rounded(advance * unit * style.stretch), Rounded((lFaceAscent + lFaceDescent) * unit)};
    return true;
}

int32_t GetDeviceCaps(HDC hdc, int32_t lIndex)
{
    if (!hdc)
        return 0;
    SIZE const size = hdc->pSurface ? hdc->pSurface->Size() : hdc->pageSize;
    return lIndex == HORZRES ? size.cx : lIndex == VERTRES ? size.cy : 0;
}
} // namespace zarn
