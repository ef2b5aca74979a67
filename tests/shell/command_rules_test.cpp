// What a command asks, refuses and leaves behind, beside what it is for.
#include "edit/current_symbol.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "panels/panel_size.h"
#include "shell/accelerators.h"
#include "shell/command_list.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/options.h"
#include "support/shell_fixture.h"

#include <gmock/gmock.h>

namespace zarn::test
{
namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

struct CommandRules : Shell
{
    void SetUp() override
    {
        Start();
        Write(1, "clef:1 time:4/4 n4/48 n5/48 n6/48 n7/48");
        Command(COMMAND_FULLADJUST);
        sBefore = Read(1);
    }
    /// Marks the second and third note.
    static void Mark()
    {
        pelMarkBegin = At(1, 3);
        pelMarkEnd = At(1, 4);
    }
    std::string sBefore;
};
constexpr char const* sGuard = "Cannot edit in Right-Justified mode.  Change back now?";
} // namespace

TEST_F(CommandRules, EveryEditAsksFirstInRightJustifiedModeAndIsDropped)
{
    std::vector<int32_t> aGuarded = {59,  51,  52,  53,  54,  55,  57,   149,  150,  178, 184,
                                     185, 181, 151, 161, 163, 164, 4040, 4160, 4240, 4360};
    for (int32_t const lCommand : {51, 52, 53})
        Menu_Enable(lCommand, true);
    Mark();
    CurrentSymbol_SetNote(24);
    for (Answer::Kind const answer : {Answer::NO, Answer::YES})
        for (int32_t const lCommand : aGuarded)
        {
            if (!bRightJustified)
                Command(COMMAND_RIGHTJUSTIFIED);
            process.user.shown.clear();
            Answers(answer);
            Command(lCommand);
            EXPECT_THAT(Messages(), ElementsAre(sGuard)) << lCommand;
            EXPECT_EQ(process.user.shown[0].lFlags & MB_BUTTONS, MB_YESNO);
            EXPECT_EQ(Read(1), sBefore) << lCommand;
            EXPECT_EQ(elCurrent.lDuration, 24) << lCommand;
            EXPECT_EQ(bRightJustified, answer == Answer::NO) << lCommand;
            EXPECT_EQ(Checked(COMMAND_RIGHTJUSTIFIED), bRightJustified);
        }
}

TEST_F(CommandRules, TheMarkTheInsertPointAndTheOptionsNeedNoLeave)
{
    Command(COMMAND_RIGHTJUSTIFIED);
    for (int32_t const lCommand : {56, 158, 201, 203, 208, 216, 204, 228, 301, 302, 315, 321, 309, 316, 319, 101, 119})
        Command(lCommand);
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_TRUE(bRightJustified);
}

TEST_F(CommandRules, ADuplicateOfTheMarkGoesInAtThePointer)
{
    Mark();
    Press("esc");
    Window().SetPointer({At(1, 5)->lX + 3 * xunit, At(1, 5)->lY});
    Command(COMMAND_DUPLICATE);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n4/48 n5/48 n6/48 n7/48 | n5/48 n6/48");
}

TEST_F(CommandRules, AClearedMarkGreysCutAndCopyButNotPaste)
{
    Mark();
    for (int32_t const lCommand : {51, 52})
        Menu_Enable(lCommand, true);
    EXPECT_TRUE(Menu_IsGrey(COMMAND_PASTE));
    Command(COMMAND_COPY);
    EXPECT_FALSE(Menu_IsGrey(COMMAND_PASTE));
    Command(COMMAND_CLEARMARK);
    EXPECT_EQ(pelMarkBegin, nullptr);
    EXPECT_EQ(pelMarkEnd, nullptr);
    EXPECT_TRUE(Menu_IsGrey(COMMAND_CUT) && Menu_IsGrey(COMMAND_COPY));
    EXPECT_FALSE(Menu_IsGrey(COMMAND_PASTE));
}

TEST_F(CommandRules, ACutMakesPastePossibleAndAMarkThatFindsNothingGreysTheCut)
{
    Mark();
    for (int32_t const lCommand : {51, 52})
        Menu_Enable(lCommand, true);
    Command(COMMAND_CUT);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n4/48 n7/48 |");
    EXPECT_FALSE(Menu_IsGrey(COMMAND_PASTE));
    Press("esc");
    Window().SetPointer({At(1, 2)->lX, At(1, 2)->lY});
    Press("<");
    EXPECT_FALSE(Menu_IsGrey(COMMAND_CUT));
    Window().SetPointer({1100, At(1, 2)->lY}); // behind all that is there
    Press("<");
    EXPECT_TRUE(Menu_IsGrey(COMMAND_CUT) && Menu_IsGrey(COMMAND_COPY));
}

TEST_F(CommandRules, APasteLaysOutAndRepaintsWhetherOrNotThatIsContinuous)
{
    bAutoLayout = false;
    Mark();
    for (int32_t const lCommand : {51, 52})
        Menu_Enable(lCommand, true);
    Command(COMMAND_COPY);
    Window().SetPointer({At(1, 5)->lX + 3 * xunit, At(1, 5)->lY});
    Update();
    Command(COMMAND_PASTE);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n4/48 n5/48 n6/48 n7/48 | n5/48 n6/48");
    EXPECT_TRUE(Window().bRepaintOwed);
}

TEST_F(CommandRules, TransposingLaysOutAndRepaints)
{
    bAutoLayout = false;
    Mark();
    Update();
    Command(COMMAND_TRANSPOSEMARK + 12);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n4/48 n12/48 n13/48 n7/48 |");
    EXPECT_TRUE(Window().bRepaintOwed);
    Command(COMMAND_TRANSPOSEALL - 12);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n-3/48 n5/48 n6/48 n0/48 |");
}

TEST_F(CommandRules, AdjustContinuouslyLaysOutOnlyWhenItComesOn)
{
    Command(COMMAND_ADJUSTALWAYS);
    Write(1, "n4/96 n4/96 n4/96");
    std::string const sUnbarred = Read(1);
    EXPECT_FALSE(bAutoLayout);
    Command(COMMAND_ADJUSTALWAYS);
    EXPECT_TRUE(bAutoLayout);
    EXPECT_NE(Read(1), sUnbarred) << "the bars have come";
    Write(1, "n4/96 n4/96 n4/96");
    std::string const sLonger = Read(1);
    Command(COMMAND_ADJUSTALWAYS);
    EXPECT_EQ(Read(1), sLonger);
}

TEST_F(CommandRules, TheSymbolAheadOfTheMarkSignsIsSavedOnce)
{
    CurrentSymbol_SetNote(12);
    Command(COMMAND_MARKBEGIN);
    Command(COMMAND_MARKEND);
    EXPECT_EQ(elCurrent.sort, MARKEND);
    EXPECT_EQ(elSavedCurrent.sort, NOTE);
    EXPECT_EQ(elSavedCurrent.lDuration, 12);
}

TEST_F(CommandRules, ASlurNeedsAMark)
{
    Command(COMMAND_SLURMARK);
    EXPECT_THAT(Messages(),
                ElementsAre("You must mark the section to be slurred (See Edit menu) before you can slur it"));
    Mark();
    Update();
    Command(COMMAND_SLURMARK);
    EXPECT_NE(Read(1).find("slur("), std::string::npos) << Read(1);
    EXPECT_TRUE(Window().bRepaintOwed);
}

TEST_F(CommandRules, InMouseModeALengthOnlyChangesThePointerAndInKeyboardModeItAddsANote)
{
    int32_t const cBefore = Window().cCursors;
    Command(COMMAND_NOTE + 1);
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_GT(Window().cCursors, cBefore);
    Press("esc");
    Window().SetPointer({At(1, 5)->lX + 2 * xunit, At(1, 5)->lY});
    Press("2");
    EXPECT_EQ(Read(1), sBefore + " n7/192 |");
}

TEST_F(CommandRules, ATransposeOfNothingGoesInToCancelAnEarlierOne)
{
    Press("esc");
    Window().SetPointer({At(1, 1)->lX + 2 * xunit, At(1, 2)->lY});
    Command(COMMAND_TRANSPOSE);
    Element const* const pel = At(1, 2);
    EXPECT_EQ(pel->sort, TRANSPOSE);
    EXPECT_EQ(pel->lA, 0);
}

TEST_F(CommandRules, VolumesGoInFifteensFromFour)
{
    for (int32_t n = 0; n <= 8; ++n)
    {
        Command(COMMAND_VOLUME + n);
        EXPECT_EQ(elCurrent.sort, VOLUME);
        EXPECT_EQ(elCurrent.lA, 4 + 15 * n);
    }
}

TEST_F(CommandRules, TheInstrumentNumberIsAskedFromNoughtAndCancelTakesWhatTheBoxHeld)
{
    Answers(Answer::CANCEL);
    Command(COMMAND_INSTRUMENTNUMBER);
    EXPECT_THAT(Messages(), ElementsAre("Instrument number"));
    EXPECT_EQ(elCurrent.sort, INSTRUMENT);
    EXPECT_EQ(elCurrent.lA, 0);
    AnswersText("12x");
    Command(COMMAND_INSTRUMENTNUMBER);
    EXPECT_EQ(elCurrent.lA, 12);
}

TEST_F(CommandRules, ATimeSignatureThatIsNoneLeavesTheSymbolAsItWas)
{
    CurrentSymbol_SetNote(24);
    process.user.answers.push_back({.kind = Answer::FORM, .sText = "numerator=3 denominator=6 ok"});
    Command(COMMAND_OTHERTIME);
    EXPECT_THAT(Messages(), testing::Contains("Time signature denominator must be a power of 2"));
    EXPECT_EQ(elCurrent.sort, NOTE);
    process.user.answers.push_back({.kind = Answer::FORM, .sText = "numerator=-7 denominator=8 ok"});
    Command(COMMAND_OTHERTIME);
    EXPECT_EQ(elCurrent.sort, TIMESIG);
    EXPECT_EQ(elCurrent.lA, 7);
    EXPECT_EQ(elCurrent.lB, 8);
}

TEST_F(CommandRules, TheInsertPointForThePianoGoesToThePointer)
{
    Window().SetPointer({At(1, 4)->lX + 1, At(1, 4)->lY});
    Press("v");
    EXPECT_EQ(pelInsertPoint, At(1, 4));
    EXPECT_EQ(Read(1), sBefore);
}

TEST_F(CommandRules, EditModeKeepsItsCheckAndMakesADeletedSymbolTheCurrentOne)
{
    Command(COMMAND_EDITMODE);
    EXPECT_TRUE(Checked(COMMAND_EDITMODE));
    CurrentSymbol_SetRest(12);
    Click({At(1, 3)->lX, At(1, 3)->lY}, true);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_EQ(elCurrent.lDuration, 48);
    Command(COMMAND_EDITMODE);
    EXPECT_FALSE(Checked(COMMAND_EDITMODE));
    CurrentSymbol_SetRest(12);
    Click({At(1, 3)->lX, At(1, 3)->lY}, true);
    EXPECT_EQ(elCurrent.sort, REST);
}

TEST_F(CommandRules, AClosedPanelLosesItsCheckAndOwesARepaint)
{
    Command(COMMAND_PIANO);
    EXPECT_TRUE(Checked(COMMAND_PIANO) && bPianoShowing);
    for (int32_t const lCommand : {COMMAND_PIANOCLOSED, COMMAND_PALETTECLOSED})
    {
        Update();
        Command(lCommand);
        EXPECT_TRUE(Window().bRepaintOwed) << lCommand;
    }
    EXPECT_FALSE(Checked(COMMAND_PIANO) || bPianoShowing);
    EXPECT_FALSE(Checked(COMMAND_PALETTE) || bPaletteShowing);
}

TEST_F(CommandRules, ASecondStaffEndsTheTablature)
{
    bTabShowing = true;
    Command(COMMAND_SHOWSTAFF + 2);
    EXPECT_FALSE(bTabShowing);
    bTabShowing = true;
    Command(COMMAND_SHOWSTAFF + 2);
    EXPECT_TRUE(bTabShowing) << "one staff is left";
    bTabShowing = false;
}

TEST_F(CommandRules, ThePointersCountIsToldAndBelowNoughtItIsHidden)
{
    Command(COMMAND_HIDEPOINTER);
    EXPECT_FALSE(Window().bPointerHidden) << "the window that has the keys counts one";
    Command(COMMAND_HIDEPOINTER);
    EXPECT_TRUE(Window().bPointerHidden);
    Command(COMMAND_SHOWPOINTER);
    EXPECT_FALSE(Window().bPointerHidden);
    EXPECT_THAT(Messages(), ElementsAre("Show count = 0", "Show count = -1", "Show count = 0"));
}

TEST_F(CommandRules, TheListOfAllCommandsTellsKeysThatTheMenuDoesnt)
{
    std::vector<std::string> aLines;
    for (CommandLine const& line : CommandList())
        aLines.push_back(line.sText);
    EXPECT_THAT(aLines, testing::IsSupersetOf({"Help: Help  (F1)", "File: Exit  (Alt+F4)", "File: Save As...",
                                               "Action: Mouse mode  (Esc)", "Symbols: Notes: Gracenote  (8)"}));
    EXPECT_EQ(Accelerator_KeyText(COMMAND_SLURMARK), "");
}
} // namespace zarn::test
