// Saving a tune as ABC in the window: which questions come, and where the tune goes.
#include "shell/abc_save.h"

#include "abc/abc_write.h"
#include "shell/command_numbers.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
constexpr char const* sAbroadQuestion =
    "Yes = Append this tune to end of file\nNo = overwrite old contents of file with just this tune";
constexpr char const* sHomeQuestion = "Yes = Append this tune to end of file\nNo = Replace tune in file";
/// The score of most tests as a tune, behind its X: line.
constexpr char const* sNewBody = "\nT:\nL:1/8\nM:4/4\nK:C\nC2 E2 \n";

struct ShellAbcSave : Shell
{
    void SetUp() override
    {
        Start();
        bUseCrlf = false;
        AnswersNewTune();
        Command(COMMAND_NEW);
        Write(1, "n0/48 n2/48");
        bScoreDirty = true;
        process.user.shown.clear();
    }
    /// Opens the tune of a row, and forgets what was asked on the way.
    void OpenTune(std::string const& szFile, int32_t lRow)
    {
        bScoreDirty = false;
        AnswersText(szFile);
        AnswersRow(lRow);
        Command(COMMAND_OPEN);
        process.user.shown.clear();
    }
    /// Save As under a name, by the row of file types that belongs to ABC.
    void SaveAs(std::string const& szFile)
    {
        AnswersRow(1);
        AnswersText(szFile);
    }
    /// What was asked since the dialog.
    std::vector<std::string> Asked() const
    {
        std::vector<std::string> aMessages = Messages();
        if (!aMessages.empty() && aMessages[0] == "Save file")
            aMessages.erase(aMessages.begin());
        return aMessages;
    }
    using Texts = std::vector<std::string>;
};
} // namespace

TEST_F(ShellAbcSave, ANewFileTakesTheTuneWithoutAQuestion)
{
    SaveAs(Path("a.abc"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages(), Texts{"Save file"});
    EXPECT_EQ(Bytes(Path("a.abc")), std::string("X:0") + sNewBody);
    EXPECT_EQ(lTuneNumber, -1);
    EXPECT_EQ(Title(), "a.abc");
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(ShellAbcSave, AnotherFileThatIsThereIsAskedAbout)
{
    std::string const szFile = MakeFile("b.abc", "X:1\nK:C\nA|\n\nX:5\nK:C\nB|\n");
    std::string const sOld = Bytes(szFile);

    SaveAs(szFile);
    Command(COMMAND_SAVEAS); // cancelled at the question
    EXPECT_EQ(Asked(), Texts{sAbroadQuestion});
    EXPECT_EQ(Bytes(szFile), sOld);
    EXPECT_EQ(lTuneNumber, -1);
    EXPECT_TRUE(bScoreDirty);

    SaveAs(szFile);
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(lTuneNumber, 7);
    EXPECT_EQ(Bytes(szFile), sOld + "\r\n\r\nX:6" + sNewBody);

    SaveAs(szFile);
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(lTuneNumber, -1);
    EXPECT_EQ(Bytes(szFile), std::string("X:0") + sNewBody);
}

TEST_F(ShellAbcSave, APlainSaveOfATuneFromNoFileAsksAgain)
{
    SaveAs(Path("a.abc"));
    Command(COMMAND_SAVEAS);
    process.user.shown.clear();
    Answers(Answer::NO);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages(), Texts{sAbroadQuestion});
    EXPECT_EQ(Bytes(Path("a.abc")), std::string("X:0") + sNewBody);
}

TEST_F(ShellAbcSave, APlainSaveGoesBackToItsOwnPlaceWithoutAQuestion)
{
    std::string const szFile = MakeFile("a.abc", sTwoTunes);
    OpenTune(szFile, 0);
    Write(1, "n5/24");
    bScoreDirty = true;
    Command(COMMAND_SAVE);
    EXPECT_EQ(Asked(), Texts{});
    std::string const sNew = Bytes(szFile);
    EXPECT_TRUE(sNew.starts_with("X:1\nT:The First\n")) << sNew;
    EXPECT_TRUE(sNew.ends_with("A \nX:2\nT:The Second\nM:3/4\nL:1/4\nK:G\nGAB|\n\n")) << sNew;
    EXPECT_EQ(lTuneNumber, 2) << "the place stays for the next save";
    EXPECT_FALSE(fAbcTuneOpen);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(ShellAbcSave, SaveAsOntoItsOwnFileAsksWhetherToReplaceOrAppend)
{
    std::string const szFile = MakeFile("a.abc", sTwoTunes);
    OpenTune(szFile, 1);
    SaveAs(szFile);
    Command(COMMAND_SAVEAS); // cancelled
    EXPECT_EQ(Asked(), Texts{sHomeQuestion});
    EXPECT_EQ(Bytes(szFile), sTwoTunes);
    EXPECT_EQ(lTuneNumber, 3);
    EXPECT_TRUE(fAbcTuneOpen);

    SaveAs(szFile);
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(lTuneNumber, 4);
    EXPECT_TRUE(Bytes(szFile).starts_with(std::string(sTwoTunes) + "\r\n\r\nX:3\nT:The Second\n"));

    process.user.shown.clear();
    std::string const sAppended = Bytes(szFile);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Asked(), Texts{}) << "it is found again by its new number";
    EXPECT_EQ(Bytes(szFile), sAppended);

    SaveAs(szFile);
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(lTuneNumber, 4);
    EXPECT_EQ(Bytes(szFile), sAppended);
}

TEST_F(ShellAbcSave, ATuneThatWasSavedElsewhereComesHomeToItsOwnPlace)
{
    std::string const szHome = MakeFile("home.abc", sTwoTunes);
    std::string const szElsewhere = MakeFile("else.abc", "X:1\nK:C\nA|\n");
    OpenTune(szHome, 0);
    SaveAs(szElsewhere);
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    ASSERT_EQ(lTuneNumber, 3) << "X:2 of the other file";
    SaveAs(szHome);
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(lTuneNumber, 2);
    EXPECT_NE(Bytes(szHome).find("T:The Second\nM:3/4\nL:1/4\nK:G\nGAB|"), std::string::npos)
        << "X:2 of the home file is another tune";
}

TEST_F(ShellAbcSave, AFileOfOneTuneStaysOne)
{
    std::string const szFile = MakeFile("one.abc", "X:4\nT:One\nK:C\nA|\n");
    OpenTune(szFile, 0);
    ASSERT_EQ(lTuneNumber, -5);
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Bytes(szFile).starts_with("X:4\nT:One\nL:1/8\n")) << Bytes(szFile);
    EXPECT_EQ(Bytes(szFile).find("X:", 1), std::string::npos);
}

TEST_F(ShellAbcSave, ASickFileGetsTheTuneAtItsEnd)
{
    std::string const sSick = "X:1\nT:One\nK:C\nA|\n\nX:1\nT:Two\nK:C\nB|\n";
    std::string const szFile = MakeFile("sick.abc", sSick);
    OpenTune(szFile, 0);
    ASSERT_EQ(lTuneNumber, 0);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Asked(), Texts{"Cannot understand the index numbers in the file.\r\n"
                             "Appending tune to save to end of file."});
    EXPECT_TRUE(Bytes(szFile).starts_with(sSick + "\r\n\r\nX:0\nT:One\n"));
}

TEST_F(ShellAbcSave, ANumberBeyondAllOthersIsNotTrusted)
{
    std::string const sHighest = "X:2147483646\nT:Low\nK:C\nA|\n\nX:2147483647\nT:High\nK:C\nB|\n";
    std::string const szFile = MakeFile("high.abc", sHighest);
    OpenTune(szFile, 1);
    EXPECT_EQ(lTuneNumber, 0);
    SaveAs(szFile);
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    EXPECT_TRUE(Bytes(szFile).starts_with(sHighest)) << "nothing is replaced";
}

TEST_F(ShellAbcSave, CaseAloneTellsTwoFilesApartWhereTheDiskDoes)
{
    std::string const szFile = MakeFile("a.abc", sTwoTunes);
    OpenTune(szFile, 0);
    bool const bOneFile = std::filesystem::exists(Path("A.ABC"));
    SaveAs(Path("A.ABC"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Asked(), bOneFile ? Texts{sHomeQuestion} : Texts{});
    EXPECT_EQ(Bytes(szFile), sTwoTunes);
}

TEST_F(ShellAbcSave, AFullDiskLeavesFileAndScoreAsTheyWere)
{
    std::string const szFile = MakeFile("a.abc", sTwoTunes);
    OpenTune(szFile, 0);
    bScoreDirty = true;
    cbDiskLeft = 100;
    Command(COMMAND_SAVE);
    cbDiskLeft = -1;
    EXPECT_EQ(Asked(), Texts{"File failed to save (catastrophic error? out of space? read only file?)"});
    EXPECT_EQ(Bytes(szFile), sTwoTunes);
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(ShellAbcSave, AnUnknownExtensionCanBeAbc)
{
    AnswersText(Path("a.xyz"));
    Command(COMMAND_SAVEAS);
    process.user.shown.clear();
    Answers(Answer::NO);
    Answers(Answer::YES);
    Answers(Answer::NO);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages(), (Texts{"Unknown file extension.  OK to write file as ZRN file?",
                                 "OK to write as ABC file then??", sAbroadQuestion}));
    EXPECT_EQ(Bytes(Path("a.xyz")), std::string("X:0") + sNewBody);
}

TEST_F(ShellAbcSave, AnExtensionOfAnotherTypeIsAskedAbout)
{
    SaveAs(Path("a.zrn"));
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Asked(), Texts{"File name extension conflicts with type.  Yes = use type, No = use extension"});
    EXPECT_EQ(Bytes(Path("a.zrn")), std::string("X:0") + sNewBody);
}

TEST_F(ShellAbcSave, ANameWithoutExtensionGetsThatOfTheNameInHand)
{
    SaveAs(Path("a.abc"));
    Command(COMMAND_SAVEAS);
    SaveAs(Path("b"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(szFileName, Path("b.abc"));
}

TEST_F(ShellAbcSave, TheLineEndOptionIsCheckedAndStored)
{
    bUseCrlf = true;
    Command(COMMAND_USECRLF);
    EXPECT_FALSE(bUseCrlf);
    EXPECT_FALSE(Checked(COMMAND_USECRLF));
    EXPECT_EQ(process.settings.values["Use CRLF for ABC"], 0);
    Command(COMMAND_USECRLF);
    EXPECT_TRUE(bUseCrlf);
    EXPECT_TRUE(Checked(COMMAND_USECRLF));
    EXPECT_EQ(process.settings.values["Use CRLF for ABC"], 1);
}

struct ShellAbcOption : Shell
{
};

TEST_F(ShellAbcOption, ComesBackAtTheNextStart)
{
    process.settings.values["Use CRLF for ABC"] = 0;
    Start();
    EXPECT_FALSE(bUseCrlf);
    EXPECT_FALSE(Checked(COMMAND_USECRLF));
}

TEST_F(ShellAbcOption, IsOnAtTheFirstStart)
{
    Start();
    EXPECT_TRUE(bUseCrlf);
    EXPECT_TRUE(Checked(COMMAND_USECRLF));
}
} // namespace zarn::test
