// Text elements: where they stand, and how long they may be.
//
// The item of an added text is one byte longer than its storage says, and the storage one byte longer than a plain
// record and the text, as it is in every score.
#include "edit/text.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/insert_run.h"
#include "layout/adjust.h"
#include "layout/element_width.h"
#include "render/geometry.h"

#include <algorithm>
#include <cstring>

namespace zarn
{
static constexpr int32_t cchCutText = 999; ///< what is left of a text that is too long
static constexpr int32_t lTrebleClef = 1;

/// In the treble frame, for the sorts that have a height of their own.
static constexpr int32_t lTitleHeight = 22;
static constexpr int32_t lLyricHeight = -7;
static int32_t ChordHeight() { return bChordsBelowStaff ? -4 : 20; }

/// The height of a text that nobody has pointed at.
static int32_t SequentialHeight(int32_t sort)
{
    switch (sort)
    {
    case CHORD:
        return ChordHeight();
    case TITLE:
        return lTitleHeight;
    case LYRICS:
        return lLyricHeight;
    case ANNOT:
        return 14;
    default:
        return 5;
    }
}

/// The height of a text that was put where lClicked is.
static int32_t ClickedHeight(int32_t sort, int32_t lClicked)
{
    switch (sort)
    {
    case CHORD:
        return ChordHeight();
    case TITLE:
        return lTitleHeight;
    case TEXT:
    case ANNOT:
        return lClicked;
    default:
        return lLyricHeight;
    }
}

/// The length that a text keeps; the user is told of a cut.
static int32_t CutLength(size_t cch)
{
    if (cch <= static_cast<size_t>(cchLongestText))
        return static_cast<int32_t>(cch);
    Inform("You have a too much text in one symbol.  The idea of lyrics is to spread them out one word per note.  "
           "Edit the notes in first");
    return cchCutText;
}

/// The fixed part of el, as text of lLen bytes, into a record that has room for the storage stated.
static void FillRecord(Element* pel, Element el, std::string_view sText, int32_t lLen, int32_t storage)
{
    el.storage = storage;
    el.lA = lLen;
    std::memset(el.text, 0, sizeof el.text);
    *pel = el;
    sText.copy(Element_TextBytes(pel), static_cast<size_t>(lLen));
}

void Text_AddAtInsertPoint(std::string_view sText, int32_t lLen, int32_t sort, bool bPreamble)
{
    Text_AddUnderClef(sText, lLen, sort, bPreamble, InsertTail().Clef());
}

void Text_AddUnderClef(std::string_view sText, int32_t lLen, int32_t sort, bool bPreamble, int32_t lClef)
{
    bScoreDirty = true;
    bTimesValid = false;
    lLen = CutLength(static_cast<size_t>(std::max(lLen, 0)));
    Element el = elCurrent;
    el.lDuration = 0;
    el.lStaff = lInsertStaff;
    el.sort = sort;
    el.lB = bPreamble ? 1 : 0;
    el.lDiaPitch = SequentialHeight(sort) - ClefOffset(lClef);
    auto* const pel =
        static_cast<Element*>(List_NewAfter(aStaffList[lInsertStaff], pelInsertPoint, cbPlainElement + 2 + lLen));
    if (!pel)
        return;
    FillRecord(pel, el, sText, lLen, cbPlainElement + 1 + lLen);
    InsertPoint_Advance();
}

void Text_AddAtCursor(HDC, std::string_view sText, int32_t lLen, int32_t x, int32_t y)
{
    bScoreDirty = true;
    bTimesValid = false;
    lLen = CutLength(static_cast<size_t>(std::max(lLen, 0)));
    Element el;
    el.sort = elCurrent.sort;
    Draw_Straighten(x, y, &el.lStrX, &el.lDiaPitch, &el.lStaff, lTrebleClef);
    el.lDiaPitch = ClickedHeight(el.sort, el.lDiaPitch);
    Draw_Fold(el.lStrX, el.lDiaPitch, el.lStaff, lTrebleClef, &el.lX, &el.lY);
    Element* const pelPlace = FindPlace(el.lStrX, el.lDiaPitch, el.lStaff, el.sort);
    // At the end of a staff there is no place to look from, and the clef counts as treble whatever it is.
    el.lDiaPitch = Clamp32(int64_t{el.lDiaPitch} - ClefOffset(ClefAt(pelPlace)));
    auto* const pel = static_cast<Element*>(List_NewBefore(aStaffList[el.lStaff], pelPlace, cbPlainElement + 2 + lLen));
    if (!pel)
        return;
    FillRecord(pel, el, sText, lLen, cbPlainElement + 1 + lLen);
    pel->lWidth = Element_Width(pel);
    if (bAutoLayout)
        FullAdjust();
}

/// What pointed at the one points at the other.
static void MoveCursors(Element const* pelFrom, Element* pelTo)
{
    for (Element** const ppel :
         {&pelInsertPoint, &pelMarkBegin, &pelMarkEnd, &pelHighlight, &pelUndoPlace, &pelUndoEnd})
        if (*ppel == pelFrom)
            *ppel = pelTo;
}

Element* Text_Replace(Element* pel, std::string_view sText)
{
    int32_t const lLen = CutLength(sText.size());
    int32_t const cb = cbElementFixed + 1 + lLen; // with the NUL behind the text, and not a byte more
    auto* const pelNew = static_cast<Element*>(List_NewBefore(aStaffList[pel->lStaff], pel, cb));
    if (!pelNew)
        return nullptr;
    FillRecord(pelNew, *pel, sText, lLen, cb);
    MoveCursors(pel, pelNew);
    Element_Remove(pel);
    return pelNew;
}
} // namespace zarn
