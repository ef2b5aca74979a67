// Lines, fields and tunes of an ABC text.
#include "abc/abc_fields.h"
#include "abc/abc_listing.h"
#include "abc/abc_state.h"
#include "abc_fixture.h"
#include "render/geometry.h"

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;

class AbcTune : public test::AbcTest
{
protected:
    /// Staff 1 of tune 1.
    std::string Staff(std::string_view sText)
    {
        Score_EmptyStaffs();
        ReadText(sText);
        return Read(1);
    }
    /// The key that a K: field gives.
    int32_t Key(std::string const& sKey)
    {
        Staff("X:1\nK:" + sKey + "\n");
        return abc.lKey;
    }
};

TEST_F(AbcTune, TheHeaderIsTitleClefKeyMeterAndTempo)
{
    EXPECT_EQ(Staff("X:1\nT:Tune\nM:6/8\nL:1/8\nQ:120\nK:G\nG\\\n"),
              "title\"Tune\" clef:1 key:1 time:6/8 tempo:60 n4/24");
    EXPECT_EQ(sTitle, "Tune");
    EXPECT_EQ(Column(1, &Element::lPitch), "64 64 64 64 64 67");
}

TEST_F(AbcTune, FieldsAndTextsAheadOfTheMusicGoToStaffZero)
{
    Staff("X:1\nT:Tune\nR:reel\n%note\nC:Trad.\nK:C\nA\\\nN:later\n");
    EXPECT_EQ(Read(0), "abc\"R:reel\" lyr\"note\" abc\"C:Trad.\"");
    EXPECT_EQ(Column(0, &Element::lA), "7 4 8") << "a field counts one more than its characters";
    EXPECT_EQ(Column(0, &Element::lB), "0 0 0");
    EXPECT_EQ(Read(1), "title\"Tune\" clef:1 time:4/4 n5/24 abc\"N:later\"");
    EXPECT_EQ(At(1, 4)->lB, 1);
    EXPECT_EQ(At(1, 4)->storage, 109);
}

TEST_F(AbcTune, TheUnitFollowsTheMeterUnlessItIsGiven)
{
    struct
    {
        char const* sFields;
        int32_t lTicks;
    } const aCase[] = {{"M:4/4", 24},        {"M:3/4", 24},         {"M:2/4", 12}, {"M:6/8", 24},
                       {"M:5/8", 12},        {"M:C", 24},           {"M:C|", 24},  {"L:1/4", 48},
                       {"M:2/4\nL:1/8", 24}, {"L:1/16", 12},        {"L:1", 192},  {"L:1/1000\nM:2/4", 12},
                       {"L:/", 96},          {"M:9999999999/1", 24}};
    for (auto const& c : aCase)
    {
        Staff(std::string("X:1\n") + c.sFields + "\nK:C\nA\\\n");
        EXPECT_EQ(StaffLast(1)->lDuration, c.lTicks) << c.sFields;
    }
}

TEST_F(AbcTune, CommonAndCutTimeAreFourFour)
{
    EXPECT_EQ(Staff("X:1\nM:C|\nK:C\n"), "title\"\" clef:1 time:4/4");
    EXPECT_EQ(Staff("X:1\nM:3/4\nK:C\nA\\\nM:C\nA\\\nM:3/8\n"), "title\"\" clef:1 time:3/4 n5/24 n5/24 time:3/8")
        << "in the body C changes the meter without a sign";
}

TEST_F(AbcTune, ABlankBehindTheColonOfAMeterLeavesItToTheMusic)
{
    Staff("X:1\nM: 6/8\nK:C\nA\\\n");
    EXPECT_EQ(Read(1), "title\"\" clef:1 time:1/1 n5/24");
    EXPECT_EQ(Read(0), "abc\"6\" abc\"/\" abc\"8\"");
    EXPECT_EQ(aComplaints.size(), 3u);
    EXPECT_EQ(aComplaints[0].lLine, 2);
    EXPECT_EQ(aComplaints[0].lColumn, 4);
}

TEST_F(AbcTune, ATempoCountsUnitNotes)
{
    EXPECT_EQ(Staff("X:1\nQ:120\nL:1/16\nK:C\n"), "title\"\" clef:1 time:4/4 tempo:30");
    EXPECT_EQ(Staff("X:1\nQ:C=120\nL:1/4\nK:C\nA\\\nQ:60\n"), "title\"\" clef:1 time:4/4 tempo:120 n5/48 tempo:60");
    EXPECT_EQ(At(1, 3)->lDiaPitch, 18);
}

TEST_F(AbcTune, ATempoThatIsNoneIsTold)
{
    EXPECT_EQ(Staff("X:1\nQ:fast\nK:C\n"), "title\"\" clef:1 time:4/4");
    EXPECT_EQ(Complaints(), "Bogus tempo\n");
    EXPECT_EQ(Read(0), "");
}

TEST_F(AbcTune, KeysByNameModeAndSign)
{
    struct
    {
        char const* sKey;
        int32_t lKey;
    } const aCase[] = {{"C", 0},    {"D", 2},       {"E", 4},     {"F", -1},    {"G", 1},      {"A", 3},
                       {"B", 5},    {"c", 0},       {"HP", 3},    {"Hp", 3},    {"x", 2},      {"Bb", -2},
                       {"Eb", -3},  {"F#", 6},      {"C#", -5},   {"Gb", 6},    {"Gflat", 6},  {"EFlat", -3},
                       {"Am", 0},   {"Em", 1},      {"Dmin", -1}, {"DMIN", -1}, {"DMin", -1},  {"Bm", 2},
                       {"Ddor", 0}, {"DDorian", 0}, {"Emix", 3},  {"AMix", 2},  {"Ephr", 0},   {"Flyd", 0},
                       {"Aaeo", 0}, {"Cion", 0},    {"Bloc", 0},  {"Ahyp", -2}, {"Bbmin", -5}, {"F#min", 3},
                       {" G", 1},   {"\tG", 1},     {" ", 2},     {"Ab", -4}};
    for (auto const& c : aCase)
        EXPECT_EQ(Key(c.sKey), c.lKey) << c.sKey;
}

TEST_F(AbcTune, AKeyWithNothingBehindTheColonIsPassedOver) { EXPECT_EQ(Staff("X:1\nK:\n"), ""); }

TEST_F(AbcTune, WhatFollowsAKeyButForOneSignIsMusic)
{
    EXPECT_EQ(Staff("X:1\nK:Dmin\n"), "title\"\" clef:1 key:-1 time:4/4 abc\"n\"");
    EXPECT_EQ(Staff("X:1\nK:D minor\n"),
              "title\"\" clef:1 key:2 time:4/4 abc\"m\" abc\"i\" abc\"n\" abc\"o\" abc\"r\"");
    EXPECT_EQ(Staff("X:1\nK:G|A\\\n"), "title\"\" clef:1 key:1 time:4/4 n5/24");
}

TEST_F(AbcTune, AKeyInTheBodyIsAKeySignature)
{
    EXPECT_EQ(Staff("X:1\nK:D\nA K:G\nB\\\n"), "title\"\" clef:1 key:2 time:4/4 n5/24 key:1,2 n6/24");
}

TEST_F(AbcTune, ASourceLineOfMusicEndsInANewlineUnlessItIsContinued)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA\nB\\\nc\n"), "title\"\" clef:1 time:4/4 n5/24 nl n6/24 n7/24 nl");
    EXPECT_EQ(At(1, 4)->lDiaPitch, 6);
}

TEST_F(AbcTune, FieldsAndCommentsEndInNoNewline)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA%x\nB\nM:3/4\nc\n"),
              "title\"\" clef:1 time:4/4 n5/24 lyr\"%x\" n6/24 nl time:3/4 n7/24 nl");
}

TEST_F(AbcTune, AnExclamationMarkTakesAllLineEndsOut)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA\nB!c\nd\n"), "title\"\" clef:1 time:4/4 n5/24 n6/24 n7/24 n8/24");
}

TEST_F(AbcTune, ALineThatBeginsWithABackslashIsDroppedUnread)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA\\\n\\%volume omitted!\\\nB\\\n"), "title\"\" clef:1 time:4/4 n5/24 n6/24");
}

TEST_F(AbcTune, ARepeatSignSplitOverTwoLinesIsOneSign)
{
    EXPECT_EQ(Staff("X:1\nK:C\n A:\\\n:..B\\\n"), "title\"\" clef:1 time:4/4 n5/24 :: n6/24")
        << "the sign takes three places of the second line";
}

TEST_F(AbcTune, ASplitRepeatSignWithoutItsOtherHalfIsTold)
{
    EXPECT_EQ(Staff("X:1\nK:C\n A:\\\nB\\\n"), "title\"\" clef:1 time:4/4 n5/24 n6/24");
    EXPECT_EQ(Complaints(), "Line ended in \":\\\", next line did not start with \":\".\r\nThe \":\\\" was ignored\n");
}

TEST_F(AbcTune, ABlankLineAheadOfTheMusicIsIgnoredAndOneBehindItEndsTheTune)
{
    EXPECT_EQ(Staff("X:1\r\n\r\n\r\nT:Tune\r\n\r\nK:C\r\nA\\\r\n\r\nB\r\n"), "title\"Tune\" clef:1 time:4/4 n5/24");
}

TEST_F(AbcTune, InALfFileOneBlankLineIsNone)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA\\\n\nB\\\n"), "title\"\" clef:1 time:4/4 n5/24 n6/24");
    EXPECT_EQ(Staff("X:1\nK:C\nA\\\n\n\nB\\\n"), "title\"\" clef:1 time:4/4 n5/24");
    EXPECT_EQ(Staff("X:1\nK:C\nA\\\n\nX:2\nK:D\nB\\\n"), "title\"\" clef:1 time:4/4 n5/24") << "the next X: ends it";
}

TEST_F(AbcTune, ACrFileHasNoBlankLines)
{
    EXPECT_EQ(Staff("X:1\rK:C\rA\\\r\r\rB\\\r"), "title\"\" clef:1 time:4/4 n5/24 n6/24");
}

TEST_F(AbcTune, OnlyTheWantedTuneIsRead)
{
    std::string const sText = "text ahead\nX:1\nT:One\nM:3/4\nK:G\n|:A|\nB\nX:2\nT:Two\nK:D\nd\\\nX:3\nT:Three\n";
    EXPECT_EQ(ReadText(sText, 2), 3);
    EXPECT_EQ(Read(1), "title\"Two\" clef:1 key:2 time:4/4 n8/24");
    EXPECT_EQ(sTitle, "Two");
}

TEST_F(AbcTune, AWantedNumberThatComesTwiceGivesTheFirst)
{
    EXPECT_EQ(ReadText("X:1\nT:One\nK:C\nA\\\nX:2\nK:C\nc\nX:1\nT:Again\nK:C\nB\n"), 0);
    EXPECT_EQ(sTitle, "One");
    EXPECT_EQ(Read(1), "title\"One\" clef:1 time:4/4 n5/24");
}

TEST_F(AbcTune, WithNoWantedNumberNothingButAHeaderIsBuilt)
{
    ReadText("T:No index\nK:D\nABc\n");
    EXPECT_EQ(Read(1), "title\"\" clef:1 key:2 time:4/4");
    EXPECT_EQ(ReadText("X:2\nK:D\nABc\n"), -2);
}

TEST_F(AbcTune, TheResultTellsNumberAndWhetherTheTuneIsAlone)
{
    EXPECT_EQ(ReadText("X:7\nK:C\nA\n", 7), ~7);
    EXPECT_EQ(ReadText("X:7\nK:C\nA\nX:9\nK:C\nB\n", 9), 10);
    EXPECT_EQ(ReadText("X:9\nK:C\nA\nX:7\nK:C\nB\n", 9), 0) << "numbers that fall can't be trusted";
    EXPECT_EQ(ReadText("X:99999999999\nK:C\nA\nX:1\n", INT32_MAX), 0);
}

TEST_F(AbcTune, OnlyTheFirstTitleCounts)
{
    Staff("X:1\nT: One\nT:Two\nK:C\nT:Three\nA\\\n");
    EXPECT_EQ(Read(1), "title\" One\" clef:1 time:4/4 nl n5/24") << "a title line in the body ends in a newline";
    EXPECT_EQ(sTitle, " One");
    EXPECT_EQ(Read(0), "");
}

TEST_F(AbcTune, VoicesFillStaffsOfTheirOwn)
{
    Staff("X:1\nT:Duet\nV:2\nK:G\nV:1\nA\\\nV:2\nC\\\nV:1\nB\\\nV:2\nD\\\n");
    EXPECT_EQ(Read(1), "title\"Duet\" clef:1 key:1 time:4/4 n5/24 n6/24");
    EXPECT_EQ(Read(2), "clef:1 key:1 time:4/4 n0/24 clef:1 key:1,1 time:4/4 n1/24")
        << "a V: above 1 builds the header each time";
    EXPECT_TRUE(IsVisible(2));
}

TEST_F(AbcTune, VoicesThatAreNoStaffsArePassedOver)
{
    Staff("X:1\nK:C\nA\\\nV:9\nB\\\nV:tenor\nc\\\nV:0\nd\\\n");
    EXPECT_EQ(Read(1), "title\"\" clef:1 time:4/4 n5/24 n6/24 n7/24 n8/24");
}

TEST_F(AbcTune, ASlurDoesNotReachIntoAnotherVoice)
{
    Staff("X:1\nK:C\n(AB\\\nV:2\nC)\\\nV:1\nc)\\\n");
    EXPECT_EQ(Read(1), "title\"\" clef:1 time:4/4 n5/24 n6/24 n7/24");
    EXPECT_EQ(Read(2), "clef:1 time:4/4 n0/24");
}

TEST_F(AbcTune, ASlurAheadOfTheKeyReachesNothing)
{
    Staff("X:1\nR:reel\n(A)\\\n");
    EXPECT_EQ(Read(0), "abc\"R:reel\"");
    EXPECT_EQ(Read(1), "title\"\" clef:1 time:4/4 n5/24");
}

TEST_F(AbcTune, CharacterTwentySixEndsTheText)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA\\\n\x1A\nB\n"), "title\"\" clef:1 time:4/4 n5/24");
}

TEST_F(AbcTune, ANulEndsItsLine)
{
    EXPECT_EQ(Staff(std::string_view("X:1\nK:C\nA\0B\nc\\\n", 16)), "title\"\" clef:1 time:4/4 n5/24 nl n7/24");
}

TEST_F(AbcTune, ALineOfFiveHundredAndOneIsToldAndGoesOnAsTwo)
{
    Staff("X:1\nK:C\n" + std::string(500, 'A') + "B\\\n");
    EXPECT_EQ(Complaints(), "An input file line exceeds my 500 char limit.\n");
    EXPECT_EQ(aComplaints[0].lLine, 3);
    EXPECT_EQ(aComplaints[0].lColumn, 500);
    EXPECT_EQ(List_Card(aStaffList[1]), 3 + 500 + 1 + 1) << "with a line's end between the two";
    EXPECT_EQ(StaffLast(1)->lDiaPitch, 6);
}

TEST_F(AbcTune, ComplaintsTellTheColumnInTheFilesLine)
{
    Staff("X:1\nK:C\n" + std::string(510, 'A') + "?\n");
    ASSERT_EQ(aComplaints.size(), 2u);
    EXPECT_EQ(aComplaints[1].lLine, 3);
    EXPECT_EQ(aComplaints[1].lColumn, 511);
}

TEST_F(AbcTune, AFileWithoutALastLineEndIsReadToItsEnd)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA2B"), "title\"\" clef:1 time:4/4 n5/48 n6/24 nl");
}

TEST_F(AbcTune, AHarmonySignThatEndsALineIsAnEmptyHarmony)
{
    EXPECT_EQ(Staff("X:1\nK:C\nA\""), "title\"\" clef:1 time:4/4 n5/24 chord\"\" nl");
}

TEST_F(AbcTune, AnyCutOfAFileIsRead)
{
    std::string const sText =
        "X:1\r\nT:Tune\r\nM:6/8\r\nQ:C=120\r\nK:Gflatmin\r\nV:2\r\n[^C2E]>(3a-a:|2{c/}:\\\r\n:A|1(B)";
    for (size_t cch = 0; cch <= sText.size(); ++cch)
        Staff(sText.substr(0, cch));
    EXPECT_EQ(sTitle, "Tune");
}

TEST_F(AbcTune, AppendingAddsAtTheEndOfTheStaffs)
{
    ReadText("X:1\nT:One\nK:C\nA\\\n");
    ReadText("X:1\nT:Two\nK:C\nB\\\n");
    EXPECT_EQ(Read(1), "title\"One\" clef:1 time:4/4 n5/24 title\"Two\" clef:1 time:4/4 n6/24");
}

TEST_F(AbcTune, AnEndlessTuneStopsWithASentenceAndKeepsWhatIsThere)
{
    ReadText("X:1\nK:C\n" + std::string(1000100, 'A'));
    EXPECT_LE(List_Card(aStaffList[1]), 1003000);
    EXPECT_GE(List_Card(aStaffList[1]), 1000000);
    EXPECT_EQ(process.user.Messages().back(),
              "The tune is too long.  Its first 1000000 symbols have been read, and the rest left out.  "
              "The file is as it was.");
}
} // namespace
} // namespace zarn
