// Option toggles.
#include "shell/options.h"

#include "abc/abc_write.h"
#include "core/messages.h"
#include "core/pitch.h"
#include "core/score.h"
#include "core/settings.h"
#include "edit/delete.h"
#include "layout/adjust.h"
#include "layout/right_justify.h"
#include "midi/record.h"
#include "render/geometry.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/play_options.h"
#include "shell/print.h"

namespace zarn
{
static void Toggle(bool& bOption, int32_t lCommand)
{
    bOption = !bOption;
    Menu_Check(lCommand, bOption);
}

static void MiniAdjustAndRepaint()
{
    MiniAdjust();
    InvalidateRect(hwndMain);
}

static void FullAdjustAndRepaint()
{
    FullAdjust();
    InvalidateRect(hwndMain);
}

void ToggleKeepBars() { Toggle(bKeepBarsTogether, COMMAND_KEEPBARS); }

void ToggleShowInvisible()
{
    Toggle(bShowLayout, COMMAND_SHOWINVISIBLE);
    InvalidateRect(hwndMain);
}

void ToggleBeamQuavers() { Toggle(bBeamQuavers, COMMAND_BEAMQUAVERS); }

void ToggleArpeggioMarks()
{
    Toggle(bShowArpeggio, COMMAND_ARPEGGIOMARKS);
    MiniAdjustAndRepaint();
}

void ToggleRightJustified()
{
    Toggle(bRightJustified, COMMAND_RIGHTJUSTIFIED);
    MiniAdjustAndRepaint();
}

void ToggleAdjustAlways()
{
    Toggle(bAutoLayout, COMMAND_ADJUSTALWAYS);
    if (bAutoLayout)
        FullAdjustAndRepaint();
}

void ToggleChordsBelow()
{
    Toggle(bChordsBelowStaff, COMMAND_CHORDSBELOW);
    SaveSetting(bChordsBelowStaff, "Guitar chords below staff");
    FullAdjustAndRepaint();
}

void ToggleCrlf()
{
    Toggle(bUseCrlf, COMMAND_USECRLF);
    SaveSetting(bUseCrlf, szCrlfSetting);
}

void ToggleEditMode() { Toggle(bEditMode, COMMAND_EDITMODE); }

/// Both options sound the score at another pitch: one excludes the other.
static void ToggleTransposed(bool& bOption, int32_t lCommand, bool& bOther, int32_t lOtherCommand)
{
    Toggle(bOption, lCommand);
    if (bOther)
        Toggle(bOther, lOtherCommand);
}

void ToggleClarinet() { ToggleTransposed(fClarinetTranspose, COMMAND_CLARINET, fGuitarTranspose, COMMAND_GUITAR); }

void ToggleGuitar() { ToggleTransposed(fGuitarTranspose, COMMAND_GUITAR, fClarinetTranspose, COMMAND_CLARINET); }

void Options_ShowChecks()
{
    Menu_Check(COMMAND_EDITMODE, bEditMode);
    Menu_Check(COMMAND_CLARINET, fClarinetTranspose);
    Menu_Check(COMMAND_GUITAR, fGuitarTranspose);
    Menu_Check(COMMAND_KEEPBARS, bKeepBarsTogether);
    Menu_Check(COMMAND_SHOWINVISIBLE, bShowLayout);
    Menu_Check(COMMAND_BEAMQUAVERS, bBeamQuavers);
    Menu_Check(COMMAND_ARPEGGIOMARKS, bShowArpeggio);
    Menu_Check(COMMAND_RIGHTJUSTIFIED, bRightJustified);
    Menu_Check(COMMAND_ADJUSTALWAYS, bAutoLayout);
    Menu_Check(COMMAND_RECORD, IsRecording());
    Menu_Check(COMMAND_USECRLF, bUseCrlf);
    Menu_Check(COMMAND_WAITEACHPAGE, fWaitEachPage);
    Menu_Check(COMMAND_CHORDSBELOW, bChordsBelowStaff);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        Menu_Check(COMMAND_SHOWSTAFF + lStaff, IsVisible(lStaff));
    PlayOptions_ShowChecks();
}

bool RefuseInRightJustified()
{
    if (!bRightJustified)
        return false;
    if (AskYesNo("Cannot edit in Right-Justified mode.  Change back now?", 1))
    {
        Toggle(bRightJustified, COMMAND_RIGHTJUSTIFIED);
        FullAdjustAndRepaint();
    }
    return true;
}
} // namespace zarn
