// The table of weights: one row tells all that the settings, the menu and the prompts know of a weight.
//
// Two prompts offer a fallback that isn't the initial value; and the prompt of "Move finger" stores under the older
// name of "Finger movement", so that who sets the first and never the second gets both. Stored weights of many players
// rest on that.
#include "tab/weights.h"

#include "core/settings.h"
#include "platform/registry.h"
#include "tab/tuning.h"

namespace zarn
{
constexpr int32_t lBarCommand = 720; ///< plus the mask of the strings

std::span<FingeringWeight const> Fingering_Weights()
{
    static constexpr FingeringWeight aWeight[] = {
        {"Add finger", "Weight for Adding Finger", "Weight for Adding Finger", "Add finger (%d)...", 704, &lAddFinger,
         5, 5},
        {"Remove finger", "Weight for Removing Finger", "Weight for Removing Finger", "Remove finger (%d)...", 705,
         &lRemoveFinger, 5, 5},
        {"Move Finger", "Weight for Moving Finger", "Weight for Moving Finger", "Move finger (%d)...", 706,
         &lMoveFinger, 30, 30},
        {"Hold barlock", "Weight for Holding Barlock", "Weight for Holding Barlock", "Hold barlock (%d)...", 707,
         &lHoldBarlock, 10, 10},
        {"Add barlock", "Weight for Adding Barlock", "Weight for Adding Barlock", "Add barlock (%d)...", 708,
         &lAddBarlock, 20, 20},
        {"Remove barlock", "Weight for Removing Barlock", "Weight for Removing Barlock", "Remove barlock (%d)...", 709,
         &lRemoveBarlock, 10, 10},
        {"Move barlock", "Weight for Moving Barlock", "Weight for Moving Barlock", "Move barlock (%d)...", 710,
         &lMoveBarlock, 60, 30},
        {"Unnatural transitions", "Weight for Up-Up Transitions", "Unnatural transitions",
         "Unnatural transitions (%d)...", 701, &lUnnaturalTransitions, 60, 60},
        {"Unnatural fingerings", "Weight for Up-Up Fingerings", "Unnatural fingerings", "Unnatural fingerings (%d)...",
         702, &lUnnaturalFingerings, 30, 30},
        {"Fingers in use", "Weight for Holding Finger Down", "Fingers in use", "Fingers in use (%d)...", 703,
         &lFingersInUse, 8, 8},
        {"Finger movement", "Weight for Moving Finger", "Finger movement", "Finger movement (%d)...", 711,
         &lFingerMovement, 10, 10},
        {"Wrist position", "Weight for Hand Position", "Wrist position", "Wrist position (%d)...", 712, &lWristPosition,
         20, 20},
        {"Wrist movement", "Weight for Hand Movement", "Wrist movement", "Wrist movement (%d)...", 713, &lWristMovement,
         10, 100},
        {"Max stretch", "Maximum Stretch", "Max stretch", "Max stretch (%d)...", 714, &lMaxStretch, 175, 175},
        {"Avoid open strings", nullptr, "Avoid open strings", "Avoid open strings (%d)...", 790, &lAvoidOpenStrings, 0,
         0}};
    return aWeight;
}

static constexpr FingeringWeight Bar(char const* szName, char const* szOlderName, char const* szMenuText, size_t nMask,
                                     int32_t lInitial)
{
    return {szName,           szOlderName, szName,  szMenuText, lBarCommand + static_cast<int32_t>(nMask),
            &aBarCost[nMask], lInitial,    lInitial};
}

std::span<FingeringWeight const> Fingering_BarWeights()
{
    static constexpr FingeringWeight aWeight[] = {
        Bar("Bar strings 1..2", "Barlock score element 03", "Bar strings 1..2 (%d)...", 3, 15),
        Bar("Bar strings 2..3", "Barlock score element 06", "Bar strings 2..3 (%d)...", 6, 25),
        Bar("Bar strings 3..4", "Barlock score element 0C", "Bar strings 3..4 (%d)...", 12, 25),
        Bar("Bar strings 4..5", "Barlock score element 18", "Bar strings 4..5 (%d)...", 24, 25),
        Bar("Bar strings 5..6", "Barlock score element 30", "Bar strings 5..6 (%d)...", 48, 25),
        Bar("Bar strings 1..3", "Barlock score element 07", "Bar strings 1..3 (%d)...", 7, 30),
        Bar("Bar strings 1..4", "Barlock score element 0F", "Bar strings 1..4 (%d)...", 15, 35),
        Bar("Bar strings 1..5", "Barlock score element 1F", "Bar strings 1..5 (%d)...", 31, 45),
        Bar("Bar strings 1..6", "Barlock score element 3F", "Bar strings 1..6 (%d)...", 63, 60)};
    return aWeight;
}

void BarCosts_SetInitial()
{
    aBarCost.fill(0);
    for (FingeringWeight const& weight : Fingering_BarWeights())
        *weight.plValue = weight.lInitial;
}

static bool IsStored(FingeringWeight const& weight)
{
    *weight.plValue = weight.lInitial;
    return LoadSetting(weight.plValue, weight.szName) == ERROR_SUCCESS ||
           (weight.szOlderName && LoadSetting(weight.plValue, weight.szOlderName) == ERROR_SUCCESS);
}

void Fingering_LoadWeights(void (*pStored)(FingeringWeight const& weight))
{
    for (auto const aWeights : {Fingering_Weights(), Fingering_BarWeights()})
        for (FingeringWeight const& weight : aWeights)
            if (IsStored(weight))
                pStored(weight);
}
} // namespace zarn
