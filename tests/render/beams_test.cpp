#include "render/beams.h"

#include "core/messages.h"
#include "support/drawing.h"
#include "support/glyph_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
class BeamDrawing : public test::GlyphFixture
{
protected:
    struct Place
    {
        int32_t x;
        int32_t y;
    };

    /// A set of single notes with the stems one way, placed by hand, and its beams and stems as drawn.
    std::string Set(std::string_view sScore, std::initializer_list<Place> places, bool bUp = true)
    {
        Score_EmptyStaffs();
        test::Write(1, sScore);
        Element* pel = StaffFirst(1);
        for (Place const place : places)
        {
            pel->lX = place.x;
            pel->lY = place.y;
            pel->up = bUp;
            pel->beam = pel == StaffFirst(1) ? BEAM_FIRST : Next(pel) ? BEAM_INSIDE : BEAM_LAST;
            pel = Next(pel);
        }
        DrawBeamSet(&dc, nullptr, StaffFirst(1));
        return Taken();
    }
};

TEST_F(BeamDrawing, EqualHeadsHaveAFlatBeamAtTheEndsOfTheirStems)
{
    EXPECT_EQ(Set("n4/24 n4/24", {{100, 100}, {180, 100}}),
              "polygon 107,62 107,66 187,66 187,62\nbox 106,64 108,100\nbox 186,64 188,100\n");
    EXPECT_EQ(Set("n4/24 n4/24", {{100, 100}, {180, 100}}, false),
              "polygon 93,134 93,138 173,138 173,134\nbox 92,100 94,136\nbox 172,100 174,136\n");
}

TEST_F(BeamDrawing, TheLongestNoteSetsTheMainBeamsAndTheyStackTowardsTheHeads)
{
    EXPECT_EQ(Set("n4/12 n4/12", {{100, 100}, {180, 100}}),
              "polygon 107,62 107,66 187,66 187,62\npolygon 107,76 107,80 187,80 187,76\n"
              "box 106,64 108,100\nbox 186,64 188,100\n");
    EXPECT_EQ(Set("n4/6 n4/6", {{100, 100}, {180, 100}}, false),
              "polygon 93,134 93,138 173,138 173,134\npolygon 93,120 93,124 173,124 173,120\n"
              "polygon 93,106 93,110 173,110 173,106\nbox 92,100 94,136\nbox 172,100 174,136\n");
}

TEST_F(BeamDrawing, ASemiquaverBehindADottedQuaverPointsBackAndAheadOfOnePointsForward)
{
    EXPECT_EQ(Set("n4/36 n4/12", {{100, 100}, {180, 100}}),
              "polygon 107,62 107,66 187,66 187,62\nbox 106,64 108,100\nbox 186,64 188,100\n"
              "polygon 187,62 187,66 147,66 147,62\npolygon 187,76 187,80 147,80 147,76\n");
    EXPECT_EQ(Set("n4/12 n4/36", {{100, 100}, {180, 100}}),
              "polygon 107,62 107,66 187,66 187,62\nbox 106,64 108,100\n"
              "polygon 107,62 107,66 147,66 147,62\npolygon 107,76 107,80 147,80 147,76\nbox 186,64 188,100\n");
}

TEST_F(BeamDrawing, AShortNoteAtTheStartOfABeatPointsForwardInsideTheSetToo)
{
    std::string const s = Set("n4/24 n4/12 n4/12", {{100, 100}, {180, 100}, {260, 100}});
    EXPECT_NE(s.find("polygon 187,62 187,66 227,66 227,62\n"), std::string::npos) << s;
    EXPECT_NE(s.find("polygon 267,62 267,66 227,66 227,62\n"), std::string::npos) << s;
}

TEST_F(BeamDrawing, AnInnerHeadLiftsTheWholeBeam)
{
    EXPECT_EQ(Set("n4/24 n6/24 n4/24", {{100, 100}, {180, 80}, {260, 100}}),
              "polygon 107,42 107,46 267,46 267,42\nbox 106,44 108,100\nbox 186,44 188,80\nbox 266,44 268,100\n");
    EXPECT_EQ(Set("n4/24 n2/24 n4/24", {{100, 100}, {180, 120}, {260, 100}}, false),
              "polygon 93,154 93,158 253,158 253,154\nbox 92,100 94,156\nbox 172,120 174,156\nbox 252,100 254,156\n");
    // One on the other side of the line of the heads lifts nothing.
    EXPECT_EQ(Set("n4/24 n2/24 n4/24", {{100, 100}, {180, 120}, {260, 100}}),
              "polygon 107,62 107,66 267,66 267,62\nbox 106,64 108,100\nbox 186,64 188,120\nbox 266,64 268,100\n");
}

TEST_F(BeamDrawing, ASteepBeamIsLiftedOffItsNearHead)
{
    // (64 - 7 - 100) * 30 / -14 + 64 is the lowest that the beam may begin.
    EXPECT_EQ(Set("n4/24 n9/24", {{100, 300}, {130, 100}}),
              "polygon 107,154 107,158 137,-42 137,-46\nbox 106,156 108,300\nbox 136,-44 138,100\n");
    // (100 - 7 - 136) * -30 / -14 + 136 is 228, and the end of the last stem lies lower.
    EXPECT_EQ(Set("n4/24 n9/24", {{100, 100}, {130, 300}}, false),
              "polygon 93,134 93,138 123,338 123,334\nbox 92,100 94,136\nbox 122,300 124,336\n");
}

TEST_F(BeamDrawing, ATripletsBeamCarriesAThree)
{
    std::string const s = Set("n4/16 n4/16 n4/16", {{100, 100}, {180, 100}, {260, 100}});
    EXPECT_NE(s.find("polygon 213,23 213,25 221,25 221,23\n"), std::string::npos) << s;
    EXPECT_EQ(test::Count(s, "polygon"), 1 + 7);
}

TEST_F(BeamDrawing, StackedHeadsTakeTheStartOfTheBeam)
{
    // Lifted to the end of the upper stem, which stands at the same place.
    EXPECT_EQ(Set("n4/24 n6/24", {{100, 100}, {100, 80}}),
              "polygon 107,42 107,46 107,26 107,22\nbox 106,44 108,100\nbox 106,44 108,80\n");
}

TEST_F(BeamDrawing, StemsAreDrawnWhenAnyHeadOfTheSetIsOnThePage)
{
    EXPECT_EQ(test::Count(Set("n4/24 n4/24", {{100, lFarBelow}, {180, 100}}), "box"), 2);
    EXPECT_EQ(Set("n4/24 n4/24", {{100, lFarBelow}, {180, lFarBelow}}), "");
}

TEST_F(BeamDrawing, ASetThatLostItsEndDrawsNothing)
{
    test::Write(1, "n4/24 n4/24");
    test::At(1, 0)->beam = BEAM_FIRST;
    DrawBeamSet(&dc, nullptr, StaffFirst(1));
    EXPECT_EQ(Taken(), "");
    EXPECT_EQ(StaffFirst(1)->beam, BEAM_NONE);
}
} // namespace
} // namespace zarn
