/// What a way of playing costs by itself, and the terms of a step from one to the next.
///
/// Each term is truncated by itself and stands in 64 bits; only a whole price is held in 32. The price of a step is the
/// sum of independent terms: one for each finger, the movement of the wrist, the direction of a melody, the wrist's new
/// position, and the totals at both ends. That is what makes the search fast, for each term can be kept.
#pragma once
#include "tab/fingers.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zarn
{
/// The price of a record by itself. Below 0 only for open strings alone, or by weights below 0.
[[nodiscard]] int32_t Fingers_OwnCost(Fingers const& f);

/// What a finger does, as far as prices go.
enum FingerUse : uint8_t
{
    IDLE = 0,
    ON_ONE_STRING = 1,
    BARRING = 2
};
constexpr size_t lFingerUses = 3;
[[nodiscard]] FingerUse Finger_Use(FingersFinger finger);

/// The single string that a way of playing sounds.
struct MelodyNote
{
    int32_t lPitch = 0;
    int32_t inxString = -1; ///< from 0; -1 when it sounds none or several
};
[[nodiscard]] MelodyNote Fingers_MelodyNote(Fingers const& f);

constexpr int32_t lMostSteps = 3; ///< records looked back at for where the hand last was

constexpr int32_t lTenths = 10; ///< weights that are scaled count in tenths

/// The terms of a step by the weights in force when it was made.
class StepPrices
{
public:
    StepPrices();

    /// For a finger that changes from one use to another. Nothing when mask and fret stay the same.
    [[nodiscard]] int64_t Change(FingerUse before, FingerUse after) const { return aaChange[before][after]; }
    /// For the wrist's way of lDistance, in twelfths of a fret, over a number of steps; nothing without a hand.
    [[nodiscard]] int64_t Move(int32_t lDistance, int32_t lSteps) const
    {
        return int64_t{lDistance / lSteps} * lWristMoved / lTenths;
    }
    /// For a melody that rises while it goes toward the bass strings, or falls while it goes toward the treble.
    [[nodiscard]] int64_t Direction(MelodyNote before, MelodyNote after) const;
    /// For the hand's position, lNoHand included.
    [[nodiscard]] int64_t Position(int32_t lPosition) const;

    /// No sum of the changes of four fingers, a move and a direction is further from 0.
    [[nodiscard]] int64_t Furthest() const { return lFurthest; }
    /// And none is lower: 0 unless weights are below 0.
    [[nodiscard]] int64_t Least() const { return lLeast; }

private:
    std::array<std::array<int64_t, lFingerUses>, lFingerUses> aaChange = {};
    int64_t lWristMoved;
    int64_t lFurthest = 0;
    int64_t lLeast = 0;
};
} // namespace zarn
