// The pointer's picture, by the same routines as the score's symbols, at a scale of its own.
#include "render/symbol_cursor.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "render/geometry.h"
#include "render/note_glyphs.h"
#include "render/strokes.h"
#include "render/symbols.h"

#include <optional>

namespace zarn
{
constexpr int32_t lUsualScale = 6; ///< pixels to a column and to a row

namespace
{
struct Spec
{
    std::optional<int32_t> lScale;
    POINT hotSpot;
};
} // namespace

static Spec ClefSpec(int32_t lClef)
{
    switch (lClef)
    {
    case 1:
        return {2, {5, 24}};
    case 2:
    case 4:
        return {3, {0, 30}};
    default:
        return {3, {16, 8}};
    }
}

static Spec SpecOf(int32_t lSort, int32_t lA)
{
    switch (lSort)
    {
    case NOTE:
        return lA & fFretEntrySign ? Spec{4, {2, 16}} : Spec{4, {16, 23}};
    case BAR:
    case DOUBLEBAR:
    case ARPEGSTART:
    case ARPEGEND:
    case REPEATFIRST:
        return {{}, {16, 30}};
    case CLEF:
        return ClefSpec(lA);
    case KEYSIG:
        return {4, {8, 20}};
    case REST:
        return {5, {8, 14}};
    case NEWLINE:
    case SHARP:
    case FLAT:
    case NATURAL:
        return {5, {16, 16}};
    case TIMESIG:
        return {4, {6, 18}};
    case SPACE:
    case CHORD:
    case LYRICS:
    case INSTRUMENT:
    case TEMPO:
    case TRANSPOSE:
    case TITLE:
    case TEXT:
    case ANNOT:
        return {{}, {0, 8}};
    case REPEATSTART:
    case REPEATEND:
    case REPEATENDSTART:
        return {4, {16, 30}};
    case TIE:
    case VOLUME:
    case MARKBEGIN:
    case MARKEND:
    case ABC:
    case SLUR:
        return {{}, {1, 8}};
    default:
        return {{}, {16, 16}};
    }
}

POINT CursorSpec(int32_t lSort, int32_t lA)
{
    Spec const spec = SpecOf(lSort, lA);
    if (spec.lScale)
        SetCursorScale(*spec.lScale);
    return spec.hotSpot;
}

static void DrawCurrentSymbol(HDC hdc)
{
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    if (elCurrent.sort == NOTE && (elCurrent.lA & fFretEntrySign))
        DrawText(hdc, 2, 6, Format("%d", lFretNumber), true);
    else
        DrawSymbol(hdc, nullptr, &elCurrent, elCurrent.sort == CLEF ? elCurrent.lA : 1, true);
    if (elCurrent.sort == NOTE && IsTriplet(elCurrent.lDuration))
        TripletMark(hdc, 7, 2); // whatever its stem does
}

void MakeSymbolCursor(HWND hwnd)
{
    HDC const hdc = BeginCursor(hwnd);
    if (!hdc)
    {
        if (hwnd)
            Serious("Oh my goodness, this machine has a weird implementation of FillRect\n"
                    "You're going to see a funny cursor.\nPlease tell Odrian");
        return;
    }
    SetCursorScale(lUsualScale);
    bDrawingCursor = true;
    POINT const hotSpot = CursorSpec(elCurrent.sort, elCurrent.lA);
    elCurrent.lX = hotSpot.x;
    elCurrent.lY = hotSpot.y;
    DrawCurrentSymbol(hdc);
    SetWindowUnits(GetClientRect(hwnd));
    bDrawingCursor = false;
    CreateCursor(hwnd, hdc, hotSpot);
}

void ReassertCursor(HWND hwnd) { SetCursor(hwnd, PointerShape::SYMBOL); }
} // namespace zarn
