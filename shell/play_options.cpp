// The options of the player.
#include "shell/play_options.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/settings.h"
#include "core/text.h"
#include "midi/midi_out.h"
#include "midi/play_times.h"
#include "midi/player.h"
#include "panels/dialogs.h"
#include "panels/number_text.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/play_marker.h"

namespace zarn
{
constexpr int32_t lCrotchetTicks = 48;
constexpr int32_t lQuaverTicks = 24;

static void Toggle(bool& bOption, int32_t lCommand)
{
    bOption = !bOption;
    Menu_Check(lCommand, bOption);
}

void ToggleDoubleSpeed() { Toggle(fDoubleSpeed, COMMAND_DOUBLESPEED); }

void ToggleEndlessRepeat()
{
    fEndlessRepeat = !fEndlessRepeat;
    Menu_Check(COMMAND_ENDLESSREPEAT, fEndlessRepeat);
}

void ToggleBarnDance() { Toggle(fBarnDance, COMMAND_BARNDANCE); }

static void ShowSwing()
{
    Menu_Check(COMMAND_DOTTEDCROTCHET, lSwing == lCrotchetTicks);
    Menu_Check(COMMAND_DOTTEDQUAVER, lSwing == lQuaverTicks);
}

static void ToggleSwing(int32_t lTicks)
{
    lSwing = lSwing == lTicks ? 0 : lTicks;
    ShowSwing();
}

void ToggleDottedCrotchet() { ToggleSwing(lCrotchetTicks); }

void ToggleDottedQuaver() { ToggleSwing(lQuaverTicks); }

static void ShowOrnaments()
{
    Menu_Check(COMMAND_SEMITONEROLLS, lOrnamentStyle == ORNAMENT_SEMITONE);
    Menu_Check(COMMAND_BOWEDTRIPLETS, lOrnamentStyle == ORNAMENT_BOWED);
    Menu_Check(COMMAND_DIATONICROLLS, lOrnamentStyle == ORNAMENT_DIATONIC);
}

void ToggleOrnaments(OrnamentStyle style)
{
    lOrnamentStyle = lOrnamentStyle == style ? ORNAMENT_NONE : style;
    ShowOrnaments();
}

void TogglePlayChords()
{
    Toggle(fPlayChords, COMMAND_PLAYCHORDS);
    SaveSetting(fPlayChords, "Play guitar chords");
}

void TogglePlayStaff(int32_t lStaff)
{
    afPlay[lStaff] = !afPlay[lStaff];
    bTimesValid = false; // a staff that isn't played is given none
    Menu_Check(COMMAND_PLAYSTAFF + lStaff, afPlay[lStaff] != 0);
}

void ToggleMidiTrace() { fMidiTrace = !fMidiTrace; }

void AskDefaultInstrument()
{
    constexpr int32_t cbNumber = 50;
    int32_t lProgram = 0;
    LoadSetting(&lProgram, sDefaultInstrument);
    std::string sNumber = Format("%d", lProgram);
    InputText(hwndMain, &sNumber, "Default instrument number", cbNumber);
    SaveSetting(AtoiLoose(sNumber), sDefaultInstrument);
}

void PlayOptions_ShowChecks()
{
    Menu_Check(COMMAND_DOUBLESPEED, fDoubleSpeed);
    Menu_Check(COMMAND_ENDLESSREPEAT, fEndlessRepeat);
    Menu_Check(COMMAND_BARNDANCE, fBarnDance);
    ShowSwing();
    ShowOrnaments();
    Menu_Check(COMMAND_PLAYCHORDS, fPlayChords);
    Menu_Check(COMMAND_SHOWPLAYED, bShowPlayed);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        Menu_Check(COMMAND_PLAYSTAFF + lStaff, afPlay[lStaff] != 0);
}
} // namespace zarn
