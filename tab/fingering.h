/// The cheapest way for a hand to play a stretch of notes.
///
/// A search through all the ways of playing each chord, priced by the weights of weights.h on the instrument of
/// tuning.h. The result stands in the notes: lString, lFret and lFinger. Main thread.
#pragma once
#include "core/score.h"

#include <cstdint>
#include <vector>

namespace zarn
{
/// One chord of a fingered stretch, for who wants to see the prices.
struct ChordFingering
{
    Element* pelFirst = nullptr; ///< the chord's first note
    int32_t lOwnCost = 0;        ///< what the fingering costs by itself
    int32_t lStepCost = 0;       ///< what it costs to come to it from the chord before; 0 at the first
    int32_t lTotalCost = 0;      ///< of the stretch so far
};

/// Fingers the notes from pelFirst, a NOTE, to pelLast in the same staff. lPitch has to be current. Gives null, or the
/// note at which no fingering was found: the notes before it have one, those behind it keep what they had. With
/// bVerbose the user is told of a failure. pSteps, when not null, is given one entry for each chord that was fingered.
Element* Tab_DoFingering(Element* pelFirst, Element* pelLast, bool bVerbose,
                         std::vector<ChordFingering>* pSteps = nullptr);

/// Fingers all shown staffs; where a staff can't be played its failing note is marked by fOverBar.
void Tab_FingerStaffs();

/// While tablature shows: fingers the bar around an element that has changed, by itself.
void RefreshBarFingering(Element* pel);

/// Fingers the one chord of a note that has no fingering yet, silently. It looks back for the arpeggio section that the
/// note may stand in no further than lLongestReach elements, so that painting what can't be played stays cheap.
void Tab_FingerChord(Element* pelNote);

/// For a walk along a staff: fingers a note's chord where the note has no fingering. A chord that can't be played is
/// tried at its first note alone.
void Tab_FingerMissing(Element* pelNote);
} // namespace zarn
