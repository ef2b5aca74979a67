/// What the search for a fingering weighs: prices that the user can change, all of them settings.
///
/// The unit is the search's own; only sums and their order mean anything. Main thread.
#pragma once
#include <array>
#include <cstdint>
#include <span>

namespace zarn
{
inline int32_t lAddFinger = 5;
inline int32_t lRemoveFinger = 5;
inline int32_t lMoveFinger = 30;
inline int32_t lHoldBarlock = 10;
inline int32_t lAddBarlock = 20;
inline int32_t lRemoveBarlock = 10;
inline int32_t lMoveBarlock = 60;
inline int32_t lUnnaturalTransitions = 60;
inline int32_t lUnnaturalFingerings = 30;
inline int32_t lFingersInUse = 8;
inline int32_t lFingerMovement = 10;
inline int32_t lWristPosition = 20;
inline int32_t lWristMovement = 10;
inline int32_t lAvoidOpenStrings = 0;

/// The price of a finger that lies across several strings, by the mask of its strings; 0 for all but nine masks.
inline std::array<int32_t, 64> aBarCost = {};

/// A weight as the menu and the settings know it.
struct FingeringWeight
{
    char const* szName;        ///< of the setting
    char const* szOlderName;   ///< read when there is no szName; null when there is none
    char const* szPromptLabel; ///< the prompt's label, under which an answer is stored
    char const* szMenuText;    ///< "%d" stands for the value
    int32_t lCommand;          ///< the command that asks for it
    int32_t* plValue;
    int32_t lInitial;
    int32_t lFallback; ///< what the prompt shows when nothing is stored under its label
};

/// All but the bars, in the order of the menu. The hand's span stands among them.
[[nodiscard]] std::span<FingeringWeight const> Fingering_Weights();

/// The nine bars that have a price, in the order of the menu; their prompts fall back on the value in force.
[[nodiscard]] std::span<FingeringWeight const> Fingering_BarWeights();

/// aBarCost as it is before any setting.
void BarCosts_SetInitial();

/// At start, behind Tab_LoadTuning: each weight becomes its stored value, or its initial one. Calls pStored with each
/// weight that has a stored value.
void Fingering_LoadWeights(void (*pStored)(FingeringWeight const& weight));
} // namespace zarn
