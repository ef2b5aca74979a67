// Ties between notes and chords.
#include "edit/ties.h"

#include "core/messages.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <map>

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;
using test::ScriptedProcess;
using test::Write;

class Ties : public testing::Test
{
protected:
    /// A staff whose notes sound a white key for each position.
    static void Staff(char const* sScore)
    {
        Write(1, sScore);
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            pel->lPitch = 60 + 2 * pel->lDiaPitch;
        pelInsertPoint = StaffLast(1);
    }
    std::string LastMessage() { return process.user.shown.empty() ? "" : process.user.shown.back().sText; }

    ScriptedProcess process;
};

TEST_F(Ties, OnlyTheSharedPitchesOfTwoChordsAreTied)
{
    Staff("[n0/48 n2/48] [n2/48 n4/48]");
    AddTieAtInsertPoint();
    EXPECT_EQ(Read(1), "[n0/48 n2/48/flag=1] tie [n2/48/flag=2 n4/48]");
    EXPECT_EQ(At(1, 2)->lDiaPitch, -2) << "2 below the earlier chord's lowest note";
    EXPECT_EQ(At(1, 2)->lStaff, 1);
}

TEST_F(Ties, TheTieStandsAheadOfTheFirstNoteOfTheLaterChord)
{
    Staff("n0/48 | clef:1 #0 n0/48");
    AddTieAtInsertPoint();
    EXPECT_EQ(Read(1), "n0/48/flag=1 | clef:1 #0 tie n0/48/flag=2");
}

TEST_F(Ties, ATieRunsOverABarButNotOverARepeatEndOrARest)
{
    struct
    {
        char const* sScore;
        char const* sMessage;
    } const aCase[] = {{"n0/48 | n0/48", ""},
                       {"n0/48 nl n0/48", ""},
                       {"n0/48 :| n0/48", "Can't tie - no previous note"},
                       {"n0/48 r48 n0/48", "Can't tie - no previous note"},
                       {"n0/48", "Can't tie - no previous note"},
                       {"n0/48 r48", "Can't have a tie here!  Bug?? Tie - ignored."},
                       {"n0/48 n1/48", "These chords have nothing in common.  Can only tie notes of same pitch."}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        process.user.shown.clear();
        Serious_Rearm();
        Staff(c.sScore);
        AddTieAtInsertPoint();
        EXPECT_EQ(LastMessage(), c.sMessage) << c.sScore;
    }
}

TEST_F(Ties, EachSortIsPassedOrStopsTheWalkItsWay)
{
    enum class Way
    {
        BOTH,
        BACK,
        NONE
    };
    std::map<int32_t, Way> ways;
    for (int32_t const sort : {BAR,    DOUBLEBAR,   CLEF,  KEYSIG, SHARP, FLAT,  NATURAL, TIMESIG, SPACE, CHORD,
                               LYRICS, REPEATSTART, TEMPO, VOLUME, ABC,   TITLE, TEXT,    ANNOT,   SLUR,  BOWING})
        ways[sort] = Way::BOTH;
    for (int32_t const sort : {NEWLINE, REPEATFIRST, ARPEGSTART, ARPEGEND})
        ways[sort] = Way::BACK;
    std::initializer_list<int32_t> const aStops = {NOSORT,    REST,   REPEATEND, REPEATENDSTART, TIE, INSTRUMENT,
                                                   TRANSPOSE, SORT22, MARKBEGIN, MARKEND,        35,  -1};
    for (int32_t const sort : aStops)
        ways[sort] = Way::NONE;
    ASSERT_EQ(ways.size(), 36U);
    Staff("n0/48 | n0/48");
    for (auto const& [sort, way] : ways)
    {
        At(1, 1)->sort = sort;
        EXPECT_EQ(TiePrevNote(At(1, 2)), way == Way::NONE ? nullptr : At(1, 0)) << sort;
        EXPECT_EQ(TieNextNote(At(1, 0)), way == Way::BOTH ? At(1, 2) : nullptr) << sort;
    }
}

TEST_F(Ties, ARepeatEndIsNoPlaceForATie)
{
    for (int32_t const sort : {REPEATEND, REPEATENDSTART})
    {
        Score_EmptyStaffs();
        process.user.shown.clear();
        Serious_Rearm();
        Staff("n0/48 :| n0/48");
        At(1, 1)->sort = sort;
        EXPECT_EQ(TieCheck(At(1, 1), true), 0) << sort;
        EXPECT_EQ(LastMessage(), "Can't tie - no following note") << sort;
        EXPECT_EQ(TieCheck(At(1, 2), true), 0) << sort;
    }
}

TEST_F(Ties, AheadOfABarOrOfALinesEndATieIsLegal)
{
    Staff("n0/48 | n0/48 nl n0/48");
    EXPECT_EQ(TieCheck(At(1, 1), true), 1);
    EXPECT_EQ(TieCheck(At(1, 3), true), 1);
    EXPECT_EQ(LastMessage(), "");
}

TEST_F(Ties, WithoutAFollowingNoteTheTieIsAMessageToo)
{
    Staff("n0/48 |");
    EXPECT_EQ(TieNotes(At(1, 1)), 0);
    EXPECT_EQ(LastMessage(), "Tie bug 'null pel 2', tell Odrian");
    EXPECT_EQ(Read(1), "n0/48 |");
    TieBreak(At(1, 1));
    TieBreak(nullptr);
    EXPECT_EQ(process.user.shown.size(), 1U) << "breaking says nothing";
}

TEST_F(Ties, ChordsWithNothingInCommonAreToldEvenWhenQuiet)
{
    Staff("n0/48 n1/48");
    EXPECT_EQ(TieCheck(At(1, 1), false), 0);
    EXPECT_EQ(LastMessage(), "These chords have nothing in common.  Can only tie notes of same pitch.");
}

TEST_F(Ties, ATieOfChordsIsLookedForFromTheirFirstNotes)
{
    Staff("[n0/48 n2/48] [n0/48 n2/48]");
    EXPECT_EQ(TieNotes(At(1, 3)), -2) << "ahead of an upper note";
    EXPECT_EQ(Column(1, &Element::lA), "5 9 6 10");
    TieBreak(At(1, 3));
    EXPECT_EQ(Column(1, &Element::lA), "4 8 4 8");
}

TEST_F(Ties, TheMergeEndsWithTheShorterChord)
{
    Staff("[n0/48 n2/48 n4/48] n0/48 n4/48");
    TieSetFlags(At(1, 0), At(1, 3));
    EXPECT_EQ(Read(1), "[n0/48/flag=1 n2/48 n4/48] n0/48/flag=2 n4/48") << "the note behind is no part of the chord";
}

TEST_F(Ties, BreakingWithoutANoteOnOneSideLeavesTheOther)
{
    Staff("n0/48/flag=1 tie r48 n0/48/flag=2");
    TieBreak(At(1, 1));
    EXPECT_EQ(Column(1, &Element::lA), "1 0 0 2");
    Score_EmptyStaffs();
    Staff("r48 tie n0/48/flag=2");
    TieBreak(At(1, 1));
    EXPECT_EQ(Column(1, &Element::lA), "0 0 2");
}

TEST_F(Ties, BreakingATieLeavesTheFlagsOfItsNeighbours)
{
    Staff("n0/48/flag=1 tie n0/48/flag=3 tie n0/48/flag=2");
    TieBreak(At(1, 1));
    EXPECT_EQ(Read(1), "n0/48 tie n0/48/flag=1 tie n0/48/flag=2");
}

TEST_F(Ties, APlaceThatIsARestHasNoFollowingNote)
{
    Staff("n0/48 r48 n0/48");
    EXPECT_EQ(TieCheck(At(1, 1), true), 0);
    EXPECT_EQ(LastMessage(), "Can't tie - no following note");
}

TEST_F(Ties, ANullPlaceIsToldEvenWhenQuiet)
{
    EXPECT_EQ(TieCheck(nullptr, false), 0);
    EXPECT_EQ(LastMessage(), "Can't tie - no following note");
}

TEST_F(Ties, AQuietCheckSaysNothingOfAMissingNote)
{
    Staff("n0/48");
    EXPECT_EQ(TieCheck(At(1, 0), false), 0);
    EXPECT_EQ(LastMessage(), "");
}

TEST_F(Ties, AWalkBackPassesALineEndAndAWalkForwardDoesNot)
{
    Staff("n0/48 nl n0/48 1st n0/48");
    EXPECT_EQ(TiePrevNote(At(1, 2)), At(1, 0));
    EXPECT_EQ(TieNextNote(At(1, 0)), nullptr);
    EXPECT_EQ(TiePrevNote(At(1, 4)), At(1, 2));
    EXPECT_EQ(TieNextNote(At(1, 2)), nullptr);
    EXPECT_EQ(TiePrevNote(nullptr), nullptr);
    EXPECT_EQ(TieNextNote(nullptr), nullptr);
}

TEST_F(Ties, NotesThatSoundAlikeAreTiedWhateverTheirPlace)
{
    Staff("n3/48 n4/48");
    At(1, 0)->lPitch = At(1, 1)->lPitch = 66;
    AddTieAtInsertPoint();
    EXPECT_EQ(Read(1), "n3/48/flag=1 tie n4/48/flag=2");
}

TEST_F(Ties, BreakingATieClearsBothChords)
{
    Staff("[n0/48 n2/48] [n2/48 n4/48]");
    AddTieAtInsertPoint();
    TieBreak(At(1, 2));
    EXPECT_EQ(Read(1), "[n0/48 n2/48] tie [n2/48 n4/48]");
}

TEST_F(Ties, ATieWithoutItsNotesIsAMessage)
{
    EXPECT_EQ(TieNotes(nullptr), 0);
    EXPECT_EQ(LastMessage(), "Tie bug 'null pel 1', tell Odrian");
}

TEST_F(Ties, FlagsForChordsWithNothingInCommonAreAMessage)
{
    Staff("n0/48 n1/48");
    TieSetFlags(At(1, 0), At(1, 1));
    EXPECT_EQ(LastMessage(), "Vaccuous tie.  Bug?  Tell Odrian");
    EXPECT_EQ(Read(1), "n0/48 n1/48");
}

TEST_F(Ties, FlagsForNoChordAreAMessage)
{
    TieSetFlags(nullptr, nullptr);
    EXPECT_EQ(LastMessage(), "Tie bug 'null pel'.  Tell Odrian");
}

TEST_F(Ties, CommonPitchesAreFoundAnywhereInTheTwoChords)
{
    Staff("[n0/48 n3/48 n9/48] [n1/48 n9/48] [n2/48 n8/48]");
    EXPECT_EQ(TieCommon(At(1, 0), At(1, 3)), 1);
    EXPECT_EQ(TieCommon(At(1, 0), At(1, 5)), 0);
    EXPECT_EQ(TieCommon(nullptr, At(1, 5)), 0);
}
} // namespace
} // namespace zarn
