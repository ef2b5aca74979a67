// Notes from the piano.
#include "edit/piano_add.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "core/text.h"
#include "edit/accidental.h"
#include "render/geometry.h"
#include "render/symbols.h"

#include <optional>

namespace zarn
{
namespace
{
constexpr int32_t lColumnAtHead = 24;
constexpr int32_t lColumnsToNext = 4;
constexpr int32_t lColumnsOfAccidental = 2;
constexpr int32_t lLongestWithStem = 144; ///< ticks
constexpr int32_t lMinimTriplet = 128;    ///< ticks

/// The position from which on a note's stem points down. In the clefs other than treble it isn't quite the middle line;
/// it stays, as notes look it in all scores entered so far.
int32_t FirstStemDown(int32_t lClef)
{
    switch (lClef)
    {
    case 2:
        return 1;
    case 3:
        return -5;
    case 4:
        return -1;
    default:
        return 7;
    }
}

bool StemUp(int32_t lDiaPitch, int32_t lClef, int32_t lDuration)
{
    return lDiaPitch < FirstStemDown(lClef) || lDuration > lLongestWithStem || lDuration == lMinimTriplet;
}

/// The question that the piano puts to the key before it leaves an accidental out. In flat keys it doesn't ask what the
/// key alters: the step keeps its sign, and the mask is the sharps' read backward. Notes are entered by that.
bool KeyHasStep(int32_t lKey, int32_t lDiaPitch)
{
    if (lKey >= 0)
    {
        int64_t const lStep = (int64_t{lDiaPitch} + 700) % 7;
        return lStep >= 0 && ((SharpMask(lKey) >> lStep) & 1) != 0;
    }
    constexpr uint32_t lBitMask = 31;
    auto const lMask = static_cast<uint32_t>(lKey < -7 ? 0 : FlatMaskReadBackward(-lKey));
    return ((lMask >> (static_cast<uint32_t>(lDiaPitch % 7) & lBitMask)) & 1) != 0;
}

/// The accidental to put ahead of the note, as AddAccidentalAt takes it; none when the key and the bar already say it.
std::optional<int32_t> AccidentalDue(int32_t lKey, int32_t lState, int32_t lAccid, int32_t lDiaPitch)
{
    DebugLog(Format(lKey < 0 ? "Flat key %d AccidState %d Accid %d lDiaPitch %d"
                             : "Sharp or open key %d AccidState %d Accid %d lDiaPitch %d",
                    lKey, lState, lAccid, lDiaPitch));
    bool const bInKey = KeyHasStep(lKey, lDiaPitch);
    bool const bLeftOut =
        lAccid == 0 ? !bInKey && lState != 1 && lState != -1 : bInKey && lState != 2 && lState != -lAccid;
    if (bLeftOut)
        return std::nullopt;
    return lAccid;
}

/// An insert point on another staff would link the note into that one's list.
void BringInsertPointTo(int32_t lStaff)
{
    if (!pelInsertPoint || pelInsertPoint->lStaff == lStaff)
        return;
    pelInsertPoint = FindAtOrBefore(pelInsertPoint->lStrX, lStaff);
    lInsertStaff = lStaff;
}

void AddNote(HDC hdc, HWND hwnd, Element el, int32_t lClef)
{
    Draw_FoldElement(&el, lClef);
    el.storage = cbPlainElement;
    List_AddAfter(aStaffList[el.lStaff], pelInsertPoint, &el, cbPlainElement);
    Element* const pel = pelInsertPoint ? Next(pelInsertPoint) : StaffFirst(el.lStaff);
    if (!pel)
        return;
    pelInsertPoint = pel;
    if (hdc)
        DrawSymbol(hdc, hwnd, pel, lClef, false);
}
} // namespace

void Piano_AddNote(HDC hdc, HWND hwnd, int32_t lDiaPitch, int32_t lStaff, int32_t lDuration, int32_t lAccid)
{
    bScoreDirty = true;
    bTimesValid = false;
    if (lDuration != 0)
        elCurrent.lDuration = lDuration;
    if (elCurrent.sort != NOTE)
    {
        Serious("Piano works only with notes\nSet current symbol first\nShortcut keys 1..6");
        return;
    }
    BringInsertPointTo(lStaff);
    int32_t const lClef = pelInsertPoint ? ClefAt(pelInsertPoint) : ClefAtEnd(lStaff);
    int32_t const lKey = KeyAt(pelInsertPoint);
    Element el = elCurrent;
    el.lStrX = pelInsertPoint ? Clamp32(int64_t{pelInsertPoint->lStrX} + lColumnsToNext) : lColumnAtHead;
    el.lStaff = lStaff;
    el.up = StemUp(lDiaPitch, lClef, el.lDuration);
    bool const bAgainstKey = lKey < 0 ? lAccid == 1 : lAccid == -1;
    if (bAgainstKey)
    {
        lDiaPitch += lAccid;
        lAccid = -lAccid;
    }
    el.lDiaPitch = lDiaPitch;
    if (auto const due = AccidentalDue(lKey, AccidStateAt(pelInsertPoint, lDiaPitch), lAccid, lDiaPitch))
    {
        pelInsertPoint = AddAccidentalAt(hdc, hwnd, el.lStrX, lDiaPitch, lStaff, pelInsertPoint, *due, lClef);
        el.lStrX = Clamp32(int64_t{el.lStrX} + lColumnsOfAccidental);
    }
    AddNote(hdc, hwnd, el, lClef);
}
} // namespace zarn
