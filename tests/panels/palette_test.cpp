// The note palette: its table, its hit test, its picture.
#include "panels/palette.h"

#include "core/messages.h"
#include "edit/current_symbol.h"
#include "panels/panel_size.h"
#include "platform/headless/recording_surface.h"
#include "platform/memory.h"
#include "render/geometry.h"
#include "support/drawing.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
constexpr SIZE sizePalette{1200, 100};

class Palette : public testing::Test
{
protected:
    Palette()
    {
        hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
        pPalette = Palette_Create(hwndMain);
        pPalette->SetPlace({0, 700, sizePalette.cx, 700 + sizePalette.cy});
        CurrentSymbol_SetNote(48);
    }

    static POINT MiddleOf(int32_t lColumn, int32_t lRow)
    {
        return {lColumn * sizePalette.cx / lPaletteColumns, lRow * sizePalette.cy / lPaletteRows};
    }
    int32_t Hit(int32_t lColumn, int32_t lRow)
    {
        POINT const place = MiddleOf(lColumn, lRow);
        return Palette_Hit(*pPalette, place.x, place.y);
    }
    static int32_t CellAt(int32_t lColumn, int32_t lRow)
    {
        PaletteCell const* const pCell = Palette_CellAt(sizePalette, MiddleOf(lColumn, lRow));
        return pCell ? static_cast<int32_t>(pCell - aPaletteCell) : -1;
    }
    std::string Painted()
    {
        RecordingSurface surface{pPalette->ClientSize()};
        static_cast<HeadlessPanel*>(pPalette)->PaintOn(surface);
        return surface.All();
    }

    test::DrawingProcess process;
    Panel* pPalette = nullptr;
};

TEST_F(Palette, AClickOnEachSymbolMakesItTheCurrentOne)
{
    struct
    {
        int32_t lColumn, lRow, sort, lA, lDuration;
    } const aCases[] = {
        {1, 2, NOTE, 0, 384},
        {2, 2, NOTE, 0, 192},
        {3, 2, NOTE, 0, 96},
        {4, 2, NOTE, 0, 48},
        {5, 2, NOTE, 0, 24},
        {6, 2, NOTE, 0, 12},
        {7, 2, NOTE, 0, 6},
        {8, 2, NOTE, 0, 0},
        {2, 4, REST, 0, 192},
        {3, 4, REST, 0, 96},
        {4, 4, REST, 0, 48},
        {5, 4, REST, 0, 24},
        {6, 4, REST, 0, 12},
        {7, 4, REST, 0, 6},
        {10, 3, NOTE, 0, 32},
        {11, 3, NOTE, 0, 72},
        {12, 3, NOTE, fStaccato, 48},
        {13, 3, NOTE, fOrnament, 48},
        {15, 3, BAR, 0, -1},
        {16, 3, DOUBLEBAR, 0, -1},
        {17, 3, REPEATSTART, 0, -1},
        {18, 3, REPEATEND, 0, -1},
        {19, 3, REPEATENDSTART, 0, -1},
        {21, 3, SHARP, 0, -1},
        {22, 3, NATURAL, 0, -1},
        {23, 3, FLAT, 0, -1},
        {24, 3, CLEF, 1, -1},
        {25, 3, CLEF, 2, -1},
        {27, 2, CLEF, 3, -1},
        {28, 3, TIE, 0, -1},
        {26, 2, CLEF, 4, -1},
    };
    static_assert(std::size(aCases) == cPaletteCells);
    for (int32_t i = 0; i < cPaletteCells; ++i)
    {
        auto const& c = aCases[i];
        CurrentSymbol_SetNote(48);
        EXPECT_EQ(CellAt(c.lColumn, c.lRow), i);
        EXPECT_EQ(Hit(c.lColumn, c.lRow), 1) << aPaletteCell[i].sTip;
        EXPECT_EQ(elCurrent.sort, c.sort) << aPaletteCell[i].sTip;
        EXPECT_EQ(elCurrent.lA, c.lA) << aPaletteCell[i].sTip;
        if (c.lDuration >= 0)
        {
            EXPECT_EQ(elCurrent.lDuration, c.lDuration) << aPaletteCell[i].sTip;
        }
    }
    EXPECT_EQ(process.user.cBeeps, 0);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Too long.  Boredom coefficient > 1.0"})
        << "the brieve's";
}

TEST_F(Palette, AClickBetweenTheGroupsBeepsAndChangesNothing)
{
    EXPECT_EQ(Hit(9, 2), 0);
    EXPECT_EQ(process.user.cBeeps, 1);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 48);
    for (int32_t const lColumn : {0, 9, 14, 20, 29, 30, 31})
        EXPECT_EQ(CellAt(lColumn, 3), -1) << lColumn;
}

TEST_F(Palette, BetweenANoteAndItsRestNothingIsChosen)
{
    EXPECT_EQ(Hit(2, 3), 0);
    EXPECT_EQ(process.user.cBeeps, 1);
}

TEST_F(Palette, AColumnWithOneSymbolAnswersToAnyHeight)
{
    for (int32_t lRow = 0; lRow <= lPaletteRows; ++lRow)
    {
        EXPECT_EQ(CellAt(21, lRow), 23) << lRow;
        EXPECT_EQ(CellAt(1, lRow), 0) << lRow;
        EXPECT_EQ(CellAt(8, lRow), 7) << lRow;
        EXPECT_EQ(CellAt(26, lRow), 30) << lRow;
    }
}

TEST_F(Palette, AColumnBeginsHalfAUnitToTheLeftOfItsSymbol)
{
    // 1200 / 31 is 38.7: column 21 is nearest from 793.5 up to 832.2.
    auto const IsSharp = [](int32_t x) { return Palette_CellAt(sizePalette, {x, 50}) == &aPaletteCell[23]; };
    EXPECT_FALSE(IsSharp(793));
    EXPECT_TRUE(IsSharp(794));
    EXPECT_TRUE(IsSharp(832));
    EXPECT_FALSE(IsSharp(833));
}

TEST_F(Palette, ARowBeginsHalfAUnitAboveItsSymbol)
{
    // 100 / 6 is 16.7: row 2 is nearest from 25 up to 41.
    auto const IsCrotchet = [](int32_t y) { return Palette_CellAt(sizePalette, {155, y}) == &aPaletteCell[3]; };
    EXPECT_FALSE(IsCrotchet(24));
    EXPECT_TRUE(IsCrotchet(25));
    EXPECT_TRUE(IsCrotchet(41));
    EXPECT_FALSE(IsCrotchet(42));
}

TEST_F(Palette, ALengthKeepsThePitchTheVolumeAndTheMarksOfTheNote)
{
    elCurrent.lDiaPitch = 9;
    elCurrent.lB = 101;
    elCurrent.lA = fStaccato;
    Hit(3, 2);
    EXPECT_EQ(elCurrent.lDuration, 96);
    EXPECT_EQ(elCurrent.lDiaPitch, 9);
    EXPECT_EQ(elCurrent.lB, 101);
    EXPECT_EQ(elCurrent.lA, fStaccato);
    Hit(5, 4);
    EXPECT_EQ(elCurrent.sort, REST);
    EXPECT_EQ(elCurrent.lDuration, 24);
    EXPECT_EQ(elCurrent.lDiaPitch, 9);
}

TEST_F(Palette, ALengthAfterAnotherSymbolMakesANewNoteOrRest)
{
    CurrentSymbol_Set(CLEF, 3);
    Hit(4, 2);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lA, 0);
    EXPECT_EQ(elCurrent.lB, 64);
    EXPECT_EQ(elCurrent.lDuration, 48);
    CurrentSymbol_Set(TIMESIG, 3, 4);
    Hit(4, 4);
    EXPECT_EQ(elCurrent.sort, REST);
    EXPECT_EQ(elCurrent.lA, 0);
    EXPECT_EQ(elCurrent.lDuration, 48);
}

TEST_F(Palette, DotAndTripletAreForNotesAndRestsAlone)
{
    CurrentSymbol_SetRest(48);
    Hit(11, 3);
    EXPECT_EQ(elCurrent.lDuration, 72);
    CurrentSymbol_Set(BAR);
    int32_t const lDuration = elCurrent.lDuration;
    EXPECT_EQ(Hit(10, 3), 1);
    EXPECT_EQ(Hit(11, 3), 1);
    EXPECT_EQ(elCurrent.lDuration, lDuration);
    EXPECT_EQ(elCurrent.sort, BAR);
}

TEST_F(Palette, AWindowWithoutASizeHasNoSymbol)
{
    pPalette->SetPlace({0, 0, 0, 0});
    EXPECT_EQ(Palette_Hit(*pPalette, 0, 0), 0);
    pPalette->SetPlace({0, 0, 10, 0});
    EXPECT_EQ(Palette_Hit(*pPalette, 5, 0), 0);
}

TEST_F(Palette, PlacesFarOutsideAreNoSymbol)
{
    for (int32_t const x : {INT32_MIN, -500, 5000, INT32_MAX})
        EXPECT_EQ(Palette_CellAt(sizePalette, {x, INT32_MAX}), nullptr) << x;
}

TEST_F(Palette, ItsPictureIsTheGlyphsOfTheScore) { test::ExpectGolden("palette", Painted()); }

TEST_F(Palette, TheBrieveIsNotDrawn)
{
    EXPECT_EQ(aPaletteCell[0].pDraw, nullptr);
    for (int32_t i = 1; i < cPaletteCells; ++i)
        EXPECT_NE(aPaletteCell[i].pDraw, nullptr) << aPaletteCell[i].sTip;
}

TEST_F(Palette, NothingIsDrawnWhilePrinting)
{
    bPrinting = true;
    std::string const sPainted = Painted();
    bPrinting = false;
    EXPECT_EQ(sPainted, "fill 0,0 1200,100 #ffffc0\n");
}

TEST_F(Palette, PaintingLeavesTheScoresUnitsAndObjectsAsTheyWere)
{
    int32_t const cObjects = cGdiObjects;
    HPEN const hpen = hpenBlack;
    int32_t const aBefore[] = {xunit, yunit, lBlobX, lBlobY, lStemLength, lPageWidth, lPageHeight, aStaffRow[1]};
    (void)Painted();
    int32_t const aAfter[] = {xunit, yunit, lBlobX, lBlobY, lStemLength, lPageWidth, lPageHeight, aStaffRow[1]};
    for (size_t i = 0; i < std::size(aBefore); ++i)
        EXPECT_EQ(aAfter[i], aBefore[i]) << i;
    EXPECT_EQ(hpenBlack, hpen);
    EXPECT_FALSE(bNoClip);
    EXPECT_EQ(cGdiObjects, cObjects);
}

TEST_F(Palette, AStretchedScoreLeavesThePictureAsItIs)
{
    std::string const sBefore = Painted();
    lRowsPerPage = 40;
    lColsPerLine = 60;
    SetUnits();
    EXPECT_EQ(Painted(), sBefore);
}

TEST_F(Palette, EachSymbolTellsItsNameAndItsKey)
{
    auto& setup = process.user.panels.front()->setup;
    EXPECT_EQ(setup.pContent->TipAt(*pPalette, MiddleOf(4, 2)), "Crotchet  4");
    EXPECT_EQ(setup.pContent->TipAt(*pPalette, MiddleOf(4, 4)), "Crotchet rest  Shift+4");
    EXPECT_EQ(setup.pContent->TipAt(*pPalette, MiddleOf(27, 2)), "Bass clef");
    EXPECT_EQ(setup.pContent->TipAt(*pPalette, MiddleOf(9, 2)), "");
}

TEST_F(Palette, WithoutAPanelTheProgramGoesOnAndTheDebuggerIsTold)
{
    sLastDebugString.clear();
    process.user.bPanelsWork = false;
    EXPECT_EQ(Palette_Create(hwndMain), nullptr);
    EXPECT_EQ(sLastDebugString, "Palette creation failed\n");
    process.user.bPanelClassesWork = false;
    EXPECT_EQ(Palette_Create(hwndMain), nullptr);
    EXPECT_EQ(sLastDebugString, "Palette didn't register\n");
    EXPECT_EQ(Palette_Create(nullptr), nullptr);
}
} // namespace
} // namespace zarn
