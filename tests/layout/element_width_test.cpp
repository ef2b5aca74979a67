#include "layout/element_width.h"

#include "platform/font_metrics.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
class ElementWidth : public test::LayoutFixture
{
protected:
    static int32_t Of(std::string_view sSymbol) { return Element_Width(test::Write(1, sSymbol)); }
    static int32_t OfSort(int32_t sort)
    {
        Element el;
        el.sort = sort;
        return Element_Width(&el);
    }
};

TEST_F(ElementWidth, NotesByTheirBaseDuration)
{
    struct
    {
        int32_t lDuration, lCols;
    } const aCase[] = {{3, 2}, {24, 2}, {48, 3}, {96, 4}, {192, 5}, {384, 5}, {16, 2}, {32, 3}, {64, 4}, {0, 2}};
    for (auto const& c : aCase)
    {
        Element el;
        el.sort = NOTE;
        el.lDuration = c.lDuration;
        el.up = 0;
        EXPECT_EQ(Element_Width(&el), c.lCols) << c.lDuration;
        el.up = 1;
        EXPECT_EQ(Element_Width(&el), c.lCols + 1) << c.lDuration;
        el.beam = BEAM_LAST;
        EXPECT_EQ(Element_Width(&el), c.lCols + 1) << c.lDuration;
        el.beam = BEAM_INSIDE;
        EXPECT_EQ(Element_Width(&el), c.lCols) << c.lDuration;
    }
}

TEST_F(ElementWidth, ADotTakesTwoColumnsAndNoFlag)
{
    EXPECT_EQ(Of("n0/36"), 4);
    EXPECT_EQ(Of("n0/72"), 5);
    EXPECT_EQ(Of("n0/144"), 6);
    EXPECT_EQ(Of("n0/288"), 7);
}

TEST_F(ElementWidth, RestsByTheirOwnDuration)
{
    EXPECT_EQ(Of("r24"), 2);
    EXPECT_EQ(Of("r25"), 3);
    EXPECT_EQ(Of("r48"), 3);
    EXPECT_EQ(Of("r49"), 4);
    EXPECT_EQ(Of("r96"), 4);
    EXPECT_EQ(Of("r97"), 5);
}

TEST_F(ElementWidth, KeysAreNotSymmetric)
{
    EXPECT_EQ(Of("key:3,2"), 7);
    EXPECT_EQ(Of("key:2,3"), 5);
    EXPECT_EQ(Of("key:2,-3"), 8);
    EXPECT_EQ(Of("key:0,-3"), 6);
    EXPECT_EQ(Of("key:0,3"), 6);
    EXPECT_EQ(Of("key:0"), 3);
    EXPECT_EQ(Of("key:-4"), 7);
    EXPECT_EQ(Of("key:-4,-1"), 10);
}

TEST_F(ElementWidth, ANewlineTakesTheRestOfItsLine)
{
    EXPECT_EQ(Of("x:149 nl"), 1);
    EXPECT_EQ(Of("x:150 nl"), 150);
    EXPECT_EQ(Of("x:7 nl"), 143);
}

TEST_F(ElementWidth, TheOthersAreFixed)
{
    struct
    {
        int32_t sort, lCols;
    } const aCase[] = {{BAR, 3},       {DOUBLEBAR, 3},      {CLEF, 6},     {SHARP, 2},       {FLAT, 2},
                       {NATURAL, 2},   {ARPEGSTART, 2},     {ARPEGEND, 2}, {TIMESIG, 4},     {REPEATSTART, 4},
                       {REPEATEND, 4}, {SPACE, 1},          {TIE, 1},      {REPEATFIRST, 1}, {INSTRUMENT, 5},
                       {TEMPO, 5},     {TRANSPOSE, 5},      {TITLE, 0},    {ANNOT, 0},       {SLUR, 0},
                       {BOWING, 0},    {REPEATENDSTART, 5}, {VOLUME, 5},   {SORT22, 5},      {ABC, 5},
                       {MARKBEGIN, 5}, {NOSORT, 5},         {-3, 5},       {35, 5},          {INT32_MAX, 5}};
    for (auto const& c : aCase)
        EXPECT_EQ(OfSort(c.sort), c.lCols) << c.sort;
}

TEST_F(ElementWidth, PlayingSignsTakeNoRoomOnPaperUnlessTheyShow)
{
    bPrinting = true;
    EXPECT_EQ(OfSort(TEMPO), 0);
    bShowLayout = true;
    EXPECT_EQ(OfSort(TEMPO), 5);
    bPrinting = false;
}

TEST_F(ElementWidth, ATextIsWidenedRoundedUpAndGivenAColumn)
{
    int32_t const lPixels = MulDiv(LayoutTextPixels("Kyrie"), 130, 100);
    EXPECT_EQ(TextColumns("Kyrie"), (lPixels + 7) / 8 + 1);
    EXPECT_EQ(TextColumns(""), 1);
    EXPECT_EQ(Of("lyr\"Kyrie\""), TextColumns("Kyrie"));
    EXPECT_EQ(Of("chord\"Am\""), TextColumns("Am"));
    EXPECT_EQ(Of("text\"Kyrie\""), TextColumns("Kyrie"));
    SetWindowUnits({0, 0, 300, 800});
    EXPECT_EQ(TextColumns("Kyrie"), (lPixels + 1) / 2 + 1);
}

TEST_F(ElementWidth, ANoteIsNoNarrowerThanItsFretWhileTablatureShows)
{
    Element el;
    el.sort = NOTE;
    el.lDuration = 24;
    el.up = 0;
    el.lFret = 1234567;
    EXPECT_EQ(Element_Width(&el), 2);
    bTabShowing = true;
    EXPECT_EQ(Element_Width(&el), TextColumns("1234567"));
}
} // namespace
} // namespace zarn
