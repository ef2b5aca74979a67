// Frets from the keyboard.
#include "shell/fret_entry.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "render/symbol_cursor.h"
#include "render/tab_band.h"
#include "shell/command_numbers.h"
#include "shell/keyboard.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/score_dc.h"
#include "tab/tablature.h"

namespace zarn
{
void FretEntry_Begin()
{
    lFretNumber = 0;
    fFretEntry = 1;
    if (elCurrent.sort == NOTE)
        elCurrent.lA |= fFretEntrySign;
    MakeSymbolCursor(hwndMain);
}

void FretEntry_End()
{
    fFretEntry = 0;
    if (elCurrent.sort == NOTE)
        elCurrent.lA &= ~fFretEntrySign;
}

static void TakeDigit(char ch)
{
    if (lFretNumber >= 0)
        lFretNumber = Clamp32(int64_t{10} * lFretNumber + (ch - '0'));
    if (ch >= '1' && ch <= '7')
        Keyboard_Refuse(); // no length comes of it
    MakeSymbolCursor(hwndMain);
}

static void PutDown(POINT place)
{
    if (RefuseInRightJustified() || lFretNumber < 0 || lFretNumber > lMostFret)
        return;
    {
        ScoreDC const hdc;
        Tab_NoteFromFret(hdc, hwndMain, place.x, place.y, lFretNumber);
    }
    FretEntry_End();
    EnterKeyboardMode();
    MakeSymbolCursor(hwndMain);
}

bool FretEntry_Key(Event const& key)
{
    POINT const place = GetCursorPos(hwndMain);
    if (key.fCtrl || key.fAlt || !OnTablature(place.x, place.y))
        return false;
    bool const bDigit = key.sText.size() == 1 && key.sText[0] >= '0' && key.sText[0] <= '9';
    if (bDigit && fFretEntry)
        TakeDigit(key.sText[0]);
    else if (bDigit && !key.fShift)
        return false; // it chooses a length
    else if (key.sText == "enter")
        PutDown(place);
    else if (key.sText == "space")
        FretEntry_Begin();
    else if (!bDigit)
        return false;
    Keyboard_Settle();
    return true;
}
} // namespace zarn
