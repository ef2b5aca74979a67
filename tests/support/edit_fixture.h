/// What a test of editing starts from: staff 1 showing on 1200 by 720 pixels, so that a column is 8 wide and a row 6
/// high, and nothing laid out behind its back. Whatever it does, the score is whole at the end.
#pragma once
#include "core/messages.h"
#include "core/score.h"
#include "core/score_check.h"
#include "edit/add.h"
#include "edit/current_symbol.h"
#include "edit/delete.h"
#include "edit/mark.h"
#include "layout/place.h"
#include "midi/refresh_pitches.h"
#include "render/geometry.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zarn::test
{
class EditFixture : public testing::Test
{
protected:
    EditFixture()
    {
        SetWindowUnits({0, 0, 1200, 720});
        bAutoLayout = false;
        bEditMode = false;
        elSavedCurrent = RoomyElement();
    }
    ~EditFixture() override
    {
        EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
        bAutoLayout = true;
        bEditMode = false;
        elSavedCurrent = RoomyElement();
    }

    /// Staff 1 anew, with its device positions and its pitches.
    static void Staff(std::string_view sScore)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        ReGrid();
        RefreshPitches(lHighestStaff);
    }
    static POINT PlaceAt(int32_t lStrX, int32_t lDiaPitch, int32_t lStaff = 1)
    {
        POINT place;
        Draw_Fold(lStrX, lDiaPitch, lStaff, 1, &place.x, &place.y);
        return place;
    }
    /// A click at a column and a position as it shows under a treble clef.
    static Element* Click(int32_t lStrX, int32_t lDiaPitch, int32_t lStaff = 1)
    {
        POINT const place = PlaceAt(lStrX, lDiaPitch, lStaff);
        return AddAtMouse(nullptr, nullptr, place.x, place.y);
    }
    /// What the clipboard or the undo store holds, as a staff of its own.
    static std::string Held(List& list)
    {
        std::swap(aStaffList[8], list);
        std::string sHeld = Read(8);
        std::swap(aStaffList[8], list);
        return sHeld;
    }
    /// What has been shown since the last call; the next serious message shows again.
    std::vector<std::string> TakeMessages()
    {
        std::vector<std::string> aTexts = process.user.Messages();
        process.user.shown.clear();
        Serious_Rearm();
        return aTexts;
    }

    ScriptedProcess process;
};
} // namespace zarn::test
