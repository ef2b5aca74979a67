// What a hand can do with one chord, and in which order it is tried.
#include "tab/fingers.h"

#include "core/text.h"
#include "platform/memory.h"
#include "tab/fingers_place.h"
#include "tab/plain_search.h"
#include "tab/tab_fixture.h"

#include <gmock/gmock.h>

namespace zarn
{
namespace
{
using Hand = test::TabFixture;

/// "finger:mask@fret" of the fingers in use, parted by blanks; "open" without any.
std::string HandOf(Fingers const& f)
{
    std::string s;
    for (size_t i = 0; i < f.aFinger.size(); ++i)
        if (f.aFinger[i].bMask != 0)
            s += Format("%s%zu:%d@%d", s.empty() ? "" : " ", i + 1, f.aFinger[i].bMask, f.aFinger[i].bFret);
    return s.empty() ? "open" : s;
}

std::vector<std::string> Hands(std::vector<int32_t> const& aPitches)
{
    std::vector<std::string> aHands;
    for (Fingers const& f : PrimeFingerings(aPitches))
        aHands.push_back(HandOf(f));
    return aHands;
}

using Lines = std::vector<std::string>;

TEST_F(Hand, TriesBarsFirstFromTheTrebleAndTheLittleFingerLast)
{
    test::Tune({76, 71, 67});
    EXPECT_EQ(Hands({70}), (Lines{"1:7@3", "1:6@3", "1:4@3", "2:4@3", "3:4@3", "4:4@3"}));
}

TEST_F(Hand, TriesTheStringsFromTheTrebleForTheFirstNoteOfTheChord)
{
    test::Tune({60, 60});
    std::vector<Fingers> const aWays = PrimeFingerings(std::vector{60, 61});
    ASSERT_FALSE(aWays.empty());
    EXPECT_EQ(aWays.front().aString[0].bFret, 0);
    EXPECT_EQ(aWays.front().aString[1].bFret, 1);
    EXPECT_EQ(aWays.back().aString[0].bFret, 1);
    EXPECT_EQ(aWays.back().aString[1].bFret, 0);
}

TEST_F(Hand, OpenStringsAloneNeedOneWayAndNoFinger)
{
    test::Tune({76, 71});
    EXPECT_EQ(Hands({76, 71}), (Lines{"open"}));
}

TEST_F(Hand, ABarPassesUnderAStringThatIsStoppedHigher)
{
    test::Tune({76, 71, 67});
    for (Fingers const& f : PrimeFingerings(std::vector{68, 74, 77}))
    {
        EXPECT_NE(f.aFinger[0].bMask & f.aFinger[1].bMask, 2) << HandOf(f);
    }
    EXPECT_THAT(Hands({68, 74, 77}), testing::Contains("1:5@1 3:2@3")) << "strings 1 and 3, the gap free";
}

TEST_F(Hand, AShortBarHasNoLowerOrOpenStringOnItsTrebleSide)
{
    test::Tune({76, 71, 67});
    EXPECT_THAT(Hands({76, 73, 69}), testing::Not(testing::Contains("1:6@2"))) << "string 1 is open";
    EXPECT_THAT(Hands({73, 69}), testing::Contains("1:6@2")) << "string 1 is silent";
}

TEST_F(Hand, PlaysFretNineteenAndNotFretTwenty)
{
    test::Tune({60});
    EXPECT_FALSE(PrimeFingerings(std::vector{79}).empty());
    EXPECT_TRUE(PrimeFingerings(std::vector{80}).empty());
}

TEST_F(Hand, HasNoPlaceForAPitchBelowTheLowestString)
{
    EXPECT_TRUE(PrimeFingerings(std::vector{51}).empty());
    EXPECT_FALSE(PrimeFingerings(std::vector{52}).empty());
}

TEST_F(Hand, CoversEightStringsAndNeverNine)
{
    test::Tune({76, 71, 67, 62, 57, 52, 47, 42});
    EXPECT_FALSE(PrimeFingerings(std::vector{42}).empty());
    test::Tune({76, 71, 67, 62, 57, 52, 47, 42, 37});
    EXPECT_TRUE(PrimeFingerings(std::vector{42}).empty()) << "the ninth string has no bit in a mask";
}

TEST_F(Hand, PlaysTheFirstSixOfSevenPitches)
{
    test::Tune({76, 71, 67, 62, 57, 52, 47});
    std::vector<Fingers> const aWays = PrimeFingerings(std::vector{76, 71, 67, 62, 57, 52, 47});
    ASSERT_FALSE(aWays.empty());
    EXPECT_EQ(Fingers_Sounded(aWays.front()), 6);
}

TEST_F(Hand, KeepsAFretAsAByte)
{
    test::Tune({60});
    std::vector<Fingers> const aWays = PrimeFingerings(std::vector{60 + 256});
    ASSERT_EQ(aWays.size(), 1u);
    EXPECT_EQ(aWays.front().aString[0].bFret, 0);
    ASSERT_EQ(PrimeFingerings(std::vector{60 + 255}).size(), 1u) << "fret 255 is a string that doesn't sound";
}

TEST_F(Hand, FretsAreARoundedGeometricSeries)
{
    double dPosition = 1000;
    for (int32_t n = 0; n <= lFrets; ++n, dPosition /= 1.0594630943592953)
        EXPECT_EQ(aFretPos[static_cast<size_t>(n)], static_cast<int32_t>(dPosition + 0.5)) << n;
}

TEST_F(Hand, TheTwoTrebleStringsTogetherAreABarOfThree)
{
    EXPECT_EQ(aBarWidth[3], 3);
    EXPECT_EQ(aBarWidth[6], 2);
    EXPECT_EQ(aBarWidth[7], 3);
    EXPECT_EQ(aBarWidth[0xC0], 2) << "beyond six strings bits are counted";
    // From fret 5 to fret 7 is 82, the limit of a bar of two; that of three is 72.
    EXPECT_FALSE(Fingers_PairOK(1, {3, 5}, 2, {4, 7}));
    EXPECT_TRUE(Fingers_PairOK(1, {6, 5}, 2, {1, 7}));
}

TEST_F(Hand, ABarOfAllSixStringsReachesAsFarAsTheTuningSays)
{
    // From fret 1 to fret 2 is 53.
    EXPECT_TRUE(Fingers_PairOK(1, {63, 1}, 2, {1, 2})) << "string 2 is 71";
    aOpenPitch[1] = 50;
    EXPECT_FALSE(Fingers_PairOK(1, {63, 1}, 2, {1, 2}));
    aOpenPitch[1] = 71;
    aOpenPitch[3] = 10;
    EXPECT_FALSE(Fingers_PairOK(1, {63, 1}, 4, {1, 2})) << "finger 4 is limited by string 4";
}

TEST_F(Hand, PairsOfFingersObeyTheirLimits)
{
    struct
    {
        char const* sWhat;
        int32_t lFingerA;
        FingersFinger a;
        int32_t lFingerB;
        FingersFinger b;
        bool bOK;
    } const aCase[] = {
        {"one of them isn't in use", 1, {}, 2, {1, 1}, true},
        {"the higher finger below the lower one", 1, {1, 5}, 2, {2, 4}, false},
        {"in the other order", 2, {2, 4}, 1, {1, 5}, false},
        {"one fret, the higher finger nearer the bass", 1, {1, 5}, 2, {2, 5}, false},
        {"one fret, the higher finger nearer the treble", 1, {2, 5}, 2, {1, 5}, true},
        {"1 to 2 within 97", 1, {1, 5}, 2, {2, 7}, true},   // 82
        {"1 to 2 beyond 97", 1, {1, 5}, 2, {2, 8}, false},  // 119
        {"2 to 3 within 61", 2, {1, 9}, 3, {2, 10}, true},  // 34
        {"2 to 3 beyond 61", 2, {1, 5}, 3, {2, 7}, false},  // 82
        {"1 to 4 within 175", 1, {1, 1}, 4, {2, 4}, true},  // 150
        {"1 to 4 beyond 175", 1, {1, 1}, 4, {2, 5}, false}, // 195
        {"3 to 4 within 97", 3, {1, 5}, 4, {2, 7}, true},   // 82
    };
    for (auto const& c : aCase)
        EXPECT_EQ(Fingers_PairOK(c.lFingerA, c.a, c.lFingerB, c.b), c.bOK) << c.sWhat;
    lMaxStretch = 350;
    EXPECT_TRUE(Fingers_PairOK(1, {1, 1}, 4, {2, 5})) << "the tables go with the hand's span";
}

TEST_F(Hand, ASpanOfTheWholeChordIsCheckedAheadOfFingers)
{
    Fingers f;
    f.aString[0].bFret = 1;
    f.aString[1].bFret = 4;
    EXPECT_TRUE(Fingers_StretchOK(f)); // 150
    f.aString[1].bFret = 5;
    EXPECT_FALSE(Fingers_StretchOK(f)); // 195
    f.aString[0].bFret = 0;
    EXPECT_TRUE(Fingers_StretchOK(f)) << "open strings don't count";
    f.aString[2].bFret = 20;
    EXPECT_FALSE(Fingers_StretchOK(f));
}

TEST_F(Hand, IsUnnaturalWhenAStringNearerTheBassSoundsHigher)
{
    Fingers f;
    f.aString[0].bFret = 0; // 76
    f.aString[1].bFret = 4; // 75
    EXPECT_FALSE(Fingers_IsUnnatural(f));
    f.aString[1].bFret = 6; // 77
    EXPECT_TRUE(Fingers_IsUnnatural(f));
    test::Tune({-10});
    Fingers low;
    low.aString[0].bFret = 0;
    EXPECT_TRUE(Fingers_IsUnnatural(low)) << "the highest pitch so far begins at 0";
}

TEST_F(Hand, TopNoteIsThatOfTheFirstStringThatSounds)
{
    Fingers f;
    EXPECT_EQ(Fingers_TopPitch(f), -1);
    EXPECT_EQ(Fingers_TopString(f), -1);
    EXPECT_EQ(sLastDebugString, "DebugBreak\n");
    f.aString[2].bFret = 3;
    f.aString[4].bFret = 9;
    EXPECT_EQ(Fingers_TopPitch(f), 70);
    EXPECT_EQ(Fingers_TopString(f), 2);
    EXPECT_EQ(test::Fingers_SoundedMask(f), 20);
}

TEST_F(Hand, PositionIsTheMeanPlaceOfTheIndexFinger)
{
    Fingers f;
    EXPECT_EQ(test::Fingers_HandPosition(f), lNoHand);
    f.aFinger[1] = {1, 3};
    EXPECT_EQ(test::Fingers_HandPosition(f), 24);
    f.aFinger[3] = {2, 5};
    EXPECT_EQ(test::Fingers_HandPosition(f), 24);
    f.aFinger[0] = {4, 3};
    EXPECT_EQ(test::Fingers_HandPosition(f), 28);
    f.aFinger[2] = {8, 4};
    EXPECT_EQ(test::Fingers_HandPosition(f), 27);
}

TEST_F(Hand, AnUnfinishedHandIsNotComplete)
{
    Fingers f;
    EXPECT_TRUE(test::Fingers_IsComplete(f)) << "nothing sounds";
    f.aString[0].bFret = 3;
    EXPECT_FALSE(test::Fingers_IsComplete(f));
    f.aFinger[0] = {1, 3};
    f.aString[0].bFinger = 1;
    EXPECT_TRUE(test::Fingers_IsComplete(f));
    f.aFinger[0].bFret = 2;
    EXPECT_FALSE(test::Fingers_IsComplete(f)) << "the finger lies at another fret";
}
} // namespace
} // namespace zarn
