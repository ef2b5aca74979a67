// From string and fret to a pitch, and from that to a place on the staff with the accidental that it needs.
#include "edit/fret_add.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "core/text.h"
#include "edit/accidental.h"
#include "edit/add.h"
#include "layout/clean_up.h"
#include "render/tab_band.h"
#include "tab/tuning.h"

namespace zarn
{
/// The note itself, still without a height. False when there is no string at that place.
static bool NoteOnString(RoomyElement& el, int32_t x, int32_t y, int32_t lFret)
{
    el = elCurrent;
    el.lA &= ~fFretEntrySign;
    el.lFret = lFret;
    el.lFinger = 0;
    TabStraighten(x, y, &el.lStrX, &el.lString, &el.lStaff);
    return el.lString > 0;
}

Element* AddFretNote(HDC hdc, HWND hwnd, int32_t x, int32_t y, int32_t lFret)
{
    constexpr int32_t lBelowAllNotes = -9999; // finds the head of the chord at its column
    constexpr int32_t lHighestUpStem = 6;     // diatonic position on the treble staff
    if (elCurrent.sort != NOTE)
    {
        Serious("Current symbol is not a NOTE.\nHint: note shortcuts are 2..8");
        return nullptr;
    }
    RoomyElement el;
    if (!NoteOnString(el, x, y, lFret))
        return nullptr;
    bScoreDirty = true;
    bTimesValid = false;
    Element* const pelAt = FindPlace(el.lStrX, lBelowAllNotes, el.lStaff, NOTE);
    Element* const pelBase = pelAt ? pelAt : StaffLast(el.lStaff);
    el.lPitch = Wrap_Sub(Tab_OpenPitch(el.lString, lFret), TransposeAt(pelBase));
    int32_t const lAccid = PitchFromMidi(pelBase, el.lPitch, &el.lDiaPitch);
    int32_t lState = AccidStateAt(pelBase, el.lDiaPitch);
    if (lAccid != 0 && lState == 0)
        lState = KeyAccid(KeyAt(pelBase), el.lDiaPitch);
    // The accidentals take the position with the clef's offset in it, so that they stand off on any staff but a treble
    // one; scores that were entered by their frets read so.
    int32_t const lClef = ClefAt(pelBase);
    el.lDiaPitch = Clamp32(int64_t{el.lDiaPitch} + ClefOffset(lClef));
    el.up = el.lDiaPitch <= lHighestUpStem;
    Element* const pelPlace = FindPlace(el.lStrX, el.lDiaPitch, el.lStaff, NOTE);
    if (lAccid != 0)
        AddAccidentalAt(nullptr, hwnd, el.lStrX, el.lDiaPitch, el.lStaff, pelAt ? Prev(pelAt) : StaffLast(el.lStaff),
                        lAccid, lClef);
    Element* const pelNew = AddElement(hdc, hwnd, pelPlace, el);
    if (!pelNew || lAccid == 0 || lState == 0)
        return pelNew;
    if (Element* const pelLast = ChordLast(pelNew))
        AddAccidentalAt(nullptr, hwnd, pelNew->lStrX, el.lDiaPitch, el.lStaff, pelLast, lState, lClef);
    KeptCursor const result(pelNew);
    RemoveSpuriousAccidentals();
    return result.pel;
}
} // namespace zarn
