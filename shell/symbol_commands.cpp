#include "shell/symbol_commands.h"

#include "core/messages.h"
#include "edit/current_symbol.h"
#include "edit/toggles.h"
#include "panels/dialogs.h"
#include "panels/number_text.h"
#include "render/symbol_cursor.h"
#include "render/tab_band.h"
#include "shell/fret_entry.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/score_dc.h"

#include <string>

namespace zarn
{
static bool PointerOnTablature()
{
    POINT const place = GetCursorPos(hwndMain);
    return OnTablature(place.x, place.y);
}

/// On the tablature a length waits for its fret.
static void CommitLength()
{
    if (PointerOnTablature())
        MakeSymbolCursor(hwndMain);
    else
        CommitSymbol();
}

void NoteCommand(int32_t lDuration)
{
    if (fFretEntry)
        return;
    CurrentSymbol_SetNote(lDuration);
    CommitLength();
}

void RestCommand(int32_t lDuration)
{
    if (fFretEntry)
        return;
    CurrentSymbol_SetRest(lDuration);
    CommitLength();
}

void SpaceCommand()
{
    if (PointerOnTablature())
        FretEntry_Begin();
    else
        SymbolCommand(SPACE);
}

void SymbolCommand(int32_t sort, int32_t lA, int32_t lB)
{
    CurrentSymbol_Set(sort, lA, lB);
    CommitSymbol();
}

void VolumeCommand(int32_t lStep)
{
    constexpr int32_t lSoftest = 4;
    constexpr int32_t lStepWidth = 15;
    SymbolCommand(VOLUME, lStep * lStepWidth + lSoftest);
}

void KeyKeepingTextCommand(int32_t lKey) { SymbolCommand(KEYSIG, lKey); }

void KeyKeepingPitchCommand(int32_t lKey)
{
    constexpr int32_t fPreservePitch = 64; // the add looks for it
    SymbolCommand(KEYSIG, lKey, fPreservePitch);
}

void InstrumentNumberCommand()
{
    constexpr int32_t cbNumber = 50;
    std::string sNumber = "0";
    InputText(hwndMain, &sNumber, "Instrument number", cbNumber);
    SymbolCommand(INSTRUMENT, AtoiLoose(sNumber));
}

void TimeSignatureCommand()
{
    int32_t lNum = 4;
    int32_t lDen = 4;
    if (InputTimeSignature(hwndMain, &lNum, &lDen))
        SymbolCommand(TIMESIG, lNum, lDen);
}

static void Toggle(void (*pCurrent)(), void (*pAtMouse)(HDC, HWND, int32_t, int32_t))
{
    if (RefuseInRightJustified())
        return;
    pCurrent();
    if (fMouseMode)
    {
        MakeSymbolCursor(hwndMain);
        return;
    }
    ScoreDC const hdc;
    POINT const place = GetCursorPos(hwndMain);
    pAtMouse(hdc, hwndMain, place.x, place.y);
}

void DotCommand() { Toggle(ToggleCurrentDot, ToggleDotAtMouse); }

void TripletCommand() { Toggle(ToggleCurrentTriplet, ToggleTripletAtMouse); }

void StaccatoCommand() { Toggle(ToggleCurrentStaccato, ToggleStaccatoAtMouse); }

void OrnamentCommand() { Toggle(ToggleCurrentOrnament, ToggleOrnamentAtMouse); }
} // namespace zarn
