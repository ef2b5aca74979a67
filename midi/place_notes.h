/// Placement: notes that were held become elements of the Score, behind the insert point.
///
/// Times are those of the source: ticks of a MIDI file, or milliseconds. All elements go to the insert point's staff; a
/// note's staff only says whose running time it counts to.
#pragma once
#include "core/score.h"

#include <cstdint>
#include <vector>

namespace zarn
{
constexpr int32_t lStillHeld = 999'999'999; ///< lOff of a note whose end hasn't come

struct HeldNote
{
    int32_t lBeat = 0;         ///< ticks of the score where the note stands
    float fRate = 0;           ///< score ticks for each unit of time
    int32_t lOn = 0;           ///< moved on when the note is split over a tie
    int32_t lOff = lStillHeld; ///< may lie ahead of lOn
    int32_t lNote = 0;         ///< MIDI note
    int32_t lStaff = 1;        ///< 1 to 8
    bool fEnded = false;
    bool fTied = false; ///< it sounds on beyond what has been placed
};

/// What waits to be placed, how far each staff has come, and what may still be spent on it.
struct Placement
{
    std::vector<HeldNote> listHeld;        ///< in order of arrival
    int32_t alStaffTime[lStaffLists] = {}; ///< the end of each staff in ticks of the score
    int32_t cElementsLeft = 200'000;       ///< elements that may still be made
    /// Looks at a held note that may still be taken: notes that nothing ends would be looked at again for each that
    /// follows. Music of the most elements takes a tenth.
    int64_t cVisitsLeft = 100'000'000;

    [[nodiscard]] bool IsSpent() const { return cElementsLeft <= 0 || cVisitsLeft <= 0; }
};

/// Places what can be placed at lNow, over and over; with fFinal nothing comes behind. Stops where the placement is
/// spent. Quantises lengths, joins what begins within six ticks into chords, and ties what sounds on. To be called
/// within an InsertRun.
void PlaceNotes(Placement& placement, int32_t lNow, bool fFinal);

/// Adds one of the Score's symbols as it stands in elCurrent, and counts it. Nothing when the placement is spent.
void Placement_Add(Placement& placement, int32_t lDiaPitch, bool bBeforeChord);
} // namespace zarn
