/// The Score as one time-ordered list of events.
#pragma once
#include "core/score.h"
#include "midi/guitar_chords.h"
#include "midi/play_record.h"

#include <cstdint>

namespace zarn
{
/// How an ornament is played.
enum OrnamentStyle : int32_t
{
    ORNAMENT_NONE = 0,
    ORNAMENT_SEMITONE = 1,
    ORNAMENT_BOWED = 2,
    ORNAMENT_DIATONIC = 3
};
inline int32_t lOrnamentStyle = ORNAMENT_DIATONIC; ///< option
inline bool fBarnDance = false;                    ///< option: notes off the pulse sound half their length
inline int32_t lSwing = 0;                         ///< option: 48 plays dotted crotchets, 24 dotted quavers, 0 neither

constexpr char const* sDefaultInstrument = "Default Instrument"; ///< setting: the program that every staff begins with

/// Repeats inside repeats multiply; a list stops here.
constexpr int32_t cMostPlayRecords = 2'000'000;

struct PlayStyle
{
    int32_t lPulse = 192; ///< ticks of the metric pulse; 0 or less: no swing
    int32_t lPickup = 0;  ///< ticks of the pickup modulo the pulse
    int32_t lSwing = 0;   ///< 0, 24 or 48
    bool fBarnDance = false;
    bool fDetach = true;
};

/// The accidentals in force, by exact staff position: a bit for each, from 0 up and from 0 down. Positions beyond 31
/// bind modulo 32.
struct AccidentalSet
{
    uint32_t aWord[2] = {0, 0};

    [[nodiscard]] bool Has(int32_t lDiaPitch) const { return (aWord[lDiaPitch < 0] & Bit(lDiaPitch)) != 0; }
    void Set(int32_t lDiaPitch) { aWord[lDiaPitch < 0] |= Bit(lDiaPitch); }
    void Clear(int32_t lDiaPitch) { aWord[lDiaPitch < 0] &= ~Bit(lDiaPitch); }

private:
    static uint32_t Bit(int32_t l)
    {
        return uint32_t{1} << ((l < 0 ? 0u - static_cast<uint32_t>(l) : static_cast<uint32_t>(l)) % 32);
    }
};

/// The MIDI note of a position under a key and the accidentals in force.
[[nodiscard]] int32_t MidiAtPosition(int32_t lDiaPitch, int32_t lTranspose, int32_t lKey, AccidentalSet const& aSharps,
                                     AccidentalSet const& aNaturals, AccidentalSet const& aFlats);

/// Adds to listPlay what the staffs 0 to lLastStaff sound whose flag in afPlayed (nine flags) is on, from lStart ticks
/// on; all of it is sorted by time, equal times in order of arrival. Every NOTE's lPitch is brought up to date on the
/// way. A list that would be longer than cMostPlayRecords ends there, and the user is told.
void BuildPlayList(PlayRecords& listPlay, int32_t lLastStaff, int32_t lStart, PlayStyle const& style,
                   int32_t const* afPlayed);
} // namespace zarn
