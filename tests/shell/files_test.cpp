#include "shell/files.h"

#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
constexpr char const* sSaveQuestion = "Not yet saved as ZRN file. Save Now?";
constexpr char const* sExitQuestion = "Not yet saved as ZRN file.  Save Now?";

struct ShellFiles : Shell
{
    void SetUp() override
    {
        Start();
        AnswersNewTune();
        Command(COMMAND_NEW);
        process.user.shown.clear();
        Write(1, "n0/48 n2/48");
        MiniAdjustScore();
        bScoreDirty = true;
    }
    static void MiniAdjustScore() { Command_Run(COMMAND_MINIADJUST); }

    /// A file of another score, saved by the program.
    std::string SavedScore(std::string const& szName)
    {
        AnswersText(Path(szName));
        Command(COMMAND_SAVEAS);
        EXPECT_FALSE(bScoreDirty);
        process.user.shown.clear();
        return Path(szName);
    }
};
} // namespace

TEST_F(ShellFiles, SaveOfANewTuneAsksForItsName)
{
    AnswersText(Path("a.zrn"));
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Save file"});
    EXPECT_EQ(Title(), "a.zrn");
    EXPECT_EQ(szFileName, Path("a.zrn"));
    EXPECT_FALSE(bScoreDirty);
    EXPECT_FALSE(Bytes(Path("a.zrn")).empty());
}

TEST_F(ShellFiles, SaveOfANamedFileAsksNothing)
{
    SavedScore("a.zrn");
    std::string const sBefore = Bytes(Path("a.zrn"));
    Write(1, "n4/48");
    bScoreDirty = true;
    Command(COMMAND_SAVE);
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_FALSE(bScoreDirty);
    EXPECT_GT(Bytes(Path("a.zrn")).size(), sBefore.size());
}

TEST_F(ShellFiles, ACancelledSaveLeavesAllAsItWas)
{
    Command(COMMAND_SAVE);
    EXPECT_EQ(szFileName, "");
    EXPECT_EQ(Title(), "");
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(ShellFiles, AFileThatCantBeMadeIsTold)
{
    AnswersText(Path("no/such/folder/a.zrn"));
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages().back(), "File didn't open - NOT saved!");
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(ShellFiles, AFullDiskKeepsTheOldFileAndTheDirtyScore)
{
    std::string const szFile = SavedScore("a.zrn");
    std::string const sBefore = Bytes(szFile);
    Write(1, "n4/48");
    bScoreDirty = true;
    cbDiskLeft = 10;
    Command(COMMAND_SAVE);
    cbDiskLeft = -1;
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(Messages().empty());
    EXPECT_EQ(Bytes(szFile), sBefore);
}

TEST_F(ShellFiles, ANameOfAnotherKindIsAskedAbout)
{
    AnswersText(Path("a.mid"));
    Answers(Answer::CANCEL);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages().back(), "File name extension conflicts with type.  Yes = use type, No = use extension");
    EXPECT_FALSE(std::filesystem::exists(Path("a.mid")));

    AnswersText(Path("a.mid"));
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    EXPECT_TRUE(std::filesystem::exists(Path("a.mid")));
    EXPECT_TRUE(bScoreDirty) << "a MIDI file doesn't hold it all";

    AnswersText(Path("a.mid"));
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    EXPECT_TRUE(std::filesystem::exists(Path("a.mid")));
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(ShellFiles, AnUnknownExtensionIsAskedAboutByAPlainSave)
{
    AnswersText(Path("a.xyz"));
    Command(COMMAND_SAVEAS);
    EXPECT_FALSE(bScoreDirty) << "the dialog's type settles it";
    bScoreDirty = true;

    for (int i = 0; i < 4; ++i)
        Answers(Answer::NO);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages()[Messages().size() - 5], "Unknown file extension.  OK to write file as ZRN file?");
    EXPECT_EQ(Messages()[Messages().size() - 4], "OK to write as ABC file then??");
    EXPECT_EQ(Messages()[Messages().size() - 3], "OK to write as MIDI file maybe???");
    EXPECT_EQ(Messages()[Messages().size() - 2], "Well TAB then????");
    EXPECT_EQ(Messages().back(), "Don't know how you want it saved.  File NOT saved!");
    EXPECT_TRUE(bScoreDirty);

    Answers(Answer::YES);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages().back(), "Unknown file extension.  OK to write file as ZRN file?");
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(ShellFiles, ATuneFromATextFileIsNotSavedOverItAsTablature)
{
    std::string const szText = MakeFile("a.txt", sTwoTunes);
    Answers(Answer::NO);
    AnswersText(szText);
    AnswersRow(1);
    Command(COMMAND_OPEN);
    ASSERT_EQ(szFileName, szText);
    Answers(Answer::OK); // the name that the dialog proposes
    Command(COMMAND_SAVE);
    EXPECT_EQ(szFileName, Path("a.zrn"));
    EXPECT_TRUE(std::filesystem::exists(Path("a.zrn")));
    EXPECT_EQ(Bytes(szText), sTwoTunes);
}

TEST_F(ShellFiles, NewAsksAboutUnsavedMusic)
{
    std::string const sBefore = Read(1);
    Answers(Answer::CANCEL);
    Command(COMMAND_NEW);
    EXPECT_EQ(Messages(), std::vector<std::string>{sSaveQuestion});
    EXPECT_EQ(Read(1), sBefore);

    Answers(Answer::YES); // and the save dialog is cancelled
    Command(COMMAND_NEW);
    EXPECT_EQ(Read(1), sBefore);

    Answers(Answer::YES);
    AnswersText(Path("no/such/folder/a.zrn"));
    Command(COMMAND_NEW);
    EXPECT_EQ(Read(1), sBefore) << "a save that failed loses nothing";

    Answers(Answer::YES);
    AnswersText(Path("a.zrn"));
    AnswersNewTune();
    szFileName.clear();
    Command(COMMAND_NEW);
    EXPECT_EQ(Read(1), "clef:1 time:4/4");
    EXPECT_EQ(szFileName, "");
    EXPECT_EQ(Title(), "");
    EXPECT_TRUE(std::filesystem::exists(Path("a.zrn")));
}

TEST_F(ShellFiles, NewGivesUpUnsavedMusicOnNo)
{
    Answers(Answer::NO);
    AnswersNewTune("clef=2 key=8 time=1");
    Command(COMMAND_NEW);
    EXPECT_EQ(Read(1), "clef:3 key:2 time:3/4");
}

TEST_F(ShellFiles, NewCancelledAtItsDialogLeavesTheMusic)
{
    std::string const sBefore = Read(1);
    Answers(Answer::NO);
    Command(COMMAND_NEW);
    EXPECT_EQ(Messages().size(), 2u);
    EXPECT_EQ(Read(1), sBefore);
}

TEST_F(ShellFiles, ACleanScoreIsReplacedAtOnce)
{
    bScoreDirty = false;
    AnswersNewTune();
    Command(COMMAND_NEW);
    EXPECT_EQ(Messages().size(), 1u) << "nothing but the new tune's dialog";
    EXPECT_EQ(Read(1), "clef:1 time:4/4");
}

TEST_F(ShellFiles, AScoreFileOpensAtItsTop)
{
    std::string const szFile = SavedScore("a.zrn");
    AnswersNewTune();
    Command(COMMAND_NEW);
    process.user.shown.clear();
    lScroll = 50;
    AnswersText(szFile);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Open file"});
    EXPECT_EQ(Title(), szFile);
    EXPECT_EQ(szFileName, szFile);
    EXPECT_EQ(lScroll, 0);
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48");
    EXPECT_FALSE(bScoreDirty);
    EXPECT_TRUE(Window().bRepaintOwed);
    Update();
    EXPECT_EQ(Window().lScrollPlace, 0);
}

TEST_F(ShellFiles, OpenAsksAboutUnsavedMusic)
{
    std::string const sBefore = Read(1);
    Answers(Answer::CANCEL);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Messages(), std::vector<std::string>{sSaveQuestion});
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(ShellFiles, ACancelledOpenLeavesAllAsItWas)
{
    std::string const szFile = SavedScore("a.zrn");
    std::string const sBefore = Read(1);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_EQ(Title(), "a.zrn");
    EXPECT_EQ(szFileName, szFile);
}

TEST_F(ShellFiles, AFileThatDoesntOpenLeavesScoreNameAndTitle)
{
    std::string const szFile = SavedScore("a.zrn");
    std::string const sBefore = Read(1);
    AnswersText(Path("missing.zrn"));
    Command(COMMAND_OPEN);
    EXPECT_EQ(Messages().back(), "File didn't open");
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_EQ(Title(), "a.zrn");
    EXPECT_EQ(szFileName, szFile);
}

TEST_F(ShellFiles, AScoreFileThatIsntOneLeavesTheScoreUnlessTheUserWantsAbc)
{
    std::string const szWrong = MakeFile("wrong.zrn", sTwoTunes);
    std::string const sBefore = Read(1);
    Answers(Answer::NO);
    AnswersText(szWrong);
    Answers(Answer::NO);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Messages().back(), "File is not a ZARN file, try to open as ABC file?");
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_TRUE(bScoreDirty) << "nothing else changes";

    Answers(Answer::NO);
    AnswersText(szWrong);
    Answers(Answer::YES);
    AnswersRow(1);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Title(), "The Second (from file '" + szWrong + "')");
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(ShellFiles, HalfAScoreIsNotSavedOverTheWholeOne)
{
    std::string const szFile = SavedScore("a.zrn");
    std::string const sBytes = Bytes(szFile);
    std::string const szCut = MakeFile("cut.zrn", sBytes.substr(0, sBytes.size() - 60));
    AnswersText(szCut);
    Answers(Answer::NO);
    Command(COMMAND_OPEN);
    EXPECT_EQ(szFileName, "") << "Save has to ask for a name";
    EXPECT_EQ(Bytes(szFile), sBytes);
}

TEST_F(ShellFiles, ATuneIsChosenFromAnAbcFile)
{
    std::string const szAbc = MakeFile("a.abc", sTwoTunes);
    Answers(Answer::NO);
    AnswersText(szAbc);
    AnswersRow(1);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Title(), "The Second (from file '" + szAbc + "')");
    EXPECT_EQ(szAbcFile, szAbc);
    EXPECT_EQ(szAbcTune, "The Second");
    EXPECT_EQ(lTuneNumber, 3);
    EXPECT_TRUE(fAbcTuneOpen);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(ShellFiles, AnUnknownKindGoesToTheAbcReaderWithoutAQuestion)
{
    std::string const szFile = MakeFile("a.txt", sTwoTunes);
    bScoreDirty = false;
    AnswersText(szFile);
    AnswersRow(0);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Title(), "The First (from file '" + szFile + "')");
}

TEST_F(ShellFiles, ADroppedFileIsOpenedAsIfByTheDialog)
{
    std::string const szAbc = MakeFile("a.abc", sTwoTunes);
    Drop(szAbc); // unsaved music: cancelled
    EXPECT_EQ(Messages(), std::vector<std::string>{sSaveQuestion});
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48");

    Answers(Answer::NO);
    AnswersRow(0);
    Drop(szAbc);
    EXPECT_EQ(Title(), "The First (from file '" + szAbc + "')");
}

TEST_F(ShellFiles, ACleanScoreIsLeftAtOnce)
{
    bScoreDirty = false;
    Send(EventKind::CLOSE);
    EXPECT_TRUE(process.user.bQuit);
    EXPECT_EQ(process.user.lQuitCode, 0);
    EXPECT_TRUE(Window().bDestroyed);
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(ShellFiles, UnsavedMusicIsAskedAboutAtTheEnd)
{
    Command(COMMAND_EXIT);
    EXPECT_EQ(Messages(), std::vector<std::string>{sExitQuestion});
    EXPECT_FALSE(process.user.bQuit) << "Cancel stays";

    Answers(Answer::YES); // the save dialog is cancelled
    Command(COMMAND_EXIT);
    EXPECT_FALSE(process.user.bQuit);

    Answers(Answer::YES);
    AnswersText(Path("no/such/folder/a.zrn"));
    Command(COMMAND_EXIT);
    EXPECT_FALSE(process.user.bQuit) << "a failed save stays";

    Answers(Answer::NO);
    Send(EventKind::CLOSE);
    EXPECT_TRUE(process.user.bQuit);
}

TEST_F(ShellFiles, ASavedScoreLeaves)
{
    SavedScore("a.zrn");
    bScoreDirty = true;
    Answers(Answer::YES);
    Command(COMMAND_EXIT);
    EXPECT_TRUE(process.user.bQuit);
    EXPECT_EQ(Messages(), std::vector<std::string>{sExitQuestion});
}

TEST_F(ShellFiles, EventsBehindTheEndArePassedOver)
{
    bScoreDirty = false;
    Command(COMMAND_EXIT);
    Command(COMMAND_FULLADJUST);
    Send(EventKind::SIZE, 0, 300, 200);
    Window().Invalidate();
    Update();
    EXPECT_TRUE(process.user.shown.empty());
}
} // namespace zarn::test
