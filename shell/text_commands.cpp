#include "shell/text_commands.h"

#include "core/messages.h"
#include "core/score.h"
#include "edit/current_symbol.h"
#include "edit/delete.h"
#include "edit/lyrics.h"
#include "edit/text.h"
#include "panels/dialogs.h"
#include "render/symbol_cursor.h"
#include "shell/modes.h"
#include "shell/options.h"
#include "shell/score_dc.h"

#include <string>
#include <utility>

namespace zarn
{
static void TakeText(int32_t lType, std::string sText, POINT place)
{
    // A harmony begins with a capital.
    if (lType == WRITE_HARMONY && !sText.empty() && sText[0] >= 'a' && sText[0] <= 'z')
        sText[0] = static_cast<char>(sText[0] - 'a' + 'A');
    if (!fMouseMode)
    {
        ScoreDC const hdc;
        Text_AddAtCursor(hdc, sText, static_cast<int32_t>(sText.size()), place.x, place.y);
        bScoreDirty = true;
        InvalidateRect(hwndMain);
    }
    CurrentSymbol_SetText(sText);
}

void EnterText(int32_t lType)
{
    constexpr int32_t cbLongest = 256;
    if (RefuseInRightJustified())
        return;
    POINT const place = GetCursorPos(hwndMain);
    CurrentSymbol_SetWriting(lType);
    std::string sText;
    if (InputText(hwndMain, &sText, Writing_Title(lType), cbLongest, place))
        TakeText(lType, std::move(sText), place);
    if (fMouseMode)
        MakeSymbolCursor(hwndMain);
}

void LyricsCommand()
{
    if (RefuseInRightJustified())
        return;
    if (fMouseMode)
    {
        Inform("Adding lyrics like this only works in keyboard mode.  "
               "Hit Esc to switch modes and put the cursor just before the note");
        return;
    }
    ScoreDC const hdc;
    POINT const place = GetCursorPos(hwndMain);
    Lyrics_Edit(hwndMain, hdc, place.x, place.y);
}

/// The element of the open pop-up, which is closed with it; null when there is none, or editing is refused.
static Element* TakePopup()
{
    Element* const pel = std::exchange(pelPopup, nullptr);
    return pel && !RefuseInRightJustified() ? pel : nullptr;
}

void EditItemCommand()
{
    constexpr int32_t cbLongest = 100;
    Element* const pel = TakePopup();
    if (!pel)
        return;
    std::string sText(Element_Text(pel));
    InputText(hwndMain, &sText, "Edit symbol", cbLongest); // Cancel stores what the box held
    Text_Replace(pel, sText);
    bScoreDirty = true;
    InvalidateRect(hwndMain);
}

void EditLyricsCommand()
{
    Element* const pel = TakePopup();
    if (!pel)
        return;
    ScoreDC const hdc;
    Lyrics_EditFrom(hwndMain, hdc, pel);
}

void DeleteItemCommand()
{
    Element* const pel = TakePopup();
    if (!pel)
        return;
    ScoreDC const hdc;
    if (DeleteElement(hdc, hwndMain, pel, true))
        InvalidateRect(hwndMain);
    ShowDeletedAsPointer();
}
} // namespace zarn
