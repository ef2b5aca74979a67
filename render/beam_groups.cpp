// Beam groups: found by the metre in one walk, and given a stem direction.
//
// The walk carries the clef along. Walks along a chord pass over what is not a note and end at a REST.
#include "render/beam_groups.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lCrotchet = 48;
constexpr int32_t lQuaver = 24;
constexpr int32_t lHalfBar = 96;
constexpr int32_t lDottedCrotchet = 72;

/// Elements that a walk along one chord looks at. No chord comes near it; a staff full of damaged chord flags must not
/// cost a walk over all of it for each note.
constexpr int32_t lLongestChordWalk = 300;

static int32_t ChordBits(Element const* pel) { return pel->lA & fChordBits; }

static bool EndsChord(Element const* pel) { return ChordBits(pel) == 0 || ChordBits(pel) == fChordBefore; }

bool SameChord(Element const* pelA, Element const* pelB)
{
    for (; pelA; pelA = Next(pelA))
    {
        if (pelA == pelB)
            return true;
        if (pelA->sort == NOTE && EndsChord(pelA))
            return false;
    }
    return false;
}

bool SameFamily(int32_t lDurationA, int32_t lDurationB)
{
    int32_t const lOddA = OddPart(lDurationA);
    int32_t const lOddB = OddPart(lDurationB);
    return lOddA == lOddB || (lOddA == 3 && lOddB == 9) || (lOddA == 9 && lOddB == 3);
}

/// The first note of pel's chord; null when a REST, the head of the staff or the bound comes first.
static Element* FirstOfChord(Element* pel)
{
    for (int32_t n = 0; pel && pel->sort != REST && n < lLongestChordWalk; pel = Prev(pel), ++n)
        if (pel->sort == NOTE && (ChordBits(pel) == 0 || ChordBits(pel) == fChordMore))
            return pel;
    return nullptr;
}

/// The last note of pel's chord, or the last one ahead of what breaks the chord off.
static Element* LastOfChord(Element* pel)
{
    Element* pelLast = pel;
    for (int32_t n = 0; pel && pel->sort != REST && n < lLongestChordWalk; pel = Next(pel), ++n)
    {
        if (pel->sort != NOTE)
            continue;
        pelLast = pel;
        if (EndsChord(pel))
            break;
    }
    return pelLast;
}

/// Writes beam on the notes of pel's chord, unless it has no first one; gives the last one.
static Element* BeamChord(Element* pel, int32_t lBeam)
{
    Element* const pelLast = LastOfChord(pel);
    Element const* const pelBehind = Next(pelLast);
    for (Element* pelNote = FirstOfChord(pel); pelNote && pelNote != pelBehind; pelNote = Next(pelNote))
        if (pelNote->sort == NOTE)
            pelNote->beam = lBeam;
    return pelLast;
}

void SetChordBeam(Element* pel, int32_t lBeam) { BeamChord(pel, lBeam); }

namespace
{
/// The notes of a group: how far they reach, and what they weigh.
struct Reach
{
    int32_t lMin = INT32_MAX;
    int32_t lMax = INT32_MIN;
    int64_t lSum = 0;
    int64_t lCount = 0;

    void Add(Element const* pel)
    {
        if (pel->sort != NOTE || pel->lDuration < 1)
            return;
        lMin = std::min(lMin, pel->lDiaPitch);
        lMax = std::max(lMax, pel->lDiaPitch);
        lSum += pel->lDiaPitch;
        ++lCount;
    }
};
} // namespace

/// One step outside the staff's lines. A tenor staff has no row of its own, so its stems go by middle C.
static void OutsideLines(int32_t lClef, int64_t* plLow, int64_t* plHigh)
{
    *plLow = lClef == 1 ? 1 : lClef == 2 ? -5 : lClef == 3 ? -11 : 0;
    *plHigh = lClef == 1 ? 11 : lClef == 2 ? 5 : lClef == 3 ? -1 : 0;
}

static int32_t StemsUp(Reach const& reach, int32_t lClef)
{
    int64_t lLow = 0;
    int64_t lHigh = 0;
    OutsideLines(lClef, &lLow, &lHigh);
    bool const bAbove = reach.lMax > lHigh;
    bool const bBelow = reach.lMin < lLow;
    if (bAbove && bBelow)
        return reach.lMax - lHigh <= lLow - reach.lMin;
    if (bAbove || bBelow)
        return bBelow;
    return (lLow + lHigh) * reach.lCount / 2 >= reach.lSum;
}

/// The rest of the chord that the group's last note belongs to.
static Element* ExtendOverChord(Element* pelLast)
{
    if (EndsChord(pelLast))
        return pelLast;
    for (Element* pel = Next(pelLast); pel && pel->sort == NOTE && pel->lDuration != 0; pel = Next(pel))
    {
        if (ChordBits(pel) == 0 || ChordBits(pel) == fChordMore)
            return pelLast;
        pelLast = pel;
        if (ChordBits(pel) == fChordBefore)
            return pelLast;
    }
    return pelLast;
}

/// The inner chords of a set, from the element behind its first chord to the one ahead of its last note.
static void BeamInside(Element* pel, Element const* pelLast)
{
    Element const* pelChordEnd = nullptr; // of the chord just written: its other notes need no second walk
    for (; pel && pel != pelLast; pel = Next(pel))
    {
        if (pel->sort != NOTE)
            continue;
        if (pel->lDuration >= 1 && !pelChordEnd)
            pelChordEnd = BeamChord(pel, BEAM_INSIDE);
        if (pel == pelChordEnd)
            pelChordEnd = nullptr;
    }
}

static void SetGroup(Element* pelFirst, Element* pelLast, int32_t lClef)
{
    if (!pelFirst || !pelLast || SameChord(pelFirst, pelLast))
        return;
    pelLast = ExtendOverChord(pelLast);
    Element const* const pelBehind = Next(pelLast);
    Reach reach;
    for (Element const* pel = pelFirst; pel && pel != pelBehind; pel = Next(pel))
        reach.Add(pel);
    int32_t const lUp = StemsUp(reach, lClef);
    for (Element* pel = pelFirst; pel && pel != pelBehind; pel = Next(pel))
        if (pel->sort == NOTE && pel->lDuration > 0)
            pel->up = lUp;
    BeamInside(Next(BeamChord(pelFirst, BEAM_FIRST)), pelLast);
    SetChordBeam(pelLast, BEAM_LAST);
}

void SetBeamGroup(Element* pelFirst, Element* pelLast) { SetGroup(pelFirst, pelLast, ClefAt(pelFirst)); }

namespace
{
/// The walk that finds the groups.
class GroupFinder
{
public:
    void Step(Element* pel)
    {
        switch (pel->sort)
        {
        case NOTE:
            Note(pel);
            break;
        case TIMESIG:
            Close();
            lMetre = Metre(pel->lA, pel->lB);
            lCount = 0;
            break;
        case BAR:
            Close();
            bBarSeen = true;
            lCount = 0;
            break;
        case REPEATSTART:
            Close();
            if (lCount >= 1 && !bBarSeen)
            {
                bBarSeen = true;
                lCount = 0;
            }
            break;
        case REPEATFIRST:
            Close();
            lRepeatFirstCount = lCount;
            break;
        case REPEATEND:
            Close();
            if (lRepeatFirstCount != -1)
            {
                lCount = lRepeatFirstCount;
                lRepeatFirstCount = -1;
            }
            break;
        case CLEF:
            Close();
            lClef = pel->lA;
            break;
        case SHARP:
        case FLAT:
        case NATURAL:
        case SPACE:
        case CHORD:
        case TEXT:
        case ANNOT:
        case LYRICS:
        case TIE:
        case SLUR:
        case INSTRUMENT:
        case VOLUME:
        case ABC:
        case TITLE:
            break;
        default:
            Close();
            break;
        }
        if (pel->sort != NOTE || (pel->lA & fChordMore) == 0)
            lCount += pel->lDuration;
    }

    void Close()
    {
        SetGroup(pelFirstOfGroup, pelLastOfGroup, lClef);
        pelFirstOfGroup = pelLastOfGroup = nullptr;
    }

    explicit GroupFinder(int32_t lClef) : lClef(lClef) {}

private:
    static int32_t Metre(int32_t lNum, int32_t lDen)
    {
        if (lDen == 2)
            return lNum == 2 ? 4 : 0;
        if (lDen == 4)
            return lNum >= 2 && lNum <= 4 ? lNum : 0;
        return lDen == 8 && (lNum == 6 || lNum == 9) ? lNum : 0;
    }

    void Note(Element* pel)
    {
        if (!bBeamQuavers)
            return;
        if (BaseDuration(pel->lDuration) > lQuaver)
        {
            Close();
            return;
        }
        if (pel->lDuration == 0)
            return; // grace notes neither join nor break a group
        if (pelFirstOfGroup && Joins(pel))
        {
            pelLastOfGroup = pel;
            return;
        }
        Close();
        pelFirstOfGroup = pel;
    }

    /// Whether a note goes on with the group that is open.
    [[nodiscard]] bool Joins(Element const* pel) const
    {
        if (pel->lA & fChordBefore)
            return true;
        bool const bCompound = lMetre % 3 == 0 && lMetre >= 4;
        if (bCompound ? lCount % lDottedCrotchet == 0 : BreaksSimpleMetre())
            return false;
        return SameFamily(pelFirstOfGroup->lDuration, pel->lDuration);
    }

    /// At each half bar of four in a bar, at each crotchet of any other, and behind a finished triplet.
    [[nodiscard]] bool BreaksSimpleMetre() const
    {
        if (lCount % (lMetre == 4 ? lHalfBar : lCrotchet) == 0)
            return true;
        int64_t lShortest = pelFirstOfGroup->lDuration;
        bool bTriplet = IsTriplet(pelFirstOfGroup->lDuration);
        if (pelLastOfGroup)
        {
            lShortest = std::min<int64_t>(lShortest, pelLastOfGroup->lDuration);
            bTriplet = bTriplet || IsTriplet(pelLastOfGroup->lDuration);
        }
        return bTriplet && lCount % (lShortest * 3) == 0;
    }

    int32_t lMetre = 4;
    int64_t lCount = 0;
    int64_t lRepeatFirstCount = -1;
    bool bBarSeen = false;
    Element* pelFirstOfGroup = nullptr;
    Element* pelLastOfGroup = nullptr;
    int32_t lClef;
};
} // namespace

void AutoBeam(Element* pelFirst)
{
    for (Element* pel = pelFirst; pel; pel = Next(pel))
        pel->beam = BEAM_NONE;
    GroupFinder finder(ClefAt(pelFirst));
    for (Element* pel = pelFirst; pel; pel = Next(pel))
        finder.Step(pel);
    finder.Close();
}
} // namespace zarn
