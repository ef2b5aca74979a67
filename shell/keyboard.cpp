// The keyboard moves the pointer itself, so that a key, a click and a command mean the same place.
#include "shell/keyboard.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/neighbours.h"
#include "render/geometry.h"
#include "render/symbol_cursor.h"
#include "render/tab_band.h"
#include "shell/fret_entry.h"
#include "shell/main_window.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/score_dc.h"

#include <algorithm>
#include <optional>
#include <string>

namespace zarn
{
/// Successive presses of Right, or, below 0, of Left.
static int32_t lKeyRun = 0;
constexpr int32_t lRunBeforeSpeed = 7;

void Keyboard_Begin()
{
    lKeyRun = 0;
    lFretNumber = 0;
    FretEntry_End();
}

namespace
{
/// Where a key takes the pointer, and the height that snapping may not take it back over.
struct Move
{
    POINT place;
    std::optional<int32_t> lLowest;  ///< going up: y stays at or above it
    std::optional<int32_t> lHighest; ///< going down: y stays at or below it
};
} // namespace

static void Finish(Move const& move)
{
    POINT place = move.place;
    if (!fMouseMode)
    {
        place = SnapToGrid(place);
        if (move.lLowest)
            place.y = std::min(place.y, *move.lLowest);
        if (move.lHighest)
            place.y = std::max(place.y, *move.lHighest);
    }
    SetCursorPos(hwndMain, place);
}

static POINT GoLeft(POINT place)
{
    place.x -= xunit;
    if (lKeyRun < 1)
    {
        if (lKeyRun < -lRunBeforeSpeed)
            place.x -= xunit;
        --lKeyRun;
    }
    else
        lKeyRun = 0;
    if (place.x >= 0)
        return place;
    // Over the left edge lies the end of the line before, where there is one.
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(place.x, place.y, &lStrX, &lDiaPitch, &lStaff, 1);
    Draw_Fold(std::max(Wrap_Sub(lStrX, 2), 0), lDiaPitch, lStaff, 1, &place.x, &place.y);
    return place;
}

static POINT GoRight(POINT place)
{
    place.x += xunit;
    if (lKeyRun >= 0)
    {
        if (lKeyRun > lRunBeforeSpeed)
            place.x += xunit;
        ++lKeyRun;
    }
    else
        lKeyRun = 0;
    return place;
}

/// A row up or down; on the tablature a string, which is two rows.
static POINT GoByRow(POINT place, int32_t lPixels)
{
    FretEntry_End();
    place.y = Clamp32(int64_t{place.y} + lPixels);
    if (!OnTablature(place.x, place.y))
    {
        lFretNumber = 0;
        return place;
    }
    place.y = Clamp32(int64_t{place.y} + lPixels);
    if (!fMouseMode)
        MakeSymbolCursor(hwndMain);
    return SnapToString(place);
}

static POINT GoToLineEnd(POINT place)
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(place.x, place.y, &lStrX, &lDiaPitch, &lStaff, 1);
    Draw_Fold(NextLine(lStrX) - 1, lDiaPitch, lStaff, 1, &place.x, &place.y);
    return place;
}

static void DeleteAt(POINT place)
{
    if (RefuseInRightJustified())
        return;
    ScoreDC const hdc;
    SetCursorPos(hwndMain, DeleteAtMouse(hdc, hwndMain, place));
    EnterKeyboardMode();
}

static void SwitchMode()
{
    if (fMouseMode)
        EnterKeyboardMode();
    else
        EnterMouseMode(hwndMain);
}

void Keyboard_Settle() { Finish({GetCursorPos(hwndMain), {}, {}}); }

void Keyboard_SwitchMode()
{
    SwitchMode();
    Keyboard_Settle();
}

/// 1 to 7 with SHIFT: a brieve to a demisemiquaver.
static void RestKey(int32_t lDigit)
{
    constexpr int32_t lLongest = 384; // ticks
    CurrentSymbol_SetRest(lLongest >> (lDigit - 1));
    CommitSymbol();
}

static void AddKey()
{
    EnterKeyboardMode();
    ScoreDC const hdc;
    AddCurrentSymbol(hwndMain, hdc);
}

void Keyboard_Refuse()
{
    constexpr uint32_t lHand = 32;
    MessageBeep(lHand);
    if (fMouseMode)
        MakeSymbolCursor(hwndMain);
}

void Keyboard_Down(Event const& key)
{
    if (key.fAlt) // the system's own
        return;
    std::string const& sKey = key.sText;
    POINT place = GetCursorPos(hwndMain);
    if (key.fShift && sKey.size() == 1 && sKey[0] >= '1' && sKey[0] <= '7')
        RestKey(sKey[0] - '0');
    else if (sKey == "esc")
        Keyboard_SwitchMode();
    else if (sKey == "enter")
        AddKey();
    else if (sKey == "pageup" || sKey == "pagedown")
    {
        EnterKeyboardMode();
        ScrollBy(hwndMain, sKey == "pageup" ? -1 : 1, true, false);
    }
    else if (sKey == "delete")
        DeleteAt(place);
    else if (sKey == "backspace")
    {
        EnterKeyboardMode();
        DeleteAt({place.x - xunit, place.y});
    }
    else if (sKey == "left" || sKey == "right" || sKey == "home" || sKey == "end" || sKey == "up" || sKey == "down")
    {
        Move move{place, {}, {}};
        if (sKey == "left")
            move.place = GoLeft(place);
        else if (sKey == "right")
            move.place = GoRight(place);
        else if (sKey == "home")
            move.place.x = lLeftMarginPx; // what lies to the left of it is the end of the line before
        else if (sKey == "end")
            move.place = GoToLineEnd(place);
        else
            move.place = GoByRow(place, sKey == "up" ? -yunit : yunit);
        if (sKey == "up")
            move.lLowest = move.place.y;
        else if (sKey == "down")
            move.lHighest = move.place.y;
        EnterKeyboardMode();
        if (OnTablature(move.place.x, move.place.y))
            ReassertCursor(hwndMain);
        Finish(move);
    }
}
} // namespace zarn
