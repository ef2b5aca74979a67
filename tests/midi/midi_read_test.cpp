#include "midi/midi_read.h"

#include "core/messages.h"
#include "core/score_check.h"
#include "core/text.h"
#include "edit/insert.h"
#include "edit/new_score.h"
#include "midi/midi_write.h"
#include "render/geometry.h"
#include "support/midi_bytes.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

namespace zarn
{
using namespace test;

namespace
{
class MidiReadTest : public testing::Test
{
protected:
    MidiReadTest() { SetWindowUnits({0, 0, 1200, 800}); }
    ~MidiReadTest() override
    {
        pDebugLogSink = nullptr;
        Geometry_Free();
    }

    static int32_t Opened(std::string const& sFile)
    {
        Serious_Rearm();
        Score_New();
        HFILE const hFile = File_FromBytes(sFile);
        int32_t const lResult = ReadMidiFile(hFile);
        _lclose(hFile);
        return lResult;
    }
    /// What came in on staff 1, without the clef that the layout puts ahead of it.
    static std::string CameIn()
    {
        std::string const s = Read(1);
        return s.starts_with("clef:1 ") ? s.substr(7) : s;
    }
    /// A file of one track, 96 ticks to the crotchet, as a staff.
    static std::string Staff(std::string_view sEvents)
    {
        EXPECT_EQ(Opened(MidiFile(0, 96, {sEvents})), 0);
        return CameIn();
    }
    /// A file whose one chunk claims lClaimed bytes and holds these.
    static std::string OneChunk(int32_t lClaimed, std::string_view sEvents)
    {
        return Bytes("'MThd' 00 00 00 06 00 00 00 01 00 60 'MTrk'") +
               Bytes(Format("%02X %02X %02X %02X", unsigned(lClaimed) >> 24, unsigned(lClaimed) >> 16 & 0xFF,
                            unsigned(lClaimed) >> 8 & 0xFF, unsigned(lClaimed) & 0xFF)) +
               Bytes(sEvents);
    }

    ScriptedProcess process;
};
} // namespace

TEST_F(MidiReadTest, NotesBecomeNotesOfTheirLengths)
{
    EXPECT_EQ(Staff("00 90 3C 50 60 3C 00 00 3E 50 30 3E 00 00 40 50 30 40 00 00 41 50 60 41 00"),
              "n0/48 n1/24 n2/24 n3/48");
}

TEST_F(MidiReadTest, BlackKeysAreSharpsAndMiddleCIsNothing)
{
    EXPECT_EQ(Staff("00 90 3D 50 60 3D 00 00 46 50 60 46 00 00 30 50 60 30 00"), "#0 n0/48 #5 n5/48 n-7/48");
}

TEST_F(MidiReadTest, WhatBeginsTogetherIsAChordWithItsAccidentalsAheadOfIt)
{
    EXPECT_EQ(Staff("00 90 3C 50 00 40 50 00 42 50 60 3C 00 00 40 00 00 42 00 00 3C 50 60 3C 00"),
              "#3 [n0/48 n2/48 n3/48] n0/48");
    EXPECT_EQ(At(1, 3)->lPitch, 64);
    EXPECT_EQ(At(1, 4)->lPitch, 66);
}

TEST_F(MidiReadTest, AChordMemberOfAnotherLengthIsToldAndLeftOut)
{
    EXPECT_EQ(Staff("00 90 3C 50 00 40 50 10 40 00 50 3C 00 60 3C 50 60 3C 00"), "n0/96 n0/48");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"All notes in a chord must have same duration"});
}

TEST_F(MidiReadTest, ANoteThatSoundsOnIsTied)
{
    // C holds while E comes: both chords hold C, tied.
    std::string const sStaff = Staff("00 90 3C 50 00 43 50 60 43 00 00 40 50 60 40 00 00 3C 00 00 3C 50 60 3C 00");
    EXPECT_NE(sStaff.find("tie"), sStaff.npos) << sStaff;
    EXPECT_TRUE(Score_Check().empty());
}

TEST_F(MidiReadTest, TwoOverlappingNotesOfOnePitchAreClosedFromTheEarlier)
{
    // The second note never ends: the off behind it moves the end of the first once more.
    EXPECT_EQ(Staff("00 90 3C 50 30 3C 50 30 3C 00 30 3C 00 30 3E 50 60 3E 00"), Staff("00 90 3C 50 30 3C 50 60 3C 00 "
                                                                                       "30 3E 50 60 3E 00"));
}

TEST_F(MidiReadTest, AnOffWithNoNoteIsDropped) { EXPECT_EQ(Staff("00 80 3C 40 00 90 3E 50 60 3E 00"), "n1/48"); }

TEST_F(MidiReadTest, BothKindsOfNoteOffEndANote)
{
    EXPECT_EQ(Staff("00 90 3C 50 60 80 3C 40 00 90 3E 50 60 3E 00"), "n0/48 n1/48");
}

TEST_F(MidiReadTest, ANoteWithNoLengthToSpeakOfIsAGraceNote)
{
    EXPECT_EQ(Staff("00 90 3C 50 00 40 50 04 3C 00 5C 40 00 00 43 50 60 43 00"), "n0/0 n2/48 n4/48");
}

TEST_F(MidiReadTest, MetreAndKeyGoBehindTheInsertPoint)
{
    EXPECT_EQ(Staff("00 FF 58 04 06 03 30 10 00 FF 59 02 FE 00 00 90 3C 50 60 3C 00 00 3E 50 60 3E 00"),
              "time:6/8 key:-2 n0/48 n1/48");
    EXPECT_EQ(Staff("00 FF 58 04 04 FF 18 08 00 90 3C 50 60 3C 00"), "time:4/0 n0/48");
}

TEST_F(MidiReadTest, RunningStatusGoesOnOverAMetaEvent)
{
    EXPECT_EQ(Staff("00 90 3C 50 60 3C 00 00 FF 01 02 41 42 00 3E 50 60 3E 00"), "n0/48 n1/48");
}

TEST_F(MidiReadTest, AMetaEventAtTheStartDoesNotEndTheTrack)
{
    EXPECT_EQ(Staff("00 FF 03 02 41 42 00 90 3C 50 60 3C 00"), "n0/48");
}

TEST_F(MidiReadTest, WhatIsNoNoteIsPassedOver)
{
    EXPECT_EQ(Staff("00 C0 05 00 B0 07 7F 00 E0 00 40 00 A0 3C 10 00 D0 10 00 F0 05 02 01 F7 00 90 3C 50 60 3C 00"),
              "n0/48");
}

TEST_F(MidiReadTest, ADivisionOf96ReadsExactlyAndOneOf480DoublesAllLengths)
{
    EXPECT_EQ(Opened(MidiFile(0, 96, {"00 90 3C 50 60 3C 00 00 3E 50 30 3E 00"})), 0);
    EXPECT_EQ(CameIn(), "n0/48 n1/24");
    EXPECT_EQ(Opened(MidiFile(0, 480, {"00 90 3C 50 83 60 3C 00 00 3E 50 81 70 3E 00"})), 0);
    EXPECT_EQ(CameIn(), "n0/96 n1/48");
}

TEST_F(MidiReadTest, EachChannelIsAPartAndAllNotesGoToOneStaff)
{
    EXPECT_EQ(Opened(MidiFile(1, 96, {"00 90 3C 50 60 3C 00", "00 93 3E 50 60 3E 00", "00 9F 40 50 60 40 00"})), 0);
    EXPECT_EQ(lStaffCount, 3);
    EXPECT_EQ(CameIn(), "n0/48 n1/48 n2/48");
    EXPECT_EQ(Read(2), "");
}

TEST_F(MidiReadTest, ANoteOffOnAChannelWithNoStaffTakesOne)
{
    EXPECT_EQ(Opened(MidiFile(0, 96, {"00 92 3C 00 00 90 3C 50 60 3C 00"})), 0);
    EXPECT_EQ(lStaffCount, 2);
}

TEST_F(MidiReadTest, ANinthChannelIsToldAndItsNotesDropped)
{
    std::string sEvents;
    for (unsigned lChannel = 0; lChannel < 9; ++lChannel)
        sEvents += Format("00 9%X 3C 50 60 3C 00 ", lChannel + 7);
    EXPECT_EQ(Opened(MidiFile(0, 96, {sEvents})), 0);
    EXPECT_EQ(lStaffCount, 8);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"This MIDI file appears to have more than 8 parts."});
    EXPECT_EQ(CameIn(), "n0/48 n0/48 n0/48 n0/48 | n0/48 n0/48 n0/48 n0/48 |");
}

TEST_F(MidiReadTest, AFileWithoutNotesLeavesOneStaffShowing)
{
    EXPECT_EQ(Opened(MidiFile(1, 96, {""})), 0);
    EXPECT_EQ(lStaffCount, 1);
    EXPECT_EQ(Read(1), "");
}

TEST_F(MidiReadTest, HeadersThatAreRefused)
{
    struct
    {
        char const* sFile;
        int32_t lCode;
    } const aCase[] = {{"", MIDI_FILE_SHORT},
                       {"'MThd' 00 00 00 06 00 00 00 01 00", MIDI_FILE_SHORT},
                       {"'MThx' 00 00 00 06 00 00 00 01 00 60", MIDI_FILE_NOT_MIDI},
                       {"'MThd' 00 00 00 07 00 00 00 01 00 60", MIDI_FILE_HEADER_LENGTH},
                       {"'MThd' 00 00 00 06 00 02 00 01 00 60", MIDI_FILE_FORMAT},
                       {"'MThd' 00 00 00 06 00 00 00 01 00 60", MIDI_FILE_NO_TRACK},
                       {"'MThd' 00 00 00 06 00 00 00 01 00 60 'MTrx' 00 00 00 00", MIDI_FILE_NO_TRACK},
                       {"'MThd' 00 00 00 06 00 00 00 01 00 60 'MTrk' 00 00", MIDI_FILE_TRACK_LENGTH}};
    for (auto const& c : aCase)
        EXPECT_EQ(Opened(Bytes(c.sFile)), c.lCode) << c.sFile;
    EXPECT_TRUE(process.user.shown.empty()) << "the caller tells";
}

TEST_F(MidiReadTest, ADivisionOfNothingOrInFramesIsRefusedWithASentence)
{
    EXPECT_EQ(Opened(MidiFile(0, 0, {"00 90 3C 50 60 3C 00"})), MIDI_FILE_DIVISION);
    EXPECT_EQ(Opened(MidiFile(0, 0xE728, {"00 90 3C 50 60 3C 00"})), MIDI_FILE_DIVISION);
    EXPECT_EQ(process.user.Messages(),
              (std::vector<std::string>{
                  "This MIDI file doesn't say how long a beat is.  It can't be read.",
                  "This MIDI file counts its time in frames of film, not in beats.  It can't be read."}));
    EXPECT_EQ(Read(1), "");
}

TEST_F(MidiReadTest, DamagedEventsHaveNumbersOfTheirOwn)
{
    struct
    {
        char const* sEvents;
        int32_t lCode;
    } const aCase[] = {{"", -1},
                       {"00 F0 01", -2},
                       {"00 FF 51 02 00 00", -3},
                       {"00 FF 51 03 00 00", -4},
                       {"00 FF 59 03 00 00 00", -5},
                       {"00 FF 59 02 00", -6},
                       {"00 FF 58 03 00 00 00", -7},
                       {"00 FF 58 04 00 00", -8},
                       {"00 FF 2F 01 00", -9},
                       {"00 FF 01 05 00", -11},
                       {"00 90 3C", -12},
                       {"00 F0 01 09 00", -12},
                       {"00 A0 3C", -13},
                       {"00 B0 07", -14},
                       {"00 C0", -15},
                       {"00 D0", -16},
                       {"00 E0 00", -17},
                       {"00 3C 50", -18}};
    for (auto const& c : aCase)
        EXPECT_EQ(Opened(OneChunk(100, c.sEvents)), c.lCode) << c.sEvents;
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Invalid MIDI statuis byte"});
}

TEST_F(MidiReadTest, ATrackThatTheFileCutsOffIsAnErrorAndKeepsWhatWasRead)
{
    EXPECT_EQ(Opened(OneChunk(1000, "00 90 3C 50 60 3C 00 00 3E 50 60 3E 00")), -1);
    EXPECT_EQ(CameIn(), "n0/48") << "the last note was still held";
    EXPECT_EQ(Opened(OneChunk(13, "00 90 3C 50 60 3C 00 00 3E 50 60 3E 00")), -1) << "with its length right, too";
}

TEST_F(MidiReadTest, AChunkThatClaimsMoreThanTheFileHoldsEndsWithItsEndEvent)
{
    EXPECT_EQ(Opened(OneChunk(0x7FFFFFFF, "00 90 3C 50 60 3C 00 00 FF 2F 00")), 0);
    EXPECT_EQ(CameIn(), "n0/48");
}

TEST_F(MidiReadTest, ATrackWithoutItsEndEventEndsWhereTheNextOneBegins)
{
    EXPECT_EQ(Opened(Bytes("'MThd' 00 00 00 06 00 01 00 02 00 60 'MTrk' 00 00 00 07 00 90 3C 50 60 3C 00 "
                           "'MTrk' 00 00 00 0B 00 90 3E 50 60 3E 00 00 FF 2F 00")),
              0);
    EXPECT_EQ(CameIn(), "n0/48 n1/48");
}

TEST_F(MidiReadTest, AnEighteenthTrackIsPassedOverInSilence)
{
    std::string sFile = Bytes("'MThd' 00 00 00 06 00 01 00 12 00 60");
    for (int32_t lTrack = 0; lTrack < 18; ++lTrack)
        sFile += Bytes("'MTrk' 00 00 00 0B 00 90 3C 50 60 3C 00 00 FF 2F 00");
    EXPECT_EQ(Opened(sFile), 0);
    int32_t cNotes = 0;
    for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
        cNotes += pel->sort == NOTE;
    EXPECT_EQ(cNotes, 17);
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(MidiReadTest, TheHeaderAndTheFirstTrackAreLogged)
{
    static std::string sLog;
    sLog.clear();
    pDebugLogSink = [](std::string_view s) { sLog += s; };
    Opened(
        MidiFile(1, 480, {"00 FF 51 03 01 02 03 00 FF 59 02 FD 01 00 FF 58 04 06 03 18 08", "00 90 3C 50 60 3C 00"}));
    pDebugLogSink = nullptr;
    EXPECT_EQ(sLog.substr(sLog.find("MIDI"), sLog.find("Quantise") - sLog.find("MIDI")),
              "MIDI file header: format 1, 2 track(s), 240 ticks per 1/4 note\r\n"
              "Tempo=291, Key=-3 minor, time 6/8, metro 24, notated 8\r\n");
}

TEST_F(MidiReadTest, TimesWithoutEndStayInRange)
{
    std::string sEvents = "00 90 3C 50 ";
    for (int32_t n = 0; n < 20; ++n)
        sEvents += "FF FF FF 7F 3C 00 FF FF FF FF FF FF FF 7F 3E 50 ";
    Opened(MidiFile(0, 1, {sEvents}));
    EXPECT_TRUE(Score_CheckStructure().empty());
}

TEST_F(MidiReadTest, AFileOfTooManySymbolsStopsWithOneSentence)
{
    std::string sTrack;
    std::string const sNote = Bytes("00 90 3C 50 30 3C 00");
    for (int32_t n = 0; n < 200'100; ++n)
        sTrack += sNote;
    std::string const sFile = OneChunk(static_cast<int32_t>(sTrack.size()), "") + sTrack;
    EXPECT_EQ(Opened(sFile), 0);
    EXPECT_EQ(
        process.user.Messages(),
        std::vector<std::string>{"This MIDI file is too long for Zarn: what lies beyond 200,000 symbols, or behind "
                                 "too many notes at once, was left out."});
    int32_t cNotes = 0;
    for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
        cNotes += pel->sort == NOTE;
    EXPECT_EQ(cNotes, 200'000);
}

TEST_F(MidiReadTest, NotesThatNothingEndsCostNoTimeWithoutEnd)
{
    // All of a million held notes would be looked at again for each that ends.
    std::string sTrack = Bytes("00 90 00 50");
    std::string const sHeld = Bytes("00 90 3C 50");
    std::string const sEnded = Bytes("01 90 3E 50 01 3E 00");
    for (int32_t n = 0; n < 200'000; ++n)
        sTrack += n % 2 ? sHeld : sEnded;
    auto const start = std::chrono::steady_clock::now();
    EXPECT_EQ(Opened(OneChunk(static_cast<int32_t>(sTrack.size()), "") + sTrack), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
    EXPECT_FALSE(process.user.shown.empty());
}

TEST_F(MidiReadTest, AnInsertPointTakesTheNotesOnItsStaff)
{
    Score_New();
    Write(2, "n4/48");
    SelectInsertStaff(2);
    std::string const sFile = MidiFile(0, 96, {"00 90 3C 50 60 3C 00"});
    HFILE const hMidi = File_FromBytes(sFile);
    EXPECT_EQ(ReadMidiFile(hMidi), 0);
    _lclose(hMidi);
    EXPECT_EQ(Read(2), "n4/48 n0/48");
    EXPECT_EQ(Read(1), "");
}

TEST_F(MidiReadTest, AnExchangeFileReadsBackNoteForNote)
{
    Score_New();
    Write(1, "time:4/4 n0/48 n1/24 n2/24 n3/96 n4/72 n5/24 n6/96");
    bTimesValid = false;
    std::string sFile;
    HFILE const hFile = File_IntoString(&sFile);
    ASSERT_TRUE(SaveMidiFile(hFile, false, 0, false));
    _lclose(hFile);
    EXPECT_EQ(Opened(sFile), 0);
    EXPECT_EQ(CameIn(), "time:4/4 n0/48 n1/24 n2/24 n3/96 | n4/72 n5/24 n6/96 |");
}

TEST_F(MidiReadTest, EveryFileOfTheCollectionGivesASoundScoreOrARefusal)
{
    namespace fs = std::filesystem;
    fs::path const folder = fs::path(ZARN_SHARED_DATA_DIR) / "midi";
    if (!fs::exists(folder))
        GTEST_SKIP() << "the collection of MIDI files isn't here";
    for (fs::directory_entry const& entry : fs::directory_iterator(folder))
    {
        std::ifstream file(entry.path(), std::ios::binary);
        std::string const sFile{std::istreambuf_iterator<char>(file), {}};
        int32_t const lResult = Opened(sFile);
        EXPECT_TRUE(Score_CheckStructure().empty()) << entry.path();
        EXPECT_TRUE(lResult != 0 || StaffFirst(1) || sFile.find('\x90') == sFile.npos) << entry.path();
    }
}
} // namespace zarn
