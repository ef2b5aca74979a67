// A file that another program has changed is asked about before it is saved over.
#include "shell/file_on_disk.h"

#include "abc/abc_index.h"
#include "support/shell_fixture.h"

#include <fstream>

namespace zarn::test
{
namespace
{
struct FileOnDisk : Shell
{
    void SetUp() override
    {
        Start();
        Write(1, "n0/48");
        bScoreDirty = true;
        AnswersText(Path("a.zrn"));
        Command(COMMAND_SAVEAS);
        process.user.shown.clear();
    }
    /// What another program does to it.
    void Change(std::string const& szName, std::string const& sBytes)
    {
        std::ofstream(Path(szName), std::ios::binary) << sBytes;
    }
    std::string Question(std::string const& szName) const
    {
        return "Another program has changed the file\n'" + Path(szName) +
               "'\nsince it was opened or saved here.\n\nSave over those changes?";
    }
};
} // namespace

TEST_F(FileOnDisk, OneThatStandsAsItWasLeftIsSavedWithoutAQuestion)
{
    for (int i = 0; i < 3; ++i)
        Command(COMMAND_SAVE);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(FileOnDisk, NoLeavesTheOtherProgramsWork)
{
    Change("a.zrn", "theirs");
    bScoreDirty = true;
    Answers(Answer::NO);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages(), std::vector<std::string>{Question("a.zrn")});
    EXPECT_EQ(Bytes(Path("a.zrn")), "theirs");
    EXPECT_TRUE(bScoreDirty);

    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages().size(), 2u) << "and asks again";
}

TEST_F(FileOnDisk, YesSavesOverItAndThatSettlesIt)
{
    Change("a.zrn", "theirs");
    bScoreDirty = true;
    Answers(Answer::YES);
    Command(COMMAND_SAVE);
    EXPECT_NE(Bytes(Path("a.zrn")), "theirs");
    EXPECT_FALSE(bScoreDirty);
    process.user.shown.clear();
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(FileOnDisk, NoIsWhatEnterGives)
{
    Change("a.zrn", "theirs");
    Command(COMMAND_SAVE);
    EXPECT_NE(process.user.shown.back().lFlags & MB_DEFBUTTON2, 0u);
}

TEST_F(FileOnDisk, OneThatHasGoneIsMadeAnew)
{
    std::filesystem::remove(Path("a.zrn"));
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Messages().empty());
    EXPECT_TRUE(std::filesystem::exists(Path("a.zrn")));
}

TEST_F(FileOnDisk, AnotherNameIsNotAskedAbout)
{
    Change("b.zrn", "theirs");
    AnswersText(Path("b.zrn"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Save file"});
}

TEST_F(FileOnDisk, ItFollowsTheStatedQuestions)
{
    constexpr int32_t lExchange = 2; // the row of the type
    AnswersRow(lExchange);
    AnswersText(Path("a.mid"));
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    Change("a.mid", "theirs");
    process.user.shown.clear();
    AnswersRow(lExchange);
    AnswersText(Path("a.mid"));
    Answers(Answer::YES);
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    ASSERT_EQ(Messages().size(), 3u);
    EXPECT_TRUE(Messages()[1].starts_with("Exchange MIDI file output is new"));
    EXPECT_EQ(Messages()[2], Question("a.mid"));
    EXPECT_EQ(Bytes(Path("a.mid")), "theirs");
}

TEST_F(FileOnDisk, ATuneOfAFileThatHasChangedIsAskedAboutToo)
{
    std::string const szAbc = MakeFile("two.abc", sTwoTunes);
    AnswersText(szAbc);
    AnswersRow(0);
    Command(COMMAND_OPEN);
    process.user.shown.clear();
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Messages().empty());
    int32_t const lTune = lTuneNumber;
    Change("two.abc", std::string(sTwoTunes) + "X:3\nT:Theirs\nK:C\nc|\n");
    Answers(Answer::NO);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages(), std::vector<std::string>{Question("two.abc")});
    EXPECT_EQ(lTuneNumber, lTune);
    EXPECT_TRUE(Bytes(szAbc).ends_with("X:3\nT:Theirs\nK:C\nc|\n"));
    Answers(Answer::YES);
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Bytes(szAbc).ends_with("X:3\nT:Theirs\nK:C\nc|\n")) << "the other tunes stay in any case";
}

TEST_F(FileOnDisk, AnEndThatIsRefusedKeepsTheMusic)
{
    Change("a.zrn", "theirs");
    bScoreDirty = true;
    Answers(Answer::YES);
    Answers(Answer::NO);
    Send(EventKind::CLOSE);
    EXPECT_FALSE(process.user.bQuit);
    EXPECT_EQ(Bytes(Path("a.zrn")), "theirs");
}
} // namespace zarn::test
