// Nothing is drawn that has not changed: a pointer that moves leaves the score alone.
#include "edit/current_symbol.h"
#include "layout/adjust.h"
#include "platform/headless/recording_surface.h"
#include "shell/command_numbers.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
struct Repaints : Shell
{
    void SetUp() override
    {
        Start();
        Write(1, "clef:1 time:4/4 n4/48 n5/48 n6/48 n7/48");
        Command(COMMAND_FULLADJUST);
        Update();
        Window().pSurface = &surface;
    }
    void TearDown() override { Window().pSurface = nullptr; }
    void MoveTo(POINT place)
    {
        Window().SetPointer(place);
        Send(EventKind::MOVE, 0, place.x, place.y);
    }
    RecordingSurface surface{{1200, 800}};
};
} // namespace

TEST_F(Repaints, AMoveOfThePointerDrawsNothingInEitherMode)
{
    for (bool const bKeyboard : {false, true})
    {
        if (bKeyboard)
            Press("esc");
        Update();
        surface.aLines.clear();
        int32_t const cCursors = Window().cCursors;
        for (int32_t x = 0; x < 1200; x += 50)
            MoveTo({x, 120});
        EXPECT_FALSE(Window().bRepaintOwed);
        EXPECT_EQ(surface.All(), "");
        EXPECT_EQ(Window().cCursors, cCursors) << "and the pointer's picture is not made anew";
    }
}

TEST_F(Repaints, AKeyThatMovesThePointerDrawsNothing)
{
    Press("esc");
    Update();
    surface.aLines.clear();
    for (char const* sKey : {"left", "right", "up", "down", "home", "end"})
        Press(sKey);
    EXPECT_FALSE(Window().bRepaintOwed);
    EXPECT_EQ(surface.All(), "");
}

TEST_F(Repaints, TheHighlightIsDrawnOnceForEachElement)
{
    POINT const place{At(1, 3)->lX, At(1, 3)->lY};
    Window().SetPointer(place);
    Send(EventKind::RIGHTDOWN, 0, place.x, place.y);
    EXPECT_EQ(pelHighlight, At(1, 3));
    surface.aLines.clear();
    MoveTo({place.x + 1, place.y});
    EXPECT_EQ(surface.All(), "");
    MoveTo({At(1, 4)->lX, At(1, 4)->lY});
    EXPECT_NE(surface.All(), "");
    EXPECT_FALSE(Window().bRepaintOwed);
}

TEST_F(Repaints, ASpacingCommandOrAnEditIsPaintedOnce)
{
    int32_t cBefore = Window().cPaints;
    Press("+");
    Update();
    EXPECT_EQ(Window().cPaints, cBefore + 1);
    cBefore = Window().cPaints;
    Click({At(1, 5)->lX + 40, At(1, 5)->lY});
    EXPECT_EQ(Window().cPaints, cBefore + 1);
}

TEST_F(Repaints, InMouseModeAPaintMakesThePointerThatTheSymbolAsksFor)
{
    CurrentSymbol_SetRest(12);
    int32_t const cBefore = Window().cCursors;
    Window().Invalidate();
    Update();
    EXPECT_EQ(Window().cCursors, cBefore + 1);
    Press("esc");
    Update();
    int32_t const cInKeyboardMode = Window().cCursors;
    Window().Invalidate();
    Update();
    EXPECT_EQ(Window().cCursors, cInKeyboardMode);
    EXPECT_EQ(Window().shape, PointerShape::CROSS);
}

TEST_F(Repaints, WhileThePianoShowsThePointerIsAnUpArrowAfterAPaintToo)
{
    Command(COMMAND_PIANO);
    Update();
    EXPECT_EQ(Window().shape, PointerShape::UP);
    MoveTo({300, 100});
    EXPECT_EQ(Window().shape, PointerShape::UP);
    Command(COMMAND_PIANO);
    Update();
    EXPECT_EQ(Window().shape, PointerShape::SYMBOL);
}
} // namespace zarn::test
