// Safety copies of unsaved work, and bringing them back.
#include "shell/session.h"

#include "file/native_format.h"
#include "platform/host.h"
#include "platform/lock_file.h"
#include "shell/file_on_disk.h"
#include "shell/session_file.h"
#include "support/shell_fixture.h"

#include <algorithm>

namespace zarn::test
{
namespace
{
constexpr uint32_t lTwoMinutesMs = 120000;

struct Sessions : Shell
{
    Sessions()
    {
        process.settings.values["First start done"] = 1;
        std::filesystem::create_directory(Path("state"));
        host.szStateFolder = Path("state");
    }

    /// Starts, and answers nothing.
    void Begin(std::string const& szFile = "")
    {
        ASSERT_TRUE(StartUp(szFile));
        Update();
    }
    void BeginWithUnsavedMusic()
    {
        Begin();
        process.user.shown.clear();
        Write(1, "clef:1 time:4/4 n0/48 n2/48");
        bScoreDirty = true;
    }
    /// Ends without a word, as a crash does: what lies in the folder stays.
    void Crash()
    {
        std::filesystem::path const kept = Path("kept");
        std::filesystem::create_directory(kept);
        for (auto const& entry : std::filesystem::directory_iterator(Path("state")))
            std::filesystem::create_hard_link(entry, kept / entry.path().filename()); // with the times of before
        ShutDown();
        std::filesystem::remove_all(Path("state"));
        std::filesystem::rename(kept, Path("state"));
        process.user.answers.clear();
        process.user.shown.clear();
        bScoreDirty = false;
    }
    std::vector<std::string> Files(std::string const& sEnding = "") const
    {
        std::vector<std::string> aNames;
        for (auto const& entry : std::filesystem::directory_iterator(Path("state")))
            if (entry.path().extension() == sEnding)
                aNames.push_back(entry.path().string());
        return aNames;
    }
    bool CopyIsThere() const { return !Files(".zrn").empty(); }
};
} // namespace

TEST_F(Sessions, UnsavedMusicIsCopiedEveryTwoMinutes)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs - 1);
    EXPECT_FALSE(CopyIsThere());
    process.user.Advance(1);
    EXPECT_TRUE(CopyIsThere());
    EXPECT_TRUE(bScoreDirty) << "a copy is no save";
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Sessions, HowOftenIsTheHosts)
{
    host.cAutosaveMs = 5000;
    BeginWithUnsavedMusic();
    process.user.Advance(5000);
    EXPECT_TRUE(CopyIsThere());
}

TEST_F(Sessions, SavedMusicIsNotCopied)
{
    BeginWithUnsavedMusic();
    bScoreDirty = false;
    process.user.Advance(lTwoMinutesMs);
    EXPECT_FALSE(CopyIsThere());
}

TEST_F(Sessions, ACopyIsMadeOnlyWhenTheScoreHasChanged)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    ASSERT_TRUE(CopyIsThere());
    std::string const szCopy = Files(".zrn").front();
    MakeFile("state/" + std::filesystem::path(szCopy).filename().string(), "mark");
    process.user.Advance(lTwoMinutesMs);
    EXPECT_EQ(Bytes(szCopy), "mark") << "not written again";
    Write(1, "n4/48");
    process.user.Advance(lTwoMinutesMs);
    EXPECT_NE(Bytes(szCopy), "mark");
}

TEST_F(Sessions, ACommandThatStandsHalfDoneIsWaitedFor)
{
    BeginWithUnsavedMusic();
    ++cEventsInHand;
    process.user.Advance(lTwoMinutesMs);
    EXPECT_FALSE(CopyIsThere());
    --cEventsInHand;
    process.user.Advance(lTwoMinutesMs);
    EXPECT_TRUE(CopyIsThere());
}

TEST_F(Sessions, TheCopyGoesWithTheSave)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    AnswersText(Path("a.zrn"));
    Command(COMMAND_SAVEAS);
    EXPECT_FALSE(CopyIsThere());
}

TEST_F(Sessions, AnOrderlyEndLeavesNothing)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    Answers(Answer::NO);
    Send(EventKind::CLOSE);
    EXPECT_TRUE(process.user.bQuit);
    EXPECT_TRUE(std::filesystem::is_empty(Path("state")));
}

TEST_F(Sessions, CopyingLeavesTheScoreAsItIs)
{
    BeginWithUnsavedMusic();
    StaffLast(1)->lString = 2;
    Element* const pelFirst = Prev(StaffLast(1));
    pelFirst->lA |= fFingeringStored; // of a note that has lost its string
    process.user.Advance(lTwoMinutesMs);
    EXPECT_EQ(StaffLast(1)->lA & fFingeringStored, 0);
    EXPECT_NE(pelFirst->lA & fFingeringStored, 0);
    Crash();
    Answers(Answer::YES);
    Begin();
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48/flag=256") << "and such a note doesn't spoil it";
}

TEST_F(Sessions, YesBringsTheWorkBackUnsavedUnderItsOldName)
{
    BeginWithUnsavedMusic();
    AnswersText(Path("a.zrn"));
    Command(COMMAND_SAVEAS);
    Write(1, "n4/48");
    bScoreDirty = true;
    process.user.Advance(lTwoMinutesMs);
    Crash();

    Answers(Answer::YES);
    Begin();
    ASSERT_EQ(Messages().size(), 1u) << "how to begin is no question any more";
    EXPECT_TRUE(Messages()[0].starts_with("Zarn came to an end while '" + Path("a.zrn") +
                                          "' was not saved.  There is a copy of it, made "))
        << Messages()[0];
    EXPECT_TRUE(Messages()[0].ends_with(
        "\n\nYes = Bring the copy back\nNo = Delete the copy\nCancel = Ask again at the next start"));
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48 n4/48");
    EXPECT_EQ(szFileName, Path("a.zrn"));
    EXPECT_EQ(Title(), Path("a.zrn"));
    EXPECT_TRUE(bScoreDirty);
    EXPECT_TRUE(Window().bModified);
    EXPECT_EQ(Files(".zrn").size(), 1u) << "this session's own copy alone";

    process.user.shown.clear();
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Messages().empty());
    EXPECT_FALSE(bScoreDirty);
    EXPECT_FALSE(CopyIsThere());
}

TEST_F(Sessions, NoDeletesTheCopyAndTheStartGoesOn)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    Crash();
    Answers(Answer::NO);
    Begin();
    ASSERT_EQ(Messages().size(), 2u);
    EXPECT_TRUE(Messages()[0].starts_with("Zarn came to an end while a new tune was not saved."));
    EXPECT_EQ(Messages()[1], "Open existing file or start new one?");
    EXPECT_FALSE(CopyIsThere());
    EXPECT_EQ(Read(1), "");
}

TEST_F(Sessions, CancelAsksAgainAtTheNextStart)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    Crash();
    Begin();
    EXPECT_EQ(Messages().size(), 2u);
    EXPECT_TRUE(CopyIsThere());
    Crash();
    Answers(Answer::YES);
    Begin();
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48");
}

TEST_F(Sessions, ACrashRightAfterItCameBackLosesNothing)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    Crash();
    Answers(Answer::YES);
    Begin();
    Crash();
    Answers(Answer::YES);
    Begin();
    EXPECT_EQ(Read(1), "clef:1 time:4/4 n0/48 n2/48");
}

TEST_F(Sessions, TheWorkOfAProgramThatLivesIsNotOffered)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    Crash();
    LockFile living;
    ASSERT_TRUE(living.Take(Files().front()));
    Begin();
    EXPECT_EQ(Messages(), std::vector<std::string>{"Open existing file or start new one?"});
    EXPECT_TRUE(CopyIsThere());
}

TEST_F(Sessions, TheLatestComesFirstAndTheOthersStay)
{
    for (char const* const sMusic : {"n0/48", "n1/48"})
    {
        Begin();
        Write(1, sMusic);
        bScoreDirty = true;
        process.user.Advance(lTwoMinutesMs);
        Crash();
        for (auto const& szFile : Files(".zrn"))
            std::filesystem::last_write_time(szFile, std::filesystem::last_write_time(szFile) -
                                                         std::chrono::hours(sMusic[1] == '0' ? 2 : 0));
    }
    Answers(Answer::YES);
    Begin();
    EXPECT_EQ(Read(1), "n1/48");
    EXPECT_EQ(Files(".zrn").size(), 2u);
}

TEST_F(Sessions, BesideACommandLineFileItIsOfferedToo)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    Crash();
    Begin(MakeFile("a.abc", sTwoTunes));
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_TRUE(Title().starts_with("The First")) << "cancelled";
}

TEST_F(Sessions, ATuneGoesHomeToItsFile)
{
    std::string const szAbc = MakeFile("two.abc", sTwoTunes);
    Begin();
    AnswersText(szAbc);
    AnswersRow(1);
    Command(COMMAND_OPEN);
    Write(1, "n5/48");
    bScoreDirty = true;
    process.user.Advance(lTwoMinutesMs);
    Crash();
    Answers(Answer::YES);
    Begin();
    EXPECT_EQ(Title(), "The Second (from file '" + szAbc + "')");
    process.user.shown.clear();
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Messages().empty()) << Messages().front();
    EXPECT_TRUE(Bytes(szAbc).starts_with("X:1\nT:The First\n"));
    EXPECT_NE(Bytes(szAbc).find("A2"), std::string::npos);
}

TEST_F(Sessions, AFileThatChangedSinceTheCrashIsAskedAbout)
{
    BeginWithUnsavedMusic();
    AnswersText(Path("a.zrn"));
    Command(COMMAND_SAVEAS);
    bScoreDirty = true;
    process.user.Advance(lTwoMinutesMs);
    Crash();
    MakeFile("a.zrn", "theirs");
    Answers(Answer::YES);
    Begin();
    Answers(Answer::NO);
    Command(COMMAND_SAVE);
    EXPECT_TRUE(Messages().back().starts_with("Another program has changed the file"));
    EXPECT_EQ(Bytes(Path("a.zrn")), "theirs");
}

TEST_F(Sessions, ASessionThatHadNothingUnsavedIsClearedAway)
{
    Begin();
    Crash();
    ASSERT_EQ(Files().size(), 1u);
    std::string const szOld = Files().front();
    Begin();
    EXPECT_FALSE(std::filesystem::exists(szOld));
    EXPECT_EQ(Messages(), std::vector<std::string>{"Open existing file or start new one?"});
}

TEST_F(Sessions, ACopyThatCantBeReadStaysAndIsTold)
{
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    Crash();
    std::string const szCopy = Files(".zrn").front();
    std::string const sBytes = Bytes(szCopy);
    std::filesystem::resize_file(szCopy, 6);
    Answers(Answer::YES);
    Begin();
    EXPECT_EQ(Messages()[1], "The copy can't be read.  It stays where it is.");
    EXPECT_TRUE(std::filesystem::exists(szCopy));
}

TEST_F(Sessions, ACopyThatCantBeWrittenIsToldOnce)
{
    BeginWithUnsavedMusic();
    std::filesystem::remove_all(Path("state"));
    process.user.Advance(3 * lTwoMinutesMs);
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_TRUE(Messages()[0].starts_with("The safety copy of your unsaved music could not be written"));
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(Sessions, WithoutAFolderThereAreNone)
{
    host.szStateFolder.clear();
    BeginWithUnsavedMusic();
    process.user.Advance(lTwoMinutesMs);
    EXPECT_TRUE(std::filesystem::is_empty(Path("state")));
}

TEST_F(Sessions, TheMarkOfTheTitleFollowsTheScore)
{
    Begin();
    EXPECT_FALSE(Window().bModified);
    bScoreDirty = true;
    Command(COMMAND_MINIADJUST);
    EXPECT_TRUE(Window().bModified);
    AnswersText(Path("a.zrn"));
    Command(COMMAND_SAVEAS);
    EXPECT_FALSE(Window().bModified);
    EXPECT_EQ(Title(), "a.zrn");
}

TEST(SessionNames, ComeBackAsTheyWentOut)
{
    for (auto const& names :
         {SessionNames{}, SessionNames{"/a b/x%0A.zrn", true, "", "", -1, {}, {"/a b/x%0A.zrn", FileStamp{5, 6, 7}}},
          SessionNames{"/b\n.abc", false, "/c\r.abc", "A=B%", 12, -3, {"/b\n.abc", std::nullopt}}})
    {
        SessionNames const back = SessionNames_Read(SessionNames_Write(names));
        EXPECT_EQ(back.szFile, names.szFile);
        EXPECT_EQ(back.bNative, names.bNative);
        EXPECT_EQ(back.szAbc, names.szAbc);
        EXPECT_EQ(back.szTune, names.szTune);
        EXPECT_EQ(back.lTune, names.lTune);
        EXPECT_EQ(back.lPlace, names.lPlace);
        EXPECT_EQ(back.known.szName, names.known.szName);
        EXPECT_EQ(back.known.stamp, names.known.stamp);
    }
}

TEST(SessionNames, AreReadFromAnyBytes)
{
    EXPECT_EQ(SessionNames_Read("").szFile, "");
    SessionNames const names =
        SessionNames_Read("file=/a\nnonsense\n=\nnumber=x\nstamp=9999999999999999999999 1\nfile");
    EXPECT_EQ(names.szFile, "/a");
    EXPECT_EQ(names.lTune, -1);
}
} // namespace zarn::test
