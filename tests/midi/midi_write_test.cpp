#include "midi/midi_write.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "midi/play_list.h"
#include "midi/score_times.h"
#include "render/geometry.h"
#include "support/midi_bytes.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace zarn
{
using namespace test;

namespace
{
constexpr char const* sHeader = "4D 54 68 64 00 00 00 06 00 01 00 ";
constexpr char const* sConductorHead = "4D 54 72 6B 00 00 00 19 ";

class MidiWriteTest : public testing::Test
{
protected:
    MidiWriteTest()
    {
        SetWindowUnits({0, 0, 1200, 800});
        fPlayChords = true;
        lOrnamentStyle = ORNAMENT_DIATONIC;
        lLastChordRoot = lLastChordKind = -1;
    }
    ~MidiWriteTest() override
    {
        fClarinetTranspose = fGuitarTranspose = false;
        lOrnamentStyle = ORNAMENT_DIATONIC;
        Geometry_Free();
    }

    static std::string Saved(bool fBarn = false, int32_t lLilt = 0, bool fDetach = false)
    {
        bTimesValid = false;
        std::string sFile;
        HFILE const hFile = File_IntoString(&sFile);
        EXPECT_TRUE(SaveMidiFile(hFile, fBarn, lLilt, fDetach));
        EXPECT_TRUE(_lclose(hFile));
        return sFile;
    }
    static std::string Conductor() { return Hex(Saved().substr(14, 33)); }
    /// The events of a staff track, from 0, without its head.
    static std::string Track(std::string const& sFile, int32_t lTrack = 0)
    {
        size_t lAt = sFile.find("MTrk", 47);
        for (; lTrack > 0 && lAt != sFile.npos; --lTrack)
            lAt = sFile.find("MTrk", lAt + 4);
        if (lAt == sFile.npos)
            return "none";
        size_t const cb = Number(sFile.substr(lAt + 4, 4));
        return Hex(sFile.substr(lAt + 8, cb));
    }
    static size_t Number(std::string const& sBytes)
    {
        size_t l = 0;
        for (char const c : sBytes)
            l = l << 8 | static_cast<unsigned char>(c);
        return l;
    }

    ScriptedProcess process;
};
} // namespace

TEST_F(MidiWriteTest, ASmallScoreByteForByte)
{
    Write(1, "clef:1 key:1 time:3/4 tempo:100 n0/48 n3/24 r24 | n1/48");
    EXPECT_EQ(Hex(Saved()), std::string(sHeader) + "02 00 30 " + sConductorHead +
                                "00 FF 58 04 03 02 30 10 00 FF 59 02 01 00 00 FF 51 03 09 27 C0 00 FF 2F 00 "
                                "4D 54 72 6B 00 00 00 1A "
                                "00 C1 01 00 91 3C 40 30 3C 00 00 42 40 18 42 00 18 3E 40 30 3E 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, AScoreWithNoTempoSays120AndTheConductorTrackHas25Bytes)
{
    Write(1, "time:4/4 n0/48");
    EXPECT_EQ(Conductor(), std::string(sConductorHead) +
                               "00 FF 58 04 04 02 30 10 00 FF 59 02 00 00 00 FF 51 03 07 A1 20 "
                               "00 FF 2F 00");
    Write(1, "tempo:97 key:-3");
    EXPECT_EQ(Conductor().substr(0, 23), std::string(sConductorHead).substr(0, 23));
    EXPECT_EQ(Saved().substr(47, 4), "MTrk");
}

TEST_F(MidiWriteTest, TempoTimesAndKeysReachTheConductor)
{
    struct
    {
        char const* sStaff;
        char const* sBytes; // of numerator, denominator, key and tempo
    } const aCase[] = {{"n0/48", "00 01 00 07 A1 20"},
                       {"tempo:120 time:2/2 n0/48", "02 01 00 07 A1 20"},
                       {"time:1/1 n0/48", "01 00 00 07 A1 20"},
                       {"time:6/8 key:-2 n0/48", "06 03 FE 07 A1 20"},
                       {"time:3/16 n0/48", "03 04 00 07 A1 20"},
                       {"time:3/32 n0/48", "03 01 00 07 A1 20"}, // 32 has no exponent of its own here
                       {"time:3/4 time:4/4 key:0 key:2 tempo:60 tempo:200 n0/48", "03 02 00 0F 42 40"},
                       {"tempo:0 tempo:-5 tempo:60 n0/48", "00 01 00 0F 42 40"},
                       {"tempo:0 n0/48", "00 01 00 07 A1 20"},
                       {"tempo:1 n0/48", "00 01 00 FF FF FF"}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, c.sStaff);
        std::string const sFile = Saved();
        EXPECT_EQ(Hex(sFile.substr(26, 2) + sFile.substr(34, 1) + sFile.substr(40, 3)), c.sBytes) << c.sStaff;
    }
}

TEST_F(MidiWriteTest, WhatIsFoundFirstOnAnyPlayedStaffHolds)
{
    Write(1, "time:3/4 n0/48");
    Write(2, "time:4/4 key:3 n0/48");
    Write(3, "tempo:60 key:1 n0/48");
    EXPECT_EQ(Conductor().substr(24), "00 FF 58 04 03 02 30 10 00 FF 59 02 03 00 00 FF 51 03 0F 42 40 00 FF 2F 00");
    afPlay[1] = 0;
    EXPECT_EQ(Conductor().substr(24, 23), "00 FF 58 04 04 02 30 10");
    afPlay[1] = 1;
}

TEST_F(MidiWriteTest, AStaffThatIsSwitchedOffHasNoTrackAndIsNotCounted)
{
    Write(0, "n0/48");
    Write(1, "n0/48");
    Write(3, "n1/48");
    EXPECT_EQ(Hex(Saved().substr(10, 2)), "00 03");
    EXPECT_EQ(Track(Saved(), 1).substr(0, 20), "00 C3 01 00 93 3E 40");
    afPlay[1] = 0;
    std::string const sFile = Saved();
    EXPECT_EQ(Hex(sFile.substr(10, 2)), "00 02");
    EXPECT_EQ(Track(sFile).substr(0, 20), "00 C3 01 00 93 3E 40");
    EXPECT_EQ(Track(sFile, 1), "none");
    afPlay[1] = 1;
}

TEST_F(MidiWriteTest, ATrackBeginsWithTheDefaultProgramAtDeltaNothing)
{
    process.settings.values["Default Instrument"] = 25;
    Write(1, "n0/48");
    EXPECT_EQ(Track(Saved()), "00 C1 19 00 91 3C 40 30 3C 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, AProgramChangeComesAsEarlyAsTheEventBeforeItAndEndsTheRunningStatus)
{
    Write(1, "n0/48 r48 inst:5 n1/48");
    EXPECT_EQ(Track(Saved()), "00 C1 01 00 91 3C 40 30 3C 00 00 C1 05 30 91 3E 40 30 3E 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, LaterTemposAndRestsWriteNothing)
{
    Write(1, "tempo:60 n0/48 tempo:90 r48 n1/48 r192");
    EXPECT_EQ(Track(Saved()), "00 C1 01 00 91 3C 40 30 3C 00 30 3E 40 30 3E 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, GuitarChordsGoIntoTheTrackOfTheirStaffWithChannelOneInTheirStatus)
{
    Write(1, "chord\"C\" n0/48");
    EXPECT_EQ(Track(Saved()), "00 C1 01 00 91 30 30 00 34 30 00 37 30 00 3C 40 30 3C 00 00 FF 2F 00");
    Write(2, "chord\"C\"");
    EXPECT_EQ(Track(Saved(), 1), "00 C2 01 00 91 30 30 00 34 30 00 37 30 00 FF 2F 00");
}

TEST_F(MidiWriteTest, AStatusByteIsWrittenOnlyWhereNoneIsRunning)
{
    Write(2, "n0/48 chord\"C\" n1/48");
    EXPECT_EQ(Track(Saved()), "00 C2 01 00 92 3C 40 30 3C 00 00 30 30 00 34 30 00 37 30 00 3E 40 30 3E 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, ATrackThatEndsOnATiedNoteHasNoNoteOffForIt)
{
    Write(1, "n0/48/flag=1");
    EXPECT_EQ(Track(Saved()), "00 C1 01 00 91 3C 40 00 FF 2F 00");
}

TEST_F(MidiWriteTest, APerformanceIsDetachedSwungAndCut)
{
    Write(1, "time:4/4 n0/24 n1/24");
    EXPECT_EQ(Track(Saved(false, 0, true)), "00 C1 01 00 91 3C 40 17 3C 00 01 3E 40 17 3E 00 00 FF 2F 00");
    EXPECT_EQ(Track(Saved(false, 24, true)), "00 C1 01 00 91 3C 40 17 3C 00 09 3E 40 0F 3E 00 00 FF 2F 00");
    EXPECT_EQ(Track(Saved(true, 0, true)), "00 C1 01 00 91 3C 40 17 3C 00 01 3E 40 0B 3E 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, TranspositionsOrnamentsAndRepeatsSoundAsInAPlay)
{
    Write(1, "trans:2 |: n0/48/flag=32 :|");
    lOrnamentStyle = ORNAMENT_BOWED;
    fGuitarTranspose = true;
    EXPECT_EQ(Track(Saved()), "00 C1 01 00 91 32 40 0F 32 00 01 32 40 0F 32 00 01 32 40 10 32 00 "
                              "00 32 40 0F 32 00 01 32 40 0F 32 00 01 32 40 10 32 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, VariableLengthsAndTheirPitfall)
{
    struct
    {
        int32_t lValue;
        char const* sBytes;
        size_t cMessages;
    } const aCase[] = {
        {0, "00", 0},           {127, "7F", 0},           {128, "81 00", 0},           {16383, "FF 7F", 0},
        {16384, "81 80 00", 0}, {2097151, "FF FF 7F", 0}, {2097152, "81 80 80 00", 1}, {INT32_MAX, "87 FF FF FF 7F", 1},
        {-1, "00", 0}};
    for (auto const& c : aCase)
    {
        Serious_Rearm();
        process.user.shown.clear();
        uint8_t aBytes[cbLongestVarLen];
        int32_t const cb = WriteVarLen(aBytes, c.lValue);
        EXPECT_EQ(Hex(std::string(aBytes, aBytes + cb)), c.sBytes);
        EXPECT_EQ(process.user.Messages(), std::vector<std::string>(c.cMessages, "Length of timedelta > 3 bytes"));
    }
}

TEST_F(MidiWriteTest, ANoteOffAheadOfTheStartCountsAsNoDelta)
{
    // Staccato takes 3 ticks to 1, detaching and the barn dance take that to one ahead of the note.
    Write(1, "time:4/4 n0/3/flag=64 n1/48");
    std::string const sTrack = Track(Saved(true, 0, true));
    EXPECT_EQ(sTrack, "00 C1 01 00 91 3C 40 00 3C 00 03 3E 40 17 3E 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, TimesAreMadeCurrentWhenTheyAreNot)
{
    Write(1, "n0/48 vol:100 n1/48");
    EXPECT_EQ(Track(Saved()), "00 C1 01 00 91 3C 40 30 3C 00 00 3E 64 30 3E 00 00 FF 2F 00");
}

TEST_F(MidiWriteTest, AnEmptyScoreIsAConductorAlone)
{
    EXPECT_EQ(Hex(Saved()).substr(0, 41), std::string(sHeader) + "01 00 30");
    EXPECT_EQ(Saved().size(), 14u + 8 + 25);
}

TEST_F(MidiWriteTest, AFullDiskIsTold)
{
    Write(1, "n0/48");
    std::string sFile;
    cbDiskLeft = 60;
    HFILE const hFile = File_IntoString(&sFile);
    bool const bWritten = SaveMidiFile(hFile, false, 0, true);
    bool const bClosed = _lclose(hFile);
    cbDiskLeft = -1;
    EXPECT_FALSE(bWritten && bClosed);
}

namespace
{
/// A reader that isn't ours, given the file and a place for its words; what it said. Nothing when it isn't there.
std::string Foreign(std::string const& sFile, std::string const& sProbe, std::string const& sCommand)
{
    namespace fs = std::filesystem;
    if (std::system((sProbe + " >/dev/null 2>&1").c_str()) != 0)
        return {};
    fs::path const folder = fs::temp_directory_path() / ("zarn-midi-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    std::ofstream(folder / "a.mid", std::ios::binary) << sFile;
    std::string const sRun = "cd '" + folder.string() + "' && " + sCommand + " >out 2>&1";
    EXPECT_EQ(std::system(sRun.c_str()), 0);
    std::ifstream out(folder / "out", std::ios::binary);
    std::string const sSaid{std::istreambuf_iterator<char>(out), {}};
    fs::remove_all(folder);
    return sSaid;
}

constexpr char const* sForeignScore = "clef:1 key:1 time:6/8 tempo:90 chord\"G\" |: n4/24 n5/24 n6/24 [n0/72 n4/72] | "
                                      "1st n3/72 r72 :| n2/72/flag=1 tie n2/72/flag=2";
} // namespace

TEST_F(MidiWriteTest, MidoReadsTheNotesBack)
{
    Write(1, sForeignScore);
    Write(2, "clef:3 key:1 time:6/8 inst:42 n-7/144 r144 n-7/144 n-3/144");
    constexpr char const* sScript =
        "/usr/bin/python3 -c \"import mido; f = mido.MidiFile('a.mid', clip=False); "
        "print(f.type, f.ticks_per_beat, len(f.tracks)); "
        "[print(n, t, m.type, m.channel, m.note, m.velocity) for n, k in enumerate(f.tracks) "
        "for t, m in zip(__import__('itertools').accumulate(m.time for m in k), k) if m.type == 'note_on' and n == 1 "
        "and m.velocity]\"";
    std::string const sSaid = Foreign(Saved(), "/usr/bin/python3 -c 'import mido'", sScript);
    if (sSaid.empty())
        GTEST_SKIP() << "python3-mido isn't installed";
    EXPECT_EQ(sSaid, "1 48 3\n"
                     "1 0 note_on 1 55 48\n1 0 note_on 1 59 48\n1 0 note_on 1 62 48\n"
                     "1 0 note_on 1 67 64\n1 24 note_on 1 69 64\n1 48 note_on 1 71 64\n"
                     "1 72 note_on 1 60 64\n1 72 note_on 1 67 64\n1 144 note_on 1 66 64\n"
                     "1 288 note_on 1 67 64\n1 312 note_on 1 69 64\n1 336 note_on 1 71 64\n"
                     "1 360 note_on 1 60 64\n1 360 note_on 1 67 64\n1 432 note_on 1 64 64\n");
}

TEST_F(MidiWriteTest, Midi2abcReadsTheTuneBack)
{
    Write(1, "clef:1 key:1 time:4/4 tempo:120 n4/24 n5/24 n6/48 n4/96 n3/48 n4/48 n1/96");
    std::string const sSaid = Foreign(Saved(), "command -v midi2abc", "midi2abc a.mid -o tune.abc; cat tune.abc");
    if (sSaid.empty())
        GTEST_SKIP() << "midi2abc isn't installed";
    // The metre event says 16 where most programs write 8: demisemiquavers to the crotchet. This reader goes by it,
    // halves every length, and the tempo with it.
    EXPECT_NE(sSaid.find("M: 4/4"), sSaid.npos) << sSaid;
    EXPECT_NE(sSaid.find("Q:1/4=60"), sSaid.npos) << sSaid;
    EXPECT_NE(sSaid.find("K:G"), sSaid.npos) << sSaid;
    EXPECT_NE(sSaid.find("G/2A/2B G2 FG D2"), sSaid.npos) << sSaid;
}

TEST_F(MidiWriteTest, FluidSynthPlaysTheWholeTune)
{
    Write(1, "clef:1 key:1 time:4/4 tempo:120 n4/24 n5/24 n6/48 n4/96 n3/48 n4/48 n1/96");
    std::string const sSaid =
        Foreign(Saved(false, 0, false), "command -v fluidsynth",
                "fluidsynth -niq -T raw -F a.raw /usr/share/sounds/sf2/TimGM6mb.sf2 a.mid >log 2>&1; wc -c <a.raw");
    if (sSaid.empty())
        GTEST_SKIP() << "fluidsynth isn't installed";
    constexpr int64_t cbPerSecond = 44100 * 4;
    EXPECT_GE(std::stoll(sSaid), 4 * cbPerSecond) << "eight crotchets at 120, and their dying away";
    EXPECT_LE(std::stoll(sSaid), 10 * cbPerSecond);
}
} // namespace zarn
