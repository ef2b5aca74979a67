// An empty Score.
#include "edit/new_score.h"

#include "core/score.h"
#include "midi/guitar_chords.h"
#include "render/geometry.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
TEST(ScoreNew, EmptiesEveryStaffAndForgetsEveryPlace)
{
    test::ScriptedProcess const process;
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        test::Write(lStaff, "n0/24 n1/24");
    pelInsertPoint = pelMarkBegin = pelMarkEnd = pelHighlight = pelUndoPlace = StaffLast(1);
    Score_New();
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        EXPECT_EQ(test::Read(lStaff), "") << lStaff;
    EXPECT_EQ(pelInsertPoint, nullptr);
    EXPECT_EQ(pelMarkBegin, nullptr);
    EXPECT_EQ(pelMarkEnd, nullptr);
    EXPECT_EQ(pelHighlight, nullptr);
    EXPECT_EQ(pelUndoPlace, nullptr);
}

TEST(ScoreNew, IsCleanPlayedThroughoutAndBeginsWithACrotchet)
{
    test::ScriptedProcess const process;
    bScoreDirty = true;
    bTimesValid = false;
    afPlay[3] = 0;
    elCurrent.fHidden = 1;
    Score_New();
    EXPECT_FALSE(bScoreDirty);
    EXPECT_TRUE(bTimesValid);
    EXPECT_EQ(afPlay[3], 1);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 48);
    EXPECT_EQ(elCurrent.lB, 64);
    EXPECT_EQ(elCurrent.fHidden, 0);
}

TEST(ScoreNew, ShowsTheFirstStaffAlone)
{
    test::ScriptedProcess const process;
    SetStaffCount(4);
    Score_New();
    EXPECT_TRUE(IsVisible(1));
    EXPECT_EQ(VisibleCount(), 1);
}

TEST(ScoreNew, LoadsWhetherHarmoniesArePlayed)
{
    test::ScriptedProcess process;
    process.settings.values["Play guitar chords"] = 0;
    Score_New();
    EXPECT_EQ(fPlayChords, false);
    process.settings.values["Play guitar chords"] = 1;
    Score_New();
    EXPECT_EQ(fPlayChords, true);
}
} // namespace
} // namespace zarn
