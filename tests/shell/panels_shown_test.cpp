// The panels in the main window: where they lie, when they show, what a click reaches.
#include "shell/panels_shown.h"

#include "core/messages.h"
#include "edit/current_symbol.h"
#include "shell/command_numbers.h"
#include "shell/modes.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
class PanelsShown : public testing::Test
{
protected:
    PanelsShown()
    {
        hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
        fMouseMode = 0;
        CurrentSymbol_SetNote(48);
    }
    ~PanelsShown() override
    {
        Panels_Forget();
        fMouseMode = 1;
        bPaletteShowing = false;
        bPianoShowing = false;
    }
    void Create()
    {
        Panels_Create();
        Panels_Place({1200, 800});
    }
    HeadlessPanel& Piano() { return *process.user.panels[0]; }
    HeadlessPanel& PalettePanel() { return *process.user.panels[1]; }
    bool Checked(int32_t lCommand) { return process.user.pWindow->IsChecked(lCommand); }

    test::DrawingProcess process;
};

TEST_F(PanelsShown, AtStartThePaletteShowsAndThePianoDoesNot)
{
    Create();
    EXPECT_TRUE(bPaletteShowing);
    EXPECT_TRUE(PalettePanel().IsShown());
    EXPECT_TRUE(Checked(COMMAND_PALETTE));
    EXPECT_FALSE(bPianoShowing);
    EXPECT_FALSE(Piano().IsShown());
    EXPECT_FALSE(Checked(COMMAND_PIANO));
}

TEST_F(PanelsShown, ThePaletteTakesTheBottomEighthAndThePianoTheBottomQuarter)
{
    Create();
    EXPECT_EQ(PalettePanel().place, (RECT{0, 700, 1200, 800}));
    EXPECT_EQ(Piano().place, (RECT{5, 600, 1195, 795}));
    Panels_Place({1001, 777});
    EXPECT_EQ(PalettePanel().place, (RECT{0, 679, 1001, 679 + 97}));
    EXPECT_EQ(Piano().place, (RECT{5, 582, 996, 582 + 189}));
}

TEST_F(PanelsShown, TheTogglesShowHideCheckAndOweARepaint)
{
    Create();
    process.user.pWindow->RunLoop();
    TogglePiano();
    EXPECT_TRUE(bPianoShowing && Piano().IsShown() && Checked(COMMAND_PIANO));
    EXPECT_TRUE(process.user.pWindow->bRepaintOwed);
    TogglePiano();
    EXPECT_FALSE(bPianoShowing || Piano().IsShown() || Checked(COMMAND_PIANO));
    Piano().bRepaintOwed = false;
    TogglePalette();
    EXPECT_FALSE(bPaletteShowing || PalettePanel().IsShown() || Checked(COMMAND_PALETTE));
    EXPECT_TRUE(Piano().bRepaintOwed) << "its black keys are longer now";
    TogglePalette();
    EXPECT_TRUE(bPaletteShowing && PalettePanel().IsShown() && Checked(COMMAND_PALETTE));
}

TEST_F(PanelsShown, AClosedPanelIsUncheckedAndStaysClosed)
{
    Create();
    TogglePiano();
    for (int32_t i = 0; i < 2; ++i)
    {
        PaletteClosed();
        PianoClosed();
        EXPECT_FALSE(bPaletteShowing || PalettePanel().IsShown() || Checked(COMMAND_PALETTE));
        EXPECT_FALSE(bPianoShowing || Piano().IsShown() || Checked(COMMAND_PIANO));
    }
}

TEST_F(PanelsShown, AClickOnASymbolEntersMouseModeAndTellsTheNewSymbol)
{
    Create();
    PaletteClick(3 * 1200 / 31, 2 * 100 / 6);
    EXPECT_EQ(elCurrent.lDuration, 96);
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(test::Read(1), "") << "the symbol waits for a click on the score";
}

TEST_F(PanelsShown, AClickBesideTheSymbolsEntersMouseModeAlone)
{
    Create();
    PaletteClick(9 * 1200 / 31, 33);
    EXPECT_EQ(process.user.cBeeps, 1);
    EXPECT_EQ(fMouseMode, 1);
    EXPECT_EQ(elCurrent.lDuration, 48);
}

TEST_F(PanelsShown, AHiddenPanelTakesNoClick)
{
    Create();
    PaletteClosed();
    PaletteClick(116, 33);
    PianoClick(600, 190);
    EXPECT_EQ(elCurrent.lDuration, 48);
    EXPECT_EQ(fMouseMode, 0);
    EXPECT_EQ(test::Read(1), "");
}

TEST_F(PanelsShown, AKeyOfThePianoAddsToStaffOne)
{
    Create();
    TogglePiano();
    PianoClick(1190 * 21 / 43 + 14, 190);
    EXPECT_EQ(test::Read(1), "clef:1 n0/48"); // the layout has put the clef
}

TEST_F(PanelsShown, WithoutPanelsNothingBreaks)
{
    process.user.bPanelsWork = false;
    Create();
    TogglePiano();
    TogglePalette();
    PaletteClick(100, 30);
    PianoClick(100, 30);
    PaletteClosed();
    PianoClosed();
    EXPECT_EQ(test::Read(1), "");
}
} // namespace
} // namespace zarn
