// The follower's numbers, key by key.
#include "midi/track_key.h"

#include "core/messages.h"
#include "support/recording_fixture.h"

#include <cmath>
#include <functional>

namespace zarn::test
{
namespace
{
struct TrackKeyTest : RecordingFixture
{
    TrackKeyTest() { TrackKey(0, lResetVelocity, listHeld, 0); }

    /// A key goes down at that many milliseconds behind the first, whose clock is 1000.
    int32_t Key(int32_t lTime, int32_t lNote = 60)
    {
        process.user.lNowMs = static_cast<uint32_t>(1000 + lTime);
        return TrackKey(lNote, 64, listHeld, gltStart == 0 ? 1000 : lTime);
    }
    int32_t Release(int32_t lTime, int32_t lNote = 60) { return TrackKey(lNote, 0, listHeld, lTime); }

    std::vector<HeldNote> listHeld;
};
} // namespace

TEST_F(TrackKeyTest, AResetForgetsTheTakeAndTakesTheFirstIntervalFromTheCurrentNote)
{
    Key(0);
    Key(500);
    Key(1000);
    struct
    {
        int32_t sort, lDuration, lBeatLength;
    } const aCase[] = {{NOTE, 24, 24}, {NOTE, 72, 72}, {NOTE, 0, 48}, {REST, 24, 48}, {BAR, 0, 48}};
    for (auto const& c : aCase)
    {
        CurrentSymbol(c.sort, c.lDuration);
        EXPECT_EQ(TrackKey(60, lResetVelocity, listHeld, 700), -1);
        EXPECT_EQ(lBeatLength, c.lBeatLength);
        EXPECT_EQ(gltStart, 0);
        EXPECT_EQ(sBeatRate, 0);
        EXPECT_EQ(snNotes, 0);
        EXPECT_EQ(lLastKeyTime, 0);
        EXPECT_EQ(lLastBeat, 0);
    }
    EXPECT_EQ(listHeld.size(), 3u) << "the notes themselves stay";
}

TEST_F(TrackKeyTest, TheFirstKeyDownStartsTheClockAndAKeyUpDoesNot)
{
    EXPECT_EQ(TrackKey(60, 0, listHeld, 900), -1);
    EXPECT_EQ(gltStart, 0);
    EXPECT_EQ(Key(0), 0);
    EXPECT_EQ(gltStart, 1000);
    EXPECT_EQ(Log(), "First key down.  gltStart=1000\r\n");
    ASSERT_EQ(listHeld.size(), 1u);
    EXPECT_EQ(listHeld[0].lBeat, 0);
    EXPECT_EQ(listHeld[0].fRate, 0);
    EXPECT_EQ(listHeld[0].lOn, 0);
    EXPECT_EQ(listHeld[0].lOff, 999999999);
    EXPECT_EQ(listHeld[0].lNote, 60);
    EXPECT_EQ(listHeld[0].lStaff, 1);
    EXPECT_FALSE(listHeld[0].fEnded);
    EXPECT_FALSE(listHeld[0].fTied);
}

TEST_F(TrackKeyTest, ASecondKeyAfter500MsMakesARateOf0096AndAThirdAfter250MsAQuaver)
{
    int32_t const lGeneration = Metronome_State().lTimerGeneration;
    Key(0);
    (void)Log();
    EXPECT_EQ(Key(500), 500);
    EXPECT_EQ(sBeatRate, 48.0F / 500.0F);
    EXPECT_EQ(snNotes, 1);
    EXPECT_EQ(lLastKeyTime, 500);
    EXPECT_EQ(lLastBeat, 48);
    EXPECT_EQ(Log(), "500 Second note == 48 beats rate=0.096\r\n");
    EXPECT_EQ(Key(750), 750);
    EXPECT_EQ(lLastBeat, 72);
    EXPECT_EQ(Log(), "Delta=250 sBeatRate=0.096 D*r=24\r\n"
                     "Quantise2(24) = 24\r\n"
                     "InstRate=0.096 BeatRate=0.096 snNotes=2\r\n"
                     "750 Delta= 250 Beat=72 Rate= 0.096\r\n");
    EXPECT_EQ(listHeld.back().lBeat, 72);
    EXPECT_EQ(Metronome_State().lTimerGeneration, lGeneration) << "not on a beat";
}

TEST_F(TrackKeyTest, ANote10MsBehindTheThirdIsAGraceNoteOnThatBeatAndChangesNothing)
{
    Key(0);
    Key(500);
    Key(750);
    (void)Log();
    float const sRate = sBeatRate;
    EXPECT_EQ(Key(760, 64), 760);
    EXPECT_EQ(Log(), "Delta=10 sBeatRate=0.096 D*r=0.96\r\n"
                     "Quantise0(1) = 0\r\n"
                     "760 Delta= 10 Beat=72 Glitch or grace\r\n");
    EXPECT_EQ(sBeatRate, sRate);
    EXPECT_EQ(snNotes, 2);
    EXPECT_EQ(lLastKeyTime, 750);
    EXPECT_EQ(lLastBeat, 72);
    ASSERT_EQ(listHeld.size(), 4u);
    EXPECT_EQ(listHeld[3].lBeat, 72);
    EXPECT_EQ(listHeld[3].lOn, 760);
    EXPECT_EQ(listHeld[3].fRate, sRate);
}

TEST_F(TrackKeyTest, TheAverageCountsToFourAndUsesFiveOnceBeforeItIsCutAgain)
{
    Key(0);
    int32_t const aCount[] = {1, 2, 3, 4, 4, 4};
    for (int32_t l = 0; l < 6; ++l)
    {
        Key(500 * (l + 1));
        EXPECT_EQ(snNotes, aCount[l]) << l;
    }
    std::string const sTook = Log();
    for (char const* const sCount : {"snNotes=2\r\n", "snNotes=3\r\n", "snNotes=4\r\n", "snNotes=5\r\n"})
        EXPECT_NE(sTook.find(sCount), sTook.npos) << sCount;
    EXPECT_EQ(sTook.find("snNotes=6"), sTook.npos);
}

TEST_F(TrackKeyTest, TheRateMovesByTheShareOfTheNewestInterval)
{
    // Crotchets of 500 ms that become 550 ms: each tells 48 ticks.
    int32_t lTime = 0;
    float sRate = 48.0F / 500.0F;
    float const sSlow = 48.0F / 550.0F;
    Key(0);
    Key(lTime = 500);
    for (int32_t cNotes : {2, 3, 4, 5, 5, 5})
    {
        Key(lTime += 550);
        sRate = (static_cast<float>(cNotes - 1) * sRate + sSlow) / static_cast<float>(cNotes);
        EXPECT_EQ(sBeatRate, sRate) << cNotes;
    }
    EXPECT_EQ(lLastBeat, 7 * 48);
}

TEST_F(TrackKeyTest, AKeyInTheMillisecondOfTheFirstIsHeldWithoutABeat)
{
    Key(0);
    EXPECT_EQ(Key(0, 64), 0);
    EXPECT_EQ(sBeatRate, 0) << "it is no second note";
    EXPECT_EQ(listHeld[1].lBeat, 0);
    EXPECT_EQ(Key(-5, 67), -5) << "nor is one ahead of it";
    EXPECT_EQ(sBeatRate, 0);
    EXPECT_EQ(Key(500, 64), 500);
    EXPECT_EQ(listHeld.back().lBeat, 48);
}

TEST_F(TrackKeyTest, AKeyFrom120UpMovesTheFollowerAndIsNotHeld)
{
    EXPECT_EQ(Key(0, 120), -1);
    EXPECT_EQ(gltStart, 1000);
    EXPECT_EQ(Key(500, 127), -1);
    EXPECT_EQ(lLastBeat, 48);
    EXPECT_EQ(Key(1000, -1), -1);
    EXPECT_EQ(lLastBeat, 96);
    EXPECT_TRUE(listHeld.empty());
    EXPECT_EQ(Key(1500, 119), 1500);
    EXPECT_EQ(listHeld.size(), 1u);
}

TEST_F(TrackKeyTest, AKeyUpEndsTheFirstOfItsPitchEachTimeAnew)
{
    Key(0);
    Key(500);
    Key(1000, 64);
    EXPECT_EQ(Release(1200), -1);
    EXPECT_EQ(Release(1300), -1);
    EXPECT_EQ(listHeld[0].lOff, 1300);
    EXPECT_EQ(listHeld[1].lOff, 999999999);
    EXPECT_FALSE(listHeld[0].fEnded) << "nothing marks a live note as ended";
    EXPECT_EQ(Release(1400, 65), -1) << "no such note";
    EXPECT_EQ(listHeld[2].lOff, 999999999);
}

TEST_F(TrackKeyTest, TheFirstNoteTakesTheRateThatIsKnownAtItsEnd)
{
    Key(0);
    Key(500, 64);
    Release(600);
    EXPECT_EQ(listHeld[0].fRate, 48.0F / 500.0F);
    EXPECT_EQ(listHeld[1].fRate, 48.0F / 500.0F) << "from its beginning";
}

TEST_F(TrackKeyTest, AFirstNoteThatEndsAheadOfTheSecondIsOneBeatLong)
{
    Key(0);
    Release(400);
    EXPECT_EQ(listHeld[0].fRate, 48.0F / 400.0F);
    Release(800);
    EXPECT_EQ(listHeld[0].fRate, 48.0F / 400.0F) << "once only";
}

TEST_F(TrackKeyTest, AFirstNoteThatEndsInItsOwnMillisecondCountsAsOneMillisecond)
{
    Key(0);
    Release(0);
    EXPECT_EQ(listHeld[0].fRate, 48.0F);
}

TEST_F(TrackKeyTest, ABeatOfNoLengthIsToldAndCountsAsACrotchet)
{
    Key(0);
    lBeatLength = 0;
    Serious_Rearm();
    Release(400);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"What are we doing here???  Tell Odrian!"});
    EXPECT_EQ(listHeld[0].fRate, 48.0F / 400.0F);
}

TEST_F(TrackKeyTest, TimesWithoutReasonStayInRange)
{
    for (int32_t const lDuration : {1, -48, INT32_MAX, INT32_MIN, 48})
    {
        CurrentSymbol(NOTE, lDuration);
        TrackKey(0, lResetVelocity, listHeld, 0);
        gltStart = 0;
        for (int32_t const lTime :
             {INT32_MAX, 1, 2, 3, INT32_MAX, INT32_MIN, 0, -1, 7, 7, 100000, INT32_MAX, 5, 2000000000})
        {
            TrackKey(60, 64, listHeld, lTime);
            TrackKey(60, 0, listHeld, lTime);
        }
        Metronome_KillTimer();
    }
    EXPECT_TRUE(std::isfinite(sBeatRate));
}

TEST_F(TrackKeyTest, ATakeHoldsNoMoreThanItsMost)
{
    Key(0);
    HeldNote const note = listHeld[0];
    listHeld.resize(cMostHeld - 1, note);
    EXPECT_EQ(Key(500), 500);
    EXPECT_EQ(Key(1000), -1);
    EXPECT_EQ(listHeld.size(), cMostHeld);
    EXPECT_EQ(lLastBeat, 96) << "the follower goes on";
}
} // namespace zarn::test
