/// The fretted instrument that tablature is made for: its strings and how they are tuned.
///
/// One instrument at a time, not stored in a score. Strings are numbered from the treble: string 1 is the highest in
/// the default tuning and stands at index 0; in masks string s is bit s-1. Main thread.
#pragma once
#include <array>
#include <cstdint>

namespace zarn
{
constexpr int32_t lMostStrings = 9; ///< places in the tuning; six is the most that a hand is worked out for

inline int32_t lStrings = 6; ///< any number from 0 up: a warning is all that more than six bring
/// MIDI notes of the open strings, the treble string first. A guitar is written an octave above its sound.
inline std::array<int32_t, lMostStrings> aOpenPitch = {76, 71, 67, 62, 57, 52, 0, 0, 0};
/// The widest span of the hand, in thousandths of the length of the string from nut to bridge.
inline int32_t lMaxStretch = 175;

using StringIntervals = std::array<int32_t, lMostStrings>; ///< semitones down from each string to the next

/// The strings that have a place in the tuning: lStrings, no more than nine.
[[nodiscard]] int32_t Tab_UsedStrings();

/// The number of strings, the MIDI note of string 1, and the steps between the strings that there are; 0 behind them.
void Tab_GetTuning(int32_t* plStrings, int32_t* plTopPitch, StringIntervals* pIntervals);

/// Takes over and stores a tuning, and sets the weight "Unnatural transitions" to 0 until the next start. More than six
/// strings or none are remarked upon and taken; a negative number is refused and nothing changes.
void Tab_SetTuning(int32_t lNewStrings, int32_t lTopPitch, StringIntervals const& intervals);

/// At start: six strings, then what the settings hold; fills the prices of bars (see weights.h) with their initial
/// values.
void Tab_LoadTuning();

/// The MIDI note of a fret on a string from 1 to 9; outside them that of the nearest string.
[[nodiscard]] int32_t Tab_OpenPitch(int32_t lString, int32_t lFret);
} // namespace zarn
