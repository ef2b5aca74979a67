// The common core of adding a symbol, and what its sort entails.
#include "edit/add.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "core/respell.h"
#include "core/text.h"
#include "edit/mark.h"
#include "edit/ties.h"
#include "layout/adjust.h"
#include "layout/clean_up.h"
#include "midi/refresh_pitches.h"
#include "midi/sound_note.h"
#include "render/geometry.h"
#include "render/symbols.h"
#include "tab/fingering.h"

#include <optional>

namespace zarn
{
constexpr int32_t fPreservePitch = 64;  ///< in lB of a KEYSIG that is about to be added
constexpr int32_t lHighestUpStem = 6;   ///< diatonic position on the treble staff
constexpr int32_t lSemibreveRest = 192; ///< ticks
constexpr int32_t lAuditionProgram = 1; ///< of a note that sounds as it is added
constexpr int32_t lAuditionChannel = 1;
constexpr int32_t lAuditionVolume = 64;

/// The height of a clef sign in the treble frame; nothing for a clef that isn't one.
static std::optional<int32_t> ClefHeight(int32_t lClef)
{
    switch (lClef)
    {
    case 1:
    case 4:
        return 4;
    case 2:
        return 2;
    case 3:
        return 8;
    default:
        Serious("Adding duff clef type");
        return std::nullopt;
    }
}

/// The height in the treble frame of a sort that has one of its own; nothing for what stands as clicked.
static std::optional<int32_t> FixedHeight(Element const& el)
{
    switch (el.sort)
    {
    case NOTE:
    case SHARP:
    case FLAT:
    case NATURAL:
    case TEXT:
    case ANNOT:
        return std::nullopt;
    case BAR:
    case DOUBLEBAR:
    case REPEATSTART:
    case REPEATEND:
    case REPEATENDSTART:
    case ARPEGSTART:
    case ARPEGEND:
        return 2;
    case REPEATFIRST:
        return 12;
    case INSTRUMENT:
        return 16;
    case TEMPO:
    case BOWING:
        return 18;
    case TRANSPOSE:
        return -2;
    case CLEF:
        return ClefHeight(el.lA);
    case CHORD:
        return bChordsBelowStaff ? -4 : 20;
    case TITLE:
        return 22;
    case LYRICS:
        return -7;
    case REST:
        return el.lDuration == lSemibreveRest ? 8 : 6;
    default:
        return 6;
    }
}

static bool IsMouseText(int32_t sort)
{
    return sort == CHORD || sort == TITLE || sort == ANNOT || sort == TEXT || sort == LYRICS;
}

Element* AddAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y)
{
    bScoreDirty = true;
    bTimesValid = false;
    if (elCurrent.storage > cbPlainElement && !IsMouseText(elCurrent.sort))
        Serious("Oops. Another sort with extended storage??  Tell Odrian!");
    RoomyElement el = elCurrent;
    Draw_Straighten(x, y, &el.lStrX, &el.lDiaPitch, &el.lStaff, 1);
    if (auto const lHeight = FixedHeight(el))
        el.lDiaPitch = *lHeight;
    if (el.sort == NOTE)
        el.up = el.lDiaPitch <= lHighestUpStem;
    Element* pelPlace = FindPlace(el.lStrX, el.lDiaPitch, el.lStaff, el.sort);
    if (el.sort == TIE && !pelPlace)
        pelPlace = StaffLast(el.lStaff);
    if (el.sort == MARKBEGIN || el.sort == MARKEND)
    {
        if (el.sort == MARKBEGIN)
            MarkBeginAt(hwnd, x, y);
        else
            MarkEndAt(hwnd, x, y);
        return nullptr;
    }
    Element* const pel = AddElement(hdc, hwnd, pelPlace, el);
    return pel && el.sort == TIE ? NextNote(Next(pel)) : pel;
}

void TakeChordDuration(Element& elNew, Element const* pelNote)
{
    if (elNew.lDuration != pelNote->lDuration && elNew.lDuration == BaseDuration(pelNote->lDuration) &&
        elNew.lDiaPitch != pelNote->lDiaPitch)
        elNew.lDuration = pelNote->lDuration;
}

static bool MayJoin(Element const& elNew, Element const* pelNote)
{
    return elNew.lDuration == pelNote->lDuration && elNew.lDiaPitch != pelNote->lDiaPitch;
}

static bool IsNoteAt(Element const* pel, Element const& elNew)
{
    return pel && pel->sort == NOTE && elNew.sort == NOTE && pel->lStrX == elNew.lStrX;
}

static void JoinChordAhead(Element& elNew, Element* pelPrev)
{
    if (!IsNoteAt(pelPrev, elNew))
        return;
    TakeChordDuration(elNew, pelPrev);
    if (!MayJoin(elNew, pelPrev))
        return;
    pelPrev->lA |= fChordMore;
    elNew.lA |= fChordBefore;
    elNew.up = pelPrev->up;
}

/// Gives the place; a note that can't join moves on by a column.
static Element* JoinChordBehind(Element& elNew, Element* pelPlace)
{
    if (!IsNoteAt(pelPlace, elNew))
        return pelPlace;
    TakeChordDuration(elNew, pelPlace);
    if (MayJoin(elNew, pelPlace))
    {
        pelPlace->lA |= fChordBefore;
        elNew.lA |= fChordMore;
        elNew.up = pelPlace->up;
        return pelPlace;
    }
    ++elNew.lStrX;
    while (pelPlace && pelPlace->lStrX < elNew.lStrX)
        pelPlace = Next(pelPlace);
    return pelPlace;
}

void ShiftForClef(Element* pel, int32_t lOldClef, int32_t lNewClef)
{
    RefreshBarFingering(pel);
    int32_t const lShift = ClefOffset(lOldClef) - ClefOffset(lNewClef);
    for (; pel && pel->sort != CLEF; pel = Next(pel))
        pel->lDiaPitch = Clamp32(int64_t{pel->lDiaPitch} + lShift);
}

/// Clears a tie flag of the notes at the column of the nearest note in one direction; gives the last one that had it.
template <typename Step, typename Within>
static Element* ClearTieFlag(Element* pel, int32_t lFlag, Step step, Within within)
{
    do
        pel = step(pel);
    while (pel && pel->sort != NOTE);
    Element* pelLast = nullptr;
    for (int32_t const lStrX = pel ? pel->lStrX : 0; pel && within(pel->lStrX, lStrX); pel = step(pel))
    {
        if (pel->sort != NOTE || (pel->lA & lFlag) == 0)
            continue;
        pel->lA &= ~lFlag;
        pelLast = pel;
    }
    return pelLast;
}

/// A note put between two tied notes cuts the tie; one that joined a chord stands in it, not between.
static void BreakTieAround(Element* pel)
{
    if (pel->lA & fChordBits)
        return;
    Element* const pelFrom = ClearTieFlag(
        pel, fTiedOn, [](Element* p) { return Prev(p); }, [](int32_t lStrX, int32_t lAt) { return lStrX >= lAt; });
    Element* const pelTo = ClearTieFlag(
        pel, fTiedFrom, [](Element* p) { return Next(p); }, [](int32_t lStrX, int32_t lAt) { return lStrX <= lAt; });
    if (!pelFrom || !pelTo)
        return;
    for (Element* pelAt = Next(pelFrom); pelAt && pelAt != pelTo;)
    {
        Element* const pelNext = Next(pelAt);
        if (pelAt->sort == TIE)
            Element_Remove(pelAt);
        pelAt = pelNext;
    }
}

static void SetOldKey(HWND hwnd, Element* pel)
{
    bool const bPreserve = (pel->lB & fPreservePitch) != 0;
    pel->lB = KeyAt(Prev(pel));
    if (!bPreserve)
    {
        RefreshBarFingering(pel);
        return;
    }
    MakeAccidentalsMatchKeySig(pel->lA, KeepPitchesOverKeyChange(pel->lA, pel->lB, Next(pel)));
    RemoveSpuriousAccidentals();
    InvalidateRect(hwnd);
}

/// What the new element does to those around it.
static void Settle(HWND hwnd, Element* pel)
{
    switch (pel->sort)
    {
    case KEYSIG:
        SetOldKey(hwnd, pel);
        break;
    case CLEF:
        ShiftForClef(Next(pel), ClefAt(Prev(pel)), pel->lA);
        break;
    case NOTE:
        pel->lPitch = MidiFromPitch(pel->lDiaPitch, KeyAt(pel), AccidStateAt(pel, pel->lDiaPitch), TransposeAt(pel));
        SoundNote(pel->lPitch, lAuditionProgram, lAuditionChannel, lAuditionVolume);
        BreakTieAround(pel);
        break;
    case SHARP:
    case FLAT:
    case NATURAL:
        RefreshBarFingering(pel);
        break;
    default:
        break;
    }
}

/// The sort's own fields ahead of the add. False when it can't be added.
static bool Prepare(HWND hwnd, Element& el, Element* pelPlace)
{
    if (el.sort == NOTE)
    {
        el.lB = VolumeAt(pelPlace ? pelPlace : StaffLast(el.lStaff));
        DebugLog(Format("Adding note with volume %d\n", el.lB));
    }
    else if (el.sort == VOLUME)
        DebugLog(Format("Adding volume changer to level %d\n", el.lA));
    if (el.sort != TIE)
        return true;
    if (bTabShowing)
        RefreshPitches(lHighestStaff); // ties join notes by how they sound, and so does the fingering
    if (!TieCheck(pelPlace, true))
        return false;
    el.lDiaPitch = TieNotes(pelPlace);
    InvalidateRect(hwnd);
    return true;
}

Element* AddElement(HDC hdc, HWND hwnd, Element* pelPlace, RoomyElement el)
{
    JoinChordAhead(el, pelPlace ? Prev(pelPlace) : StaffLast(el.lStaff));
    pelPlace = JoinChordBehind(el, pelPlace);
    if (!Prepare(hwnd, el, pelPlace))
        return nullptr;
    int32_t const lClef = el.sort == CLEF ? el.lA : pelPlace ? ClefAt(Prev(pelPlace)) : ClefAtEnd(el.lStaff);
    el.lDiaPitch -= ClefOffset(lClef);
    Draw_FoldElement(&el, lClef);
    List_AddBefore(aStaffList[el.lStaff], pelPlace, &el, el.storage);
    Element* const pel = pelPlace ? Prev(pelPlace) : StaffLast(el.lStaff);
    if (!pel)
        return nullptr; // memory has run out
    pelUndoPlace = pel;
    lUndoState = UNDO_ADD;
    Settle(hwnd, pel);
    if (hdc)
        DrawSymbol(hdc, hwnd, pel, lClef, false);
    if (!bAutoLayout)
        return pel;
    KeptCursor const result(SkipPunctuationBack(pel));
    FullAdjust();
    InvalidateRect(hwnd);
    return result.pel;
}
} // namespace zarn
