#include "shell/commands.h"

#include "layout/adjust.h"
#include "midi/record.h"
#include "platform/headless/replay.h"
#include "shell/command_list.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/options.h"
#include "support/shell_fixture.h"
#include "support/sound_fixture.h"

#include <gmock/gmock.h>

#include <set>

namespace zarn::test
{
namespace
{
struct Commands : Shell
{
    void SetUp() override { Start(); }

    /// Two lines of music on staff 1.
    static void WriteTwoLines()
    {
        std::string sMusic = "clef:1 time:4/4";
        for (int32_t n = 0; n < 60; ++n)
            sMusic += " n0/48 n2/48 n4/48 n6/48";
        Write(1, sMusic);
        FullAdjust();
    }

    void Key(char const* sKey, bool bCtrl = false, bool bAlt = false)
    {
        Event event;
        event.kind = EventKind::KEY;
        event.sText = sKey;
        event.fCtrl = bCtrl;
        event.fAlt = bAlt;
        door.Receive(event);
    }
};

void CollectItems(std::vector<MenuItem> const& aItems, std::vector<MenuItem>& aAll)
{
    for (MenuItem const& item : aItems)
    {
        aAll.push_back(item);
        CollectItems(item.aItems, aAll);
    }
}

std::vector<MenuItem> AllItems()
{
    std::vector<MenuItem> aAll;
    CollectItems(MainMenu(), aAll);
    return aAll;
}
} // namespace

TEST(MainMenuTable, EveryItemHasACommandOfItsOwn)
{
    std::set<int32_t> seen;
    for (MenuItem const& item : AllItems())
    {
        if (!item.sLabel)
            EXPECT_TRUE(item.lCommand == 0 && item.aItems.empty()) << "a separator is nothing else";
        else if (item.aItems.empty())
        {
            EXPECT_TRUE(Command_Exists(item.lCommand)) << item.sLabel;
            bool const bTwoNames = item.lCommand >= COMMAND_INSTRUMENT && item.lCommand < COMMAND_INSTRUMENT + 128;
            EXPECT_TRUE(seen.insert(item.lCommand).second || bTwoNames) << item.sLabel;
        }
        else
            EXPECT_EQ(item.lCommand, 0) << item.sLabel;
    }
}

TEST_F(Commands, UnknownNumbersDoNothing)
{
    for (int32_t const lCommand : {INT32_MIN, -1, 0, 6, 7, 12, 275, 330, 331, 335, 500, 509, 99999, INT32_MAX})
    {
        EXPECT_FALSE(Command_Exists(lCommand)) << lCommand;
        Command(lCommand);
    }
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(Commands, EveryMenuItemRunsOnAScoreWithoutAnError)
{
    VirtualSound sound(process.user);
    host.pSound = &sound;
    WriteTwoLines();
    process.user.printer.bThere = true;
    std::set<std::string> const toldWithoutMark = {
        "You must mark the section to be slurred (See Edit menu) before you can slur it",
        "Mark the section to transpose first"};
    for (MenuItem const& item : AllItems())
    {
        if (item.lCommand == 0 || item.lCommand == COMMAND_EXIT)
            continue;
        Command(item.lCommand);
        Update();
        for (Shown const& shown : process.user.shown)
            EXPECT_TRUE((shown.lFlags & MB_ICONSTOP) == 0 || toldWithoutMark.contains(shown.sText))
                << item.sLabel << ": " << shown.sText;
        process.user.shown.clear();
    }
    StopRecording(nullptr);
    ShutDownMidi();
    host.pSound = nullptr;
    ResetPlayOptions();
}

TEST_F(Commands, OptionsToggleAndKeepTheirCheck)
{
    struct
    {
        int32_t lCommand;
        bool* pbOption;
    } const aCase[] = {{201, &bKeepBarsTogether}, {202, &bShowLayout}, {203, &bBeamQuavers},
                       {215, &bRightJustified},   {216, &bAutoLayout}, {220, &bChordsBelowStaff},
                       {227, &bShowArpeggio}};
    for (auto const& c : aCase)
    {
        bool const bBefore = *c.pbOption;
        for (bool const bExpected : {!bBefore, bBefore})
        {
            Command(c.lCommand);
            EXPECT_EQ(*c.pbOption, bExpected) << c.lCommand;
            EXPECT_EQ(Checked(c.lCommand), bExpected) << c.lCommand;
        }
    }
}

TEST_F(Commands, WhereChordSymbolsStandIsStoredAtOnce)
{
    Command(COMMAND_CHORDSBELOW);
    EXPECT_EQ(process.settings.values.at("Guitar chords below staff"), 0);
    Command(COMMAND_CHORDSBELOW);
    EXPECT_EQ(process.settings.values.at("Guitar chords below staff"), 1);
}

TEST_F(Commands, SomeOptionsRepaintAndSomeWaitForTheNextAdjust)
{
    struct
    {
        int32_t lCommand;
        bool bRepaints;
    } const aCase[] = {{201, false}, {203, false}, {202, true},  {215, true},
                       {220, true},  {227, true},  {216, false}, {216, true}};
    for (auto const& c : aCase)
    {
        Update();
        Command(c.lCommand);
        EXPECT_EQ(Window().bRepaintOwed, c.bRepaints) << c.lCommand;
    }
}

TEST_F(Commands, RightJustifiedModeRefusesEdits)
{
    EXPECT_FALSE(RefuseInRightJustified());
    Command(COMMAND_RIGHTJUSTIFIED);
    Answers(Answer::NO);
    EXPECT_TRUE(RefuseInRightJustified());
    EXPECT_TRUE(bRightJustified);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Cannot edit in Right-Justified mode.  Change back now?"});
    Answers(Answer::YES);
    EXPECT_TRUE(RefuseInRightJustified()) << "the command that asked is dropped all the same";
    EXPECT_FALSE(bRightJustified);
    EXPECT_FALSE(Checked(COMMAND_RIGHTJUSTIFIED));
}

TEST_F(Commands, SpacingGoesByTwentieths)
{
    Command(COMMAND_STRETCHHORIZ);
    EXPECT_EQ(lColsPerLine, 143);
    Command(COMMAND_SQUEEZEHORIZ);
    EXPECT_EQ(lColsPerLine, 150);
    Command(COMMAND_STRETCHVERT);
    EXPECT_EQ(lRowsPerPage, 114);
    Command(COMMAND_SQUEEZEVERT);
    EXPECT_EQ(lRowsPerPage, 119);
    Command(COMMAND_STORESPACING);
    EXPECT_EQ(process.settings.values.at("ColSpacing"), 119);
    EXPECT_EQ(process.settings.values.at("LineSpacing"), 150);
    Command(COMMAND_RESETSPACING);
    EXPECT_EQ(lRowsPerPage, 120);
}

TEST_F(Commands, APromptShowsAndStoresItsValue)
{
    AnswersNumber(12);
    Command(COMMAND_LEGERSABOVE);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Leger notes above staff (8)"});
    EXPECT_EQ(lLegersAbove, 12);
    EXPECT_EQ(lStaffHeight, 12 + 8 + 9);
    EXPECT_EQ(process.settings.values.at("Leger notes above staff"), 12);
    EXPECT_EQ(Window().ItemText(COMMAND_LEGERSABOVE), "Leger notes above staff (12)...");
    process.user.shown.clear();
    Command(COMMAND_LEGERSABOVE);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Leger notes above staff (12)"});
}

TEST_F(Commands, CancellingAPromptStoresTheValueShown)
{
    Command(COMMAND_SYSTEMGAP);
    EXPECT_EQ(process.settings.values.at("Extra between systems"), 5);
    EXPECT_EQ(lExtraBetweenSystems, 5);
    EXPECT_EQ(Window().ItemText(COMMAND_SYSTEMGAP), "Extra between systems (5)...");
}

TEST_F(Commands, APromptThatCantBeShownStoresNothing)
{
    process.user.bFormsWork = false;
    Command(COMMAND_LEGERSBELOW);
    EXPECT_FALSE(process.settings.values.contains("Leger notes below staff"));
    EXPECT_EQ(Window().ItemText(COMMAND_LEGERSBELOW), "Leger notes below staff...");
    EXPECT_EQ(lLegersBelow, 9);
}

TEST_F(Commands, MarginsKeepTheSizeOfAColumn)
{
    AnswersNumber(20);
    Command(COMMAND_LEFTMARGIN);
    EXPECT_EQ(lMarginLeft, 20);
    EXPECT_EQ(lColsPerLine, 120);
    EXPECT_EQ(lLeftMarginPx, 240);
    EXPECT_EQ(lPageWidth, 960);
    EXPECT_EQ(xunit, 8);
    AnswersNumber(99);
    Command(COMMAND_RIGHTMARGIN);
    EXPECT_EQ(lMarginRight, 60) << "both together take 80";
    AnswersNumber(10);
    Command(COMMAND_TOPMARGIN);
    EXPECT_EQ(lTopMarginPx, 80);
    AnswersNumber(10);
    Command(COMMAND_BOTTOMMARGIN);
    EXPECT_EQ(lPageHeight, 640);
    EXPECT_EQ(process.settings.values.at("Bottom margin percent"), 10);
}

TEST_F(Commands, TheFontScaleIsOfferedAtAHundred)
{
    Command(COMMAND_FONTSCALE);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Font size scaling factor (100)"});
    EXPECT_EQ(lFontScale, 100);
    EXPECT_EQ(process.settings.values.at("Font size scaling factor"), 100);
    EXPECT_EQ(Window().ItemText(COMMAND_FONTSCALE), "Font size scaling factor (100)...");
    EXPECT_TRUE(Window().bRepaintOwed);
}

TEST_F(Commands, AFontThatCantBeMadeIsTold)
{
    process.user.answers.push_back({.kind = Answer::NUMBER, .lNumber = 90});
    cGdiObjectsLeft = 0;
    Command(COMMAND_FONTSCALE);
    cGdiObjectsLeft = -1;
    EXPECT_THAT(process.user.Messages(), testing::Contains("Could not get font.  Tell Odrian"));
}

TEST_F(Commands, FullAdjustBarsAndMiniAdjustDoesNot)
{
    Write(1, "clef:1 time:4/4 n0/96 n2/96 n4/96 n6/96");
    Command(COMMAND_MINIADJUST);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/96 n2/96 n4/96 n6/96");
    Key("a");
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/96 n2/96 | n4/96 n6/96 |");
}

TEST_F(Commands, CleanUpsTakeOutWhatSaysNothing)
{
    Write(1, "clef:1 key:1 time:4/4 #3 n3/48 nl n4/48");
    Command(COMMAND_REMOVESPURIOUS);
    EXPECT_EQ(Read(1), "clef:1 key:1 time:4/4 n3/48 nl clef:1 key:1 n4/48") << "only the sharp of the key has gone";
    Command(COMMAND_REMOVENEWLINES);
    EXPECT_EQ(Read(1), "clef:1 key:1 time:4/4 n3/48 n4/48");
}

TEST_F(Commands, AStaffThatIsShownGetsTheOpeningSigns)
{
    Write(1, "clef:1 key:2 time:3/4 n0/48");
    Command(COMMAND_SHOWSTAFF + 2);
    EXPECT_TRUE(Checked(COMMAND_SHOWSTAFF + 2));
    EXPECT_EQ(lStaffCount, 2);
    EXPECT_EQ(Read(2), "clef:1 key:2 time:3/4");
    Command(COMMAND_SHOWSTAFF + 2);
    EXPECT_FALSE(Checked(COMMAND_SHOWSTAFF + 2));
    EXPECT_EQ(lStaffCount, 1);
    Command(COMMAND_SHOWSTAFF + 1);
    EXPECT_EQ(lStaffCount, 0) << "every staff can be hidden";
}

TEST_F(Commands, ShowingAStaffKeepsTheMusicInView)
{
    WriteTwoLines();
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::PAGEDOWN));
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::PAGEDOWN));
    int32_t const lBefore = lScroll;
    ASSERT_EQ(lBefore, 2 * SystemHeight());
    Command(COMMAND_SHOWSTAFF + 2);
    EXPECT_EQ(lScroll, lBefore + lStaffHeight) << "the second system begins further down now";
    Command(COMMAND_SHOWSTAFF + 2);
    EXPECT_EQ(lScroll, lBefore);
    int32_t lX = 0;
    int32_t lY = 0;
    Draw_Fold(At(1, 0)->lStrX, At(1, 0)->lDiaPitch, 1, 1, &lX, &lY);
    EXPECT_EQ(At(1, 0)->lY, lY) << "what is on paper stands where the scroll says";
}

TEST_F(Commands, TheScrollBarMovesTheView)
{
    WriteTwoLines();
    Command(COMMAND_MINIADJUST);
    Update(); // the bar gets its range
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::LINEDOWN));
    EXPECT_EQ(lScroll, lStaffHeight);
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::LINEUP));
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::LINEUP));
    EXPECT_EQ(lScroll, 0) << "not above the top";
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::PAGEDOWN));
    EXPECT_EQ(lScroll, SystemHeight());
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::LINEDOWN));
    Update();
    EXPECT_EQ(lScroll, SystemHeight() + lStaffHeight);
    EXPECT_EQ(Window().lScrollPlace, lStaffHeight) << "the bar is told the change, not the place";
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::LINEUP));
    EXPECT_EQ(Window().lScrollPlace, 0);
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::PAGEUP));
    EXPECT_EQ(lScroll, 0);
    int32_t const lYAtTop = At(1, 0)->lY;
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::THUMB), 10);
    EXPECT_EQ(lScroll, 10);
    EXPECT_LT(At(1, 0)->lY, lYAtTop);
    Update();
    EXPECT_EQ(Window().lScrollPlace, 10);
    EXPECT_GT(Window().lScrollRange, 0);
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::THUMB), -5);
    EXPECT_EQ(lScroll, 0);
}

TEST_F(Commands, AResizeFoldsTheScoreAnew)
{
    Write(1, "clef:1 time:4/4 n0/48");
    Command(COMMAND_FULLADJUST);
    int32_t const lX = At(1, 2)->lX;
    Update();
    Window().Resize({600, 400});
    Send(EventKind::SIZE, 0, 600, 400);
    EXPECT_EQ(lPageWidth, 600);
    EXPECT_EQ(lPageHeight, 400);
    EXPECT_EQ(xunit, 4);
    EXPECT_NEAR(At(1, 2)->lX, lX / 2, 1);
    EXPECT_TRUE(Window().bRepaintOwed);
}

TEST_F(Commands, AWindowWithoutAnAreaHurtsNobody)
{
    WriteTwoLines();
    Window().Resize({0, 0});
    Send(EventKind::SIZE, 0, 0, 0);
    Update();
    EXPECT_EQ(lPageWidth, 1);
    EXPECT_EQ(lPageHeight, 1);
}

TEST_F(Commands, HelpOpensTheManualOrSaysThatItCant)
{
    Key("f1");
    EXPECT_EQ(process.user.aHelped, std::vector<std::string>{"zarn.hlp"});
    EXPECT_TRUE(process.user.shown.empty());
    process.user.bHelpWorks = false;
    Command(COMMAND_HELP);
    EXPECT_EQ(process.user.shown[0].sText, "Help failed.  Check that you have zarn.hlp");
    EXPECT_EQ(process.user.shown[0].sCaption, "Zarn help");
}

TEST_F(Commands, BriefInfoTellsTheVersionAndWhatABugReportNeeds)
{
    Command(COMMAND_BRIEFINFO);
    ASSERT_EQ(process.user.shown.size(), 1u);
    std::string const& sText = process.user.shown[0].sText;
    for (char const* sPart : {ZARN_VERSION, "State:", "   your machine configuration, and settings",
                              "   exactly what you did", "   what you expected to happen", "   what actually happened",
                              "   other relevant details, e.g. can you make it happen again?"})
        EXPECT_NE(sText.find(sPart), std::string::npos) << sPart;
}

TEST_F(Commands, TheTraceCanBeTurnedOnAndOff)
{
    testing::internal::CaptureStderr();
    Command(COMMAND_DUMP);
    Command(COMMAND_DEBUGLOGON);
    Command(COMMAND_DUMP);
    Command(COMMAND_DEBUGLOGOFF);
    Command(COMMAND_DUMP);
    std::string const sTrace = testing::internal::GetCapturedStderr();
    size_t const lFirst = sTrace.find("Score Dump (as requested)\r\n");
    ASSERT_NE(lFirst, std::string::npos);
    EXPECT_EQ(sTrace.find("Score Dump", lFirst + 1), std::string::npos);
}

TEST_F(Commands, KeysReachTheCommandsAndAGreyOneDoesnt)
{
    Key("+");
    EXPECT_EQ(lColsPerLine, 143);
    Key("+", false, true);
    EXPECT_EQ(lRowsPerPage, 114);
    Menu_Enable(COMMAND_STRETCHHORIZ, false);
    EXPECT_TRUE(Window().IsGrey(COMMAND_STRETCHHORIZ));
    Key("+");
    Command(COMMAND_STRETCHHORIZ);
    EXPECT_EQ(lColsPerLine, 143);
    Menu_Enable(COMMAND_STRETCHHORIZ, true);
    Key("+");
    EXPECT_EQ(lColsPerLine, 136);
    Key("q");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(Commands, EachEventMayShowAnErrorOfItsOwn)
{
    Serious("one");
    Serious("two");
    Command(COMMAND_MINIADJUST);
    Serious("three");
    EXPECT_EQ(Messages(), (std::vector<std::string>{"one", "three"}));
}

TEST_F(Commands, WhatNothingAnswersIsPassedOver)
{
    for (EventKind const kind :
         {EventKind::MOVE, EventKind::LEFTUP, EventKind::RIGHTUP, EventKind::TICK, EventKind::MIDI})
        Send(kind, 1, 2, 3);
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_FALSE(bScoreDirty);
}

TEST(Journal, AnEveningPlaysBack)
{
    struct Evening : Shell
    {
        void TestBody() override {}
    } evening;
    std::string const szFile = evening.Path("a.zrn");
    evening.process.settings.values["First start done"] = 1;
    host.pDoor = &evening.door;
    ASSERT_TRUE(StartUp(""));
    std::string const sJournal = "answer second\n"
                                 "size 1000 700\n"
                                 "command 502\n"
                                 "key + shift\n"
                                 "answer number 7\n"
                                 "command 230\n"
                                 "expect Leger notes above staff (8)\n"
                                 "answer text " +
                                 szFile +
                                 "\n"
                                 "command 4\n"
                                 "scroll linedown\n"
                                 "close\n";
    std::vector<std::string> aTold;
    EXPECT_EQ(Replay_Play(sJournal, evening.process.user, [&](std::string_view s) { aTold.emplace_back(s); }), 0);
    EXPECT_EQ(aTold.front(), "question: Open existing file or start new one? -> second");
    EXPECT_EQ(lLegersAbove, 7);
    EXPECT_TRUE(std::filesystem::exists(szFile));
    EXPECT_TRUE(evening.process.user.bQuit);
}

TEST_F(Commands, TheListOfAllCommandsHasTheirKeysAndRunsTheChosenOne)
{
    std::vector<CommandLine> const aLines = CommandList();
    auto const find = [&](std::string const& sText)
    {
        for (size_t n = 0; n < aLines.size(); ++n)
            if (aLines[n].sText == sText)
                return static_cast<int32_t>(n);
        return -1;
    };
    EXPECT_GE(find("Symbols: Notes: Minim  (3)"), 0);
    EXPECT_GE(find("Edit: Cut  (^X)"), 0);
    EXPECT_GE(find("Instruments: Roland Sound canvas / General MIDI: Miscellaneous 1: Brass & lead"), 0);
    int32_t const lRow = find("Action: Stretch-horiz  (+)");
    ASSERT_GE(lRow, 0);
    AnswersRow(lRow);
    Command(COMMAND_ALLCOMMANDS);
    EXPECT_EQ(lColsPerLine, 143);
    AnswersRow(find("Edit: Cut  (^X)")); // grey
    Command(COMMAND_ALLCOMMANDS);
    EXPECT_TRUE(bAutoLayout);
    Command(COMMAND_ALLCOMMANDS); // closed
    EXPECT_EQ(lColsPerLine, 143);
}
} // namespace zarn::test
