/// One way of playing one chord: which string sounds at which fret, and which finger lies where.
///
/// Strings are numbered from the treble and stand at index string - 1, in masks at bit string - 1. Fingers are numbered
/// 1, the index finger, to 4 and stand at index finger - 1. The unit of a stretch is a thousandth of the length of the
/// string from nut to bridge. What is asked here reads the tuning and lMaxStretch (tuning.h) and no other state.
#pragma once
#include "tab/tuning.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace zarn
{
constexpr int32_t lFingers = 4;          ///< fingers that stop strings
constexpr int32_t lFrets = 24;           ///< frets of the geometry; the search uses those up to lHighestFret
constexpr int32_t lHighestFret = 19;     ///< the highest that a hand is asked to stop
constexpr uint8_t bNoFret = 255;         ///< a string that doesn't sound, a finger not in use
constexpr int32_t lNoHand = -100;        ///< the hand's position when no finger is down
constexpr int32_t lPricedMasks = 64;     ///< masks of six strings, which the tables of bars know
constexpr int32_t lPositionsToFret = 12; ///< units of a hand position in a fret

/// A string of a chord.
struct FingersString
{
    uint8_t bFret = bNoFret; ///< 0 open, 255 not sounded
    uint8_t bFinger = 0;     ///< 1 to 4, also under a bar that doesn't sound; 0 for none
    friend bool operator==(FingersString const&, FingersString const&) = default;
};

/// A finger of the hand.
struct FingersFinger
{
    uint8_t bMask = 0;       ///< the strings it holds down; 0 not in use
    uint8_t bFret = bNoFret; ///< 255 not in use
    friend bool operator==(FingersFinger const&, FingersFinger const&) = default;
};

struct Fingers
{
    int32_t lCost = 0; ///< its own price
    std::array<FingersString, lMostStrings> aString = {};
    std::array<FingersFinger, lFingers> aFinger = {};
};
static_assert(std::is_trivially_copyable_v<Fingers>);

/// From each fret to the bridge: round(1000 * 2^(-n/12)).
constexpr std::array<int32_t, lFrets + 1> aFretPos = {1000, 944, 891, 841, 794, 749, 707, 667, 630, 595, 561, 530, 500,
                                                      472,  445, 420, 397, 375, 354, 334, 315, 297, 281, 265, 250};

/// Strings under a finger, by its mask, as everything that prices or measures a bar sees them: the bits of the mask,
/// but 3 for the two treble strings together.
constexpr std::array<uint8_t, 256> aBarWidth = []
{
    std::array<uint8_t, 256> aWidth = {};
    for (size_t lMask = 0; lMask < aWidth.size(); ++lMask)
        aWidth[lMask] = static_cast<uint8_t>(std::popcount(lMask));
    aWidth[3] = 3;
    return aWidth;
}();

[[nodiscard]] int32_t Fingers_Sounded(Fingers const& f); ///< strings that sound
/// Of the first string that sounds: its pitch, and its index. -1 when none does.
[[nodiscard]] int32_t Fingers_TopPitch(Fingers const& f);
[[nodiscard]] int32_t Fingers_TopString(Fingers const& f);

/// A string nearer the bass sounds higher than one nearer the treble.
[[nodiscard]] bool Fingers_IsUnnatural(Fingers const& f);

/// Before fingers are chosen: no fret is too high, and the frets lie within lMaxStretch of each other.
[[nodiscard]] bool Fingers_StretchOK(Fingers const& f);
/// Two fingers, numbered from 1, in either order: they can lie like that at once.
[[nodiscard]] bool Fingers_PairOK(int32_t lFingerA, FingersFinger a, int32_t lFingerB, FingersFinger b);
} // namespace zarn
