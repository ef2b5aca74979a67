/// One timed event of a play.
#pragma once
#include "platform/large_pages.h"

#include <cstdint>
#include <vector>

namespace zarn
{
constexpr int32_t lNotSent = -999; ///< lLate of a record that has not gone out yet
constexpr int32_t lNoPlace = -1;

/// A program change when lProgram is not -1, else a tempo change when lTempo is not -1, else a note event when lNote is
/// not -1, else a bare time marker.
struct PlayRecord
{
    int32_t lTime = 0;        ///< ticks while the list is built, -1 for the preamble; see SetPlayTimes for later
    int32_t lLate = lNotSent; ///< milliseconds; written by the player
    int32_t lVolume = 0;      ///< velocity 0..127; 0 is a note-off; -1 on tempo records
    int32_t lNote = -1;       ///< MIDI note
    int32_t lChannel = 0;     ///< MIDI channel as sent, 0..8
    int32_t lTempo = -1;      ///< milliseconds a crotchet
    int32_t lProgram = -1;    ///< MIDI program
    /// lStrX of the symbol that it comes from, lNoPlace for the preamble; for the marker of the place being played.
    int32_t lColumn = lNoPlace;
    friend bool operator==(PlayRecord const&, PlayRecord const&) = default;
};

/// A build's records, in order of arrival until play_order.h has put them in order of time.
using PlayRecords = std::vector<PlayRecord, LargePageAllocator<PlayRecord>>;

constexpr int32_t lHighestMidiValue = 127; ///< of a note, a program or a velocity

/// A note that MIDI has no number for makes no sound: it is left out.
inline void AddPlayRecord(PlayRecords& records, PlayRecord const& record)
{
    if (record.lNote >= -1 && record.lNote <= lHighestMidiValue)
        records.push_back(record);
}
} // namespace zarn
