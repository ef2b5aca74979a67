#include "tab/tuning.h"

#include "support/scripted_process.h"
#include "tab/weights.h"

#include <gtest/gtest.h>

namespace zarn::test
{
namespace
{
struct Tuning : ::testing::Test
{
    ScriptedProcess process;

    std::vector<std::string> Messages() const { return process.user.Messages(); }
    int32_t Stored(char const* sName) const { return process.settings.values.at(sName); }
};
constexpr StringIntervals guitar = {5, 4, 5, 5, 5, 0, 0, 0, 0};
constexpr StringIntervals mandolin = {7, 7, 7, 0, 0, 0, 0, 0, 0};
} // namespace

TEST_F(Tuning, AtFirstItIsAGuitar)
{
    int32_t lCount = 0;
    int32_t lTop = 0;
    StringIntervals intervals{};
    Tab_GetTuning(&lCount, &lTop, &intervals);
    EXPECT_EQ(lCount, 6);
    EXPECT_EQ(lTop, 76);
    EXPECT_EQ(intervals, guitar) << "behind the last string the step is 0, whatever stands there";
}

TEST_F(Tuning, ANewTuningFillsTheStringsAndStoresAllNine)
{
    Tab_SetTuning(4, 76, mandolin);
    EXPECT_EQ(lStrings, 4);
    EXPECT_EQ(aOpenPitch, (std::array<int32_t, lMostStrings>{76, 69, 62, 55, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(Stored("Number of strings"), 4);
    EXPECT_EQ(Stored("Tuning of string 1"), 76);
    EXPECT_EQ(Stored("Tuning of string 4"), 55);
    EXPECT_EQ(Stored("Tuning of string 9"), 0);
    EXPECT_EQ(process.settings.values.size(), 10u);
}

TEST_F(Tuning, SevenStringsBringAWarningAndAreKept)
{
    Tab_SetTuning(7, 76, {5, 4, 5, 5, 5, 5, 0, 0, 0});
    EXPECT_EQ(Messages(), std::vector<std::string>{"Sorry, I cannot handle more than 6 strings"});
    EXPECT_EQ(lStrings, 7);
    EXPECT_EQ(aOpenPitch[6], 47);
}

TEST_F(Tuning, NoStringsAreRemarkedUponTwiceAndKept)
{
    Tab_SetTuning(0, 70, guitar);
    ASSERT_EQ(Messages().size(), 2u);
    EXPECT_EQ(Messages()[0], "Zero strings!  Whatever turns you on... but just using blank paper would be easier!");
    EXPECT_EQ(Messages()[1], "Actually it occurs to me that this could be more fun for me than for you!  I'll do the "
                             "tab with one line so that you can see where to look for the absence of notes.");
    EXPECT_EQ(lStrings, 0);
    EXPECT_EQ(aOpenPitch, (std::array<int32_t, lMostStrings>{70, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Tuning, FewerThanNoStringsAreRefused)
{
    Tab_SetTuning(-1, 70, mandolin);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Negative numbers of strings sounds like something from Orvel "
                                                   "Tamsing.  Can't do it here.  The local magic field are too weak!"});
    EXPECT_EQ(lStrings, 6);
    EXPECT_EQ(aOpenPitch[0], 76);
    EXPECT_EQ(lUnnaturalTransitions, 60);
    EXPECT_TRUE(process.settings.values.empty());
}

TEST_F(Tuning, AnyNewTuningPutsUnnaturalTransitionsOutOfForce)
{
    for (int32_t const lCount : {0, 1, 6, 9, 10, 1000})
    {
        lUnnaturalTransitions = 60;
        Tab_SetTuning(lCount, 76, guitar);
        EXPECT_EQ(lUnnaturalTransitions, 0) << lCount << " strings";
    }
    EXPECT_FALSE(process.settings.values.contains("Unnatural transitions")) << "it comes back at the next start";
}

TEST_F(Tuning, OnlyNineStringsHaveAPlace)
{
    Tab_SetTuning(1000, 100, {1, 1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(lStrings, 1000);
    EXPECT_EQ(Tab_UsedStrings(), 9);
    EXPECT_EQ(aOpenPitch, (std::array<int32_t, lMostStrings>{100, 99, 98, 97, 96, 95, 94, 93, 92}));
    int32_t lCount = 0;
    int32_t lTop = 0;
    StringIntervals intervals{};
    Tab_GetTuning(&lCount, &lTop, &intervals);
    EXPECT_EQ(intervals, (StringIntervals{1, 1, 1, 1, 1, 1, 1, 1, 0}));
}

TEST_F(Tuning, PitchesBeyondAllMusicDoNotOverflow)
{
    Tab_SetTuning(6, INT32_MIN, {INT32_MAX, INT32_MAX, INT32_MIN, 1, -1, 0, 0, 0, 0});
    int32_t lCount = 0;
    int32_t lTop = 0;
    StringIntervals intervals{};
    Tab_GetTuning(&lCount, &lTop, &intervals);
    EXPECT_EQ(lTop, INT32_MIN);
    EXPECT_EQ(intervals[0], INT32_MAX);
    EXPECT_EQ(Tab_OpenPitch(1, -1), INT32_MAX);
}

TEST_F(Tuning, AtStartTheStoredStringsComeBackEachByItself)
{
    process.settings.values = {{"Number of strings", 5}, {"Tuning of string 2", 72}, {"Tuning of string 9", 31}};
    aOpenPitch.fill(1);
    lStrings = 3;
    Tab_LoadTuning();
    EXPECT_EQ(lStrings, 5);
    EXPECT_EQ(aOpenPitch, (std::array<int32_t, lMostStrings>{76, 72, 67, 62, 57, 52, 0, 0, 31}));
    process.settings.values = {{"Number of strings", -4}};
    Tab_LoadTuning();
    EXPECT_EQ(lStrings, 0) << "a store that was tampered with";
}

TEST_F(Tuning, AFretRaisesItsStringBySemitones)
{
    EXPECT_EQ(Tab_OpenPitch(1, 0), 76);
    EXPECT_EQ(Tab_OpenPitch(6, 3), 55);
    EXPECT_EQ(Tab_OpenPitch(0, 2), 78) << "no such string: the nearest";
    EXPECT_EQ(Tab_OpenPitch(12, 2), 2);
}
} // namespace zarn::test
