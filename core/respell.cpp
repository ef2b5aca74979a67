// A new key signature, and the notes behind it.
//
// A passage is walked once: what accidentals are in force goes along with the walk, and which of them a later note
// needs is told for all in one walk from the end. Asking at each note would cost a bar, and a staff without bars whole.
#include "core/respell.h"

#include "core/messages.h"
#include "core/signs_in_force.h"
#include "core/text.h"

#include <map>
#include <vector>

namespace zarn
{
/// Moves the note one step in the key's own direction and marks it so that it sounds as before.
static void Respell(Element* pelNote, int32_t lKey, int32_t lAccid, SignsInForce& inForce)
{
    int32_t const lNewPitch = Wrap_Add(pelNote->lDiaPitch, lAccid);
    int32_t const lState = inForce.Accid(pelNote->lStaff, lNewPitch);
    int32_t const lUnmarked = MidiFromPitch(lNewPitch, lKey, lState, 0);
    int32_t const lRestore = lState != 0 ? lState : KeyAccid(lKey, lNewPitch);
    pelNote->lPitch = MidiFromPitch(pelNote->lDiaPitch, lKey, lAccid, 0);
    pelNote->lDiaPitch = lNewPitch;
    if (pelNote->lPitch == lUnmarked)
        return;

    int32_t const lNatural = MidiFromPitch(lNewPitch, 0, 0, 0);
    int32_t lMark = 0;
    if (pelNote->lPitch == lNatural)
        lMark = 2;
    else if (pelNote->lPitch == lNatural + 1)
        lMark = 1;
    else if (pelNote->lPitch == lNatural - 1)
        lMark = -1;
    else
        Serious(Format("Bug in MakeAccidentalsMatchKeySig  %d %d %d %d %d.  Tell Odrian!", pelNote->lPitch, lUnmarked,
                       lNatural, lRestore, lKey));
    AddAccidental(pelNote, lMark, lNewPitch, true);
    inForce.Pass(Prev(pelNote));
    if (lRestore != 0)
        AddAccidental(pelNote, lRestore, lNewPitch, false);
}

/// inForce stands ahead of pel, and then ahead of what is given.
static Element* MatchUpToKeySig(int32_t lKey, Element* pel, SignsInForce& inForce)
{
    int32_t const lDirection = (lKey > 0) - (lKey < 0);
    for (; pel && pel->sort != KEYSIG; pel = Next(pel))
    {
        bool const bAgainst = pel->sort == NOTE && lDirection != 0;
        if (bAgainst && inForce.Accid(pel->lStaff, pel->lDiaPitch) == -lDirection)
            Respell(pel, lKey, -lDirection, inForce);
        inForce.Pass(pel);
    }
    return pel;
}

Element* MakeAccidentalsMatchKeySig(int32_t lKey, Element* pel)
{
    SignsInForce inForce(pel);
    return MatchUpToKeySig(lKey, pel, inForce);
}

void MakeStaffMatchKeySigs(int32_t lStaff)
{
    Element* pel = StaffFirst(lStaff);
    int32_t lKey = 0;
    SignsInForce inForce;
    while (pel)
    {
        pel = MatchUpToKeySig(lKey, pel, inForce);
        if (!pel)
            return;
        if (pel->sort != KEYSIG)
        {
            Serious("Bug! MakeAccidentalsMatchKeySig is returning non KEYSIG pel.  Tell Odrian!");
            return;
        }
        lKey = pel->lA;
        inForce.Pass(pel);
        pel = Next(pel);
    }
}

/// What AccidNeeded says of each accidental from pel up to the next KEYSIG, the last one first.
static std::vector<bool> NeededFromTheEnd(Element const* pel)
{
    Element const* pelKeySig = pel;
    while (pelKeySig && pelKeySig->sort != KEYSIG)
        pelKeySig = Next(pelKeySig);
    Element const* pelLast = pel; // no accidental of the passage acts beyond the bar that it ends in
    for (bool bBehind = false; Next(pelLast) && !(bBehind && pelLast->sort == BAR); pelLast = Next(pelLast))
        bBehind = bBehind || pelLast == pelKeySig;

    std::vector<bool> abNeeded;
    std::map<int32_t, bool> positions; // by position: the next thing in the bar that counts there is a note
    bool bInPassage = !pelKeySig;
    Element const* const pelAhead = Prev(pel);
    for (Element const* pelAt = pelLast; pelAt != pelAhead; pelAt = Prev(pelAt))
    {
        bInPassage = bInPassage || pelAt == pelKeySig;
        if (pelAt->sort == BAR)
            positions.clear();
        else if (pelAt->sort == NOTE)
            positions[pelAt->lDiaPitch] = true;
        else if (Sort_IsAccidental(pelAt->sort))
        {
            bool& bNoteAhead = positions[pelAt->lDiaPitch];
            if (bInPassage)
                abNeeded.push_back(bNoteAhead);
            bNoteAhead = false;
        }
    }
    return abNeeded;
}

Element* KeepPitchesOverKeyChange(int32_t lNewKey, int32_t lOldKey, Element* pel)
{
    std::vector<bool> abNeeded = NeededFromTheEnd(pel);
    SignsInForce inForce(pel);
    Element* pelFirst = pel;
    while (pel && pel->sort != KEYSIG)
    {
        if (Sort_IsAccidental(pel->sort))
        {
            bool const bNeeded = abNeeded.back();
            abNeeded.pop_back();
            if (!bNeeded)
            {
                Element* const pelNext = Next(pel);
                if (pel == pelFirst)
                    pelFirst = pelNext;
                Element_Remove(pel);
                pel = pelNext;
                continue;
            }
        }
        if (pel->sort == NOTE && inForce.Accid(pel->lStaff, pel->lDiaPitch) == 0)
        {
            int32_t const lOld = KeyAccid(lOldKey, pel->lDiaPitch);
            if (KeyAccid(lNewKey, pel->lDiaPitch) != lOld)
            {
                AddAccidental(pel, lOld, pel->lDiaPitch, true);
                if (pel == pelFirst)
                    pelFirst = Prev(pel);
                inForce.Pass(Prev(pel));
            }
        }
        inForce.Pass(pel);
        pel = Next(pel);
    }
    return pelFirst;
}
} // namespace zarn
