// The tunes of a many-tune file, and choosing one.
#include "abc_fixture.h"

namespace zarn
{
namespace
{
using test::Read;

class AbcIndex : public test::AbcTest
{
protected:
    /// The rows of the list, parted by bars.
    static std::string Rows(std::string_view sText)
    {
        HFILE const hFile = File_FromBytes(sText);
        std::string s;
        for (AbcTuneRow const& row : Abc_ListTunes(hFile))
            s += row.sRow + "|";
        char c = 0;
        EXPECT_TRUE(sText.empty() || (_lread(hFile, &c, 1) == 1 && c == sText[0])) << "rewound";
        _lclose(hFile);
        return s;
    }
    /// Reads a file by way of the dialog.
    int32_t Open(std::string_view sText)
    {
        HFILE const hFile = File_FromBytes(sText);
        int32_t const lResult = ReadAbc(hFile, nullptr, &sTitle);
        _lclose(hFile);
        return lResult;
    }
    static Answer Row(int32_t lRow)
    {
        Answer answer;
        answer.kind = Answer::ROW;
        answer.lNumber = lRow;
        return answer;
    }
    static Answer Ok()
    {
        Answer answer;
        answer.kind = Answer::OK;
        return answer;
    }
    static constexpr char const* sThree = "X:1\nT:One\nK:C\nA\\\n\n\nX:2\nT:Two\nK:C\nB\\\n\n\nX:5\nT:Five\nK:C\nc\\\n";
};

TEST_F(AbcIndex, EachTitleIsARow)
{
    EXPECT_EQ(Rows(sThree), "01: One|02: Two|05: Five|");
    EXPECT_EQ(cAbcTunes, 3);
    EXPECT_FALSE(bAbcNoNumber);
    EXPECT_FALSE(bAbcOutOfOrder);
    EXPECT_EQ(Rows("X:12\nT: One\nT:Other\n"), "12:  One|12: Other|");
}

TEST_F(AbcIndex, ATuneWithoutATitleIsListedWithoutOne)
{
    EXPECT_EQ(Rows("X:1\nK:C\nX:2\nT:Two\nX:3\n"), "01: (No title found)|02: Two|03: (No title found)|");
}

TEST_F(AbcIndex, ATitleAheadOfAnyNumberIsSkippedAndOneAheadOfItsNumberGoesToTheTuneBefore)
{
    EXPECT_EQ(Rows("T:Zero\nX:1\nT:One\nT:Two\nX:2\n"), "01: One|01: Two|02: (No title found)|");
}

TEST_F(AbcIndex, NumbersThatDoNotRiseAreTold)
{
    EXPECT_EQ(Rows("X:1\nT:One\nX:1\nT:Again\n"), "01: One|01: Again|");
    EXPECT_TRUE(bAbcOutOfOrder);
    ASSERT_EQ(process.user.shown.size(), 1u);
    EXPECT_TRUE(process.user.shown[0].sText.starts_with("Files should have tunes with index numbers (X: lines)"));
}

TEST_F(AbcIndex, AMissingNumberIsToldInsteadOfTheOrder)
{
    EXPECT_EQ(Rows("X:2\nT:Two\nX:1\nT:One\nX:\nT:None\n"), "02: Two|01: One|00: None|");
    EXPECT_TRUE(bAbcNoNumber);
    ASSERT_EQ(process.user.shown.size(), 1u);
    EXPECT_TRUE(process.user.shown[0].sText.starts_with("Tunes should have index lines like X:1234"));
}

TEST_F(AbcIndex, AnEmptyFileHasNoTunes)
{
    EXPECT_EQ(Rows(""), "");
    EXPECT_EQ(cAbcTunes, 0);
}

TEST_F(AbcIndex, TheHighestNumberIsFoundWhateverTheOrder)
{
    HFILE const hFile = File_FromBytes("X:2\nX: 9\nX:4\nK:C\n");
    EXPECT_EQ(Abc_HighestIndex(hFile), 9);
    _lclose(hFile);
    HFILE const hEmpty = File_FromBytes("K:C\n");
    EXPECT_EQ(Abc_HighestIndex(hEmpty), 0);
    _lclose(hEmpty);
}

TEST_F(AbcIndex, TheChosenRowIsRead)
{
    process.user.answers.push_back(Row(1));
    EXPECT_EQ(Open(sThree), 3);
    EXPECT_EQ(lAbcChosen, 2);
    EXPECT_EQ(sTitle, "Two");
    EXPECT_EQ(Read(1), "title\"Two\" clef:1 time:4/4 n6/24");
}

TEST_F(AbcIndex, TheFirstRowIsSelectedAtFirst)
{
    process.user.answers.push_back(Ok());
    EXPECT_EQ(Open(sThree), 2);
    EXPECT_EQ(sTitle, "One");
}

TEST_F(AbcIndex, CancelReadsNothing)
{
    sTitle = "before";
    EXPECT_EQ(Open(sThree), 0);
    EXPECT_EQ(lAbcChosen, -1);
    EXPECT_EQ(sTitle, "");
    EXPECT_EQ(Read(1), "");
}

TEST_F(AbcIndex, OfTwoTunesWithOneNumberTheFirstIsReadAndTheNumberIsNotTrusted)
{
    process.user.answers.push_back(Row(1));
    EXPECT_EQ(Open("X:1\nT:One\nK:C\nA\\\nX:1\nT:Again\nK:C\nB\\\n"), 0);
    EXPECT_EQ(sTitle, "One");
}
} // namespace
} // namespace zarn
