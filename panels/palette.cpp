// The palette's table, its picture and its hit test.
//
// The glyphs are the score's own, in units of the palette's own: a column and a row are made so small that the tallest
// glyph, the treble clef, fits into the height whatever the score is stretched to.
#include "panels/palette.h"

#include "core/score.h"
#include "edit/current_symbol.h"
#include "edit/toggles.h"
#include "panels/panel_size.h"
#include "platform/memory.h"
#include "render/accidental_glyphs.h"
#include "render/bar_glyphs.h"
#include "render/clef_glyphs.h"
#include "render/geometry.h"
#include "render/note_glyphs.h"
#include "render/rest_glyphs.h"
#include "render/ties.h"
#include "shell/command_numbers.h"

#include <algorithm>

namespace zarn
{
namespace
{
constexpr COLORREF colorPaleYellow = 0xC0FFFF;
constexpr int32_t lQuaver = 24; ///< ticks
constexpr int32_t lDottedQuaver = 36;
constexpr int32_t lPanelStaff = 1; ///< the bar glyphs ask for a staff

// What a click makes of the current symbol.

bool CurrentIsNoteOrRest() { return elCurrent.sort == NOTE || elCurrent.sort == REST; }

/// A note keeps its pitch, its volume and its marks when only its length is chosen.
void TakeNote(int32_t lDuration)
{
    if (!CurrentIsNoteOrRest())
    {
        CurrentSymbol_SetNote(lDuration);
        return;
    }
    elCurrent.sort = NOTE;
    CurrentSymbol_SetDuration(lDuration);
}

void TakeRest(int32_t lDuration)
{
    if (!CurrentIsNoteOrRest())
    {
        CurrentSymbol_SetRest(lDuration);
        return;
    }
    elCurrent.sort = REST;
    CurrentSymbol_SetDuration(lDuration);
}

void TakeTriplet(int32_t)
{
    if (CurrentIsNoteOrRest())
        ToggleCurrentTriplet();
}

void TakeDot(int32_t)
{
    if (CurrentIsNoteOrRest())
        ToggleCurrentDot();
}

void TakeStaccato(int32_t) { ToggleCurrentStaccato(); }

void TakeOrnament(int32_t) { ToggleCurrentOrnament(); }

void TakeSymbol(int32_t sort) { CurrentSymbol_Set(sort); }

void TakeClef(int32_t lClef) { CurrentSymbol_Set(CLEF, lClef); }

// How a cell looks.

void ShowNote(HDC hdc, POINT place, int32_t lDuration) { DrawNote(hdc, place.x, place.y, {.lDuration = lDuration}); }

void ShowRest(HDC hdc, POINT place, int32_t lDuration) { DrawRest(hdc, place.x, place.y, lDuration, false); }

void ShowTriplet(HDC hdc, POINT place, int32_t) { TripletMark(hdc, place.x, place.y); }

void ShowDot(HDC hdc, POINT place, int32_t)
{
    DrawNote(hdc, place.x, place.y, {.lDuration = lDottedQuaver, .bDotted = true});
}

void ShowStaccato(HDC hdc, POINT place, int32_t)
{
    DrawNote(hdc, place.x, place.y, {.lDuration = lQuaver, .bStaccato = true});
}

void ShowOrnament(HDC hdc, POINT place, int32_t)
{
    DrawNote(hdc, place.x, place.y, {.lDuration = lQuaver, .bOrnament = true});
}

void ShowClef(HDC hdc, POINT place, int32_t lClef) { DrawClef(hdc, place.x, place.y, lClef); }

void ShowTie(HDC hdc, POINT place, int32_t)
{
    TieCurve(hdc, place, {place.x + lPanelWidth / lPaletteColumns, place.y}, true);
}

/// A glyph of one's own staff, in the manner of a cell.
template <int32_t (*DRAW)(HDC, int32_t, int32_t, int32_t)>
void ShowBar(HDC hdc, POINT place, int32_t)
{
    DRAW(hdc, place.x, place.y, lPanelStaff);
}

template <int32_t (*DRAW)(HDC, int32_t, int32_t)>
void ShowSign(HDC hdc, POINT place, int32_t)
{
    DRAW(hdc, place.x, place.y);
}
} // namespace

// The first one is deliberately not drawn: a click at its place gives a brieve all the same.
PaletteCell const aPaletteCell[cPaletteCells] = {
    {1, 2, "Brieve  1", 384, nullptr, TakeNote},
    {2, 2, "Semibreve  2", 192, ShowNote, TakeNote},
    {3, 2, "Minim  3", 96, ShowNote, TakeNote},
    {4, 2, "Crotchet  4", 48, ShowNote, TakeNote},
    {5, 2, "Quaver  5", 24, ShowNote, TakeNote},
    {6, 2, "Semiquaver  6", 12, ShowNote, TakeNote},
    {7, 2, "Demisemiquaver  7", 6, ShowNote, TakeNote},
    {8, 2, "Grace note  8", 0, ShowNote, TakeNote},
    {2, 4, "Semibreve rest  Shift+2", 192, ShowRest, TakeRest},
    {3, 4, "Minim rest  Shift+3", 96, ShowRest, TakeRest},
    {4, 4, "Crotchet rest  Shift+4", 48, ShowRest, TakeRest},
    {5, 4, "Quaver rest  Shift+5", 24, ShowRest, TakeRest},
    {6, 4, "Semiquaver rest  Shift+6", 12, ShowRest, TakeRest},
    {7, 4, "Demisemiquaver rest  Shift+7", 6, ShowRest, TakeRest},
    {10, 3, "Triplet on or off  ;", 0, ShowTriplet, TakeTriplet},
    {11, 3, "Dot on or off  .", 0, ShowDot, TakeDot},
    {12, 3, "Staccato on or off  ,", 0, ShowStaccato, TakeStaccato},
    {13, 3, "Ornament on or off  ~", 0, ShowOrnament, TakeOrnament},
    {15, 3, "Bar  /", BAR, ShowBar<BarGlyph>, TakeSymbol},
    {16, 3, "Double bar  |", DOUBLEBAR, ShowBar<DoubleBarGlyph>, TakeSymbol},
    {17, 3, "Repeat start  {", REPEATSTART, ShowBar<RepeatStartGlyph>, TakeSymbol},
    {18, 3, "Repeat end  }", REPEATEND, ShowBar<RepeatEndGlyph>, TakeSymbol},
    {19, 3, "Repeat end and start  R", REPEATENDSTART, ShowBar<RepeatEndStartGlyph>, TakeSymbol},
    {21, 3, "Sharp  #", SHARP, ShowSign<SharpGlyph>, TakeSymbol},
    {22, 3, "Natural  =", NATURAL, ShowSign<NaturalGlyph>, TakeSymbol},
    {23, 3, "Flat  b", FLAT, ShowSign<FlatGlyph>, TakeSymbol},
    {24, 3, "Treble clef", 1, ShowClef, TakeClef},
    {25, 3, "Alto clef", 2, ShowClef, TakeClef},
    {27, 2, "Bass clef", 3, ShowClef, TakeClef},
    {28, 3, "Tie  t", TIE, ShowTie, TakeSymbol},
    {26, 2, "Tenor clef", 4, ShowClef, TakeClef},
};

namespace
{
void TakeSize(Panel& window)
{
    SIZE const size = window.ClientSize();
    lPanelWidth = size.cx;
    lPanelHeight = size.cy;
}

/// The grid's units, made small for as long as one lives. The pen is another one rather than a renewed one: somebody
/// may be drawing the score with the grid's own.
class PaletteUnits
{
public:
    PaletteUnits()
        : before{xunit,   yunit,    lBlobX, lBlobY, lStemLength, lPageWidth, lPageHeight, aStaffRow[lPanelStaff],
                 bNoClip, hpenBlack}
    {
        constexpr int32_t lRowsAboveCurl = 12; // of a treble clef, which stands half way down
        constexpr int32_t lColumnsOfGlyph = 6; // of the widest glyph, side by side with the next
        yunit = std::max(lPanelHeight / 2 / lRowsAboveCurl, 1);
        xunit = std::clamp(yunit * 6 / 5, 1, std::max(lPanelWidth / lPaletteColumns / lColumnsOfGlyph, 1));
        lBlobX = std::max(xunit * 7 / 4, 1);
        lBlobY = std::max(yunit * 7 / 4, 1);
        lStemLength = yunit * 9 / 2;
        lPageWidth = xunit * lColsPerLine;
        lPageHeight = yunit * lRowsPerPage;
        aStaffRow[lPanelStaff] = 1;
        bNoClip = true;
        hpenBlack = CreatePen(PS_SOLID, std::max(yunit / 3, 1), 0);
    }
    ~PaletteUnits()
    {
        DeleteObject(hpenBlack);
        hpenBlack = before.hpenBlack;
        xunit = before.xunit;
        yunit = before.yunit;
        lBlobX = before.lBlobX;
        lBlobY = before.lBlobY;
        lStemLength = before.lStemLength;
        lPageWidth = before.lPageWidth;
        lPageHeight = before.lPageHeight;
        aStaffRow[lPanelStaff] = before.lStaffRow;
        bNoClip = before.bNoClip;
    }
    PaletteUnits(PaletteUnits const&) = delete;
    PaletteUnits& operator=(PaletteUnits const&) = delete;

private:
    struct Grid
    {
        int32_t xunit;
        int32_t yunit;
        int32_t lBlobX;
        int32_t lBlobY;
        int32_t lStemLength;
        int32_t lPageWidth;
        int32_t lPageHeight;
        int32_t lStaffRow;
        bool bNoClip;
        HPEN hpenBlack;
    };
    Grid before;
};

class PaletteContent : public PanelContent
{
public:
    void Paint(Panel& panel, HDC hdc) override { Palette_Paint(panel, hdc); }
    [[nodiscard]] COLORREF Background() const override { return colorPaleYellow; }
    [[nodiscard]] std::string TipAt(Panel& panel, POINT place) override
    {
        PaletteCell const* const pCell = Palette_CellAt(panel.ClientSize(), place);
        return pCell ? pCell->sTip : "";
    }
};
} // namespace

Panel* Palette_Create(HWND hwndParent)
{
    static PaletteContent content;
    constexpr char const* szClass = "palette";
    if (!RegisterClassA(szClass, {.sName = "Note palette",
                                  .pContent = &content,
                                  .click = EventKind::PALETTE,
                                  .lCloseCommand = COMMAND_PALETTECLOSED}))
    {
        OutputDebugStringA("Palette didn't register\n");
        return nullptr;
    }
    Panel* const pPanel = CreatePanel(hwndParent, szClass);
    if (!pPanel)
        OutputDebugStringA("Palette creation failed\n");
    return pPanel;
}

void Palette_Paint(Panel& window, HDC hdc)
{
    if (bPrinting)
        return;
    TakeSize(window);
    PaletteUnits const units;
    constexpr int32_t lFontRows = 4;
    constexpr int32_t lBoldWeight = 700;
    HFONT const hFont = CreateFontA(yunit * lFontRows, 0, lBoldWeight);
    HGDIOBJ const hFontBefore = SelectObject(hdc, hFont);
    HGDIOBJ const hbrBefore = SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    MoveToEx(hdc, 0, 0);
    LineTo(hdc, lPanelWidth, 0);
    for (PaletteCell const& cell : aPaletteCell)
        if (cell.pDraw)
            cell.pDraw(hdc, {cell.lColumn * lPanelWidth / lPaletteColumns, cell.lRow * lPanelHeight / lPaletteRows},
                       cell.lValue);
    SelectObject(hdc, hbrBefore);
    SelectObject(hdc, hFontBefore);
    DeleteObject(hFont);
}

PaletteCell const* Palette_CellAt(SIZE size, POINT place)
{
    if (size.cx <= 0 || size.cy <= 0)
        return nullptr;
    int64_t const lColumn = (size.cx / 2 + int64_t{lPaletteColumns} * place.x) / size.cx;
    int64_t const lRow = (size.cy / 2 + int64_t{lPaletteRows} * place.y) / size.cy;
    PaletteCell const* pOnly = nullptr;
    int32_t cInColumn = 0;
    for (PaletteCell const& cell : aPaletteCell)
    {
        if (cell.lColumn != lColumn)
            continue;
        if (cell.lRow == lRow)
            return &cell;
        pOnly = ++cInColumn == 1 ? &cell : nullptr;
    }
    return pOnly;
}

int32_t Palette_Hit(Panel& window, int32_t x, int32_t y)
{
    TakeSize(window);
    PaletteCell const* const pCell = Palette_CellAt({lPanelWidth, lPanelHeight}, {x, y});
    if (!pCell)
    {
        MessageBeep(MB_ICONQUESTION);
        return 0;
    }
    pCell->pTake(pCell->lValue);
    return 1;
}
} // namespace zarn
