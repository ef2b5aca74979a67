// The files that were in hand last, in the File menu, and the folder of the last one.
#include "shell/recent_files.h"

#include "core/settings.h"
#include "platform/commdlg.h"
#include "shell/command_list.h"
#include "shell/file_names.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
struct RecentFiles : Shell
{
    void SetUp() override { Start(); }

    std::string Item(int32_t lNumber) { return Window().ItemText(COMMAND_RECENT + lNumber); }
    std::string Folder() const { return pFolder.string(); }
    std::string MakeTune(std::string const& szName) const { return MakeFile(szName, sTwoTunes); }
    void Open(std::string const& szPath)
    {
        AnswersText(szPath);
        AnswersRow(0);
        Command(COMMAND_OPEN);
    }
};
} // namespace

TEST_F(RecentFiles, AreNoneAtFirst)
{
    for (int32_t l = 1; l <= lMostRecent; ++l)
        EXPECT_EQ(Item(l), "") << l;
    process.user.shown.clear();
    Command(COMMAND_RECENT + 1);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(RecentFiles, TheLastOneStandsFirstAndEachOnce)
{
    Open(MakeTune("a.abc"));
    Open(MakeTune("b.abc"));
    EXPECT_EQ(Item(1), "&1 b.abc - " + Folder());
    EXPECT_EQ(Item(2), "&2 a.abc - " + Folder());
    Open(Path("a.abc"));
    EXPECT_EQ(Item(1), "&1 a.abc - " + Folder());
    EXPECT_EQ(Item(2), "&2 b.abc - " + Folder());
    EXPECT_EQ(Item(3), "");
}

TEST_F(RecentFiles, AreNineAtMost)
{
    for (char c = 'a'; c <= 'k'; ++c)
        Open(MakeTune(std::string(1, c) + ".abc"));
    EXPECT_EQ(Item(1), "&1 k.abc - " + Folder());
    EXPECT_EQ(Item(9), "&9 c.abc - " + Folder());
    EXPECT_EQ(LoadTexts("Recent files").size(), 9u);
}

TEST_F(RecentFiles, ASavedFileIsOneAndACancelledOrFailedSaveIsNot)
{
    AnswersText(Path("a.zrn"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Item(1), "&1 a.zrn - " + Folder());
    Command(COMMAND_SAVEAS);
    AnswersText(Path("no/such/b.zrn"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Item(2), "");
}

TEST_F(RecentFiles, AreOpenedFromTheMenuWithTheQuestionAboutUnsavedMusic)
{
    AnswersText(Path("a.zrn"));
    Command(COMMAND_SAVEAS);
    Write(1, "n0/48");
    bScoreDirty = true;
    process.user.shown.clear();
    Command(COMMAND_RECENT + 1);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Not yet saved as ZRN file. Save Now?"});
    EXPECT_TRUE(bScoreDirty) << "cancelled";

    Answers(Answer::NO);
    Command(COMMAND_RECENT + 1);
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(szFileName, Path("a.zrn"));
}

TEST_F(RecentFiles, OneThatHasGoneIsToldAndLeavesTheList)
{
    Open(MakeTune("a.abc"));
    Open(MakeTune("b.abc"));
    std::filesystem::remove(Path("a.abc"));
    Command(COMMAND_RECENT + 2);
    EXPECT_EQ(Messages().back(), "File didn't open");
    EXPECT_EQ(Item(1), "&1 b.abc - " + Folder());
    EXPECT_EQ(Item(2), "");
}

TEST_F(RecentFiles, ANameIsShownAsItIs)
{
    Open(MakeTune("this & that\t.abc"));
    EXPECT_EQ(Item(1), "&1 this && that .abc - " + Folder());
}

TEST_F(RecentFiles, TheListOfAllCommandsLeavesThemOut)
{
    for (CommandLine const& line : CommandList())
        EXPECT_FALSE(line.lCommand > COMMAND_RECENT && line.lCommand <= COMMAND_RECENT + lMostRecent);
}

TEST_F(RecentFiles, TheFolderOfTheLastOneIsRemembered)
{
    EXPECT_EQ(Recent_Folder(), "");
    std::filesystem::create_directories(Path("deep/er"));
    Open(MakeTune("deep/er/a.abc"));
    EXPECT_EQ(Recent_Folder(), Path("deep/er"));
}

struct RecentStart : Shell
{
};

TEST_F(RecentStart, TheListComesBackAndTheFileOfTheCommandLineHeadsIt)
{
    process.settings.values["First start done"] = 1;
    process.settings.texts["Recent files"] = {"/tunes/one.abc", "/two.abc"};
    ASSERT_TRUE(StartUp(MakeFile("three.abc", sTwoTunes)));
    EXPECT_EQ(Window().ItemText(COMMAND_RECENT + 1), "&1 three.abc - " + pFolder.string());
    EXPECT_EQ(Window().ItemText(COMMAND_RECENT + 2), "&2 one.abc - /tunes");
    EXPECT_EQ(Window().ItemText(COMMAND_RECENT + 3), "&3 two.abc - /");
}

TEST_F(RecentStart, ANameOfTheCommandLineIsRememberedWhole)
{
    process.settings.values["First start done"] = 1;
    auto const before = std::filesystem::current_path();
    MakeFile("three.abc", sTwoTunes);
    std::filesystem::current_path(pFolder);
    ASSERT_TRUE(StartUp("./three.abc"));
    std::filesystem::current_path(before);
    EXPECT_EQ(LoadTexts("Recent files"), std::vector<std::string>{Path("three.abc")});
}
} // namespace zarn::test
