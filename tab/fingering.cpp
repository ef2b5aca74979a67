// The search for the cheapest way of playing a stretch, chord by chord, and its three grains: staffs, a bar, a chord.
//
// Nothing is stored in a note before the search has come to its end, so a search that is called off leaves no trace.
//
// A step inside an arpeggio would have to leave what rings alone. No step is one: all notes of a section are one chord,
// so the chord behind it begins outside.
#include "tab/fingering.h"

#include "core/messages.h"
#include "midi/refresh_pitches.h"
#include "platform/process.h"
#include "platform/user.h"
#include "render/geometry.h"
#include "tab/chord_notes.h"
#include "tab/fingering_paths.h"
#include "tab/fingering_watch.h"

#include <algorithm>

namespace zarn
{
namespace
{
/// A chord of the stretch.
struct Chord
{
    ChordPlace first;
    ChordPlace last;
    bool bHoldsEnd = false; ///< the stretch ends in it
    bool bTooManyPitches = false;
    PitchSet pitches = {};
};

/// True when the element lies behind pelFrom, up to pelTo.
bool LiesBetween(Element const* pelFrom, Element const* pelTo, Element const* pelSought)
{
    while (pelFrom != pelTo)
    {
        pelFrom = Next(pelFrom);
        if (pelFrom == pelSought)
            return true;
    }
    return false;
}

Chord GatherChord(ChordPlace first, Element const* pelEnd)
{
    Chord chord{.first = first, .last = first, .bHoldsEnd = first.pel == pelEnd};
    for (ChordPlace place = first; place.pel; place = Tab_NextChordNote(place))
    {
        chord.bHoldsEnd = chord.bHoldsEnd || LiesBetween(chord.last.pel, place.pel, pelEnd);
        chord.last = place;
        std::span<int32_t const> const aSoFar = chord.pitches.Pitches();
        if (chord.bTooManyPitches || std::ranges::find(aSoFar, place.pel->lPitch) != aSoFar.end())
            continue;
        chord.bTooManyPitches = chord.pitches.cPitches >= Tab_UsedStrings();
        if (!chord.bTooManyPitches)
            chord.pitches.aPitch[static_cast<size_t>(chord.pitches.cPitches++)] = place.pel->lPitch;
    }
    return chord;
}

/// The chord behind; its first.pel is null at the end of the stretch.
ChordPlace NextChord(Chord const& chord, Element const* pelEnd)
{
    return chord.bHoldsEnd ? ChordPlace{} : Tab_NextNote(chord.last, pelEnd);
}

int32_t CountChords(ChordPlace place, Element const* pelEnd)
{
    int32_t c = 0;
    for (; place.pel; place = NextChord(GatherChord(place, pelEnd), pelEnd))
        ++c;
    return c;
}

/// Asks the watch whether to go on, once a search takes its time.
class Patience
{
public:
    Patience(ChordPlace first, Element const* pelEnd) : first(first), pelEnd(pelEnd) {}

    bool GoOn(int32_t lDone)
    {
        constexpr uint32_t lWaitMs = 1000;
        constexpr uint32_t lPauseMs = 100;
        if (!pFingeringWatch)
            return true;
        uint32_t const lMs = GetTickCount() - lStartMs;
        if (lMs < lWaitMs || lMs - lToldMs < lPauseMs)
            return true;
        lToldMs = lMs;
        if (lTotal == 0)
            lTotal = CountChords(first, pelEnd);
        return pFingeringWatch(lDone, lTotal);
    }

private:
    ChordPlace first;
    Element const* pelEnd;
    uint32_t lStartMs = GetTickCount();
    uint32_t lToldMs = 0;
    int32_t lTotal = 0;
};

enum class Outcome
{
    WHOLE,
    BROKEN_OFF, ///< at a chord that can't be played
    CALLED_OFF
};

/// The way from the first chord to the last, or as far as it goes.
class Search
{
public:
    Search(bool bVerbose, bool bPrices) : bVerbose(bVerbose), paths(bPrices) {}

    Outcome Run(ChordPlace first, Element const* pelEnd)
    {
        Patience patience(first, pelEnd);
        int32_t lDone = 0;
        for (ChordPlace place = first; place.pel;)
        {
            Chord const chord = GatherChord(place, pelEnd);
            pelLatest = place.pel;
            if (!Add(chord))
                return Outcome::BROKEN_OFF;
            if (!patience.GoOn(++lDone))
                return Outcome::CALLED_OFF;
            place = NextChord(chord, pelEnd);
        }
        return Outcome::WHOLE;
    }

    [[nodiscard]] Element* Latest() const { return pelLatest; }

    std::vector<ChosenWay> Chosen(Outcome outcome)
    {
        if (outcome == Outcome::WHOLE)
            return paths.Cheapest();
        return pLatest ? paths.FirstAlive() : std::vector<ChosenWay>{};
    }

private:
    /// False when there is no way of playing it.
    bool Add(Chord const& chord)
    {
        if (chord.bTooManyPitches)
            Serious("You have a chord with more notes in it than there are strings!");
        if (chord.pitches.cPitches == 0)
            Serious("No notes in chord??");
        std::shared_ptr<ChordWays> const pWays = store.Get(chord.pitches);
        if (pWays->Count() == 0)
        {
            if (bVerbose)
            {
                Serious("No fingerings possible.");
                Serious("No way to finger the entire piece!");
            }
            return false;
        }
        if (pLatest)
        {
            std::span<Arrival const> const aArrivals = linker.Link(*pLatest, aList, *pWays);
            paths.Add(pWays, aArrivals, aList);
            linker.ListHeld(*pWays, aList, aNextList);
            aList.swap(aNextList);
        }
        else
        {
            paths.Begin(pWays);
            aList = FirstList(*pWays);
        }
        pLatest = pWays;
        return true;
    }

    bool bVerbose;
    StepPrices prices;
    FingerStates states;
    ChordWaysStore store{prices, states};
    ChordLinker linker{prices, states};
    FingeringPaths paths;
    std::shared_ptr<ChordWays> pLatest;
    std::vector<HeldWay> aList;
    std::vector<HeldWay> aNextList;
    Element* pelLatest = nullptr;
};

/// A later string overwrites an earlier match; a note without one keeps what it had.
void StoreNote(Element* pel, ChosenWay const& chosen)
{
    for (int32_t i = 0; i < Tab_UsedStrings(); ++i)
    {
        FingersString const string = chosen.aString[static_cast<size_t>(i)];
        if (Tab_OpenPitch(i + 1, string.bFret) != pel->lPitch)
            continue;
        pel->lString = i + 1;
        pel->lFret = string.bFret;
        pel->lFinger = string.bFinger;
    }
}

void StoreChords(ChordPlace place, Element const* pelEnd, std::span<ChosenWay const> aChosen,
                 std::vector<ChordFingering>* pSteps)
{
    for (ChosenWay const& chosen : aChosen)
    {
        if (pSteps)
            pSteps->push_back({place.pel, chosen.lOwnCost, chosen.lStepCost, chosen.lTotalCost});
        Chord const chord = GatherChord(place, pelEnd);
        for (; place.pel; place = Tab_NextChordNote(place))
            StoreNote(place.pel, chosen);
        place = NextChord(chord, pelEnd);
    }
}
struct Fingered
{
    Outcome outcome = Outcome::WHOLE;
    Element* pelFailed = nullptr;
};

Fingered FingerStretch(ChordPlace first, Element* pelLast, bool bVerbose, std::vector<ChordFingering>* pSteps)
{
    Element* const pelFirst = first.pel;
    if (!pelFirst)
    {
        Serious("Bug!  Duff call to Tab_DoFingering.");
        return {};
    }
    if (pelFirst->sort != NOTE)
    {
        Serious("BuildPrimeFingerings called for non-note!");
        Serious("!!No fingering list found!!");
        pelFirst->fOverBar = fUnplayable;
        return {Outcome::BROKEN_OFF, pelFirst};
    }
    SetWaitCursor(hwndMain, true);
    Search search(bVerbose, pSteps != nullptr);
    Outcome const outcome = search.Run(first, pelLast);
    Element* const pelFailed = outcome == Outcome::BROKEN_OFF ? search.Latest() : nullptr;
    if (pelFailed)
        pelFailed->fOverBar = fUnplayable;
    if (outcome != Outcome::CALLED_OFF)
        StoreChords(first, pelLast, search.Chosen(outcome), pSteps);
    SetWaitCursor(hwndMain, false);
    return {outcome, pelFailed};
}

ChordPlace PlaceOf(Element* pel) { return {pel, Tab_InArpeggio(pel)}; }
} // namespace

Element* Tab_DoFingering(Element* pelFirst, Element* pelLast, bool bVerbose, std::vector<ChordFingering>* pSteps)
{
    return FingerStretch(PlaceOf(pelFirst), pelLast, bVerbose, pSteps).pelFailed;
}

void Tab_FingerStaffs()
{
    RefreshPitches(lHighestStaff);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        Element* const pelFirst = IsVisible(lStaff) ? NextNote(StaffFirst(lStaff)) : nullptr;
        if (pelFirst &&
            FingerStretch(PlaceOf(pelFirst), StaffLast(lStaff), true, nullptr).outcome == Outcome::CALLED_OFF)
            return;
    }
}

void RefreshBarFingering(Element* pel)
{
    if (!bTabShowing || !pel)
        return;
    RefreshPitches(lHighestStaff);
    if (Element* const pelStart = NextNoteInBar(pel))
        Tab_DoFingering(pelStart, LastInBar(pelStart), true);
}

void Tab_FingerChord(Element* pelNote)
{
    ChordPlace const first = PlaceOf(ChordFirst(pelNote));
    // A chord that has lost its last note ends with the notes that it has: the first one's chain tells them.
    Element* const pelLast = ChordLast(pelNote);
    FingerStretch(first, pelLast ? pelLast : first.pel, false, nullptr);
}

void Tab_FingerMissing(Element* pelNote)
{
    if (pelNote->lString != 0)
        return;
    Element const* const pelPrev = Prev(pelNote);
    bool const bTried = pelPrev && pelPrev->sort == NOTE && pelPrev->lString == 0 && (pelPrev->lA & fChordMore) &&
                        (pelNote->lA & fChordBefore);
    if (!bTried)
        Tab_FingerChord(pelNote);
}
} // namespace zarn
