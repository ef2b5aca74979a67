// The two modes as a user meets them: keys and clicks in, elements and the pointer's place out.
#include "edit/current_symbol.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "shell/command_numbers.h"
#include "shell/keyboard.h"
#include "shell/options.h"
#include "shell/status.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
/// 1200 by 720 pixels: a column is 8 wide and a row 6 high.
struct Editing : Shell
{
    void Begin()
    {
        Start();
        Window().Resize({1200, 720});
        Send(EventKind::SIZE, 0, 1200, 720);
        Update();
    }
    static POINT At(int32_t lStrX, int32_t lDiaPitch, int32_t lStaff = 1)
    {
        POINT place;
        Draw_Fold(lStrX, lDiaPitch, lStaff, 1, &place.x, &place.y);
        return place;
    }
    void PointAt(int32_t lStrX, int32_t lDiaPitch) { Window().SetPointer(At(lStrX, lDiaPitch)); }
    /// The pointer as a column and a treble position.
    std::string Pointer()
    {
        POINT const place = Window().Pointer();
        int32_t lStrX = 0;
        int32_t lDiaPitch = 0;
        int32_t lStaff = 0;
        Draw_Straighten(place.x, place.y, &lStrX, &lDiaPitch, &lStaff, 1);
        return Format("%d,%d", lStrX, lDiaPitch);
    }
    /// The music without its opening.
    static std::string Music()
    {
        std::string const s = Read(1);
        std::string const sOpening = "clef:1 ";
        return s.starts_with(sOpening) ? s.substr(sOpening.size()) : s;
    }
};
} // namespace

TEST_F(Editing, StartsInMouseModeWithTheNoteAsPointer)
{
    Begin();
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(Window().shape, PointerShape::SYMBOL);
    EXPECT_FALSE(Window().IsGrey(COMMAND_KEYBOARDMODE));
    EXPECT_TRUE(Window().IsGrey(COMMAND_MOUSEMODE));
    EXPECT_TRUE(Window().IsGrey(COMMAND_NOTE));
    EXPECT_TRUE(Window().IsGrey(COMMAND_REST));
    EXPECT_TRUE(Window().IsGrey(COMMAND_CUT));
    EXPECT_TRUE(Window().IsGrey(COMMAND_COPY));
    EXPECT_TRUE(Window().IsGrey(COMMAND_PASTE));
}

TEST_F(Editing, AClickPutsTheCurrentSymbolDown)
{
    Begin();
    Click(At(30, 4));
    EXPECT_EQ(Music(), "n4/48");
    Command(COMMAND_NOTE + 4);
    EXPECT_EQ(Music(), "n4/48") << "in mouse mode a command only chooses";
    Click(At(60, 7));
    EXPECT_EQ(Music(), "n4/48 n7/24");
    Press("3", true);
    Click(At(90, 7));
    EXPECT_EQ(Music(), "n4/48 n7/24 r96");
}

TEST_F(Editing, AReleaseWithoutAPressOrAboveTheScoreAddsNothing)
{
    Begin();
    POINT const place = At(30, 4);
    Send(EventKind::LEFTUP, 0, place.x, place.y);
    Send(EventKind::LEFTDOWN, 0, place.x, place.y);
    Send(EventKind::LEFTUP, 0, place.x, -3);
    EXPECT_EQ(Music(), "");
}

TEST_F(Editing, TheRightButtonDeletesAndPutsThePointerBack)
{
    Begin();
    Write(1, "clef:1 time:4/4 n4/48 n5/48 n6/48");
    Command(COMMAND_FULLADJUST);
    Element const* const pel = test::At(1, 3);
    Click({pel->lX + 2, pel->lY}, true);
    EXPECT_EQ(Music(), "time:4/4 n4/48 n6/48");
    EXPECT_EQ(pelHighlight, nullptr);
    Click({600, 600}, true);
    EXPECT_EQ(Music(), "time:4/4 n4/48 n6/48");
}

TEST_F(Editing, ARightPressShowsWhatWouldGo)
{
    Begin();
    Write(1, "clef:1 n4/48");
    Command(COMMAND_FULLADJUST);
    Element const* const pel = test::At(1, 1);
    Send(EventKind::RIGHTDOWN, 0, pel->lX, pel->lY);
    EXPECT_EQ(pelHighlight, pel);
    Send(EventKind::MOVE, 0, 600, 600);
    EXPECT_EQ(pelHighlight, nullptr);
    Send(EventKind::RIGHTUP, 0, 600, 600);
    EXPECT_EQ(Music(), "n4/48");
}

TEST_F(Editing, EscSwitchesTheModeAndSnapsThePointer)
{
    Begin();
    Window().SetPointer({243, 121});
    Press("esc");
    EXPECT_EQ(fMouseMode, 0);
    EXPECT_EQ(Window().shape, PointerShape::CROSS);
    EXPECT_TRUE(Window().IsGrey(COMMAND_KEYBOARDMODE));
    EXPECT_FALSE(Window().IsGrey(COMMAND_MOUSEMODE));
    POINT const snapped = Window().Pointer();
    EXPECT_EQ(SnapToGrid(snapped).x, snapped.x);
    EXPECT_EQ(SnapToGrid(snapped).y, snapped.y);
    Press("esc");
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(Window().shape, PointerShape::SYMBOL);
}

TEST_F(Editing, InKeyboardModeACommandAddsAtThePointerWhichMovesOn)
{
    Begin();
    Write(1, "clef:1 time:4/4");
    Command(COMMAND_FULLADJUST);
    Press("esc");
    PointAt(40, 4);
    Press("4");
    EXPECT_EQ(Music(), "time:4/4 n4/48");
    Press("up");
    Press("enter");
    Press("5");
    EXPECT_EQ(Music(), "time:4/4 n4/48 n5/48 n5/24");
    Press("2", true);
    EXPECT_EQ(Music(), "time:4/4 n4/48 n5/48 n5/24 r192 |");
}

TEST_F(Editing, BetweenTwoSymbolsThePointerGoesAColumnBehindTheNewOne)
{
    Begin();
    Write(1, "clef:1 n4/48 n5/48");
    Command(COMMAND_FULLADJUST);
    Press("esc");
    PointAt(test::At(1, 2)->lStrX, 8);
    Press("left");
    CurrentSymbol_SetNote(96);
    Press("enter");
    EXPECT_EQ(Music(), "n4/48 n8/96 n5/48 |");
    EXPECT_EQ(Pointer(), Format("%d,8", test::At(1, 2)->lStrX + 1));
}

TEST_F(Editing, ATuneCanBeTypedWithoutMovingThePointer)
{
    Begin();
    Write(1, "clef:1 key:1 time:4/4");
    Command(COMMAND_FULLADJUST);
    Press("esc");
    PointAt(60, 2);
    std::string sExpected = "key:1 time:4/4";
    for (int32_t nBar = 0; nBar < 7; ++nBar)
    {
        for (int32_t n = 0; n < 4; ++n)
        {
            Press("4");
            sExpected += Format(" n%d/48", 2 + (nBar * 4 + n) % 5);
            Press((nBar * 4 + n) % 5 == 4 ? "down" : "up");
            for (int32_t i = 0; i < 3 && (nBar * 4 + n) % 5 == 4; ++i)
                Press("down");
        }
        sExpected += " |";
    }
    EXPECT_EQ(Music(), sExpected);
}

TEST_F(Editing, ArrowsStepByColumnsAndRowsAndGetFaster)
{
    Begin();
    Press("esc");
    PointAt(40, 4);
    Press("left");
    Press("right"); // ends the run to the left
    PointAt(40, 4);
    for (int32_t n = 0; n < 8; ++n)
        Press("right");
    EXPECT_EQ(Pointer(), "48,4");
    Press("right");
    EXPECT_EQ(Pointer(), "50,4") << "the ninth goes two columns";
    Press("left");
    EXPECT_EQ(Pointer(), "49,4") << "turning goes one and ends the run";
    for (int32_t n = 0; n < 8; ++n)
        Press("left");
    EXPECT_EQ(Pointer(), "41,4");
    Press("left");
    EXPECT_EQ(Pointer(), "39,4");
    Press("up");
    EXPECT_EQ(Pointer(), "39,5");
    Press("down");
    Press("down");
    EXPECT_EQ(Pointer(), "39,3");
}

TEST_F(Editing, LeftOfTheEdgeLiesTheEndOfTheLineAbove)
{
    Begin();
    Press("esc");
    PointAt(150, 4);
    Press("left");
    EXPECT_EQ(Pointer(), "148,4");
}

TEST_F(Editing, HomeAndEndGoAlongTheLine)
{
    Begin();
    Press("esc");
    PointAt(190, 4);
    Press("end");
    EXPECT_EQ(Pointer(), "299,4");
    Press("home");
    EXPECT_EQ(Pointer(), "150,4");
}

TEST_F(Editing, AnArrowEntersKeyboardModeAndAClickLeavesIt)
{
    Begin();
    Press("right");
    EXPECT_EQ(fMouseMode, 0);
    Click(At(40, 4));
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(Window().shape, PointerShape::SYMBOL);
}

TEST_F(Editing, PageKeysScrollBySystemsAndThePointerStaysOnItsNote)
{
    Begin();
    for (int32_t n = 0; n < 40; ++n)
        Write(1, "n4/192");
    Command(COMMAND_FULLADJUST);
    PointAt(320, 4);
    Press("pagedown");
    EXPECT_EQ(lScroll, SystemHeight());
    EXPECT_EQ(Pointer(), "320,4");
    Press("pageup");
    EXPECT_EQ(lScroll, 0);
    EXPECT_EQ(Pointer(), "320,4");
}

TEST_F(Editing, DeleteTakesTheNearestAndBackspaceTheOneBefore)
{
    Begin();
    Write(1, "clef:1 n4/48 n5/48 n6/48");
    Command(COMMAND_FULLADJUST);
    Window().SetPointer({test::At(1, 2)->lX, test::At(1, 2)->lY});
    Press("delete");
    EXPECT_EQ(Music(), "n4/48 n6/48");
    EXPECT_EQ(fMouseMode, 0) << "the key leaves mouse mode";
    Window().SetPointer({test::At(1, 1)->lX + 6, test::At(1, 1)->lY});
    Press("backspace");
    EXPECT_EQ(Music(), "n6/48");
}

TEST_F(Editing, ABrieveRestIsToldAndAddedByItsKeyAlone)
{
    Begin();
    Press("esc");
    PointAt(40, 4);
    Press("1", true);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Too long.  Boredom coefficient > 1.0"});
    EXPECT_EQ(Music(), "r384 |");
    Press("1");
    EXPECT_EQ(process.user.cBeeps, 1) << "the brieve is grey";
    EXPECT_EQ(Music(), "r384 |");
    for (auto const& [sKey, lDuration] : {std::pair{"2", 192}, {"3", 96}, {"4", 48}, {"5", 24}, {"6", 12}, {"7", 6}})
    {
        Press(sKey, true);
        EXPECT_EQ(elCurrent.lDuration, lDuration);
        EXPECT_EQ(elCurrent.sort, REST);
    }
}

TEST_F(Editing, RightJustifiedModeAsksAndDropsTheEdit)
{
    Begin();
    Write(1, "clef:1 n4/48");
    Command(COMMAND_FULLADJUST);
    std::string const sBefore = Read(1);
    for (char const* sKey : {"enter", "delete", "backspace", ".", "<"})
    {
        if (!bRightJustified)
            Command(COMMAND_RIGHTJUSTIFIED);
        process.user.shown.clear();
        Press(sKey);
        EXPECT_EQ(Messages(), std::vector<std::string>{"Cannot edit in Right-Justified mode.  Change back now?"})
            << sKey;
        EXPECT_EQ(Read(1), sBefore);
    }
    Answers(Answer::YES);
    Press("enter");
    EXPECT_FALSE(bRightJustified);
    EXPECT_FALSE(Checked(COMMAND_RIGHTJUSTIFIED));
    EXPECT_EQ(Read(1), sBefore) << "the edit that asked is dropped";
}

TEST_F(Editing, MarkCutPasteAndUndoByKeys)
{
    Begin();
    Write(1, "clef:1 n4/48 n5/48 n6/48 n7/48");
    Command(COMMAND_FULLADJUST);
    Press("esc");
    PointAt(test::At(1, 2)->lStrX - 1, 4);
    Press("<");
    EXPECT_FALSE(Window().IsGrey(COMMAND_CUT));
    PointAt(test::At(1, 3)->lStrX, 4);
    Press(">");
    EXPECT_EQ(pelMarkBegin, test::At(1, 2));
    EXPECT_EQ(pelMarkEnd, test::At(1, 3));
    Press("x", false, true);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n7/48 |");
    EXPECT_FALSE(Window().IsGrey(COMMAND_PASTE));
    EXPECT_FALSE(Window().IsGrey(COMMAND_CUT)) << "stays possible";
    PointAt(test::At(1, 2)->lStrX + 2, 4);
    Press("v", false, true);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n7/48 n5/48 n6/48 |");
    Press("z", false, true);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n7/48 |");
    Press("f4");
    EXPECT_TRUE(Window().IsGrey(COMMAND_CUT));
}

TEST_F(Editing, InMouseModeAClickPlacesTheMark)
{
    Begin();
    Write(1, "clef:1 n4/48 n5/48 n6/48");
    Command(COMMAND_FULLADJUST);
    CurrentSymbol_SetNote(24);
    Press("<");
    EXPECT_EQ(elCurrent.sort, MARKBEGIN);
    Click(At(test::At(1, 2)->lStrX - 1, 4));
    EXPECT_EQ(pelMarkBegin, test::At(1, 2));
    EXPECT_EQ(elCurrent.lDuration, 24);
    EXPECT_FALSE(Window().IsGrey(COMMAND_COPY));
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 n6/48");
}

TEST_F(Editing, TogglesChangeTheCurrentSymbolAndInKeyboardModeTheNoteAtThePointer)
{
    Begin();
    Write(1, "clef:1 n4/48");
    Command(COMMAND_FULLADJUST);
    CurrentSymbol_SetNote(48);
    Press(".");
    EXPECT_EQ(elCurrent.lDuration, 72);
    EXPECT_EQ(Music(), "n4/48");
    Press("esc");
    Window().SetPointer({test::At(1, 1)->lX, test::At(1, 1)->lY});
    Press(".");
    EXPECT_EQ(elCurrent.lDuration, 48);
    EXPECT_EQ(Music(), "n4/72");
    Press(",");
    EXPECT_EQ(Music(), "n4/72/flag=64");
}

TEST_F(Editing, SymbolCommandsSetTheirSortAndValue)
{
    Begin();
    struct
    {
        int32_t lCommand, sort, lA, lB, lDuration;
    } const aCase[] = {{101, NOTE, 0, 64, 192},        {102, NOTE, 0, 64, 96},      {103, NOTE, 0, 64, 48},
                       {104, NOTE, 0, 64, 24},         {105, NOTE, 0, 64, 12},      {155, NOTE, 0, 64, 6},
                       {162, NOTE, 0, 64, 0},          {107, REST, 0, 0, 192},      {108, REST, 0, 0, 96},
                       {109, REST, 0, 0, 48},          {110, REST, 0, 0, 24},       {111, REST, 0, 0, 12},
                       {156, REST, 0, 0, 6},           {116, REPEATSTART, 0, 0, 0}, {117, REPEATEND, 0, 0, 0},
                       {118, REPEATENDSTART, 0, 0, 0}, {160, REPEATFIRST, 0, 0, 0}, {119, BAR, 0, 0, 0},
                       {120, DOUBLEBAR, 0, 0, 0},      {121, CLEF, 1, 0, 0},        {182, CLEF, 2, 0, 0},
                       {157, CLEF, 3, 0, 0},           {159, CLEF, 4, 0, 0},        {122, SHARP, 0, 0, 0},
                       {123, NATURAL, 0, 0, 0},        {124, FLAT, 0, 0, 0},        {138, TIMESIG, 1, 2, 0},
                       {139, TIMESIG, 2, 2, 0},        {140, TIMESIG, 3, 2, 0},     {141, TIMESIG, 4, 2, 0},
                       {142, TIMESIG, 2, 4, 0},        {143, TIMESIG, 3, 4, 0},     {144, TIMESIG, 4, 4, 0},
                       {145, TIMESIG, 6, 4, 0},        {146, TIMESIG, 6, 8, 0},     {147, TIMESIG, 9, 8, 0},
                       {148, TIMESIG, 12, 8, 0},       {152, SPACE, 0, 0, 0},       {153, NEWLINE, 0, 0, 0},
                       {179, ARPEGSTART, 0, 0, 0},     {180, ARPEGEND, 0, 0, 0},    {187, BOWING, 1, 0, 0},
                       {188, BOWING, 2, 0, 0},         {320, TIE, 0, 0, 0},         {340, VOLUME, 4, 0, 0},
                       {348, VOLUME, 124, 0, 0},       {1001, INSTRUMENT, 0, 0, 0}, {1128, INSTRUMENT, 127, 0, 0},
                       {3040, TRANSPOSE, -60, 0, 0},   {3100, TRANSPOSE, 0, 0, 0},  {3160, TRANSPOSE, 60, 0, 0},
                       {2000, TEMPO, 0, 0, 0},         {2315, TEMPO, 315, 0, 0},    {125, KEYSIG, -6, 0, 0},
                       {137, KEYSIG, 6, 0, 0},         {165, KEYSIG, -6, 64, 0},    {177, KEYSIG, 6, 64, 0}};
    for (auto const& c : aCase)
    {
        Command(c.lCommand);
        EXPECT_EQ(elCurrent.sort, c.sort) << c.lCommand;
        EXPECT_EQ(elCurrent.lA, c.lA) << c.lCommand;
        EXPECT_EQ(elCurrent.lB, c.lB) << c.lCommand;
        EXPECT_EQ(elCurrent.lDuration, c.lDuration) << c.lCommand;
    }
    AnswersText("57");
    Command(5000);
    EXPECT_EQ(elCurrent.sort, INSTRUMENT);
    EXPECT_EQ(elCurrent.lA, 57);
}

TEST_F(Editing, ClarinetAndGuitarExcludeEachOther)
{
    Begin();
    Command(COMMAND_CLARINET);
    EXPECT_TRUE(Checked(COMMAND_CLARINET));
    Command(COMMAND_GUITAR);
    EXPECT_TRUE(fGuitarTranspose);
    EXPECT_FALSE(fClarinetTranspose);
    EXPECT_FALSE(Checked(COMMAND_CLARINET));
    Command(COMMAND_CLARINET);
    EXPECT_FALSE(fGuitarTranspose);
    EXPECT_FALSE(Checked(COMMAND_GUITAR));
}

TEST_F(Editing, TheStatusBarTellsModeSymbolAndPlace)
{
    Begin();
    Write(1, "clef:1 time:3/4 n4/48 n5/48 n6/48 n4/48 n5/48 n6/48");
    Command(COMMAND_FULLADJUST);
    CurrentSymbol_SetNote(72);
    Window().SetPointer({test::At(1, 7)->lX, test::At(1, 7)->lY});
    Send(EventKind::MOVE, 0, test::At(1, 7)->lX, test::At(1, 7)->lY);
    EXPECT_EQ(Window().sStatus, "Mouse mode  |  crotchet, dotted  |  staff 1, bar 2, beat 2");
    Press("esc");
    Press("3", true);
    EXPECT_TRUE(Window().sStatus.starts_with("Keyboard mode  |  minim rest  |  staff 1")) << Window().sStatus;
}

TEST_F(Editing, TheWheelWithCtrlStretchesAndSqueezes)
{
    Begin();
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::STRETCH));
    EXPECT_EQ(lColsPerLine, 143);
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::SQUEEZE));
    EXPECT_EQ(lColsPerLine, 150);
}
} // namespace zarn::test
