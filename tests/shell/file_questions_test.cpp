// Each answer of each question that stands ahead of opening and saving.
#include "shell/files.h"

#include "support/shell_fixture.h"
#include "tab/tablature.h"

#include <algorithm>
#include <iterator>

namespace zarn::test
{
namespace
{
constexpr char const* sSaveQuestion = "Not yet saved as ZRN file. Save Now?";
constexpr char const* sConflict = "File name extension conflicts with type.  Yes = use type, No = use extension";
constexpr int32_t lNoTypeAnswer = -1;
/// The rows of the save dialog's types.
enum TypeRow : int32_t
{
    TYPE_NATIVE,
    TYPE_ABC,
    TYPE_EXCHANGE,
    TYPE_PERFORMANCE,
    TYPE_TAB,
    TYPE_TEXT
};

struct FileQuestions : Shell
{
    void SetUp() override
    {
        Start();
        AnswersNewTune();
        Command(COMMAND_NEW);
        Write(1, "n0/48 n2/48");
        Command(COMMAND_MINIADJUST);
        bScoreDirty = true;
        process.user.shown.clear();
    }
    void SaveAs(std::string const& szName, int32_t lType = lNoTypeAnswer)
    {
        if (lType != lNoTypeAnswer)
            process.user.answers.push_back({.kind = Answer::ROW, .lNumber = lType});
        AnswersText(Path(szName));
    }
    bool IsThere(std::string const& szName) const { return std::filesystem::exists(Path(szName)); }
};
} // namespace

TEST_F(FileQuestions, OpenStopsWhenTheSaveIsCancelled)
{
    Answers(Answer::YES); // and then nothing
    Command(COMMAND_OPEN);
    EXPECT_EQ(Messages(), (std::vector<std::string>{sSaveQuestion, "Save file"}));
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(FileQuestions, OpenGoesOnBehindASave)
{
    std::string const szAbc = MakeFile("two.abc", sTwoTunes);
    Answers(Answer::YES);
    SaveAs("a.zrn");
    AnswersText(szAbc);
    AnswersRow(0);
    Command(COMMAND_OPEN);
    EXPECT_TRUE(IsThere("a.zrn"));
    EXPECT_EQ(szFileName, szAbc);
}

TEST_F(FileQuestions, OpenGoesOnToItsDialogBehindASaveThatFailed)
{
    Answers(Answer::YES);
    SaveAs("no/such/a.zrn");
    Command(COMMAND_OPEN);
    EXPECT_EQ(Messages(),
              (std::vector<std::string>{sSaveQuestion, "Save file", "File didn't open - NOT saved!", "Open file"}));
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(FileQuestions, NewGoesOnToItsDialogBehindASaveThatFailed)
{
    std::string const sBefore = Read(1);
    Answers(Answer::YES);
    SaveAs("no/such/a.zrn");
    Command(COMMAND_NEW);
    ASSERT_EQ(Messages().size(), 4u);
    EXPECT_EQ(Messages()[3], "New tune - select clef, key signature and time signature ");
    EXPECT_EQ(Read(1), sBefore) << "cancelled there";
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(FileQuestions, AFileThatIsDroppedStaysOutsideWhenTheSaveFailed)
{
    std::string const sBefore = Read(1);
    Answers(Answer::YES);
    SaveAs("no/such/a.zrn");
    Drop(MakeFile("two.abc", sTwoTunes));
    EXPECT_EQ(Messages().back(), "File didn't open - NOT saved!");
    EXPECT_EQ(Read(1), sBefore) << "nothing asks again";
}

TEST_F(FileQuestions, AWrongScoreFileIsLeftAloneOnCancel)
{
    std::string const szWrong = MakeFile("wrong.zrn", sTwoTunes);
    std::string const sBefore = Read(1);
    std::string const sTitle = Title();
    bScoreDirty = false;
    AnswersText(szWrong);
    Answers(Answer::CANCEL);
    Command(COMMAND_OPEN);
    EXPECT_EQ(Messages().back(), "File is not a ZARN file, try to open as ABC file?");
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_EQ(Title(), sTitle);
}

TEST_F(FileQuestions, EachTypeAndEachNameThatDisagreeAreAskedAbout)
{
    struct
    {
        char const* sName;
        TypeRow type;
        bool bAsked;
    } const aCase[] = {
        {"a.zrn", TYPE_NATIVE, false},      {"a.abc", TYPE_ABC, false},     {"a.mid", TYPE_EXCHANGE, false},
        {"a.MID", TYPE_PERFORMANCE, false}, {"a.tab", TYPE_TAB, false},     {"a.txt", TYPE_TAB, false},
        {"a.xyz", TYPE_NATIVE, false},      {"b.abc", TYPE_NATIVE, true},   {"b.zrn", TYPE_ABC, true},
        {"b.abc", TYPE_PERFORMANCE, true},  {"b.zrn", TYPE_TAB, true},      {"b.txt", TYPE_TEXT, true},
        {"b.tab", TYPE_TEXT, true},         {"b.abc", TYPE_EXCHANGE, true},
    };
    for (auto const& c : aCase)
    {
        process.user.shown.clear();
        SaveAs(c.sName, c.type);
        Command(COMMAND_SAVEAS);
        auto const aMessages = Messages();
        EXPECT_EQ(std::count(aMessages.begin(), aMessages.end(), sConflict), c.bAsked ? 1 : 0) << c.sName << c.type;
        EXPECT_FALSE(c.bAsked && IsThere(c.sName)) << c.sName << ": cancelled";
    }
}

TEST_F(FileQuestions, ATextNameWithTheTextTypeSavesNothingOnYesAndTablatureOnNo)
{
    Tab_SetShown(true);
    SaveAs("a.txt", TYPE_TEXT);
    Answers(Answer::YES);
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Save file", sConflict})) << "with no word";
    EXPECT_FALSE(IsThere("a.txt"));

    SaveAs("a.txt", TYPE_TEXT);
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    EXPECT_TRUE(IsThere("a.txt"));
    EXPECT_TRUE(bScoreDirty);
    Tab_SetShown(false);
}

TEST_F(FileQuestions, AnUnknownExtensionCanBeLeftAtEachQuestion)
{
    SaveAs("a.xyz");
    Command(COMMAND_SAVEAS);
    std::string const sBefore = Bytes(Path("a.xyz"));
    char const* const aQuestion[] = {"Unknown file extension.  OK to write file as ZRN file?",
                                     "OK to write as ABC file then??", "OK to write as MIDI file maybe???",
                                     "Well TAB then????"};
    for (size_t cNo = 0; cNo < std::size(aQuestion); ++cNo)
    {
        process.user.shown.clear();
        for (size_t n = 0; n < cNo; ++n)
            Answers(Answer::NO);
        Answers(Answer::CANCEL);
        Command(COMMAND_SAVE);
        ASSERT_EQ(Messages().size(), cNo + 1);
        for (size_t n = 0; n <= cNo; ++n)
            EXPECT_EQ(Messages()[n], aQuestion[n]);
        EXPECT_EQ(Bytes(Path("a.xyz")), sBefore);
    }
}

TEST_F(FileQuestions, AnUnknownExtensionCanBecomeTablature)
{
    SaveAs("a.xyz");
    Command(COMMAND_SAVEAS);
    Tab_SetShown(true);
    for (int i = 0; i < 3; ++i)
        Answers(Answer::NO);
    Answers(Answer::YES);
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages().back(), "Well TAB then????");
    EXPECT_TRUE(Bytes(Path("a.xyz")).starts_with("E---")) << Bytes(Path("a.xyz"));
    Tab_SetShown(false);
}

TEST_F(FileQuestions, AnExchangeFileIsDeclinedByNo)
{
    SaveAs("a.mid", TYPE_EXCHANGE);
    Answers(Answer::NO);
    Command(COMMAND_SAVEAS);
    EXPECT_TRUE(Messages().back().starts_with("Exchange MIDI file output is new"));
    EXPECT_NE(process.user.shown.back().lFlags & MB_DEFBUTTON2, 0u) << "No is what Enter gives";
    EXPECT_FALSE(IsThere("a.mid"));
}
} // namespace zarn::test
