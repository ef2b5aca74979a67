/// Drawing: the operations of the platform's device interface, under their names.
///
/// A DeviceContext holds what is selected (pen, brush, font, colours, alignment, the current position) and forwards
/// strokes to a Surface, which a host implements: the window's backing image, a page of paper, a PDF, an SVG or PNG
/// file, a recorder. All coordinates are pixels of that surface, x to the right and y downward. A line's, box's or
/// ellipse's right and bottom edge don't belong to it. Main thread.
#pragma once
#include "platform/types.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zarn
{
/// How lines are drawn. Width 1 is a hair line.
struct Pen
{
    bool bNull = false;
    int32_t lWidth = 1; ///< pixels
    COLORREF color = 0;
    bool operator==(Pen const&) const = default;
};

/// How areas are filled.
struct Brush
{
    bool bNull = false;
    COLORREF color = 0;
    bool operator==(Brush const&) const = default;
};

/// The face is DejaVu Sans everywhere; what varies is how large, how wide and how heavy.
struct Font
{
    int32_t lHeight = 0; ///< as asked for: pixels of the cell when above 0, of the em when below 0
    int32_t lWidth = 0;  ///< average character width in pixels; 0 is the face's own
    bool bBold = false;
};

/// Anything that can be selected. Stock objects live for ever; made ones until DeleteObject.
struct GdiObject
{
    enum Kind
    {
        PEN,
        BRUSH,
        FONT
    } kind = PEN;
    Pen pen;
    Brush brush;
    Font font;
    bool bStock = false;
};
using HGDIOBJ = GdiObject*;
using HPEN = GdiObject*;
using HBRUSH = GdiObject*;
using HFONT = GdiObject*;

constexpr int32_t WHITE_BRUSH = 0;
constexpr int32_t BLACK_BRUSH = 4;
constexpr int32_t NULL_BRUSH = 5;
constexpr int32_t NULL_PEN = 6;
constexpr int32_t BLACK_PEN = 7;
constexpr int32_t PS_SOLID = 0;
constexpr int32_t TRANSPARENT = 1;
constexpr uint32_t TA_TOP = 0;
constexpr uint32_t TA_BOTTOM = 8;
constexpr int32_t HORZRES = 8;
constexpr int32_t VERTRES = 10;

/// What a text is drawn with, resolved: a size that the surface can use as it stands.
struct TextStyle
{
    double emPixels = 0; ///< height of the em
    double stretch = 1;  ///< horizontal, 1 is the face's own width
    bool bBold = false;
    COLORREF color = 0;
};

constexpr double screenEm = 13; ///< pixels: the em of a text on the screen whose font asks for no size

/// What a host draws on. Boxes come normalised (left below right, top below bottom) and never empty; with a null pen
/// the box is what the brush fills, to the last pixel. A line is never a single point, and its pen never null. A
/// polygon has two points or more. At least one of a shape's pen and brush draws.
class Surface
{
public:
    virtual ~Surface() = default;
    virtual SIZE Size() const = 0;
    virtual void Line(POINT from, POINT to, Pen const& pen) = 0;
    virtual void Box(RECT box, Pen const& pen, Brush const& brush) = 0;
    virtual void Ellipse(RECT box, Pen const& pen, Brush const& brush) = 0;
    virtual void Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush) = 0;
    /// Left end of the baseline; sText is valid UTF-8 without control characters, and not empty.
    virtual void Text(double x, double baseline, std::string_view sText, TextStyle const& style) = 0;
    /// Fills the box with no outline.
    virtual void Fill(RECT box, COLORREF color) = 0;
    /// The em, in pixels, of a text whose font asks for no size of its own.
    virtual double DefaultEm() const { return screenEm; }
};

struct PrinterContext;

/// A surface with what is selected on it.
struct DeviceContext
{
    Surface* pSurface = nullptr;
    HPEN hPen = nullptr;     ///< null: the stock black pen
    HBRUSH hBrush = nullptr; ///< null: the stock white brush
    HFONT hFont = nullptr;   ///< null: the default size, regular
    COLORREF textColor = 0;
    uint32_t textAlign = TA_TOP;
    int32_t bkMode = TRANSPARENT;
    POINT position = {};
    double defaultEm = 0;               ///< pixels, of a text whose font asks for no size; 0: the surface's own
    SIZE pageSize = {};                 ///< a printer's, which has no surface between pages
    PrinterContext* pPrinter = nullptr; ///< of a printer's context (platform/print.h)
};
using HDC = DeviceContext*;

[[nodiscard]] HGDIOBJ GetStockObject(int32_t lIndex); ///< one of the five indexes above; otherwise null
[[nodiscard]] HPEN CreatePen(int32_t lStyle, int32_t lWidth, COLORREF color);
[[nodiscard]] HBRUSH CreateSolidBrush(COLORREF color);
[[nodiscard]] HFONT CreateFontA(int32_t lHeight, int32_t lWidth, int32_t lWeight);
void DeleteObject(HGDIOBJ hObject);             ///< null and stock objects are passed over
HGDIOBJ SelectObject(HDC hdc, HGDIOBJ hObject); ///< gives what it replaces; null changes nothing

bool MoveToEx(HDC hdc, int32_t x, int32_t y);
bool LineTo(HDC hdc, int32_t x, int32_t y);
bool Ellipse(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom);
bool Rectangle(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom);
bool Polygon(HDC hdc, POINT const* aPoints, int32_t cPoints);
bool FillRect(HDC hdc, RECT const& box, HBRUSH hBrush);
int32_t SetBkMode(HDC hdc, int32_t lMode);
COLORREF SetTextColor(HDC hdc, COLORREF color);
uint32_t SetTextAlign(HDC hdc, uint32_t lAlign);
[[nodiscard]] uint32_t GetTextAlign(HDC hdc);
/// Draws at (x, y), which is the text's top left corner, or its bottom left one when the alignment says so. Bytes that
/// aren't valid UTF-8 are shown as Latin-1.
bool ExtTextOutA(HDC hdc, int32_t x, int32_t y, std::string_view sText);
/// Width and height of a text in the selected font, whole pixels.
bool GetTextExtentPoint32A(HDC hdc, std::string_view sText, SIZE* pSize);
[[nodiscard]] int32_t GetDeviceCaps(HDC hdc, int32_t lIndex); ///< HORZRES or VERTRES

/// GDI objects made and not deleted, for tests.
inline int32_t cGdiObjects = 0;
/// How many more can be made before one fails; -1 never fails. Tests only.
inline int32_t cGdiObjectsLeft = -1;
} // namespace zarn
