#include "edit/new_score.h"
#include "midi/play_list.h"
#include "shell/files.h"
#include "shell/load.h"
#include "support/midi_bytes.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
constexpr int32_t lExchangeFilter = 2; // rows of the save dialog
constexpr int32_t lPerformanceFilter = 3;
constexpr char const* sInputQuestion = "MIDI file input is new and, frankly, it doesn't work well yet, but it was less "
                                       "effort to leave it in.  Go ahead if "
                                       "you like and see what happens - else cancel now.";
constexpr char const* sOutputQuestion = "Exchange MIDI file output is new and MIDI file input to Zarn frankly doesn't "
                                        "work well yet.  Save in another format "
                                        "or you may lose data.  Go ahead and save as MIDI anyway?";
constexpr char const* sConflict = "File name extension conflicts with type.  Yes = use type, No = use extension";

struct MidiFiles : Shell
{
    void SetUp() override
    {
        Start();
        AnswersNewTune();
        Command(COMMAND_NEW);
        process.user.shown.clear();
        test::Write(1, "n0/48 n2/48");
        Command(COMMAND_MINIADJUST);
        bScoreDirty = true;
        szMidi = MakeFile("in.mid", MidiFile(0, 96, {"00 90 3C 50 60 3C 00 00 3D 50 60 3D 00"}));
    }
    ~MidiFiles() override
    {
        fBarnDance = false;
        lSwing = 0;
    }
    std::string szMidi;
};
} // namespace

TEST_F(MidiFiles, AMidiFileIsReadOnceItsUserHasAgreed)
{
    Answers(Answer::NO); // unsaved music
    Answers(Answer::YES);
    Drop(szMidi);
    EXPECT_EQ(Messages().back(), sInputQuestion);
    EXPECT_EQ(Read(1), "clef:1 n0/48 #0 n0/48");
    EXPECT_EQ(Title(), szMidi);
    EXPECT_EQ(szFileName, szMidi);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(MidiFiles, AMidiFileThatIsDeclinedLeavesAllAsItWas)
{
    std::string const sBefore = Read(1);
    std::string const sTitle = Title();
    Answers(Answer::NO);
    Answers(Answer::NO);
    Drop(szMidi);
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_EQ(Title(), sTitle);
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(MidiFiles, TheOpenDialogOffersMidiFiles)
{
    bScoreDirty = false;
    AnswersText(szMidi);
    Answers(Answer::YES);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Title(), szMidi);
}

TEST_F(MidiFiles, ADamagedMidiFileIsToldAndHasNoFileToSaveInto)
{
    std::string const szBad = MakeFile("bad.mid", test::Bytes("'MThd' 00 00 00 06 00 02 00 01 00 60"));
    Answers(Answer::NO);
    Answers(Answer::YES);
    Drop(szBad);
    EXPECT_EQ(Messages().back(), "MIDI input error.  Send file to Odrian if you think it's a bug.");
    EXPECT_EQ(Title(), "Error reading <" + szBad + ">");
    EXPECT_EQ(szFileName, "");
    EXPECT_EQ(Read(1), "");
}

TEST_F(MidiFiles, AMidiFileOnTheCommandLineIsOpenedWithoutAQuestion)
{
    std::string sTitle;
    Score_New();
    EXPECT_EQ(LoadNamed(szMidi, lFirstTune, &sTitle), LoadResult::LOADED);
    EXPECT_EQ(sTitle, szMidi);
    EXPECT_EQ(Read(1), "clef:1 n0/48 #0 n0/48");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(MidiFiles, APerformanceIsSavedAndLeavesTheScoreUnsaved)
{
    AnswersRow(lPerformanceFilter);
    AnswersText(Path("out.mid"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Save file"});
    EXPECT_NE(Hex(Shell::Bytes(Path("out.mid"))).find("00 91 3C 40 2F 3C 00 01 40 40 2F 40 00"), std::string::npos);
    EXPECT_TRUE(bScoreDirty) << "a MIDI file doesn't hold it all";
}

TEST_F(MidiFiles, AnExchangeFileIsAskedAboutAndHasTheWrittenLengths)
{
    AnswersRow(lExchangeFilter);
    AnswersText(Path("out.mid"));
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages().back(), sOutputQuestion);
    EXPECT_FALSE(std::filesystem::exists(Path("out.mid")));

    AnswersRow(lExchangeFilter);
    AnswersText(Path("out.mid"));
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages().back(), sOutputQuestion) << "a .mid name is no conflict";
    EXPECT_NE(Hex(Shell::Bytes(Path("out.mid"))).find("00 91 3C 40 30 3C 00 00 40 40 30 40 00"), std::string::npos);
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(MidiFiles, APlainSaveOfAMidiFileIsAPerformance)
{
    AnswersRow(lExchangeFilter);
    AnswersText(Path("out.mid"));
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    process.user.shown.clear();
    Command(COMMAND_SAVE);
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_NE(Hex(Shell::Bytes(Path("out.mid"))).find("00 91 3C 40 2F 3C 00 01 40 40 2F 40 00"), std::string::npos);
}

TEST_F(MidiFiles, APerformanceFollowsThePlayOptions)
{
    fBarnDance = true;
    AnswersRow(lPerformanceFilter);
    AnswersText(Path("out.mid"));
    Command(COMMAND_SAVEAS);
    EXPECT_NE(Hex(Shell::Bytes(Path("out.mid"))).find("00 91 3C 40 2F 3C 00 01 40 40 17 40 00"), std::string::npos);
}

TEST_F(MidiFiles, ThePerformanceFilterWithAnotherNameIsAConflict)
{
    AnswersRow(lPerformanceFilter);
    AnswersText(Path("x.abc"));
    Answers(Answer::CANCEL);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages().back(), sConflict);
}

TEST_F(MidiFiles, AnUnknownExtensionCanBecomeAnExchangeFile)
{
    AnswersText(Path("a.xyz"));
    Command(COMMAND_SAVEAS);
    Answers(Answer::NO);
    Answers(Answer::NO);
    Answers(Answer::YES);
    Answers(Answer::YES);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages()[Messages().size() - 2], "OK to write as MIDI file maybe???");
    EXPECT_EQ(Messages().back(), sOutputQuestion);
    EXPECT_EQ(Shell::Bytes(Path("a.xyz")).substr(0, 4), "MThd");
}

TEST_F(MidiFiles, AFullDiskLeavesTheOldMidiFile)
{
    cbDiskLeft = 20;
    AnswersRow(lPerformanceFilter);
    AnswersText(szMidi);
    std::string const sBefore = Shell::Bytes(szMidi);
    Command(COMMAND_SAVEAS);
    cbDiskLeft = -1;
    EXPECT_EQ(Messages().back(),
              "Writing the file failed - NOT saved!  The file on disk and the score are as they were.");
    EXPECT_EQ(Shell::Bytes(szMidi), sBefore);
}
} // namespace zarn::test
