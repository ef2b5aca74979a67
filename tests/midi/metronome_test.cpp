// The metronome on the virtual clock: every tick with its millisecond.
#include "midi/metronome.h"

#include "midi/track_key.h"
#include "support/recording_fixture.h"

namespace zarn::test
{
namespace
{
struct MetronomeTest : RecordingFixture
{
    MetronomeTest()
    {
        OpenOutput();
        gltStart = 1000;
        Metronome_SetStopping(false);
        (void)Log();
    }
    ~MetronomeTest() override { gltStart = 0; }

    /// The ticks that sounded: millisecond since the start and note.
    std::vector<std::pair<int32_t, int32_t>> Ticks() const
    {
        std::vector<std::pair<int32_t, int32_t>> aTicks;
        for (SentMessage const& sent : sound.sent)
            if ((sent.dwMessage & 0xFF) == 0x99)
                aTicks.emplace_back(static_cast<int32_t>(sent.lMs) - 1000, sent.dwMessage >> 8 & 0x7F);
        return aTicks;
    }
    using TickList = std::vector<std::pair<int32_t, int32_t>>;
};
} // namespace

TEST_F(MetronomeTest, TicksComeInTheirPeriodAndTwoDrumsTakeTurns)
{
    MetronomeStart const start = Metronome_Restart(0, 250);
    EXPECT_EQ(start.lDelay, 250);
    EXPECT_NE(start.gTimer, 0u);
    process.user.Advance(1100);
    EXPECT_EQ(Ticks(), (TickList{{250, 38}, {500, 39}, {750, 38}, {1000, 39}}));
}

TEST_F(MetronomeTest, ATickIsAProgramANoteAndTwentyMillisecondsLaterItsEndOnChannelOne)
{
    Metronome_Restart(0, 250);
    process.user.Advance(300);
    EXPECT_EQ(sound.sent, (std::vector<SentMessage>{{1250, 0x0002C9}, {1250, 0x7F2699}, {1270, 0x7F2681}}));
}

TEST_F(MetronomeTest, WithoutAnOutputItTicksInSilence)
{
    MidiOut_Set(nullptr);
    Metronome_Restart(0, 250);
    process.user.Advance(600);
    EXPECT_TRUE(sound.sent.empty());
    EXPECT_EQ(Metronome_State().lDingCount, 2);
}

TEST_F(MetronomeTest, TheFirstTickIsMeasuredFromTheBeatThoughItIsFoundLate)
{
    process.user.lNowMs = 1000 + 530;
    EXPECT_EQ(Metronome_Restart(500, 250).lDelay, 220);
    process.user.Advance(500);
    EXPECT_EQ(Ticks(), (TickList{{750, 38}, {1000, 39}}));
}

TEST_F(MetronomeTest, ATickThatIsOverdueComesInTheNextMillisecond)
{
    process.user.lNowMs = 1000 + 900;
    EXPECT_EQ(Metronome_Restart(500, 250).lDelay, -150);
    process.user.Advance(300);
    EXPECT_EQ(Ticks(), (TickList{{901, 38}, {1151, 39}}));
}

TEST_F(MetronomeTest, EachTickIsLoggedWithHowFarItLiesBehindTheFirst)
{
    int32_t const lGeneration = Metronome_State().lTimerGeneration + 1;
    Metronome_Restart(0, 250);
    process.user.Advance(600);
    EXPECT_EQ(Log(), Format("250 Ding! 0, dwuser=%d, error=0 Delay=250\r\n"
                            "500 Ding! 1, dwuser=%d, error=250 Delay=250\r\n",
                            lGeneration, lGeneration));
    EXPECT_EQ(Metronome_State().lNextDing, 250) << "it is not moved on";
}

TEST_F(MetronomeTest, ANewGenerationLetsTheOldChainDieAndSilencesItsTickCloseAhead)
{
    Metronome_Restart(0, 250);
    int32_t const lOld = Metronome_State().lTimerGeneration;
    process.user.Advance(300); // one tick; the next is due at 500
    (void)Log();
    // A beat at 300 with ticks every 240 ms: the first at 540, 40 ms behind the old chain's.
    Metronome_Restart(300, 240);
    EXPECT_EQ(Metronome_State().lTimerGeneration, lOld + 1);
    EXPECT_EQ(Metronome_State().lDingCount, 0);
    process.user.Advance(520);
    EXPECT_EQ(Ticks(), (TickList{{250, 38}, {540, 39}, {780, 38}})) << "the silent tick has been counted";
    EXPECT_EQ(Log(), Format("500 Skip  0, dwuser=%d, error=-40 Delay=240\r\n"
                            "540 Ding! 1, dwuser=%d, error=0 Delay=240\r\n"
                            "780 Ding! 2, dwuser=%d, error=240 Delay=240\r\n",
                            lOld, lOld + 1, lOld + 1));
}

TEST_F(MetronomeTest, AnOldTickFarAheadOfTheNewChainStillSounds)
{
    Metronome_Restart(0, 250);
    process.user.Advance(490);
    Metronome_Restart(490, 250); // the first at 740; the old chain's at 500 is 240 ms ahead
    process.user.Advance(300);
    EXPECT_EQ(Ticks(), (TickList{{250, 38}, {500, 38}, {740, 39}})) << "and doesn't come again";
}

TEST(DingIsSkipped, OnlyOldTicksUpToHalfAPeriodAheadAreSilent)
{
    struct
    {
        bool bCurrent;
        int32_t lError;
        bool bSkipped;
    } const aCase[] = {{false, -1, true},  {false, -125, true}, {false, -126, false},      {false, 0, false},
                       {false, 40, false}, {true, -1, false},   {false, INT32_MIN, false}, {false, INT32_MAX, false}};
    for (auto const& c : aCase)
        EXPECT_EQ(Ding_IsSkipped(lDingsPerBeat, 0, c.bCurrent, c.lError, 250), c.bSkipped) << c.lError;
    EXPECT_TRUE(Ding_IsSkipped(lDingsPerBeat, 0, false, -125, 251)) << "half of an odd period";
    EXPECT_FALSE(Ding_IsSkipped(lDingsPerBeat, 0, false, -126, 251));
}

TEST(DingIsSkipped, FourToABeatWouldBeThreeOfFour)
{
    for (int32_t lCount = 0; lCount < 9; ++lCount)
    {
        EXPECT_EQ(Ding_IsSkipped(4, lCount, true, 0, 250), lCount % 4 == 1) << lCount;
        EXPECT_FALSE(Ding_IsSkipped(2, lCount, true, 0, 250)) << lCount;
    }
}

TEST_F(MetronomeTest, WhileItStopsATickSetsOffNoOther)
{
    Metronome_Restart(0, 250);
    process.user.Advance(300);
    Metronome_SetStopping(true);
    process.user.Advance(2000);
    EXPECT_EQ(Ticks(), (TickList{{250, 38}, {500, 39}})) << "the one that was due still sounds";
}

TEST_F(MetronomeTest, TheTickThatIsDueCanBeTakenAway)
{
    Metronome_Restart(0, 250);
    process.user.Advance(300);
    Metronome_KillTimer();
    process.user.Advance(2000);
    EXPECT_EQ(Ticks(), (TickList{{250, 38}}));
}

TEST_F(MetronomeTest, OtherTimersWaitForATickThatSounds)
{
    uint32_t lCalledMs = 0;
    (void)timeSetEvent(255, [&] { lCalledMs = timeGetTime(); });
    Metronome_Restart(0, 250);
    process.user.Advance(300);
    EXPECT_EQ(lCalledMs, 1270u) << "the tick sounds from 1250 to 1270";
}

TEST_F(MetronomeTest, APeriodShorterThanItsNoteNeitherHangsNorNests)
{
    Metronome_Restart(0, 0);
    process.user.Advance(200);
    TickList const aTicks = Ticks();
    ASSERT_EQ(aTicks.size(), 11u) << "the last was due within the two hundred";
    for (size_t n = 0; n < aTicks.size(); ++n)
        EXPECT_EQ(aTicks[n].first, 1 + 20 * static_cast<int32_t>(n)) << "one after the other";
}

TEST_F(MetronomeTest, AKeyOnABeatStartsItAtHalfABeatAndAnyOtherDoesNot)
{
    std::vector<HeldNote> listHeld;
    TrackKey(0, lResetVelocity, listHeld, 0);
    auto const key = [&](int32_t lTime)
    {
        process.user.Advance(static_cast<uint32_t>(1000 + lTime) - process.user.lNowMs);
        TrackKey(60, 64, listHeld, gltStart == 0 ? 1000 : lTime);
    };
    int32_t const lGeneration = Metronome_State().lTimerGeneration;
    key(0);
    key(500);
    EXPECT_EQ(Metronome_State().lTimerGeneration, lGeneration) << "the second key only defines the beat";
    key(750);
    EXPECT_EQ(Metronome_State().lTimerGeneration, lGeneration);
    (void)Log();
    key(1000); // a beat: 96 ticks
    EXPECT_EQ(Metronome_State().lTimerGeneration, lGeneration + 1);
    EXPECT_EQ(Metronome_State().lDingPeriod, 250);
    std::string const sTook = Log();
    EXPECT_NE(sTook.find(Format("1000 Delta= 250 Beat=96 Rate= 0.096 Setting timer for 250 mSec, gTimer=%d\r\n",
                                static_cast<int32_t>(Metronome_State().gTimer))),
              sTook.npos)
        << sTook;
    process.user.Advance(600);
    EXPECT_EQ(Ticks(), (TickList{{1250, 38}, {1500, 39}}));
}

TEST_F(MetronomeTest, ItFollowsAPlayerWhoSlowsDownWithoutDriftingAway)
{
    std::vector<HeldNote> listHeld;
    TrackKey(0, lResetVelocity, listHeld, 0);
    int32_t lTime = 0;
    for (int32_t lStep : {0, 500, 500, 520, 540, 560, 580, 600})
    {
        lTime += lStep;
        process.user.Advance(static_cast<uint32_t>(1000 + lTime) - process.user.lNowMs);
        TrackKey(60, 64, listHeld, gltStart == 0 ? 1000 : lTime);
        if (lTime >= 1000)
        {
            MetronomeState const state = Metronome_State();
            EXPECT_EQ(state.lNextDing, lTime + state.lDingPeriod) << "every beat is a new beginning";
            EXPECT_EQ(state.lDingPeriod, static_cast<int32_t>(48.0F / (2.0F * sBeatRate) + 0.5));
        }
    }
    EXPECT_EQ(lLastBeat, 7 * 48) << "each was heard as a crotchet";
    EXPECT_GT(Metronome_State().lDingPeriod, 265);
}
} // namespace zarn::test
