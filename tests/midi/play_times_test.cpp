#include "midi/play_times.h"

#include <gtest/gtest.h>

#include <vector>

namespace zarn
{
namespace
{
PlayRecord NoteAt(int32_t lTick)
{
    PlayRecord record;
    record.lTime = lTick;
    record.lNote = 60;
    return record;
}

PlayRecord TempoAt(int32_t lTick, int32_t lTempo)
{
    PlayRecord record;
    record.lTime = lTick;
    record.lTempo = lTempo;
    return record;
}

PlayRecord ProgramAt(int32_t lTick)
{
    PlayRecord record;
    record.lTime = lTick;
    record.lProgram = 1;
    return record;
}

std::vector<int32_t> Times(PlayRecords listPlay)
{
    SetPlayTimes(listPlay);
    std::vector<int32_t> aTimes;
    for (PlayRecord const& record : listPlay)
        aTimes.push_back(record.lTime);
    return aTimes;
}

struct PlayTimes : testing::Test
{
    ~PlayTimes() override { fDoubleSpeed = false; }
};
} // namespace

TEST_F(PlayTimes, ACrotchetAt120IsHalfASecond)
{
    EXPECT_EQ(Times({TempoAt(-1, 500), NoteAt(0), NoteAt(48)}), (std::vector<int32_t>{-1, 0, 500}));
}

TEST_F(PlayTimes, EachStepIsRoundedDownForItself)
{
    // 500 * 47 / 48 is 489.6, and 500 / 48 is 10.4: the next beat comes at 499.
    EXPECT_EQ(Times({TempoAt(-1, 500), NoteAt(0), NoteAt(47), NoteAt(48)}), (std::vector<int32_t>{-1, 0, 489, 499}));
}

TEST_F(PlayTimes, QuaversAt133AreOf225MillisecondsEach)
{
    EXPECT_EQ(Times({TempoAt(-1, 451), NoteAt(0), NoteAt(24), NoteAt(48)}), (std::vector<int32_t>{-1, 0, 225, 450}));
}

TEST_F(PlayTimes, DoubleSpeedHalvesEachRoundedStep)
{
    fDoubleSpeed = true;
    EXPECT_EQ(Times({TempoAt(-1, 500), NoteAt(48)}), (std::vector<int32_t>{-1, 250}));
    EXPECT_EQ(Times({TempoAt(-1, 500), NoteAt(25)}), (std::vector<int32_t>{-1, 130})) << "260 halved";
}

TEST_F(PlayTimes, AStepGoesAtTheTempoInForceAtItsLaterEnd)
{
    EXPECT_EQ(Times({TempoAt(-1, 500), NoteAt(0), TempoAt(24, 1000), NoteAt(48), NoteAt(96)}),
              (std::vector<int32_t>{-1, 0, 24, 1000, 2000}));
}

TEST_F(PlayTimes, ProgramsAndTemposKeepTheirTicks)
{
    EXPECT_EQ(Times({TempoAt(-1, 500), NoteAt(0), ProgramAt(96), TempoAt(96, 250), NoteAt(96)}),
              (std::vector<int32_t>{-1, 0, 96, 96, 500}));
}

TEST_F(PlayTimes, WithoutAPreambleTheRateIs120Milliseconds)
{
    EXPECT_EQ(Times({NoteAt(48)}), (std::vector<int32_t>{120}));
}

TEST_F(PlayTimes, RestsCountAsNotesDo)
{
    PlayRecord marker;
    marker.lTime = 47;
    EXPECT_EQ(Times({TempoAt(-1, 500), NoteAt(0), marker, NoteAt(48)}), (std::vector<int32_t>{-1, 0, 489, 499}));
}

TEST_F(PlayTimes, TimesBeyondTheClockAreHeldAtItsEnd)
{
    EXPECT_EQ(Times({TempoAt(-1, 60000), NoteAt(INT32_MAX), NoteAt(INT32_MAX)}),
              (std::vector<int32_t>{-1, INT32_MAX, INT32_MAX}));
}
} // namespace zarn
