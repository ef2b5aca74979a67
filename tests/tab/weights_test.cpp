#include "tab/weights.h"

#include "support/scripted_process.h"
#include "tab/tuning.h"

#include <gtest/gtest.h>

#include <set>

namespace zarn::test
{
namespace
{
struct Weights : ::testing::Test
{
    ScriptedProcess process;

    static std::vector<std::string>& Stored()
    {
        static std::vector<std::string> aNames;
        return aNames;
    }
    static void Load()
    {
        Stored().clear();
        Tab_LoadTuning();
        Fingering_LoadWeights([](FingeringWeight const& weight) { Stored().emplace_back(weight.szName); });
    }
};
} // namespace

TEST_F(Weights, WithoutSettingsEachHasItsInitialValue)
{
    Load();
    EXPECT_TRUE(Stored().empty());
    EXPECT_EQ((std::vector<int32_t>{lAddFinger, lRemoveFinger, lMoveFinger, lHoldBarlock, lAddBarlock, lRemoveBarlock,
                                    lMoveBarlock, lUnnaturalTransitions, lUnnaturalFingerings, lFingersInUse,
                                    lFingerMovement, lWristPosition, lWristMovement, lMaxStretch, lAvoidOpenStrings}),
              (std::vector<int32_t>{5, 5, 30, 10, 20, 10, 60, 60, 30, 8, 10, 20, 10, 175, 0}));
    std::array<int32_t, 64> aExpected = {};
    aExpected[3] = 15;
    aExpected[6] = aExpected[12] = aExpected[24] = aExpected[48] = 25;
    aExpected[7] = 30;
    aExpected[15] = 35;
    aExpected[31] = 45;
    aExpected[63] = 60;
    EXPECT_EQ(aBarCost, aExpected);
}

TEST_F(Weights, TheOlderNameIsUsedOnlyWhenTheNewOneIsMissing)
{
    for (auto const aWeights : {Fingering_Weights(), Fingering_BarWeights()})
        for (FingeringWeight const& weight : aWeights)
        {
            if (!weight.szOlderName)
                continue;
            process.settings.values = {{weight.szOlderName, 77}};
            Load();
            EXPECT_EQ(*weight.plValue, 77) << weight.szName;
            process.settings.values[weight.szName] = 78;
            Load();
            EXPECT_EQ(*weight.plValue, 78) << weight.szName;
        }
}

TEST_F(Weights, WhatMovingAFingerWasStoredAsAlsoWeighsFingerMovement)
{
    process.settings.values = {{"Weight for Moving Finger", 42}};
    Load();
    EXPECT_EQ(lMoveFinger, 42);
    EXPECT_EQ(lFingerMovement, 42);
    EXPECT_EQ(Stored(), (std::vector<std::string>{"Move Finger", "Finger movement"}));
    process.settings.values["Finger movement"] = 9;
    Load();
    EXPECT_EQ(lFingerMovement, 9) << "a value of its own wins";
}

TEST_F(Weights, ABarsCommandHoldsTheMaskOfItsStrings)
{
    for (FingeringWeight const& weight : Fingering_BarWeights())
        EXPECT_EQ(weight.plValue, &aBarCost[static_cast<size_t>(weight.lCommand - 720)]) << weight.szName;
}

TEST_F(Weights, TwoPromptsFallBackOnAnotherValueThanTheInitialOne)
{
    std::set<std::string> names;
    for (FingeringWeight const& weight : Fingering_Weights())
        if (weight.lFallback != weight.lInitial)
            names.insert(weight.szName);
    EXPECT_EQ(names, (std::set<std::string>{"Move barlock", "Wrist movement"}));
}
} // namespace zarn::test
