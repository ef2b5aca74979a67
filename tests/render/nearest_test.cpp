// Hit testing and the symbol pointer.
#include "render/nearest.h"

#include "edit/current_symbol.h"
#include "layout/place.h"
#include "platform/headless/recording_surface.h"
#include "render/geometry.h"
#include "render/symbol_cursor.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace zarn
{
namespace
{
using test::At;
using test::Write;

/// A column is 8 pixels wide and a row 6 2/3 high.
class Nearest : public testing::Test
{
protected:
    test::DrawingProcess process;
};

TEST_F(Nearest, TheClosestWithinTheLimitIsTaken)
{
    Write(1, "x:20 n4/48 x:22 n4/48 x:60 n4/48");
    ReGrid();
    Element const* const pel = At(1, 2);
    EXPECT_EQ(NearestElement(pel->lX, pel->lY), pel);
    EXPECT_EQ(NearestElement(pel->lX + 44, pel->lY), pel);
    EXPECT_EQ(NearestElement(pel->lX + 45, pel->lY), nullptr) << "45 squared is beyond 2000";
    EXPECT_EQ(NearestElement(At(1, 0)->lX + 7, At(1, 0)->lY), At(1, 0));
    EXPECT_EQ(NearestElement(At(1, 0)->lX + 8, At(1, 0)->lY), At(1, 0)) << "of two that are equally near, the first";
    EXPECT_EQ(NearestElement(At(1, 0)->lX + 9, At(1, 0)->lY), At(1, 1));
}

TEST_F(Nearest, WhatIsHiddenIsNotThere)
{
    Write(1, "x:20 n4/48");
    ReGrid();
    At(1, 0)->fHidden = 1;
    EXPECT_EQ(NearestElement(At(1, 0)->lX, At(1, 0)->lY), nullptr);
    At(1, 0)->fHidden = 0;
    abStaffVisible[1] = false;
    EXPECT_EQ(NearestElement(At(1, 0)->lX, At(1, 0)->lY), nullptr);
    abStaffVisible[1] = true;
}

TEST_F(Nearest, NearALinesEdgeTheNextLineIsReached)
{
    Write(1, "x:75 n4/48 x:225 n4/48");
    ReGrid();
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(150 + 14, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), At(1, 0)) << "the first tenth of a line reaches back";
    Draw_Fold(150 + 15, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), nullptr);
    Draw_Fold(136, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), At(1, 1)) << "the last tenth reaches on";
    Draw_Fold(135, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), nullptr);
}

TEST_F(Nearest, UpAndDownCountLikeLeftAndRight)
{
    Write(1, "x:60 n4/48");
    ReGrid();
    Element const* const pel = At(1, 0);
    EXPECT_EQ(NearestElement(pel->lX, pel->lY + 44), pel);
    EXPECT_EQ(NearestElement(pel->lX, pel->lY + 45), nullptr);
    EXPECT_EQ(NearestElement(pel->lX + 31, pel->lY - 32), pel) << "1985";
    EXPECT_EQ(NearestElement(pel->lX + 32, pel->lY - 32), nullptr) << "2048";
    EXPECT_EQ(NearestElement(pel->lX + 40, pel->lY + 20), nullptr) << "the limit itself, 2000, is too far";
}

TEST_F(Nearest, AcrossAnEdgeOnlyWhatStandsStrictlyBeyondTheColumnCounts)
{
    Write(1, "x:70 n4/48 x:155 n20/48");
    ReGrid();
    At(1, 1)->lX = At(1, 1)->lY = -9999; // out of the way of the first search
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(155, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), At(1, 0)) << "not the one at the column itself";
    Draw_Fold(156, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), At(1, 1));
    At(1, 0)->lStrX = 140;
    At(1, 0)->lX = -9999;
    Draw_Fold(140, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), At(1, 1)) << "the same going on";
    Draw_Fold(139, 4, 1, 1, &x, &y);
    EXPECT_EQ(NearestElement(x, y), At(1, 0));
}

TEST_F(Nearest, OfTwoStaffsTheUpperOneIsFirst)
{
    SetStaffCount(2);
    Write(1, "x:20 n4/48");
    Write(2, "x:20 n4/48");
    ReGrid();
    At(2, 0)->lX = At(1, 0)->lX;
    At(2, 0)->lY = At(1, 0)->lY;
    EXPECT_EQ(NearestElement(At(1, 0)->lX, At(1, 0)->lY), At(1, 0));
    SetStaffCount(1);
}

TEST_F(Nearest, TheHighlightGoesGreenAndBack)
{
    Write(1, "x:20 n4/48 x:60 n4/48");
    ReGrid();
    RecordingSurface surface({1200, 800});
    DeviceContext dc{.pSurface = &surface};
    HighlightNearest(&dc, nullptr, At(1, 0)->lX, At(1, 0)->lY);
    EXPECT_EQ(pelHighlight, At(1, 0));
    EXPECT_NE(surface.All().find("#00ff00"), std::string::npos);
    surface.aLines.clear();
    HighlightNearest(&dc, nullptr, 600, 700);
    EXPECT_EQ(pelHighlight, nullptr);
    EXPECT_NE(surface.All(), "");
    EXPECT_EQ(surface.All().find("#00ff00"), std::string::npos);
}

TEST_F(Nearest, LegersAreDrawnAtThePointer)
{
    RecordingSurface surface({1200, 800});
    DeviceContext dc{.pSurface = &surface};
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(20, -4, 1, 1, &x, &y);
    DrawCursorLegers(&dc, x, y);
    EXPECT_EQ(surface.aLines.size(), 3u);
    surface.aLines.clear();
    Draw_Fold(20, 6, 1, 1, &x, &y);
    DrawCursorLegers(&dc, x, y);
    EXPECT_TRUE(surface.aLines.empty());
}

TEST_F(Nearest, EachSortHasItsScaleAndHotSpot)
{
    struct
    {
        int32_t sort;
        int32_t lA;
        int32_t lScale;
        POINT hotSpot;
    } const aCase[] = {{NOTE, 0, 4, {16, 23}},
                       {NOTE, 128, 4, {2, 16}},
                       {BAR, 0, 6, {16, 30}},
                       {DOUBLEBAR, 0, 6, {16, 30}},
                       {ARPEGSTART, 0, 6, {16, 30}},
                       {ARPEGEND, 0, 6, {16, 30}},
                       {CLEF, 1, 2, {5, 24}},
                       {CLEF, 2, 3, {0, 30}},
                       {CLEF, 4, 3, {0, 30}},
                       {CLEF, 3, 3, {16, 8}},
                       {KEYSIG, 2, 4, {8, 20}},
                       {REST, 0, 5, {8, 14}},
                       {NEWLINE, 0, 5, {16, 16}},
                       {SHARP, 0, 5, {16, 16}},
                       {FLAT, 0, 5, {16, 16}},
                       {NATURAL, 0, 5, {16, 16}},
                       {TIMESIG, 4, 4, {6, 18}},
                       {SPACE, 0, 6, {0, 8}},
                       {CHORD, 0, 6, {0, 8}},
                       {LYRICS, 0, 6, {0, 8}},
                       {INSTRUMENT, 0, 6, {0, 8}},
                       {TEMPO, 0, 6, {0, 8}},
                       {TRANSPOSE, 0, 6, {0, 8}},
                       {TITLE, 0, 6, {0, 8}},
                       {TEXT, 0, 6, {0, 8}},
                       {ANNOT, 0, 6, {0, 8}},
                       {REPEATSTART, 0, 4, {16, 30}},
                       {REPEATEND, 0, 4, {16, 30}},
                       {REPEATENDSTART, 0, 4, {16, 30}},
                       {TIE, 0, 6, {1, 8}},
                       {VOLUME, 0, 6, {1, 8}},
                       {MARKBEGIN, 0, 6, {1, 8}},
                       {MARKEND, 0, 6, {1, 8}},
                       {ABC, 0, 6, {1, 8}},
                       {SLUR, 0, 6, {1, 8}},
                       {REPEATFIRST, 0, 6, {16, 30}},
                       {BOWING, 1, 6, {16, 16}},
                       {0, 0, 6, {16, 16}},
                       {99, 0, 6, {16, 16}}};
    for (auto const& c : aCase)
    {
        SetCursorScale(6);
        POINT const hotSpot = CursorSpec(c.sort, c.lA);
        EXPECT_EQ(hotSpot.x, c.hotSpot.x) << c.sort;
        EXPECT_EQ(hotSpot.y, c.hotSpot.y) << c.sort;
        EXPECT_EQ(xunit, c.lScale) << c.sort;
    }
    SetWindowUnits({0, 0, 1200, 800});
}

struct NoPicture : HeadlessWindow
{
    using HeadlessWindow::HeadlessWindow;
    HDC BeginCursor() override { return nullptr; }
};

class Pointer : public Nearest
{
protected:
    Pointer() : window("Zarn", nullptr) { window.pCursor = &picture; }
    std::string Shape()
    {
        picture.aLines.clear();
        MakeSymbolCursor(&window);
        return picture.All();
    }
    RecordingSurface picture{{32, 32}};
    HeadlessWindow window;
};

TEST_F(Pointer, ANoteFitsThePictureWithItsHeadAtTheHotSpot)
{
    CurrentSymbol_SetNote(48);
    EXPECT_EQ(Shape(), "ellipse 12,19 20,27\nbox 19,5 20,23\n");
    EXPECT_EQ(window.hotSpot.x, 16);
    EXPECT_EQ(window.hotSpot.y, 23);
    EXPECT_EQ(window.shape, PointerShape::SYMBOL);
    EXPECT_EQ(window.cDrawsOpen, 0);
}

TEST_F(Pointer, TheWindowsUnitsAreAsBefore)
{
    int32_t const lWidth = lPageWidth;
    int32_t const lUnit = xunit;
    CurrentSymbol_Set(CLEF, 1);
    Shape();
    EXPECT_EQ(lPageWidth, lWidth);
    EXPECT_EQ(xunit, lUnit);
    EXPECT_FALSE(bDrawingCursor);
}

TEST_F(Pointer, AnOpenHeadCanBeSeen)
{
    CurrentSymbol_SetNote(192);
    EXPECT_NE(Shape().find("ellipse"), std::string::npos);
}

TEST_F(Pointer, ATripletShowsItsSignWhateverTheStemDoes)
{
    CurrentSymbol_SetNote(48);
    std::string const sPlain = Shape();
    elCurrent.lDuration = 32;
    EXPECT_GT(Shape().size(), sPlain.size() + 50);
}

TEST_F(Pointer, EverySymbolHasAShape)
{
    for (int32_t sort = NOTE; sort <= BOWING; ++sort)
    {
        if (sort == SORT22 || sort == SLUR || sort == ABC || sort == REPEATFIRST)
            continue; // no shape of their own: the host shows an arrow
        CurrentSymbol_Set(sort, sort == NOTE ? 0 : 1, sort == TIMESIG ? 4 : 0);
        elCurrent.lDuration = sort == NOTE || sort == REST ? 48 : 0;
        EXPECT_NE(Shape(), "") << Sort_Name(sort, 1);
    }
}

TEST_F(Pointer, TextSortsWithoutTextShowTheirSamples)
{
    for (auto const& [sort, sSample] : std::initializer_list<std::pair<int32_t, char const*>>{
             {CHORD, "F#dim?"}, {LYRICS, "lyr"}, {TITLE, "Ttl"}, {TEXT, "tx"}, {ANNOT, "an"}})
    {
        CurrentSymbol_Set(sort);
        EXPECT_NE(Shape().find(sSample), std::string::npos) << sSample;
    }
}

TEST_F(Pointer, AHarmonyBeginsAtTheHotSpot)
{
    CurrentSymbol_SetWriting(WRITE_HARMONY);
    CurrentSymbol_SetText("Gm");
    std::string const sShape = Shape();
    EXPECT_TRUE(sShape.starts_with("text 0,")) << sShape;
    EXPECT_NE(sShape.find("Gm"), std::string::npos);
    EXPECT_EQ(sShape.find("middle"), std::string::npos) << sShape;
}

TEST_F(Pointer, EachClefIsDrawnAsThatClef)
{
    std::set<std::string> shapes;
    for (int32_t lClef = 1; lClef <= 4; ++lClef)
    {
        CurrentSymbol_Set(CLEF, lClef);
        shapes.insert(Shape());
    }
    EXPECT_GE(shapes.size(), 3U) << "alto and tenor are one sign";
}

TEST_F(Pointer, AHostWithoutAPictureIsTold)
{
    CurrentSymbol_SetNote(48);
    NoPicture none("Zarn", nullptr);
    MakeSymbolCursor(&none);
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Oh my goodness, this machine has a weird implementation of FillRect\n"
                                       "You're going to see a funny cursor.\nPlease tell Odrian"});
    EXPECT_FALSE(bDrawingCursor);
}

TEST_F(Pointer, ASlurIsToldAndShowsNothing)
{
    CurrentSymbol_Set(SLUR);
    EXPECT_EQ(Shape(), "");
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Tell Odrian: Attempt to draw SLUR into cursor.  (OK to carry on)."});
}
} // namespace
} // namespace zarn
