#include "support/shell_fixture.h"

#include "file/native.h"
#include "platform/memory.h"
#include "shell/load.h"

namespace zarn::test
{
namespace
{
struct StartUpTest : Shell
{
    /// A saved score of one staff.
    std::string MakeScoreFile(std::string const& szName)
    {
        Score_StartUp();
        Write(1, "clef:1 time:4/4 n0/48 n2/48 n4/48 n6/48 |");
        HFILE const hFile = _lcreat(Path(szName));
        EXPECT_EQ(Native_Write(hFile), 1);
        EXPECT_TRUE(_lclose(hFile));
        Score_DestroyLists();
        return Path(szName);
    }
};
} // namespace

TEST_F(StartUpTest, AStartWithoutAFileAsksOnceThePictureIsThere)
{
    process.settings.values["First start done"] = 1;
    ASSERT_TRUE(StartUp(""));
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_EQ(Window().cPaints, 1);
    Update();
    ASSERT_EQ(process.user.shown.size(), 1u);
    EXPECT_EQ(process.user.shown[0].sText, "Open existing file or start new one?");
    EXPECT_EQ(process.user.shown[0].sCaption, "File source");
    Window().Invalidate();
    Update();
    EXPECT_EQ(process.user.shown.size(), 1u) << "the question comes once";
}

TEST_F(StartUpTest, TheVeryFirstStartTellsFiveThingsAndTheNextDoesnt)
{
    ASSERT_TRUE(StartUp(""));
    Update();
    ASSERT_EQ(process.user.shown.size(), 2u);
    EXPECT_EQ(process.user.shown[0].sText,
              "LEFT mouse button ADDS symbol to score.\r\n\r\nRIGHT mouse button DELETES.\r\n\r\n"
              "Symbol menu selects symbol.\r\n\r\nKeyboard shortcuts are quicker.\r\n"
              "(Keyboard mode is even quicker still).");
    EXPECT_EQ(process.user.shown[0].lFlags, MB_OK | MB_ICONINFORMATION);
    ShutDown();
    process.user.shown.clear();
    ASSERT_TRUE(StartUp(""));
    Update();
    EXPECT_EQ(process.user.shown.size(), 1u);
}

TEST_F(StartUpTest, CancelLeavesAnEmptyScore)
{
    Start();
    EXPECT_EQ(Title(), "Zarn");
    EXPECT_EQ(StaffFirst(1), nullptr);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(StartUpTest, NewBeginsATune)
{
    process.settings.values["First start done"] = 1;
    Answers(Answer::SECOND);
    AnswersNewTune();
    ASSERT_TRUE(StartUp(""));
    Update();
    EXPECT_EQ(Title(), "");
    EXPECT_EQ(Read(1), "clef:1 time:4/4");
}

TEST_F(StartUpTest, OpenAsksForAFile)
{
    std::string const szFile = MakeScoreFile("a.zrn");
    process.settings.values["First start done"] = 1;
    Answers(Answer::FIRST);
    AnswersText(szFile);
    ASSERT_TRUE(StartUp(""));
    Update();
    EXPECT_EQ(Title(), szFile);
    ASSERT_NE(At(1, 2), nullptr);
    EXPECT_EQ(At(1, 2)->sort, NOTE);
}

TEST_F(StartUpTest, ACommandLineFileStopsTheQuestion)
{
    std::string const szFile = MakeScoreFile("a.zrn");
    ASSERT_TRUE(StartUp(szFile));
    Update();
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_EQ(Title(), szFile);
    EXPECT_EQ(szFileName, szFile);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(StartUpTest, AQuoteAtEitherEndIsTakenOff)
{
    std::string const szFile = MakeScoreFile("a b.zrn");
    for (std::string const& szCommandLine : {'"' + szFile + '"', '"' + szFile, szFile + '"'})
    {
        ASSERT_TRUE(StartUp(szCommandLine));
        EXPECT_EQ(Title(), szFile) << szCommandLine;
        ShutDown();
    }
    ASSERT_TRUE(StartUp("\"\"a.zrn\"\""));
    EXPECT_EQ(Title(), "Error opening <\"a.zrn\">") << "one at each end";
}

TEST_F(StartUpTest, AFileThatIsntThereShowsInTheTitle)
{
    ASSERT_TRUE(StartUp("/no/such/file.zrn"));
    EXPECT_EQ(Title(), "Error opening </no/such/file.zrn>");
    EXPECT_EQ(szFileName, "");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(StartUpTest, AnotherKindOfFileIsOfferedAsAbcAndRefused)
{
    std::string const szFile = MakeFile("a.dat", sTwoTunes);
    Answers(Answer::NO);
    ASSERT_TRUE(StartUp(szFile));
    EXPECT_EQ(Title(), "Error reading <" + szFile + ">");
    EXPECT_EQ(Messages(), std::vector<std::string>{"File is not a ZRN file - try to open as ABC?"});
    EXPECT_EQ(StaffFirst(1), nullptr);
}

TEST_F(StartUpTest, AnotherKindOfFileIsReadAsAbcOnYes)
{
    std::string const szFile = MakeFile("a.dat", sTwoTunes);
    Answers(Answer::YES);
    ASSERT_TRUE(StartUp(szFile));
    EXPECT_EQ(Title(), "The First (from file '" + szFile + "')");
    EXPECT_EQ(szAbcFile, szFile);
}

TEST_F(StartUpTest, TheFirstTuneOfAnAbcFileIsReadWithoutAsking)
{
    std::string const szFile = MakeFile("a.ABC", sTwoTunes);
    ASSERT_TRUE(StartUp(szFile));
    EXPECT_TRUE(process.user.shown.empty());
    EXPECT_EQ(Title(), "The First (from file '" + szFile + "')");
    EXPECT_EQ(lTuneNumber, 2) << "tune 1 of many";
    EXPECT_TRUE(fAbcTuneOpen);
    EXPECT_FALSE(bScoreDirty);
    EXPECT_NE(StaffFirst(1), nullptr);
}

TEST_F(StartUpTest, ADamagedScoreWithAnAbcNameGoesToTheAbcReaderWithoutAQuestion)
{
    std::string const sHead = Bytes(MakeScoreFile("a.zrn")).substr(0, 60);
    std::string const szFile = MakeFile("b.ABC", sHead + "\r\n\r\nX:1\r\nT:Mended\r\nK:C\r\nCDEF|\r\n");
    ASSERT_TRUE(StartUp(szFile));
    for (Shown const& shown : process.user.shown)
        EXPECT_EQ(shown.lFlags & MB_ICONQUESTION, 0u) << shown.sText;
    EXPECT_EQ(Title(), "Mended (from file '" + szFile + "')");
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(StartUpTest, AnAbcNameWithoutATuneCantBeRead)
{
    std::string const szFile = MakeFile("a.abc", "no tune here\n");
    ASSERT_TRUE(StartUp(szFile));
    EXPECT_EQ(Title(), "Error reading <" + szFile + ">");
    EXPECT_EQ(szFileName, "");
}

TEST_F(StartUpTest, TheWindowBeginsWithItsStoredPage)
{
    process.settings.values = {{"First start done", 1},           {"Left margin percent", 10},
                               {"Leger notes above staff", 6},    {"Extra between systems", 3},
                               {"Font size scaling factor", 120}, {"Guitar chords below staff", 0}};
    Start();
    EXPECT_EQ(lMarginLeft, 10);
    EXPECT_EQ(lLeftMarginPx, 120);
    EXPECT_EQ(lLegersAbove, 6);
    EXPECT_EQ(lLegersBelow, 9) << "the default 8 and one";
    EXPECT_EQ(lExtraBetweenSystems, 3);
    EXPECT_EQ(lStaffHeight, 6 + 8 + 9);
    EXPECT_FALSE(bChordsBelowStaff);
    EXPECT_FALSE(Checked(COMMAND_CHORDSBELOW));
    EXPECT_EQ(Window().ItemText(COMMAND_LEFTMARGIN), "Left margin percent (10)...");
    EXPECT_EQ(Window().ItemText(COMMAND_RIGHTMARGIN), "Right margin percent...");
    EXPECT_EQ(Window().ItemText(COMMAND_FONTSCALE), "Font size scaling factor (120%)... ");
    EXPECT_EQ(Window().Pointer(), (POINT{20, 20}));
}

TEST_F(StartUpTest, TheChecksTellTheOptions)
{
    Start();
    for (int32_t const lCommand : {201, 203, 216, 220, 227, 501})
        EXPECT_TRUE(Checked(lCommand)) << lCommand;
    for (int32_t const lCommand : {202, 215, 502, 508})
        EXPECT_FALSE(Checked(lCommand)) << lCommand;
}

TEST_F(StartUpTest, WithoutAWindowThereIsNoProgram)
{
    process.user.bWindowWorks = false;
    EXPECT_FALSE(StartUp(""));
}

TEST_F(StartUpTest, NothingIsLeftBehind)
{
    ShutDown();
    int32_t const cObjects = cGdiObjects;
    int32_t const cBlocks = cGlobalBlocks;
    Start();
    Window().Invalidate();
    Update();
    EXPECT_EQ(Window().cDrawsOpen, 0);
    ShutDown();
    EXPECT_EQ(cGdiObjects, cObjects);
    EXPECT_EQ(cGlobalBlocks, cBlocks);
}

TEST_F(StartUpTest, AConversionReadsByTheSameRoad)
{
    std::string const szAbc = MakeFile("a.abc", sTwoTunes);
    Score_StartUp();
    Page_StartUp(1200, 800);
    std::string sError;
    EXPECT_TRUE(LoadForExport(szAbc, 2, &sError)) << sError;
    EXPECT_EQ(szAbcTune, "The Second");
    EXPECT_FALSE(LoadForExport(szAbc, 7, &sError));
    EXPECT_EQ(sError, "the file has no tune X:7");
    EXPECT_FALSE(LoadForExport("/no/such/file.zrn", lFirstTune, &sError));
    EXPECT_EQ(sError, "the file can't be opened");
    EXPECT_FALSE(LoadForExport(MakeFile("a.mid", "MThd"), lFirstTune, &sError));
    EXPECT_EQ(sError, "the MIDI file is damaged, or of a kind that can't be read");
    EXPECT_FALSE(LoadForExport(MakeFile("b.abc", ""), lFirstTune, &sError));
    EXPECT_EQ(sError, "the file holds no tune: no line begins X:");
    EXPECT_FALSE(LoadForExport(MakeFile("c.txt", sTwoTunes), lFirstTune, &sError));
    EXPECT_EQ(sError, "the file can't be read as a Zarn score; the name of an ABC file ends in .abc");
    EXPECT_TRUE(LoadForExport(szAbc, lFirstTune, &sError)) << sError;
    EXPECT_EQ(szAbcTune, "The First");
}
} // namespace zarn::test
