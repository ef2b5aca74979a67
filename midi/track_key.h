/// The beat follower: estimates a player's beat from the gaps between key-downs, with no click and no tempo set.
///
/// The first gap is taken to be one beat. Every later one is rounded to a length that the notation writes, and what
/// that says of the speed goes into a moving average. When a key falls on a beat, the metronome starts anew from there.
#pragma once
#include "midi/metronome.h"
#include "midi/place_notes.h"

#include <cstdint>
#include <vector>

namespace zarn
{
constexpr int32_t snMaxNotes = 4;            ///< intervals in the average
constexpr int32_t lResetVelocity = -1;       ///< tells TrackKey to forget everything
constexpr size_t cMostHeld = 100'000;        ///< notes of one take that are held; later ones only move the follower
constexpr int32_t lHighestTrackedNote = 119; ///< MIDI note; a higher one moves the follower and is not held

// Written by TrackKey alone, on the main thread; gltStart stands with the metronome, which reads it.
inline float sBeatRate = 0;      ///< ticks per millisecond; 0 until the second key-down
inline int32_t snNotes = 0;      ///< intervals in the average
inline int32_t lBeatLength = 48; ///< ticks of the first interval
inline int32_t lLastKeyTime = 0; ///< milliseconds since gltStart of the last key-down that was no grace note
inline int32_t lLastBeat = 0;    ///< ticks where that key-down stands

/// A key goes down, or up with a velocity of 0. A key that goes down is held from then on, with the beat and the speed
/// found; one that goes up ends the first note of its pitch in listHeld, which stays there.
/// @param lNote      MIDI note; one outside 0 to 119 is not held
/// @param lVelocity  lResetVelocity forgets the take: the first interval is then as long as elCurrent if that is a note
/// @param lTime      milliseconds since gltStart; of the first key-down, the clock
/// @return           the note's time when a note begins to be held, else -1
int32_t TrackKey(int32_t lNote, int32_t lVelocity, std::vector<HeldNote>& listHeld, int32_t lTime);
} // namespace zarn
