// Keys, buttons and scrolling at their edges.
#include "edit/current_symbol.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "panels/panel_size.h"
#include "platform/headless/recording_surface.h"
#include "shell/command_numbers.h"
#include "shell/main_window.h"
#include "shell/options.h"
#include "support/shell_fixture.h"

#include <gmock/gmock.h>

namespace zarn::test
{
namespace
{
/// 1200 by 720 pixels: a column is 8 wide and a row 6 high.
struct ModeRules : Shell
{
    void SetUp() override
    {
        Start();
        Window().Resize({1200, 720});
        Send(EventKind::SIZE, 0, 1200, 720);
        Update();
    }
    /// As many systems as ten semibreves of a long tune fill.
    void WriteLongTune()
    {
        std::string sMusic = "clef:1 time:4/4";
        for (int32_t n = 0; n < 200; ++n)
            sMusic += " n4/48 n5/48 n6/48 n7/48";
        Write(1, sMusic);
        Command(COMMAND_FULLADJUST);
        Update();
    }
    static POINT At(int32_t lStrX, int32_t lDiaPitch)
    {
        POINT place;
        Draw_Fold(lStrX, lDiaPitch, 1, 1, &place.x, &place.y);
        return place;
    }
};
} // namespace

TEST_F(ModeRules, UpAlwaysGoesUpAndDownAlwaysDownFromEveryPixel)
{
    Press("esc");
    for (int32_t y = 60; y < 100; ++y)
    {
        Window().SetPointer({400, y});
        Press("up");
        EXPECT_LE(Window().Pointer().y, y - yunit) << y;
        Window().SetPointer({400, y});
        Press("down");
        EXPECT_GE(Window().Pointer().y, y + yunit) << y;
    }
}

TEST_F(ModeRules, ArrowsAwayFromTheRunEndItAndTheRunNeedsEightPresses)
{
    Press("esc");
    auto const x = [&] { return Window().Pointer().x / xunit; };
    Window().SetPointer(At(40, 4));
    for (int32_t n = 1; n <= 8; ++n)
    {
        Press("right");
        EXPECT_EQ(x(), 40 + n);
    }
    Press("up");
    Press("right");
    EXPECT_EQ(x(), 50) << "the ninth in a row, whatever came between";
    Press("left");
    EXPECT_EQ(x(), 49);
    Press("right");
    EXPECT_EQ(x(), 50) << "and the run began anew";
}

TEST_F(ModeRules, LeftOfTheFirstColumnThePointerStaysOnTheFirstLine)
{
    Press("esc");
    Window().SetPointer(At(1, 4));
    for (int32_t n = 0; n < 5; ++n)
        Press("left");
    EXPECT_EQ(Window().Pointer(), At(0, 4));
}

TEST_F(ModeRules, HomeAndEndWithMarginsStayOnTheLine)
{
    AnswersNumber(10);
    Command(COMMAND_LEFTMARGIN);
    Press("esc");
    Window().SetPointer(At(60, 4));
    Press("end");
    EXPECT_EQ(Window().Pointer(), At(lColsPerLine - 1, 4));
    Press("home");
    EXPECT_EQ(Window().Pointer(), At(0, 4));
    Window().SetPointer(At(lColsPerLine + 40, 4));
    Press("home");
    EXPECT_EQ(Window().Pointer(), At(lColsPerLine, 4));
}

TEST_F(ModeRules, TheDeleteKeyInMouseModeDeletesAndLeavesMouseMode)
{
    Write(1, "clef:1 n4/48 n5/48");
    Command(COMMAND_FULLADJUST);
    Window().SetPointer({test::At(1, 1)->lX, test::At(1, 1)->lY});
    ASSERT_EQ(fMouseMode, 1);
    Press("delete");
    EXPECT_EQ(Read(1), "clef:1 n5/48");
    EXPECT_EQ(fMouseMode, 0);
    EXPECT_EQ(Window().shape, PointerShape::CROSS);
}

TEST_F(ModeRules, EnterInMouseModeEntersKeyboardModeAndAdds)
{
    CurrentSymbol_SetNote(24);
    Window().SetPointer(At(30, 4));
    Press("enter");
    EXPECT_EQ(fMouseMode, 0);
    EXPECT_EQ(Read(1), "clef:1 n4/24");
}

TEST_F(ModeRules, KeysWithAltAreTheSystems)
{
    POINT const place = At(30, 4);
    Window().SetPointer(place);
    for (char const* sKey : {"left", "up", "home", "pagedown", "delete", "backspace", "esc"})
        Press(sKey, false, false, true);
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(Window().Pointer(), place);
}

TEST_F(ModeRules, AnAddBelowTheUsableHeightScrollsASystemOn)
{
    struct
    {
        bool bPalette, bPiano;
        int32_t lUsable; ///< of 720 pixels
    } const aCase[] = {{true, false, 630}, {false, false, 720}, {false, true, 540}, {true, true, 540}};
    WriteLongTune();
    Press("esc");
    CurrentSymbol_Set(TEXT);
    for (auto const& c : aCase)
        for (bool const bBelow : {false, true})
        {
            if (bPaletteShowing != c.bPalette)
                Command(COMMAND_PALETTE);
            if (bPianoShowing != c.bPiano)
                Command(COMMAND_PIANO);
            lScroll = 0;
            Command(COMMAND_MINIADJUST);
            // Rows are 6 pixels high, and the pointer stays in the row where it stands.
            POINT const place = SnapToGrid({400, bBelow ? c.lUsable + 9 : c.lUsable - 9});
            Window().SetPointer(place);
            CurrentSymbol_Set(SPACE);
            Press("enter");
            EXPECT_EQ(lScroll, bBelow ? SystemHeight() : 0) << c.lUsable << " " << place.y;
            EXPECT_EQ(Window().Pointer().y, place.y - lScroll * yunit) << c.lUsable;
        }
}

TEST_F(ModeRules, TheScrollBarLeavesThePointerAlone)
{
    WriteLongTune();
    POINT const place{333, 200};
    Window().SetPointer(place);
    for (int32_t const lAction : {1, 0, 3, 2})
        Send(EventKind::SCROLL, lAction);
    EXPECT_EQ(lScroll, 0);
    Send(EventKind::SCROLL, static_cast<int32_t>(ScrollAction::THUMB), 12);
    EXPECT_EQ(Window().Pointer(), place);
}

TEST_F(ModeRules, PageKeysEnterKeyboardMode)
{
    WriteLongTune();
    Window().SetPointer(At(320, 4));
    Press("pagedown");
    EXPECT_EQ(fMouseMode, 0);
    EXPECT_EQ(Window().lScrollPlace, SystemHeight());
}

TEST_F(ModeRules, ARightReleasePutsThePointerBack)
{
    Write(1, "clef:1 n4/48 lyr\"la \" n5/48");
    Command(COMMAND_FULLADJUST);
    for (int32_t const nElement : {2, 1}) // a lyric, then a note
    {
        Element const* const pel = test::At(1, nElement);
        POINT const place{pel->lX, pel->lY};
        Send(EventKind::RIGHTDOWN, 0, place.x, place.y);
        Window().SetPointer({5, 5}); // as if a menu had moved it
        Send(EventKind::RIGHTUP, 0, place.x, place.y);
        EXPECT_EQ(Window().Pointer(), place);
    }
}

TEST_F(ModeRules, ARefusedRightPressDeletesNothingOnItsRelease)
{
    Write(1, "clef:1 n4/48");
    Command(COMMAND_FULLADJUST);
    Command(COMMAND_RIGHTJUSTIFIED);
    Press("esc");
    POINT const place{test::At(1, 1)->lX, test::At(1, 1)->lY};
    process.user.shown.clear();
    Answers(Answer::YES);
    Send(EventKind::RIGHTDOWN, 0, place.x, place.y);
    EXPECT_EQ(fMouseMode, 0) << "the press has done nothing";
    EXPECT_EQ(pelHighlight, nullptr);
    Send(EventKind::RIGHTUP, 0, place.x, place.y);
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(Read(1), "clef:1 n4/48");
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(ModeRules, WhileTheLeftButtonIsHeldLegerLinesShowAndTheReleaseTakesThemAway)
{
    RecordingSurface surface({1200, 720});
    Window().pSurface = &surface;
    POINT const place = At(30, -4);
    Send(EventKind::LEFTDOWN, 0, place.x, place.y);
    EXPECT_EQ(surface.aLines.size(), 3u);
    surface.aLines.clear();
    Send(EventKind::MOVE, 0, place.x + 8, place.y);
    EXPECT_EQ(surface.aLines.size(), 3u);
    Send(EventKind::LEFTUP, 0, place.x + 8, -1); // let go above the score
    EXPECT_TRUE(Window().bRepaintOwed);
    EXPECT_EQ(Read(1), "");
    Update();
    surface.aLines.clear();
    Send(EventKind::MOVE, 0, place.x, place.y);
    EXPECT_EQ(surface.All(), "") << "the button is up";
    Window().pSurface = nullptr;
}

TEST_F(ModeRules, WithThePianoShowingAClickSetsTheInsertPoint)
{
    Write(1, "clef:1 n4/48 n5/48");
    Command(COMMAND_FULLADJUST);
    Command(COMMAND_PIANO);
    Press("esc");
    pelInsertPoint = nullptr;
    Click({test::At(1, 1)->lX + 2, test::At(1, 1)->lY});
    EXPECT_EQ(pelInsertPoint, test::At(1, 1));
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48");
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(Window().shape, PointerShape::UP);
}

TEST_F(ModeRules, AKeyWithoutAnActionIsStillTaken)
{
    Press("9");
    Press("tab");
    EXPECT_THAT(Messages(), testing::IsEmpty());
    EXPECT_EQ(fMouseMode, 1);
    Event key{.kind = EventKind::KEY};
    for (auto const& [sKey, bTaken] : {std::pair{"9", true}, {"tab", true}, {"4", true}, {"q", false}, {"esc", false}})
    {
        key.sText = sKey;
        EXPECT_EQ(door.IsAccelerator(key), bTaken) << sKey;
    }
}
} // namespace zarn::test
