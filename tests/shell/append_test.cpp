// Append: a file read behind the score in hand.
#include "abc/abc_index.h"
#include "shell/file_names.h"
#include "shell/files.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
struct Append : Shell
{
    void SetUp() override
    {
        Start();
        AnswersNewTune();
        Command(COMMAND_NEW);
        Write(1, "n0/48 n2/48 n4/96");
        Command(COMMAND_FULLADJUST);
        AnswersText(Path("a.zrn"));
        Command(COMMAND_SAVEAS);
        ASSERT_FALSE(bScoreDirty);
        process.user.shown.clear();
    }
};
} // namespace

TEST_F(Append, AScoreFollowsTheOneInHandWithoutAQuestion)
{
    std::string const sBefore = Bytes(Path("a.zrn"));
    bScoreDirty = true;
    AnswersText(Path("a.zrn"));
    Command(COMMAND_APPEND);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Open file"});
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48 n4/96 | time:4/4 n0/48 n2/48 n4/96 |");
    EXPECT_EQ(Title(), Path("a.zrn"));
    EXPECT_TRUE(Window().bRepaintOwed);
    EXPECT_EQ(Bytes(Path("a.zrn")), sBefore);
}

TEST_F(Append, WhatHasComeTogetherIsUnsavedAndHasNoFile)
{
    AnswersText(Path("a.zrn"));
    Command(COMMAND_APPEND);
    EXPECT_TRUE(bScoreDirty);
    std::string const sBefore = Bytes(Path("a.zrn"));
    Command(COMMAND_SAVE); // asks for a name, and is cancelled
    EXPECT_EQ(Messages().back(), "Save file");
    EXPECT_EQ(Bytes(Path("a.zrn")), sBefore);
}

TEST_F(Append, ATuneIsChosenFromAnAbcFile)
{
    std::string const szAbc = MakeFile("two.abc", sTwoTunes);
    AnswersText(szAbc);
    AnswersRow(1);
    Command(COMMAND_APPEND);
    EXPECT_TRUE(Read(1).starts_with("clef:1 time:4/4 n0/48 n2/48 n4/96")) << Read(1);
    EXPECT_NE(Read(1).find("title\"The Second\""), std::string::npos) << Read(1);
    EXPECT_EQ(Title(), "The Second (from file '" + szAbc + "')");
    EXPECT_EQ(lTuneNumber, 3);
    EXPECT_TRUE(fAbcTuneOpen);
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(Append, AMidiFileIsAskedAboutFirst)
{
    constexpr int32_t lPerformance = 3; // the row of the type
    AnswersRow(lPerformance);
    AnswersText(Path("a.mid"));
    Command(COMMAND_SAVEAS);
    process.user.shown.clear();
    std::string const sBefore = Read(1);
    AnswersText(Path("a.mid"));
    Answers(Answer::NO);
    Command(COMMAND_APPEND);
    EXPECT_EQ(Messages().size(), 2u);
    EXPECT_EQ(Read(1), sBefore);

    AnswersText(Path("a.mid"));
    Answers(Answer::YES);
    Command(COMMAND_APPEND);
    EXPECT_GT(Read(1).size(), sBefore.size());
    EXPECT_EQ(Title(), Path("a.mid"));
}

TEST_F(Append, CancelLeavesAllAsItWas)
{
    std::string const sTitle = Title();
    Command(COMMAND_APPEND);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48 n4/96 |");
    EXPECT_EQ(Title(), sTitle);
    EXPECT_EQ(szFileName, Path("a.zrn"));
    EXPECT_FALSE(fAbcTuneOpen);
}

TEST_F(Append, AFileThatDoesntOpenTakesNothingAway)
{
    bScoreDirty = true;
    std::string const sTitle = Title();
    AnswersText(Path("missing.zrn"));
    Command(COMMAND_APPEND);
    EXPECT_EQ(Messages().back(), "File didn't open");
    EXPECT_TRUE(bScoreDirty) << "nobody has asked about it";
    EXPECT_EQ(szFileName, Path("a.zrn"));
    EXPECT_EQ(Title(), sTitle);
}

TEST_F(Append, AScoreFileThatIsntOneIsOfferedAsAbc)
{
    std::string const szWrong = MakeFile("wrong.zrn", sTwoTunes);
    AnswersText(szWrong);
    Answers(Answer::NO);
    Command(COMMAND_APPEND);
    EXPECT_EQ(Messages().back(), "File is not a ZARN file, try to open as ABC file?");
    EXPECT_FALSE(bScoreDirty);

    AnswersText(szWrong);
    Answers(Answer::YES);
    AnswersRow(0);
    Command(COMMAND_APPEND);
    EXPECT_NE(Read(1).find("title\"The First\""), std::string::npos) << Read(1);
}
} // namespace zarn::test
