// Text at the insert point.
#include "edit/text.h"

#include "core/messages.h"
#include "edit/insert_run.h"

#include <cstring>

namespace zarn
{
static constexpr int32_t cchCutText = 999; ///< what is left of a text that is too long

/// The height of a text on the staff in the treble frame.
static int32_t TextHeight(int32_t sort)
{
    switch (sort)
    {
    case CHORD:
        return bChordsBelowStaff ? -4 : 20;
    case TITLE:
        return 22;
    case LYRICS:
        return -7;
    case ANNOT:
        return 14;
    default:
        return 5;
    }
}

void Text_AddAtInsertPoint(std::string_view sText, int32_t lLen, int32_t sort, bool bPreamble)
{
    bScoreDirty = true;
    bTimesValid = false;
    if (lLen > cchLongestText)
    {
        Inform("You have a too much text in one symbol.  The idea of lyrics is to spread them out one word per note.  "
               "Edit the notes in first");
        lLen = cchCutText;
    }
    Element el = elCurrent;
    el.lDuration = 0;
    el.lStaff = lInsertStaff;
    el.sort = sort;
    el.lA = lLen;
    el.lB = bPreamble ? 1 : 0;
    el.lDiaPitch = TextHeight(sort) - ClefOffset(InsertTail().Clef());
    el.storage = cbPlainElement + 1 + lLen;
    std::memset(el.text, 0, sizeof el.text);

    // The item is one byte longer than storage says, as it is in every score.
    auto* const pel =
        static_cast<Element*>(List_NewAfter(aStaffList[lInsertStaff], pelInsertPoint, cbPlainElement + 2 + lLen));
    if (!pel)
        return;
    *pel = el;
    sText.copy(Element_TextBytes(pel), static_cast<size_t>(lLen));
    InsertPoint_Advance();
}
} // namespace zarn
