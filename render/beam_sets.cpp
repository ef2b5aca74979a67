// Beam sets as they stand in the score: walked, mended, and undone where the placing broke them.
#include "render/beam_groups.h"

#include "core/messages.h"
#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lCrotchet = 48;

/// Signs that a beam passes over.
static bool BeamPasses(int32_t sort)
{
    switch (sort)
    {
    case SHARP:
    case FLAT:
    case NATURAL:
    case SPACE:
    case CHORD:
    case LYRICS:
    case TIE:
    case INSTRUMENT:
    case TEMPO:
    case TRANSPOSE:
    case VOLUME:
    case ABC:
    case TITLE:
    case ARPEGSTART:
    case ARPEGEND:
    case TEXT:
    case ANNOT:
    case SLUR:
    case BOWING:
        return true;
    default:
        return false;
    }
}

/// Of a chord, the note where the stem ends, or its last one: the one note that stands for it in a walk.
static bool StandsForChord(Element const* pel, bool bStemEnd)
{
    return (pel->lA & fChordBits) == 0 || (pel->lA & (bStemEnd && !pel->up ? fChordBefore : fChordMore)) == 0;
}

Element* NextBeamable(Element* pel, bool bStemEnd)
{
    for (pel = Next(pel); pel; pel = Next(pel))
    {
        if (pel->sort != NOTE)
        {
            if (!BeamPasses(pel->sort))
                return nullptr;
            continue;
        }
        if (BaseDuration(pel->lDuration) >= lCrotchet)
            return nullptr;
        if (pel->lDuration != 0 && StandsForChord(pel, bStemEnd))
            return pel;
    }
    return nullptr;
}

/// Sorts at which a set that lacks its end is taken to end.
static bool EndsSet(int32_t sort)
{
    switch (sort)
    {
    case BAR:
    case DOUBLEBAR:
    case CLEF:
    case KEYSIG:
    case REST:
    case NEWLINE:
    case TIMESIG:
    case REPEATSTART:
    case REPEATEND:
    case REPEATENDSTART:
    case REPEATFIRST:
        return true;
    default:
        return false;
    }
}

/// Chords in a set. A file may hold a staff of nothing but beginnings, which must not be walked to its end from each.
constexpr int32_t lLongestSet = 1000;

/// The last element of the set from pelSeen on; *pbEnd tells whether it carries the set's end.
static Element* WalkSet(Element* pelSeen, bool* pbEnd)
{
    *pbEnd = false;
    int32_t lWalked = 0;
    for (Element* pel = Next(pelSeen); pel && ++lWalked <= lLongestSet; pel = NextBeamable(pel, false))
    {
        if (EndsSet(pel->sort))
            return pel;
        if (pel->sort != NOTE || pel->lDuration < 1)
            continue;
        if (pel->beam == BEAM_NONE)
            return pelSeen;
        pelSeen = pel;
        *pbEnd = pel->beam == BEAM_LAST;
        if (*pbEnd)
            return pelSeen;
    }
    return pelSeen;
}

Element* EndOfBeamSet(Element* pel)
{
    if (!pel)
    {
        Serious("EndOfBeamSet called for NULL note!  Tell Odrian.");
        return nullptr;
    }
    if (pel->sort != NOTE)
    {
        Serious("EndOfBeamSet called for non-note!  Tell Odrian.");
        return nullptr;
    }
    if (pel->beam != BEAM_FIRST)
    {
        Serious("EndOfBeamSet called for non-BEAMSTART note!  Tell Odrian.");
        return nullptr;
    }
    bool bEnd = false;
    Element* const pelSeen = WalkSet(pel, &bEnd);
    if (bEnd)
        return pelSeen;
    if (pelSeen->beam == BEAM_FIRST)
    {
        pelSeen->beam = BEAM_NONE;
        return nullptr;
    }
    pelSeen->beam = BEAM_LAST;
    return pelSeen;
}

int32_t LongestInSet(Element const* pel)
{
    int32_t lLongest = 0;
    for (; pel; pel = Next(pel))
    {
        if (pel->sort == NOTE)
            lLongest = std::max(lLongest, pel->lDuration);
        if (pel->beam == BEAM_LAST)
            break;
    }
    return lLongest;
}

static void UndoSet(Element* pelFirst, Element const* pelEnd)
{
    Element* pel = pelFirst;
    while (pel)
    {
        SetChordBeam(pel, BEAM_NONE);
        // A note of a chord without a first note isn't reached through its chord.
        pel->beam = BEAM_NONE;
        pel = pel == pelEnd ? nullptr : NextBeamable(pel, true);
    }
}

void BeamCheck(List list)
{
    for (Element* pel = List_FirstAs<Element>(list); pel; pel = Next(pel))
    {
        if (pel->beam != BEAM_FIRST)
            continue;
        Element* pelEnd = NextBeamable(pel, true);
        while (pelEnd && pelEnd->beam != BEAM_LAST)
            pelEnd = NextBeamable(pelEnd, true);
        if (!pelEnd)
            Serious("missing beam-to note!  Fixing...");
        if (!pelEnd || LineStart(pelEnd->lStrX) != LineStart(pel->lStrX))
            UndoSet(pel, pelEnd);
    }
}
} // namespace zarn
