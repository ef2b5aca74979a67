// What a way of playing costs, and the terms of a step.
#include "tab/fingers_cost.h"

#include "tab/plain_search.h"
#include "tab/tab_fixture.h"
#include "tab/weights.h"

namespace zarn
{
namespace
{
using Prices = test::TabFixture;

/// One finger on one string, or bars, without caring whether a hand could.
test::PlainFingers Held(std::vector<std::pair<int32_t, FingersFinger>> const& aFingers)
{
    test::PlainFingers f;
    for (auto const& [lFinger, finger] : aFingers)
    {
        f.aFinger[static_cast<size_t>(lFinger - 1)] = finger;
        for (size_t i = 0; i < 6; ++i)
            if (finger.bMask >> i & 1)
                f.aString[i] = {finger.bFret, static_cast<uint8_t>(lFinger)};
    }
    f.lCost = f.lOwnCost = Fingers_OwnCost(f);
    return f;
}

test::PlainFingers Open(std::vector<size_t> const& aStrings)
{
    test::PlainFingers f;
    for (size_t s : aStrings)
        f.aString[s - 1].bFret = 0;
    f.lCost = f.lOwnCost = Fingers_OwnCost(f);
    return f;
}

int32_t Step(test::PlainFingers const& a, test::PlainFingers const& b)
{
    return test::Fingers_Transition(a, b, false) - a.lCost - b.lCost;
}

TEST_F(Prices, AStepFromAnOpenStringToTheFifthFretCosts204)
{
    test::PlainFingers const a = Open({2});
    test::PlainFingers const b = Held({{1, {1, 5}}});
    EXPECT_EQ(a.lCost, -1);
    EXPECT_EQ(b.lCost, 80);
    EXPECT_EQ(test::Fingers_Transition(a, b, false), 204);
    StepPrices const prices;
    EXPECT_EQ(prices.Change(IDLE, ON_ONE_STRING), 5);
    EXPECT_EQ(prices.Position(60), 120);
    EXPECT_EQ(prices.Direction(Fingers_MelodyNote(a), Fingers_MelodyNote(b)), 0);
}

TEST_F(Prices, OpenStringAfterOpenStringIsTwoBelowNothing)
{
    test::PlainFingers const a = Open({2});
    EXPECT_EQ(test::Fingers_Transition(a, a, false), -2);
}

TEST_F(Prices, SmallProductsVanishByThemselves)
{
    lFingerMovement = 3;
    EXPECT_EQ(StepPrices().Change(IDLE, ON_ONE_STRING), 1); // 15 / 10
    lFingerMovement = -3;
    EXPECT_EQ(StepPrices().Change(IDLE, ON_ONE_STRING), -1);
    lFingerMovement = 0;
    EXPECT_EQ(StepPrices().Change(ON_ONE_STRING, BARRING), 0);
    lHoldBarlock = 1;
    EXPECT_EQ(Held({{1, {3, 5}}}).lCost, 1 + 80); // 15 / 10, and finger 1
}

TEST_F(Prices, EachChangeOfAFingerHasItsWeight)
{
    lFingerMovement = 10;
    FingersFinger const none;
    FingersFinger const one = {1, 5};
    FingersFinger const other = {2, 5};
    FingersFinger const bar = {7, 5};
    FingersFinger const otherBar = {15, 5};
    struct
    {
        char const* sWhat;
        FingersFinger a, b;
        int32_t lPrice;
    } const aCase[] = {
        {"bar to another bar", bar, otherBar, 60},
        {"bar to one string", bar, one, 60},
        {"one string to a bar", one, bar, 60},
        {"nothing to a bar", none, bar, 20},
        {"bar to nothing", bar, none, 10},
        {"one string to another", one, other, 30},
        {"nothing to one string", none, one, 5},
        {"one string to nothing", one, none, 5},
        {"bar to another fret", bar, {7, 6}, 60},
        {"one string to another fret", one, {1, 6}, 30},
        {"bar stays", bar, bar, 0},
        {"finger stays", one, one, 0},
        {"a bar with a gap is a bar", {5, 5}, {5, 6}, 60},
        {"the two treble strings are a bar", {3, 5}, {1, 5}, 60},
    };
    for (auto const& c : aCase)
    {
        test::PlainFingers a;
        test::PlainFingers b;
        a.aFinger[1] = c.a;
        b.aFinger[1] = c.b;
        lWristPosition = lWristMovement = 0;
        EXPECT_EQ(test::Fingers_Transition(a, b, false), c.lPrice) << c.sWhat;
        bool const bStays = c.a == c.b;
        EXPECT_EQ(bStays ? 0 : StepPrices().Change(Finger_Use(c.a), Finger_Use(c.b)), c.lPrice) << c.sWhat;
    }
}

TEST_F(Prices, ABarWithAGapHasNoPriceOfItsOwn)
{
    EXPECT_EQ(Held({{1, {5, 5}}}).lCost, 80);
    EXPECT_EQ(Held({{1, {7, 5}}}).lCost, 80 + 30);
}

TEST_F(Prices, ABarBeyondSixStringsHasNoPriceOfItsOwn)
{
    test::Tune({76, 71, 67, 62, 57, 52, 47});
    aBarCost.fill(1000);
    EXPECT_EQ(Held({{1, {0x60, 5}}}).lCost, 80);
}

TEST_F(Prices, FingersInUseArePricedAsASet)
{
    EXPECT_EQ(Held({{4, {1, 5}}}).lCost, 15 * 8);
    EXPECT_EQ(Held({{1, {8, 5}}, {2, {4, 6}}, {3, {2, 7}}, {4, {1, 8}}}).lCost, 66 * 8);
}

TEST_F(Prices, AvoidedOpenStringsCostEach)
{
    EXPECT_EQ(Open({1, 2}).lCost, -1);
    lAvoidOpenStrings = 5;
    EXPECT_EQ(Open({1, 2}).lCost, 10);
    test::Tune({71, 76});
    EXPECT_EQ(Open({1, 2}).lCost, 10 + 30) << "and the chord is unnatural";
    lAvoidOpenStrings = 0;
    EXPECT_EQ(Open({1, 2}).lCost, -1 + 30);
}

TEST_F(Prices, ANoteRepeatedOnItsStringCostsOnlyItselfAndItsPlace)
{
    test::PlainFingers const a = Held({{1, {1, 5}}});
    EXPECT_EQ(Step(a, a), 120);
}

TEST_F(Prices, ARisingMelodyClimbsTowardTheTreble)
{
    StepPrices const prices;
    EXPECT_EQ(prices.Direction({70, 2}, {72, 1}), 0) << "rises, treble-ward";
    EXPECT_EQ(prices.Direction({70, 2}, {72, 3}), 60) << "rises, bass-ward";
    EXPECT_EQ(prices.Direction({70, 2}, {72, 2}), 60) << "rises on its string";
    EXPECT_EQ(prices.Direction({72, 2}, {70, 2}), 0) << "falls on its string";
    EXPECT_EQ(prices.Direction({72, 2}, {70, 1}), 60) << "falls, treble-ward";
    EXPECT_EQ(prices.Direction({72, 2}, {72, 2}), 0) << "stays";
    EXPECT_EQ(prices.Direction({72, -1}, {70, 1}), 0) << "a chord has no direction";
}

TEST_F(Prices, TheHandBeforeOpenChordsCountsForThreeOfThem)
{
    lAvoidOpenStrings = 1; // so that no record is bare
    lWristPosition = 0;
    test::PlainFingers hand = Held({{1, {1, 2}}});
    test::PlainFingers aOpen[4] = {Open({2}), Open({2}), Open({2}), Open({2})};
    aOpen[0].pfPrev = &hand;
    for (int i = 1; i < 4; ++i)
        aOpen[i].pfPrev = &aOpen[i - 1];
    test::PlainFingers const to = Held({{1, {1, 12}}}); // ten frets on: 120
    EXPECT_EQ(Step(hand, to), 30 + 60 + 120) << "moved, unnatural, 120 of the wrist";
    EXPECT_EQ(Step(aOpen[0], to), 5 + 120) << "one open chord: one step";
    EXPECT_EQ(Step(aOpen[1], to), 5 + 60);
    EXPECT_EQ(Step(aOpen[2], to), 5 + 40);
    EXPECT_EQ(Step(aOpen[3], to), 5) << "four open chords: forgotten";
    EXPECT_EQ(StepPrices().Move(120, 3), 40);
}

TEST_F(Prices, HugeWeightsAreSummedWhole)
{
    lFingerMovement = INT32_MAX;
    lMoveBarlock = INT32_MAX;
    lFingersInUse = INT32_MIN;
    EXPECT_EQ(Held({{1, {1, 5}}}).lCost, INT32_MIN);
    EXPECT_EQ(StepPrices().Change(BARRING, BARRING), int64_t{INT32_MAX} * INT32_MAX / 10);
    test::PlainFingers a = Held({{1, {7, 5}}});
    a.lCost = 0;
    EXPECT_EQ(test::Fingers_Transition(a, Held({{1, {7, 6}}}), false), INT32_MAX);
}

TEST_F(Prices, AnArpeggioStepMustNotDisturbWhatRings)
{
    test::PlainFingers const a = Held({{1, {2, 5}}});
    EXPECT_EQ(test::Fingers_ArpeggioCost(a, Held({{1, {2, 5}}})), 0);
    EXPECT_EQ(test::Fingers_ArpeggioCost(a, Held({{1, {2, 6}}})), test::lImpossible)
        << "its string sounds another fret";
    EXPECT_EQ(test::Fingers_ArpeggioCost(a, Held({{1, {4, 6}}})), test::lImpossible) << "its finger leaves";
    EXPECT_EQ(test::Fingers_ArpeggioCost(a, Held({{2, {1, 6}}})), 0) << "another finger elsewhere";
    EXPECT_EQ(test::Fingers_ArpeggioCost(a, Held({{2, {2, 5}}})), test::lImpossible) << "another finger takes over";
    EXPECT_EQ(test::Fingers_ArpeggioCost(a, Held({{4, {1, 12}}})), test::lImpossible) << "too far for both at once";
    EXPECT_EQ(test::Fingers_ShapeCost(a, Held({{4, {1, 12}}})), test::lImpossible);
    EXPECT_EQ(test::Fingers_ShapeCost(a, Held({{4, {1, 8}}})), 0);
    EXPECT_EQ(test::Fingers_Transition(a, Held({{1, {4, 6}}}), true) -
                  test::Fingers_Transition(a, Held({{1, {4, 6}}}), false),
              test::lImpossible);
}

TEST_F(Prices, ARingingStringIsCarriedOnWithItsFinger)
{
    test::PlainFingers to = Held({{2, {1, 6}}});
    test::Fingers_CarryRing(Held({{1, {2, 5}}}), to);
    EXPECT_EQ(to.aString[1], (FingersString{5, 1}));
    EXPECT_EQ(to.aFinger[0], (FingersFinger{2, 5}));
    EXPECT_TRUE(process.user.Messages().empty());
    test::PlainFingers lost;
    lost.aString[1].bFret = 5;
    test::Fingers_CarryRing(lost, to = Held({{2, {1, 6}}}));
    EXPECT_EQ(process.user.Messages().back(), "Trying to carry forward arpeggio string/fret with no finger");
}
} // namespace
} // namespace zarn
