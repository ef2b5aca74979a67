#include "render/note_glyphs.h"

#include "render/colours.h"
#include "render/rest_glyphs.h"
#include "render/strokes.h"
#include "support/drawing.h"
#include "support/glyph_fixture.h"

namespace zarn
{
namespace
{
class NoteGlyphs : public test::GlyphFixture
{
protected:
    std::string Note(NoteLook const& look)
    {
        DrawNote(&dc, 100, 100, look);
        return Taken();
    }
    std::string Note(int32_t lDuration, bool bUp = true) { return Note({.bUp = bUp, .lDuration = lDuration}); }
    std::string Rest(int32_t lDuration, bool bDotted = false)
    {
        DrawRest(&dc, 100, 100, lDuration, bDotted);
        return Taken();
    }
};

constexpr char sHead[] = "ellipse 93,93 107,107\n";
constexpr char sRing[] = "ellipse 93,93 107,107 pen 2 #000000 brush none\n";
constexpr char sStemUp[] = "box 106,64 108,100\n";
constexpr char sStemDown[] = "box 92,100 94,136\n";
constexpr char sDotBehind[] = "ellipse 114,93 121,100\n";

TEST_F(NoteGlyphs, HeadAndStemFollowTheValue)
{
    EXPECT_EQ(Note(192), sRing);
    EXPECT_EQ(Note(97), sRing);
    EXPECT_EQ(Note(96), std::string(sRing) + sStemUp);
    EXPECT_EQ(Note(49), std::string(sRing) + sStemUp);
    EXPECT_EQ(Note(48), std::string(sHead) + sStemUp);
    EXPECT_EQ(Note(48, false), std::string(sHead) + sStemDown);
}

TEST_F(NoteGlyphs, EachFlagBeginsAHeadNearerTheNote)
{
    std::string const sFlag1 = "polygon 107,62 107,66 115,74 115,70\n";
    std::string const sFlag2 = "polygon 107,76 107,80 115,88 115,84\n";
    std::string const sFlag3 = "polygon 107,90 107,94 115,102 115,98\n";
    std::string const sNote = std::string(sHead) + sStemUp;
    EXPECT_EQ(Note(25), sNote);
    EXPECT_EQ(Note(24), sNote + sFlag1);
    EXPECT_EQ(Note(12), sNote + sFlag1 + sFlag2);
    EXPECT_EQ(Note(6), sNote + sFlag1 + sFlag2 + sFlag3);
    EXPECT_EQ(Note(12, false), std::string(sHead) + sStemDown + "polygon 93,134 93,138 101,130 101,126\n" +
                                   "polygon 93,120 93,124 101,116 101,112\n");
    EXPECT_EQ(Note({.lDuration = 24, .bFlagged = false}), sNote);
    EXPECT_EQ(Note({.lBeam = 1, .lDuration = 24}), sNote);
    EXPECT_EQ(Note({.lBeam = 3, .lDuration = 24}), sHead); // the beam brings the stem
}

TEST_F(NoteGlyphs, AGraceNoteIsASlashAndItsFlagAHairLine)
{
    std::string const sGrace = std::string("line 93,107 107,93\n") + sStemUp;
    for (int32_t const lDuration : {0, 1})
        EXPECT_EQ(Note(lDuration), sGrace + "line 107,64 115,72\n") << lDuration;
    EXPECT_EQ(Note({.lDuration = 0, .bFlagged = false}), sGrace);
}

TEST_F(NoteGlyphs, ADottedCrotchetHasASolidHeadAndItsDotBehindAndAbove)
{
    EXPECT_EQ(Note({.lDuration = 72, .bDotted = true}), std::string(sHead) + sStemUp + sDotBehind);
    EXPECT_EQ(Note({.lDuration = 144, .bDotted = true}), std::string(sRing) + sStemUp + sDotBehind);
}

TEST_F(NoteGlyphs, ATripletNoteCarriesAThreeBeyondItsStem)
{
    std::string const sThree = "polygon 93,23 93,25 101,25 101,23\n"
                               "polygon 101,23 101,25 93,33 93,31\n"
                               "polygon 93,31 93,33 97,33 97,31\n"
                               "polygon 97,31 97,33 101,37 101,35\n"
                               "polygon 101,35 101,37 101,41 101,39\n"
                               "polygon 101,39 101,41 97,45 97,43\n"
                               "polygon 97,43 97,45 93,45 93,43\n";
    EXPECT_EQ(Note(32), std::string(sHead) + sStemUp + sThree);
    TripletMark(&dc, 93, 136 + 5 * 8);
    std::string const sThreeBelow = Taken();
    EXPECT_EQ(Note(32, false), std::string(sHead) + sStemDown + sThreeBelow);
    EXPECT_EQ(Note({.lDuration = 32, .bFlagged = false}), std::string(sHead) + sStemUp);
    EXPECT_EQ(Note({.lBeam = 2, .lDuration = 32}), std::string(sHead) + sStemUp);
}

TEST_F(NoteGlyphs, TheListsOfTripletsAreThoseOfNotesAndOfRests)
{
    constexpr int32_t lOfAThree = 7;
    auto const Strokes = [](std::string const& s) { return test::Count(s, "polygon"); };
    for (int32_t const lDuration : {512, 128, 64, 32})
        EXPECT_EQ(Strokes(Note(lDuration)), lOfAThree) << lDuration;
    EXPECT_EQ(Strokes(Note(256)), 0);
    for (int32_t const lDuration : {256, 128, 64, 2})
        EXPECT_EQ(Strokes(Rest(lDuration)), lOfAThree) << lDuration;
    EXPECT_EQ(Strokes(Rest(512)), 0);
    EXPECT_EQ(Strokes(Rest(1)), 0);
    EXPECT_EQ(Strokes(Note(1)), 0);
    EXPECT_EQ(Strokes(Note(2)), 3 + lOfAThree); // three flags: it is no grace note
}

TEST_F(NoteGlyphs, MarksStandOnTheSideOfTheHead)
{
    NoteLook look{.lDuration = 48, .bStaccato = true};
    EXPECT_EQ(Note(look), std::string(sHead) + sStemUp + "ellipse 97,115 104,122\n");
    look.bUp = false;
    EXPECT_EQ(Note(look), std::string(sHead) + sStemDown + "ellipse 97,79 104,86\n");
    look.bMarked = false;
    EXPECT_EQ(Note(look), std::string(sHead) + sStemDown);
    EXPECT_EQ(Note({.lDuration = 48, .bOrnament = true}), std::string(sHead) + sStemUp +
                                                              "polygon 100,116 100,116 104,120 104,120\n"
                                                              "polygon 104,120 104,120 108,116 108,116\n"
                                                              "polygon 108,116 108,116 112,120 112,120\n");
    EXPECT_NE(Note({.bUp = false, .lDuration = 48, .bOrnament = true}).find("polygon 100,84 "), std::string::npos);
}

TEST_F(NoteGlyphs, AnOpenHeadIsARingInTheColourInForceAndBlueComesBeforeRedBeforeGreen)
{
    auto const Ring = [this]
    {
        NoteHead(&dc, 100, 100, false);
        return Taken();
    };
    EXPECT_EQ(Ring(), sRing);
    BeginGreen(&dc);
    EXPECT_EQ(Ring(), "ellipse 93,93 107,107 pen 2 #00ff00 brush none\n");
    BeginRed(&dc);
    EXPECT_EQ(Ring(), "ellipse 93,93 107,107 pen 2 #ff0000 brush none\n");
    BeginBlue(&dc);
    EXPECT_EQ(Ring(), "ellipse 93,93 107,107 pen 2 #0000ff brush none\n");
    // The first asked stays on the device.
    NoteHead(&dc, 100, 100, true);
    EXPECT_EQ(Taken(), "ellipse 93,93 107,107 pen 1 #00ff00 brush #00ff00\n");
    EndColour(&dc);
    EXPECT_EQ(Ring(), sRing);
    NoteHead(&dc, 100, 100, true);
    EXPECT_EQ(Taken(), sHead);
    bDrawingCursor = true;
    EXPECT_EQ(Ring(), "ellipse 93,93 107,107 brush none\n");
    bDrawingCursor = false;
}

TEST_F(NoteGlyphs, LongRestsAreBlocksThatHangOrSit)
{
    std::string const sHanging = "box 100,101 128,111\n";
    std::string const sSitting = "box 100,90 128,100\n";
    EXPECT_EQ(Rest(192), sHanging);
    EXPECT_EQ(Rest(97), sHanging);
    EXPECT_EQ(Rest(96), sSitting);
    EXPECT_EQ(Rest(49), sSitting);
    // A dotted minim's dot stands one and a half heads further to the right.
    EXPECT_EQ(Rest(144, true), sSitting + "ellipse 135,93 142,100\n");
    EXPECT_EQ(Rest(288, true), sHanging + "ellipse 135,93 142,100\n");
}

TEST_F(NoteGlyphs, ACrotchetRestIsAZigzag)
{
    std::string const sZigzag = "polygon 100,130 100,134 96,130 96,126\n"
                                "line 96,128 96,124\n"
                                "line 96,124 100,120\n"
                                "line 100,120 104,120\n"
                                "polygon 96,110 96,114 104,122 104,118\n"
                                "line 96,112 104,104\n"
                                "polygon 96,94 96,98 104,106 104,102\n";
    EXPECT_EQ(Rest(48), sZigzag);
    EXPECT_EQ(Rest(25), sZigzag);
    EXPECT_EQ(Rest(72, true), sZigzag + sDotBehind);
}

TEST_F(NoteGlyphs, ShortRestsHaveAHookForEachFlag)
{
    std::string const sHook1 = "polygon 93,105 93,109 100,109 100,105\npolygon 100,105 100,109 107,102 107,98\n";
    std::string const sHook2 = "polygon 93,91 93,95 100,95 100,91\npolygon 100,91 100,95 107,88 107,84\n";
    std::string const sHook3 = "polygon 93,77 93,81 100,81 100,77\npolygon 100,77 100,81 107,74 107,70\n";
    std::string const sFoot = "line 107,100 100,136\n";
    EXPECT_EQ(Rest(24), sHook1 + sFoot);
    EXPECT_EQ(Rest(13), sHook1 + sFoot);
    EXPECT_EQ(Rest(12), sHook1 + sHook2 + "line 107,86 107,100\n" + sFoot);
    EXPECT_EQ(Rest(7), sHook1 + sHook2 + "line 107,86 107,100\n" + sFoot);
    EXPECT_EQ(Rest(6), sHook1 + sHook2 + sHook3 + "line 107,72 107,100\n" + sFoot);
    EXPECT_EQ(Rest(36, true), sHook1 + sFoot + sDotBehind);
}

TEST_F(NoteGlyphs, ARestTooShortForAShapeKeepsItsDotAndItsThree)
{
    EXPECT_EQ(DrawRest(&dc, 100, 100, 3, false), 0);
    EXPECT_EQ(Taken(), "");
    TripletMark(&dc, 100, 100 - 9 * 8);
    std::string const sThree = Taken();
    EXPECT_EQ(DrawRest(&dc, 100, 100, 3, true), 1);
    EXPECT_EQ(Taken(), sDotBehind + sThree);
    EXPECT_EQ(DrawRest(&dc, 100, 100, 2, false), 1);
    EXPECT_EQ(Taken(), sThree);
}

TEST_F(NoteGlyphs, OffThePageNothingIsDrawnAndNothingReported)
{
    for (int32_t const y : {lFarBelow, -lFarBelow})
    {
        bDrawingCursor = false;
        EXPECT_EQ(DrawNote(&dc, 100, y, {.lDuration = 6, .bDotted = true, .bStaccato = true, .bOrnament = true}), 0);
        EXPECT_EQ(DrawRest(&dc, 100, y, 48, true), 0);
        EXPECT_EQ(NoteHead(&dc, 100, y, true), 0);
        EXPECT_EQ(Stem(&dc, 100, y, true), 0);
        EXPECT_EQ(NoteDot(&dc, 100, y), 0);
        EXPECT_EQ(TripletMark(&dc, 100, y), 0);
        EXPECT_EQ(LegerLine(&dc, 100, y), 0);
        EXPECT_EQ(DrawText(&dc, 100, y, "a", false), 0);
    }
    EXPECT_EQ(Taken(), "");
}

TEST_F(NoteGlyphs, AtAPixelAUnitEverythingStillDraws)
{
    SetWindowUnits({0, 0, 1, 1});
    EXPECT_EQ(DrawNote(&dc, 100, 100, {.lDuration = 6}), 1);
    EXPECT_EQ(test::Count(Taken(), "ellipse"), 1);
}
} // namespace
} // namespace zarn
