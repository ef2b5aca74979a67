#include "core/messages.h"
#include "render/accidental_glyphs.h"
#include "render/bar_glyphs.h"
#include "render/clef_glyphs.h"
#include "render/strokes.h"
#include "support/drawing.h"
#include "support/glyph_fixture.h"

namespace zarn
{
namespace
{
class SignGlyphs : public test::GlyphFixture
{
protected:
    bool Drew(std::string_view sWhat) { return surface.All().find(sWhat) != std::string::npos; }
};

TEST_F(SignGlyphs, LinesCountTheirThicknessInSpacesAndStrokesInRows)
{
    HLine(&dc, 10, 50, 90, 25);
    VLine(&dc, 10, 50, 90, 15);
    Stroke(&dc, 10, 50, 90, 60, 0);
    Stroke(&dc, 10, 50, 90, 60, 40);
    Stroke(&dc, 10, 50, 20, 90, 40, true);
    EXPECT_EQ(Taken(), "box 10,48 90,52\nbox 9,50 11,90\n"
                       "polygon 10,48 10,52 90,62 90,58\npolygon 10,49 10,51 90,61 90,59\n"
                       "polygon 9,50 11,50 21,90 19,90\n");
}

TEST_F(SignGlyphs, ThinLinesAreOnePixelAndThinStrokesFlat)
{
    HLine(&dc, 10, 50, 90, 0);
    VLine(&dc, 10, 50, 90, 5);
    Stroke(&dc, 10, 50, 90, 60, 1);
    Stroke(&dc, 10, 50, 90, 60, 1, true);
    EXPECT_EQ(Taken(), "box 10,50 90,51\nbox 10,50 11,90\n"
                       "polygon 10,50 10,50 90,60 90,60\npolygon 10,50 10,50 90,60 90,60\n");
}

TEST_F(SignGlyphs, AHairLineIsTwoPixelsDeepOnPaperAndEndsWhereItShould)
{
    HairLine(&dc, 10, 50, 90, 60);
    EXPECT_EQ(Taken(), "line 10,50 90,60\n");
    bPrintScale = true;
    HairLine(&dc, 10, 50, 90, 60);
    LineTo(&dc, 100, 100);
    EXPECT_EQ(Taken(), "line 10,50 90,60\nline 10,51 90,61\nline 90,60 100,100\n");
}

TEST_F(SignGlyphs, ThePenStepsByHalfColumnsAndHalfRowsOfThePage)
{
    lPageWidth = 1250; // 8 and a third pixels a column, truncated at each step
    ptPen = {100, 100};
    PenStep(&dc, 3, -5, 20);
    EXPECT_EQ(ptPen.x, 100 + 3 * 1250 / 300);
    EXPECT_EQ(ptPen.y, 80);
    EXPECT_EQ(Taken(), "polygon 100,100 100,100 112,80 112,80\n");
}

TEST_F(SignGlyphs, TextIsCentredByHalfAHead)
{
    DrawText(&dc, 100, 100, "a", false);
    DrawText(&dc, 100, 100, "a", true);
    EXPECT_TRUE(Drew("text 100,"));
    EXPECT_TRUE(Drew("text 93,"));
}

TEST_F(SignGlyphs, AccidentalsAreTheirStrokes)
{
    SharpGlyph(&dc, 100, 100);
    EXPECT_EQ(Taken(), "polygon 96,114 98,114 99,86 97,86\npolygon 101,114 103,114 104,86 102,86\n"
                       "polygon 93,106 93,108 107,107 107,105\npolygon 93,93 93,95 107,94 107,92\n");
    NaturalGlyph(&dc, 100, 100);
    EXPECT_EQ(Taken(), "box 92,79 94,107\nbox 93,106 107,108\nbox 93,92 107,94\nbox 106,93 108,121\n");
    FlatGlyph(&dc, 100, 100);
    EXPECT_EQ(Taken(), "polygon 93,92 93,94 107,91 107,89\npolygon 106,90 108,90 108,96 106,96\n"
                       "polygon 106,96 108,96 94,107 92,107\nbox 92,57 94,107\n");
}

TEST_F(SignGlyphs, TheTrebleClefEndsInASolidFoot)
{
    EXPECT_EQ(DrawClef(&dc, 100, 100, 1), 1);
    EXPECT_EQ(ptPen.x, 108);
    EXPECT_EQ(ptPen.y, 152);
    EXPECT_EQ(test::Count(surface.All(), "polygon"), 15);
    EXPECT_TRUE(Drew("polygon 100,98 100,102 100,90 100,86\n"));  // up from the line of G
    EXPECT_TRUE(Drew("polygon 108,10 108,14 108,154 108,150\n")); // the long stroke down
    EXPECT_EQ(surface.aLines.back(), "ellipse 94,145 108,159");
}

TEST_F(SignGlyphs, TheAltoClefServesTheTenorToo)
{
    DrawClef(&dc, 100, 100, 2);
    EXPECT_EQ(ptPen.x, 107);
    EXPECT_EQ(ptPen.y, 36);
    EXPECT_EQ(test::Count(surface.All(), "polygon"), 11);
    std::string const sAlto = Taken();
    EXPECT_TRUE(sAlto.starts_with("line 100,100 100,36\npolygon 107,98 107,102 115,102 115,98\n"));
    DrawClef(&dc, 100, 100, 4);
    EXPECT_EQ(Taken(), sAlto);
}

TEST_F(SignGlyphs, TheBassClefHasItsTwoDots)
{
    DrawClef(&dc, 100, 100, 3);
    EXPECT_EQ(ptPen.x, 97);
    EXPECT_EQ(ptPen.y, 146);
    EXPECT_EQ(test::Count(surface.All(), "polygon"), 10);
    EXPECT_EQ(surface.aLines.front(), "ellipse 93,100 107,114");
    EXPECT_TRUE(Drew("polygon 93,112 93,116 89,116 89,112\n"));
    EXPECT_TRUE(surface.All().ends_with("ellipse 113,89 120,96\nellipse 113,105 120,112\n"));
}

TEST_F(SignGlyphs, ABarSpansItsStaffAndBelowTheFirstBandTheGapAbove)
{
    SetStaffCount(2);
    BarGlyph(&dc, 100, 300, 1);
    BarGlyph(&dc, 100, 300, 2);
    DoubleBarGlyph(&dc, 100, 300, 1);
    EXPECT_EQ(Taken(), "box 98,236 102,300\nbox 98,84 102,300\nbox 98,236 102,300\nbox 106,236 110,300\n");
    SetStaffCount(1);
}

TEST_F(SignGlyphs, ABarOutlivesLegerRowsOutOfRange)
{
    SetStaffCount(2);
    for (int32_t const lRows : {INT32_MAX, INT32_MIN})
    {
        lLegersAbove = lLegersBelow = lRows;
        EXPECT_EQ(BarGlyph(&dc, 100, 300, 2), 1);
    }
    EXPECT_EQ(Taken(), "box 98,-1000000 102,300\nbox 98,300 102,1000000\n");
    lLegersAbove = 8;
    lLegersBelow = 11;
    SetStaffCount(1);
}

TEST_F(SignGlyphs, RepeatDotsStandOnTheSideThatIsRepeated)
{
    auto const Bars = [](int32_t x)
    {
        std::string const s = std::to_string(x - 2) + ",136 " + std::to_string(x + 2) + ",200\n";
        return "box " + s + "box " + std::to_string(x + 6) + ",136 " + std::to_string(x + 10) + ",200\n";
    };
    auto const Dots = [](int32_t x)
    {
        std::string const l = "ellipse " + std::to_string(x - 3);
        std::string const r = ' ' + std::to_string(x + 4);
        return l + ",173" + r + ",180\n" + l + ",157" + r + ",164\n";
    };
    RepeatStartGlyph(&dc, 100, 200, 1);
    EXPECT_EQ(Taken(), Bars(100) + Dots(115));
    RepeatEndGlyph(&dc, 100, 200, 1);
    EXPECT_EQ(Taken(), Dots(100) + Bars(107));
    RepeatEndStartGlyph(&dc, 100, 200, 1);
    EXPECT_EQ(Taken(), Dots(100) + Bars(107) + Dots(122));
}

TEST_F(SignGlyphs, BowsAreAWedgeAndAStaple)
{
    EXPECT_EQ(BowGlyph(&dc, 100, 100, 1), 1);
    EXPECT_EQ(Taken(), "polygon 96,98 96,102 100,114 100,110\npolygon 100,110 100,114 104,102 104,98\n");
    EXPECT_EQ(BowGlyph(&dc, 100, 100, 2), 1);
    EXPECT_EQ(Taken(), "polygon 96,110 96,114 96,102 96,98\npolygon 96,98 96,102 104,102 104,98\n"
                       "polygon 104,98 104,102 104,114 104,110\n");
    EXPECT_EQ(BowGlyph(&dc, 100, 100, 3), 0);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Attempt to draw unknown thingy type"});
}

TEST_F(SignGlyphs, ArpeggioBracketsOpenTowardsTheirChordAndStayOffPaper)
{
    EXPECT_EQ(ArpeggioBracket(&dc, 100, 100, true), 1);
    EXPECT_EQ(Taken(), "line 114,36 100,52\nline 100,52 100,84\nline 100,84 114,100\n");
    EXPECT_EQ(ArpeggioBracket(&dc, 100, 100, false), 1);
    EXPECT_EQ(Taken(), "line 86,36 100,52\nline 100,52 100,84\nline 100,84 86,100\n");
    bPrintScale = true;
    EXPECT_EQ(ArpeggioBracket(&dc, 100, 100, true), 0);
    bPrintScale = false;
    EXPECT_EQ(ArpeggioBracket(&dc, 100, lFarBelow, true), 0);
    bDrawingCursor = true;
    EXPECT_EQ(ArpeggioBracket(&dc, 100, lFarBelow, true), 1);
    bDrawingCursor = false;
}

TEST_F(SignGlyphs, AFirstTimeBarHasALineAndAHook)
{
    RepeatFirstLine(&dc, 100, 300, 100);
    RepeatFirstHook(&dc, 100, 100);
    EXPECT_EQ(Taken(), "box 108,84 292,85\nbox 99,76 101,100\npolygon 100,74 100,78 96,86 96,82\n");
}

TEST_F(SignGlyphs, ATimeSignatureIsTwoNumbersFourRowsApart)
{
    DrawText(&dc, 100, 68, "6", false);
    DrawText(&dc, 100, 100, "8", false);
    std::string const sExpected = Taken();
    EXPECT_EQ(TimeSigGlyph(&dc, 100, 100, 6, 8), 1);
    EXPECT_EQ(Taken(), sExpected);
}

TEST_F(SignGlyphs, AStaffIsFiveLinesTwoRowsApart)
{
    StaffLines(&dc, 10, 20, 150);
    EXPECT_EQ(Taken(), "box 80,159 1200,161\nbox 80,175 1200,177\nbox 80,191 1200,193\nbox 80,207 1200,209\n"
                       "box 80,223 1200,225\n");
}

TEST_F(SignGlyphs, OffThePageNothingIsDrawnAndNothingReported)
{
    for (int32_t const y : {lFarBelow, -lFarBelow})
    {
        EXPECT_EQ(SharpGlyph(&dc, 100, y) | NaturalGlyph(&dc, 100, y) | FlatGlyph(&dc, 100, y), 0);
        EXPECT_EQ(DrawClef(&dc, 100, y, 1) | DrawClef(&dc, 100, y, 2) | DrawClef(&dc, 100, y, 3), 0);
        EXPECT_EQ(BarGlyph(&dc, 100, y, 1) | DoubleBarGlyph(&dc, 100, y, 1) | RepeatStartGlyph(&dc, 100, y, 1), 0);
        EXPECT_EQ(RepeatEndGlyph(&dc, 100, y, 1) | RepeatEndStartGlyph(&dc, 100, y, 1) | BowGlyph(&dc, 100, y, 1), 0);
        EXPECT_EQ(RepeatFirstLine(&dc, 1, 2, y) | RepeatFirstHook(&dc, 1, y) | TimeSigGlyph(&dc, 1, y, 4, 4), 0);
    }
    EXPECT_EQ(Taken(), "");
}
} // namespace
} // namespace zarn
