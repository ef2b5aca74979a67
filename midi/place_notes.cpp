// Placement of held notes.
//
// A rough method on purpose: the earliest notes that have ended make the next chord, and what else has begun by then is
// drawn in. A note with no length to speak of becomes a grace note.
#include "midi/place_notes.h"

#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/insert.h"
#include "edit/ties.h"
#include "midi/quantise.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zarn
{
namespace
{
constexpr int32_t lTooLongPercent = 400;
constexpr int32_t lTooShortPercent = 150;
constexpr int32_t lGraceLimit = 4;  ///< ticks; a note no longer is a grace note
constexpr int32_t lChordWindow = 6; ///< ticks
constexpr int32_t lWaitForMore = 1000;
constexpr int32_t lRestHeight = 6; ///< diatonic position
constexpr int32_t lMiddleC = 60;
constexpr int32_t lSemitones = 12;
constexpr int32_t lSteps = 7;

/// Ticks of the score for a span of the source's time.
int32_t Ticks(int64_t lSpan, float fRate) { return Truncate(static_cast<float>(lSpan) * fRate); }

/// A note much shorter than the time behind it ends where it ends; any other is drawn out to now.
int32_t TooLong(int32_t lOn, int32_t lOff, int32_t lNow)
{
    return (int64_t{lOff} - lOn) * lTooLongPercent / 100 > int64_t{lNow} - lOn ? lNow : lOff;
}

int32_t TooShort(int32_t lOn, int32_t lOff, int32_t lNow)
{
    return (int64_t{lOff} - lOn) * lTooShortPercent / 100 < int64_t{lNow} - lOn ? lOff : lNow;
}

/// A MIDI note spelled in C major; black keys are sharps.
struct Spelling
{
    int32_t lDiaPitch;
    bool bSharp;
};
Spelling Spell(int32_t lNote)
{
    static constexpr int32_t aStep[lSemitones] = {0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};
    static constexpr bool abSharp[lSemitones] = {false, true,  false, true,  false, false,
                                                 true,  false, true,  false, true,  false};
    int32_t const lOctave = lNote / lSemitones;
    int32_t const lInOctave = lNote % lSemitones;
    return {(lOctave - lMiddleC / lSemitones) * lSteps + aStep[lInOctave], abSharp[lInOctave]};
}

class Placer
{
public:
    Placer(Placement& all, int32_t lNow, bool fFinal) : all(all), lNow(lNow), fFinal(fFinal) {}

    /// One step; false when there is nothing to place, or what there is must wait.
    bool Step()
    {
        if (all.listHeld.empty() || !Spend())
            return false;
        int32_t const lStart = std::min_element(all.listHeld.begin(), all.listHeld.end(),
                                                [](HeldNote const& a, HeldNote const& b) { return a.lOn < b.lOn; })
                                   ->lOn;
        int32_t const lWindow = Truncate(all.listHeld.front().fRate * static_cast<float>(lChordWindow) + 0.5);
        bool bEnded = false;
        bool bLater = false;
        int32_t lGreatestOff = INT32_MIN;
        for (HeldNote const& note : all.listHeld)
        {
            bLater = bLater || note.lOn > lStart;
            if (!note.fEnded || std::abs(int64_t{note.lOn} - lStart) >= lWindow)
                continue;
            bEnded = true;
            lGreatestOff = std::max(lGreatestOff, note.lOff);
        }
        if (!bEnded || (!bLater && int64_t{lGreatestOff} + lWaitForMore > lNow))
            return false;
        auto const itGrace = std::find_if(all.listHeld.begin(), all.listHeld.end(),
                                          [lStart](HeldNote const& note) {
                                              return static_cast<float>(int64_t{note.lOff} - lStart) <=
                                                     static_cast<float>(lGraceLimit) / note.fRate;
                                          });
        if (itGrace == all.listHeld.end())
            return Chord(lStart);
        HeldNote const note = *itGrace;
        all.listHeld.erase(itGrace);
        if (int64_t{lGreatestOff} - lStart > lGraceLimit || int64_t{lNow} - lStart < lGraceLimit)
            AddNote(note, 0);
        else
            ShortNote(note);
        return true;
    }

private:
    /// Counts a look at every held note.
    bool Spend()
    {
        all.cVisitsLeft -= static_cast<int64_t>(all.listHeld.size());
        return !all.IsSpent();
    }

    [[nodiscard]] int32_t LeastTime() const
    {
        return *std::min_element(std::begin(all.alStaffTime) + 1, std::end(all.alStaffTime));
    }

    void Sharp(Spelling const& spelling, bool bBeforeChord)
    {
        if (!spelling.bSharp)
            return;
        CurrentSymbol_Set(SHARP);
        Placement_Add(all, spelling.lDiaPitch, bBeforeChord);
    }

    void AddNote(HeldNote const& note, int32_t lDuration)
    {
        Spelling const spelling = Spell(note.lNote);
        Sharp(spelling, false);
        CurrentSymbol_SetNote(lDuration);
        Placement_Add(all, spelling.lDiaPitch, false);
        int32_t& lTime = all.alStaffTime[note.lStaff];
        lTime = Clamp32(int64_t{lTime} + lDuration);
    }

    /// A short note with time behind it.
    void ShortNote(HeldNote const& note)
    {
        int32_t const lEnd = TooLong(note.lOn, note.lOff, lNow);
        int32_t const lLeast = LeastTime();
        int32_t const lDuration =
            lEnd != note.lOff ? Quantise(Ticks(int64_t{lEnd} - note.lOn, note.fRate)) : lChordWindow;
        AddNote(note, lDuration);
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
            Pad(lStaff, int64_t{lLeast} + lDuration);
    }

    void Pad(int32_t lStaff, int64_t lTarget)
    {
        static constexpr int32_t aRests[] = {192, 96, 48, 24, 12, 6};
        int32_t& lTime = all.alStaffTime[lStaff];
        while (lTime < lTarget && !all.IsSpent())
        {
            int64_t const lGap = lTarget - lTime;
            auto const itRest =
                std::find_if(std::begin(aRests), std::end(aRests), [lGap](int32_t lRest) { return lRest <= lGap; });
            auto const lRest = itRest != std::end(aRests) ? *itRest : static_cast<int32_t>(lGap);
            CurrentSymbol_SetRest(lRest);
            Placement_Add(all, lRestHeight, false);
            lTime = Clamp32(int64_t{lTime} + lRest);
        }
    }

    /// How far the note is placed now; decides whether it is tied on.
    int32_t EndOf(HeldNote& note) const
    {
        note.fTied = !note.fEnded;
        if (!note.fEnded)
            return lNow;
        if (lNow >= note.lOff)
            return TooLong(note.lOn, note.lOff, lNow);
        int32_t const lEnd = TooShort(note.lOn, note.lOff, lNow);
        note.fTied = lEnd == note.lOff;
        return lEnd;
    }

    void AddMember(HeldNote const& note, int32_t lDuration, bool bFirst)
    {
        Spelling const spelling = Spell(note.lNote);
        Sharp(spelling, !bFirst);
        CurrentSymbol_SetNote(lDuration);
        if (all.cElementsLeft-- > 0)
            AddChordNote(spelling.lDiaPitch, bFirst, note.lNote);
    }

    /// All that has begun by now as one chord; false when that is nothing.
    bool Chord(int32_t lStart)
    {
        int32_t const lLeast = LeastTime();
        float fRateSum = 0;
        int32_t fCount = 0;
        int32_t lLongest = -1;
        bool fAnyTied = false;
        for (HeldNote& note : all.listHeld)
        {
            if (note.lOn >= lNow || all.IsSpent())
                continue;
            fRateSum += note.fRate;
            fAnyTied = fAnyTied || note.fTied;
            int32_t const lEnd = EndOf(note);
            int32_t const lDuration = Quantise(Ticks(int64_t{lEnd} - note.lOn, note.fRate));
            lLongest = std::max(lLongest, lDuration);
            AddMember(note, lDuration, fCount == 0);
            ++fCount;
            if (note.fTied)
                note.lOn = lEnd;
            else
                note.lStaff = lPlaced;
        }
        std::erase_if(all.listHeld, [](HeldNote const& note) { return note.lStaff == lPlaced; });
        if (fCount == 0)
            return false;
        CloseChord();
        if (fAnyTied && all.cElementsLeft-- > 0)
            AddTieAtInsertPoint();
        if (fFinal)
            return true;
        // Only the first staff's time is kept by chords.
        int32_t& lTime = all.alStaffTime[1];
        lTime = Clamp32(int64_t{lTime} + lLongest);
        float const fMean = fRateSum / static_cast<float>(fCount);
        Pad(1, int64_t{lLeast} + Truncate(fMean * static_cast<float>(int64_t{lNow} - lStart) + 0.5));
        return true;
    }

    static constexpr int32_t lPlaced = -1; ///< lStaff of a note that has left

    Placement& all;
    int32_t lNow;
    bool fFinal;
};
} // namespace

void PlaceNotes(Placement& placement, int32_t lNow, bool fFinal)
{
    Placer placer(placement, lNow, fFinal);
    while (placer.Step())
        ;
}

void Placement_Add(Placement& placement, int32_t lDiaPitch, bool bBeforeChord)
{
    if (placement.cElementsLeft <= 0)
        return;
    --placement.cElementsLeft;
    AddAtInsertPoint(lDiaPitch, bBeforeChord);
}
} // namespace zarn
