// Notes from the piano: place, stem, spelling, accidentals.
#include "edit/piano_add.h"

#include "core/messages.h"
#include "edit/current_symbol.h"
#include "platform/headless/recording_surface.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
using test::Read;
using test::Write;

class PianoAdd : public testing::Test
{
protected:
    PianoAdd() { CurrentSymbol_SetNote(48); }

    /// Adds behind the score's last element; gives what stands behind it then.
    static std::string Added(char const* sScore, int32_t lDiaPitch, int32_t lAccid)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        std::string const sBefore = Read(1);
        pelInsertPoint = StaffLast(1);
        Piano_AddNote(nullptr, nullptr, lDiaPitch, 1, 0, lAccid);
        EXPECT_EQ(pelInsertPoint, StaffLast(1));
        return Read(1).substr(sBefore.empty() ? 0 : sBefore.size() + 1);
    }
    static int32_t UpOf(char const* sScore, int32_t lDiaPitch, int32_t lDuration = 48)
    {
        CurrentSymbol_SetNote(lDuration);
        (void)Added(sScore, lDiaPitch, 0);
        return StaffLast(1)->up;
    }

    test::DrawingProcess process;
};

TEST_F(PianoAdd, ANoteGoesFourColumnsBehindTheInsertPoint)
{
    Write(1, "x:30 n4/48 x:50 n5/48");
    pelInsertPoint = test::At(1, 0);
    Piano_AddNote(nullptr, nullptr, 2, 1, 0, 0);
    EXPECT_EQ(Read(1), "n4/48 n2/48 n5/48");
    EXPECT_EQ(test::At(1, 1)->lStrX, 34);
    EXPECT_EQ(pelInsertPoint, test::At(1, 1));
    EXPECT_EQ(lInsertStaff, 1);
}

TEST_F(PianoAdd, AtTheHeadItGoesToColumn24)
{
    Write(1, "x:50 n5/48");
    pelInsertPoint = nullptr;
    Piano_AddNote(nullptr, nullptr, 2, 1, 0, 0);
    EXPECT_EQ(Read(1), "n2/48 n5/48");
    EXPECT_EQ(StaffFirst(1)->lStrX, 24);
    EXPECT_EQ(pelInsertPoint, StaffFirst(1));
}

TEST_F(PianoAdd, AnAccidentalTakesTwoColumnsAheadOfItsNote)
{
    Write(1, "x:30 clef:1");
    pelInsertPoint = StaffLast(1);
    Piano_AddNote(nullptr, nullptr, 0, 1, 0, 1);
    EXPECT_EQ(Read(1), "clef:1 #0 n0/48");
    EXPECT_EQ(test::At(1, 1)->lStrX, 34);
    EXPECT_EQ(test::At(1, 2)->lStrX, 36);
    EXPECT_EQ(pelInsertPoint, test::At(1, 2));
}

TEST_F(PianoAdd, ItMarksTheScoreDirtyAndItsTimesStale)
{
    Piano_AddNote(nullptr, nullptr, 0, 1, 0, 0);
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
}

TEST_F(PianoAdd, ADurationGoesIntoTheCurrentSymbolAndStays)
{
    Piano_AddNote(nullptr, nullptr, 0, 1, 24, 0);
    EXPECT_EQ(elCurrent.lDuration, 24);
    Piano_AddNote(nullptr, nullptr, 1, 1, 0, 0);
    EXPECT_EQ(Read(1), "n0/24 n1/24");
}

TEST_F(PianoAdd, WithoutANoteAsCurrentSymbolOnlyTheDurationGoesIn)
{
    CurrentSymbol_SetRest(48);
    Piano_AddNote(nullptr, nullptr, 0, 1, 24, 0);
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(elCurrent.lDuration, 24);
    EXPECT_TRUE(bScoreDirty);
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Piano works only with notes\nSet current symbol first\nShortcut keys 1..6"});
}

TEST_F(PianoAdd, TheCurrentSymbolsVolumePitchAndMarksGoAlong)
{
    elCurrent.lA = fStaccato;
    elCurrent.lB = 99;
    elCurrent.lPitch = 71;
    Piano_AddNote(nullptr, nullptr, 0, 1, 0, 0);
    EXPECT_EQ(StaffFirst(1)->lA, fStaccato);
    EXPECT_EQ(StaffFirst(1)->lB, 99);
    EXPECT_EQ(StaffFirst(1)->lPitch, 71);
    EXPECT_EQ(StaffFirst(1)->storage, cbPlainElement);
}

TEST_F(PianoAdd, EachClefHasItsOwnHighestStemUp)
{
    struct
    {
        char const* sClef;
        int32_t lHighestUp;
    } const aCases[] = {{"clef:1", 6}, {"clef:2", 0}, {"clef:3", -6}, {"clef:4", -2}};
    for (auto const& c : aCases)
    {
        EXPECT_EQ(UpOf(c.sClef, c.lHighestUp), 1) << c.sClef;
        EXPECT_EQ(UpOf(c.sClef, c.lHighestUp + 1), 0) << c.sClef;
    }
}

TEST_F(PianoAdd, NotesWithoutAStemAndMinimTripletsCountAsUp)
{
    EXPECT_EQ(UpOf("clef:1", 12, 192), 1);
    EXPECT_EQ(UpOf("clef:1", 12, 145), 1);
    EXPECT_EQ(UpOf("clef:1", 12, 128), 1);
    EXPECT_EQ(UpOf("clef:1", 12, 144), 0);
    EXPECT_EQ(UpOf("clef:1", 12, 96), 0);
}

TEST_F(PianoAdd, AtTheHeadTheStemGoesByTheStaffsLastClef)
{
    Write(1, "clef:1 clef:3");
    pelInsertPoint = nullptr;
    Piano_AddNote(nullptr, nullptr, 0, 1, 0, 0);
    EXPECT_EQ(StaffFirst(1)->up, 0);
}

TEST_F(PianoAdd, TheStemGoesByTheKeyThatWasPressedNotByTheSpelling)
{
    // B sharp becomes the C above in a flat key; of that one, the stem would point down.
    EXPECT_EQ(Added("clef:1 key:-1", 6, 1), "n7/48");
    EXPECT_EQ(StaffLast(1)->up, 1);
}

TEST_F(PianoAdd, AccidentalsInSharpAndOpenKeys)
{
    struct
    {
        char const* sScore;
        int32_t lDiaPitch, lAccid;
        char const* sAdded;
    } const aCases[] = {
        {"clef:1", 0, 0, "n0/48"},                   // a white key in C
        {"clef:1", 0, 1, "#0 n0/48"},                // a black one
        {"clef:1 #0 n0/48", 0, 1, "#0 n0/48"},       // the bar's sharp doesn't count where the key has none
        {"clef:1 #0 n0/48", 0, 0, "=0 n0/48"},       // a white key behind a sharp
        {"clef:1 b0 n0/48", 0, 0, "=0 n0/48"},       // and behind a flat
        {"clef:1 =0 n0/48", 0, 0, "n0/48"},          // but not behind a natural
        {"clef:1 #0 n0/48 |", 0, 0, "n0/48"},        // a bar ends the sharp
        {"clef:1 key:1", 3, 1, "n3/48"},             // F sharp in G
        {"clef:1 key:1", 3, 0, "=3 n3/48"},          // F in G
        {"clef:1 key:1", 10, 1, "n10/48"},           // an octave higher
        {"clef:1 key:1", -4, 1, "n-4/48"},           // and lower
        {"clef:1 key:1 =3 n3/48", 3, 1, "#3 n3/48"}, // F sharp behind a natural
        {"clef:1 key:1 b3 n3/48", 3, 1, "#3 n3/48"}, // and behind a flat
        {"clef:1 key:1 #3 n3/48", 3, 1, "n3/48"},
        {"clef:1 key:1 =3 n3/48", 3, 0, "=3 n3/48"}, // the key has it: the natural comes again
        {"clef:1 key:1", 0, 1, "#0 n0/48"},
        {"clef:1", 1, -1, "#0 n0/48"}, // a flat becomes the sharp below
        {"clef:1 key:1", 4, -1, "n3/48"},
    };
    for (auto const& c : aCases)
        EXPECT_EQ(Added(c.sScore, c.lDiaPitch, c.lAccid), c.sAdded) << c.sScore << " " << c.lDiaPitch;
}

TEST_F(PianoAdd, AccidentalsInFlatKeysDontAskWhatTheKeyAlters)
{
    struct
    {
        char const* sScore;
        int32_t lDiaPitch, lAccid;
        char const* sAdded;
    } const aCases[] = {
        {"clef:1 key:-1", 6, -1, "n6/48"},   // B flat in F
        {"clef:1 key:-1", 1, -1, "n1/48"},   // D flat, which the key doesn't have, looks as if it did
        {"clef:1 key:-1", 0, 1, "n1/48"},    // so does the black key above C
        {"clef:1 key:-1", 0, 0, "=0 n0/48"}, // and each white key gets a natural
        {"clef:1 key:-7", 3, 0, "=3 n3/48"}, // mask 8: the F alone
        {"clef:1 key:-7", 0, 0, "n0/48"},
        {"clef:1 key:-7", 0, -1, "b0 n0/48"},
        {"clef:1 key:-2", 6, -1, "b6 n6/48"}, // mask 63: all but B
        {"clef:1 key:-1 b6 n6/48", 6, 0, "=6 n6/48"},
        {"clef:1 key:-1 =6 n6/48", 6, -1, "b6 n6/48"},
        {"clef:1 key:-1 #6 n6/48", 6, -1, "b6 n6/48"},
        {"clef:1 key:-1 b6 n6/48", 6, -1, "n6/48"},
        {"clef:1 key:-1", -1, -1, "b-1 n-1/48"}, // below middle C the step keeps its sign
        {"clef:1 key:-1", -1, 0, "n-1/48"},
        {"clef:1 key:-1", -7, -1, "n-7/48"}, // the Cs alone have step 0 there too
    };
    for (auto const& c : aCases)
        EXPECT_EQ(Added(c.sScore, c.lDiaPitch, c.lAccid), c.sAdded) << c.sScore << " " << c.lDiaPitch;
}

TEST_F(PianoAdd, TheFlatKeysMasks)
{
    int32_t const aMasks[] = {127, 63, 59, 27, 25, 9, 8};
    for (int32_t lFlats = 1; lFlats <= 7; ++lFlats)
        for (int32_t lStep = 0; lStep < 7; ++lStep)
        {
            std::string const sScore = "clef:1 key:-" + std::to_string(lFlats);
            std::string const sNote = "n" + std::to_string(lStep) + "/48";
            bool const bInMask = (aMasks[lFlats - 1] >> lStep) & 1;
            EXPECT_EQ(Added(sScore.c_str(), lStep, -1), bInMask ? sNote : "b" + std::to_string(lStep) + " " + sNote)
                << sScore;
        }
}

TEST_F(PianoAdd, AKeyOutOfRangeAltersNothing)
{
    EXPECT_EQ(Added("clef:1 key:9", 0, 1), "#0 n0/48");
    EXPECT_EQ(Added("clef:1 key:-9", 0, -1), "b0 n0/48");
    EXPECT_EQ(Added("clef:1 key:-9", 0, 0), "n0/48");
}

TEST_F(PianoAdd, AnInsertPointOnAnotherStaffCountsAsItsColumn)
{
    Write(1, "x:10 clef:1 x:30 n1/48 x:60 n3/48");
    Write(2, "x:10 clef:3 x:40 n-5/48");
    pelInsertPoint = StaffLast(2);
    lInsertStaff = 2;
    Piano_AddNote(nullptr, nullptr, 2, 1, 0, 0);
    EXPECT_EQ(Read(1), "clef:1 n1/48 n2/48 n3/48");
    EXPECT_EQ(Read(2), "clef:3 n-5/48");
    EXPECT_EQ(pelInsertPoint, test::At(1, 2));
    EXPECT_EQ(lInsertStaff, 1);
}

TEST_F(PianoAdd, WithASurfaceTheNoteIsDrawn)
{
    hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
    RecordingSurface surface{{1200, 800}};
    DeviceContext dc{.pSurface = &surface};
    Write(1, "x:20 clef:1");
    pelInsertPoint = StaffLast(1);
    Piano_AddNote(&dc, hwndMain, 0, 1, 0, 1);
    EXPECT_GT(test::Count(surface.All(), "ellipse"), 0);
    EXPECT_GT(StaffLast(1)->lX, test::At(1, 1)->lX);
}
} // namespace
} // namespace zarn
