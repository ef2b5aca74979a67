// Ties. Pitches are compared by lPitch, as they sound, so F sharp ties to G flat.
#include "edit/ties.h"

#include "core/messages.h"

namespace zarn
{
namespace
{
/// What a walk for a tie passes over in either direction.
bool IsPassedByTie(int32_t sort)
{
    switch (sort)
    {
    case BAR:
    case DOUBLEBAR:
    case CLEF:
    case KEYSIG:
    case SHARP:
    case FLAT:
    case NATURAL:
    case TIMESIG:
    case SPACE:
    case CHORD:
    case LYRICS:
    case REPEATSTART:
    case TEMPO:
    case VOLUME:
    case ABC:
    case TITLE:
    case TEXT:
    case ANNOT:
    case SLUR:
    case BOWING:
        return true;
    default:
        return false;
    }
}

bool IsPassedBack(int32_t sort)
{
    return IsPassedByTie(sort) || sort == NEWLINE || sort == REPEATFIRST || sort == ARPEGSTART || sort == ARPEGEND;
}

/// The first notes of the chords on both sides of a tie's place; null where there is none.
struct TiedChords
{
    Element* pelA = nullptr;
    Element* pelB = nullptr;
};

/// Where a tie may not even stand ahead: it sounds neither through a rest nor into a repeat.
bool ForbidsTieAhead(int32_t sort) { return sort == REST || sort == REPEATEND || sort == REPEATENDSTART; }

Element* ChordBehind(Element* pelPlace)
{
    if (!pelPlace || ForbidsTieAhead(pelPlace->sort))
        return nullptr;
    return ChordFirst(pelPlace->sort == NOTE ? pelPlace : TieNextNote(pelPlace));
}

TiedChords ChordsAround(Element* pelPlace)
{
    bool const bInChord = pelPlace && pelPlace->sort == NOTE && (pelPlace->lA & fChordBits);
    return {ChordFirst(TiePrevNote(bInChord ? ChordFirst(pelPlace) : pelPlace)), ChordBehind(pelPlace)};
}

bool IsNote(Element const* pel) { return pel && pel->sort == NOTE; }

bool EndsChord(Element const* pel) { return (pel->lA & fChordMore) == 0; }

void ClearFlag(Element* pel, int32_t lFlag)
{
    for (; pel; pel = Next(pel))
    {
        if (pel->sort != NOTE)
            continue;
        pel->lA &= ~lFlag;
        if (EndsChord(pel))
            return;
    }
}
} // namespace

Element* TiePrevNote(Element* pel)
{
    for (pel = Prev(pel); pel && pel->sort != NOTE; pel = Prev(pel))
        if (!IsPassedBack(pel->sort))
            return nullptr;
    return pel;
}

Element* TieNextNote(Element* pel)
{
    for (pel = Next(pel); pel && pel->sort != NOTE; pel = Next(pel))
        if (!IsPassedByTie(pel->sort))
            return nullptr;
    return pel;
}

int32_t TieCheck(Element* pelPlace, bool bShow)
{
    if (!pelPlace)
    {
        Serious("Can't tie - no following note");
        return 0;
    }
    auto const [pelA, pelB] = ChordsAround(pelPlace);
    if (!pelA || !pelB)
    {
        if (bShow)
            Serious(pelA ? "Can't tie - no following note" : "Can't tie - no previous note");
        return 0;
    }
    if (TieCommon(pelA, pelB))
        return 1;
    Serious("These chords have nothing in common.  Can only tie notes of same pitch.");
    return 0;
}

int32_t TieCommon(Element const* pelChordA, Element const* pelChordB)
{
    while (IsNote(pelChordA) && IsNote(pelChordB))
    {
        if (pelChordA->lPitch == pelChordB->lPitch)
            return 1;
        Element const*& pelLower = pelChordB->lPitch > pelChordA->lPitch ? pelChordA : pelChordB;
        if (EndsChord(pelLower))
            return 0;
        pelLower = Next(pelLower);
    }
    return 0;
}

int32_t TieNotes(Element* pelPlace)
{
    auto const [pelA, pelB] = ChordsAround(pelPlace);
    if (!pelA)
    {
        Serious("Tie bug 'null pel 1', tell Odrian");
        return 0;
    }
    int32_t const lHeight = pelA->lDiaPitch;
    if (!pelB)
    {
        Serious("Tie bug 'null pel 2', tell Odrian");
        return 0;
    }
    TieSetFlags(pelA, pelB);
    return lHeight - 2; // the arc runs under the earlier chord's lowest note
}

void TieSetFlags(Element* pelChordA, Element* pelChordB)
{
    if (!pelChordA || !pelChordB)
    {
        Serious("Tie bug 'null pel'.  Tell Odrian");
        return;
    }
    bool bTied = false;
    bool bMore = true;
    while (bMore && IsNote(pelChordA) && IsNote(pelChordB))
    {
        bool const bStepA = pelChordB->lPitch >= pelChordA->lPitch;
        bool const bStepB = pelChordB->lPitch <= pelChordA->lPitch;
        if (bStepA && bStepB)
        {
            pelChordA->lA |= fTiedOn;
            pelChordB->lA |= fTiedFrom;
            bTied = true;
        }
        bMore = !(bStepA && EndsChord(pelChordA)) && !(bStepB && EndsChord(pelChordB));
        if (bStepA)
            pelChordA = Next(pelChordA);
        if (bStepB)
            pelChordB = Next(pelChordB);
    }
    if (!bTied)
        Serious("Vaccuous tie.  Bug?  Tell Odrian");
}

void TieBreak(Element* pelTie)
{
    auto const [pelA, pelB] = ChordsAround(pelTie);
    if (!pelA || !pelB)
        return;
    ClearFlag(pelA, fTiedOn);
    ClearFlag(pelB, fTiedFrom);
}

void AddTieAtInsertPoint()
{
    if (!IsNote(pelInsertPoint))
    {
        Serious("Can't have a tie here!  Bug?? Tie - ignored.");
        return;
    }
    Element elTie;
    elTie.sort = TIE;
    elTie.lStaff = pelInsertPoint->lStaff;
    Element* const pelFirst = ChordFirst(pelInsertPoint);
    if (!TieCheck(pelFirst, true))
        return;
    elTie.lDiaPitch = TieNotes(pelFirst);
    List_AddBefore(aStaffList[elTie.lStaff], pelFirst, &elTie, cbPlainElement);
}
} // namespace zarn
