// Each form of the ABC writer, symbol by symbol.
#include "abc/abc_note_text.h"
#include "abc_write_fixture.h"

namespace zarn
{
namespace
{
using test::At;
using test::Write;

class AbcWrite : public test::AbcWriteTest
{
protected:
    struct Case
    {
        char const* sScore;
        char const* sText;
    };
    static void Expect(std::initializer_list<Case> aCase)
    {
        for (Case const& c : aCase)
            EXPECT_EQ(Text(c.sScore), c.sText) << c.sScore;
    }
};

TEST_F(AbcWrite, NotesAreNamedFromTwoOctavesBelowMiddleCToFourAbove)
{
    struct
    {
        int32_t lDiaPitch;
        char const* sName;
    } const aCase[] = {{0, "C"},   {4, "G"},   {5, "A"},   {6, "B"},    {7, "c"},    {11, "g"},
                       {12, "a"},  {13, "b"},  {14, "c'"}, {20, "b'"},  {21, "c''"}, {27, "b''"},
                       {-1, "B,"}, {-2, "A,"}, {-7, "C,"}, {-8, "B,,"}, {-14, "C,,"}};
    for (auto const& c : aCase)
        EXPECT_EQ(AbcNoteName(c.lDiaPitch), c.sName) << c.lDiaPitch;
}

TEST_F(AbcWrite, ANoteBeyondTheNamesIsAnX)
{
    for (int32_t const lDiaPitch : {28, -15, 2147483647, -2147483647 - 1})
        EXPECT_EQ(AbcNoteName(lDiaPitch), "X") << lDiaPitch;
    EXPECT_EQ(Text("n28/24"), "X ");
}

TEST_F(AbcWrite, LengthsAreInQuavers)
{
    struct
    {
        int32_t lTicks;
        char const* sLength;
    } const aCase[] = {
        {24, ""},    {0, ""},   {12, "/"},  {6, "/4"},   {3, "/8"},    {1, "/24"},    {48, "2"},
        {72, "3"},   {96, "4"}, {192, "8"}, {384, "16"}, {36, "3/2"},  {18, "3/4"},   {16, "2/3"},
        {32, "4/3"}, {8, "/3"}, {9, "3/8"}, {-24, "-1"}, {-12, "/-2"}, {-36, "-3/2"}, {2147483647, "2147483647/24"}};
    for (auto const& c : aCase)
        EXPECT_EQ(AbcNoteLength(c.lTicks), c.sLength) << c.lTicks;
}

TEST_F(AbcWrite, ARestHasItsBlankAndASecondOneBehindAFractionOfOne)
{
    Expect({{"r24", "z "},
            {"r48", "z2 "},
            {"r12", "z/2  "},
            {"r6", "z/4  "},
            {"r8", "z/3  "},
            {"r36", "z3/2 "},
            {"r16", "z2/3 "},
            {"r192", "z8 "},
            {"r0", "z "}});
    EXPECT_FALSE(bEndedAtLineStart);
}

TEST_F(AbcWrite, ABlankStandsBehindEachNoteButWithinABeam)
{
    Write(1, "n0/24 n1/24 n2/24 n3/48 n4/24");
    At(1, 0)->beam = BEAM_FIRST;
    At(1, 1)->beam = BEAM_INSIDE;
    At(1, 2)->beam = BEAM_LAST;
    EXPECT_EQ(StaffText(), "CDE F2 G ");
}

TEST_F(AbcWrite, ATieIsTheLastSignOfItsNote)
{
    EXPECT_EQ(Text("n0/48/flag=1 tie n0/48/flag=2"), "C2 -C2 ");
    At(1, 0)->beam = BEAM_FIRST;
    EXPECT_EQ(StaffText(), "C2-C2 ");
}

TEST_F(AbcWrite, ChordsAreBracketed)
{
    Expect({{"[n0/48 n2/48 n4/48]", "[C2 E2 G2] "}, {"[n0/24 n2/24] n4/24", "[C E] G "}});
}

TEST_F(AbcWrite, MarksStandAheadOfTheAccidental)
{
    Expect({{"n0/24/flag=64", ".C "},
            {"n0/24/flag=32", "~C "},
            {"#0 n0/24/flag=96", "~.^C "},
            {"[n0/24/flag=96 n2/24]", "[~.C E] "}});
}

TEST_F(AbcWrite, GraceNotesAreBracedAndHaveNoLength)
{
    Expect({{"n4/0 n5/0 n6/24", "{G A }B "}, {"n4/0 r24", "{G }z "}, {"n4/0", "{G "}, {"n4/0 | n5/24", "{G |\\\n}A "}});
}

TEST_F(AbcWrite, AnAccidentalIsRepeatedAtEveryNoteOfItsPlaceInTheBar)
{
    Expect({{"#3 n3/24 n4/24 n3/24", "^F G ^F "},
            {"b6 n6/24 n6/24", "_B _B "},
            {"=3 n3/24", "=F "},
            {"#3 n3/24 =3 n3/24 n3/24", "^F =F =F "},
            {"#3 n3/24 b3 n3/24", "^F _F "},
            {"#3 n10/24 n-4/24", "f F, "},
            {"#-4 n-4/24 n4/24", "^F, G "},
            {"#28 n28/24", "^X "}});
}

TEST_F(AbcWrite, ABarAndAKeyEndAccidentalsAndADoubleBarDoesNot)
{
    Expect({{"#3 n3/24 | n3/24", "^F |\\\nF "},
            {"#3 n3/24 || n3/24", "^F ||\\\n^F "},
            {"#3 n3/24 key:0 n3/24", "^F F "},
            {"#3 n3/24 :| n3/24", "^F :|\\\n^F "}});
}

TEST_F(AbcWrite, ABarIsALineWhoseEndDoesNotCount)
{
    Expect({{"n0/24 | n1/24", "C |\\\nD "},
            {"n0/24 | nl n1/24", "C |\nD "},
            {"n0/24 | 1st n1/24", "C \\\n|1 D "},
            {"| n0/24", "| C "},
            {"| nl n0/24", "| \nC "},
            {"| 1st n0/24", "\\\n|1 C "}});
}

TEST_F(AbcWrite, TheLastBarOfAStaffIsPlain)
{
    Expect({{"n0/24 |", "C |\n"}, {"|", "|\n"}, {"n0/24 | |", "C |\\\n|\n"}});
    EXPECT_TRUE(bEndedAtLineStart);
}

TEST_F(AbcWrite, ADoubleBarLeavesALineAtItsStart)
{
    Expect({{"n0/24 || n1/24", "C ||\\\nD "},
            {"n0/24 ||", "C ||\n"},
            {"n0/24 || nl n1/24", "C ||\nD "},
            {"|| key:1", "||K:G\n"},
            {"|| | n0/24", "||| C "}});
}

TEST_F(AbcWrite, ANewlineEndsALineThatHasBegun)
{
    Expect({{"n0/24 nl nl n1/24", "C \nD "}, {"nl", ""}, {"n0/24 :| nl n1/24", "C :|\nD "}});
}

TEST_F(AbcWrite, AFirstRepeatStartIsLeftOut)
{
    Expect({{"|: n0/24", "C "},
            {"r24 |: n0/24", "z C "},
            {"n0/24 |: n1/24", "C |: D "},
            {"n0/24 | |: n1/24", "C |\\\n|: D "}});
}

TEST_F(AbcWrite, ARepeatStartLeavesALineAtItsStart) { EXPECT_EQ(Text("n0/24 | |: time:3/4"), "C |\\\n|: M:3/4\n"); }

TEST_F(AbcWrite, ARepeatEndAndTheNextOnesStartAreOneSign)
{
    Expect({{"n0/24 :| |: n1/24", "C ::\\\nD "},
            {"n0/24 :| n1/24", "C :|\\\nD "},
            {"n0/24 :|", "C :|\n"},
            {"n0/24 :| nl |: n1/24", "C :|\n|: D "},
            {"n0/24 :: n1/24", "C :: D "}});
}

TEST_F(AbcWrite, ASecondTimeIsMarkedAtTheRepeatEndUntilAnotherPartStarts)
{
    Expect({{"n0/24 1st n1/24 :| n2/24", "C |1 D :|2\\\nE "},
            {"n0/24 1st n1/24 :|", "C |1 D :|2\\\n"},
            {"n0/24 1st n1/24 :| |: n2/24", "C |1 D :|2\\\n|: E "},
            {"n0/24 1st n1/24 :| n2/24 :|", "C |1 D :|2\\\nE :|2\\\n"},
            {"n0/24 1st n1/24 :: n2/24 :|", "C |1 D :: E :|\n"},
            {"n0/24 1st n1/24 |: n2/24 :|", "C |1 D |: E :|\n"}});
}

TEST_F(AbcWrite, AKeyIsWrittenWhenItChanges)
{
    Expect({{"key:0 n0/24", "C "},
            {"key:2 n0/24", "K:D\nC "},
            {"n0/24 key:2 n1/24 key:2 n2/24 key:-1", "C \nK:D\nD E \nK:F\n"},
            {"key:-6", "K:Gflat\n"},
            {"key:6", "K:F#\n"},
            {"key:-3", "K:Eflat\n"},
            {"key:7", "K:Unknown\n"}});
}

TEST_F(AbcWrite, AMeterIsWrittenWhenItChanges)
{
    Expect({{"time:4/4 n0/24", "C "},
            {"time:3/4 n0/24", "M:3/4\nC "},
            {"n0/24 time:6/8 n1/24 time:6/8 n2/24 time:4/4", "C \\\nM:6/8\nD E \\\nM:4/4\n"}});
}

TEST_F(AbcWrite, ATempoCountsQuavers)
{
    Expect({{"tempo:60 n0/24", "Q:120\nC "}, {"n0/24 tempo:100", "C \nQ:200\n"}, {"tempo:2147483647", "Q:-2\n"}});
}

TEST_F(AbcWrite, WordsAreCommentLines)
{
    Expect({{"lyr\"la\" n0/24", "%la\nC "},
            {"text\"slowly\" n0/24", "%slowly\nC "},
            {"annot\"x\" n0/24", "%x\nC "},
            {"n0/24 lyr\"la\" n1/24", "C \\\n%la\nD "}});
}

TEST_F(AbcWrite, LyricsInMidLineEndItWithoutANewline) { EXPECT_EQ(Text("n0/24 lyr\"la la\""), "C \\\n%la la\n"); }

TEST_F(AbcWrite, TextOfSeveralLinesIsWrittenAsOne)
{
    Expect({{"text\"one\r\ntwo\nthree\rfour\"", "%one two three four\n"}, {"chord\"A\nm\"", "\"A m\""}});
}

TEST_F(AbcWrite, KeptFieldsStandOnLinesOfTheirOwn)
{
    Expect({{"abc\"R:reel\" n0/24", "R:reel\nC "}, {"n0/24 abc\"N:x\" n1/24", "C \\\nN:x\nD "}});
}

TEST_F(AbcWrite, HarmoniesAreQuotedUnlessTheyAreABassAlone)
{
    EXPECT_EQ(Text("chord\"Am7\" n0/24"), "\"Am7\"C ");
    EXPECT_FALSE(bScoreDirty);
    EXPECT_EQ(Text("chord\"/E\" nl"), "\n") << "the line counts as begun";
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(AbcWrite, SlursAndBowingsAreSingleSigns)
{
    Expect({{"slur( n0/24 n1/24 slur)", "(C D )"}, {"up n0/24 down n1/24", "uC vD "}});
    EXPECT_FALSE(bScoreDirty);
    Write(1, "up");
    StaffLast(1)->lA = 3;
    EXPECT_EQ(StaffText(), "uC vD ");
    Text("slur( slur)");
    StaffFirst(1)->lA = 2;
    StaffLast(1)->lA = -1;
    EXPECT_EQ(StaffText(), "()") << "bit 0 tells";
}

TEST_F(AbcWrite, WhatPlaysIsNotedAsOmitted)
{
    Expect({{"inst:3 n0/24", "\\%instrument change omitted!\\\nC "},
            {"trans:2", "\\%transpose omitted!\\\n"},
            {"n0/24 vol:80 n1/24", "C \\%volume omitted!\\\nD "}});
}

TEST_F(AbcWrite, OnlyTheFirstTitleIsTheTunes)
{
    EXPECT_EQ(Text("title\"One\" n0/24"), "C ");
    EXPECT_FALSE(bScoreDirty);
    EXPECT_EQ(Text("title\"One\" title\"Two\" title\"Three\" n0/24"), "((C ");
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(AbcWrite, WhatTheTextCantHoldLeavesTheScoreModified)
{
    for (char const* const sKept : {"clef:1", "n0/24 tie n0/24", "lyr\"a\"", "abc\"N:x\"", "tempo:90", "up"})
    {
        Text(sKept);
        EXPECT_FALSE(bScoreDirty) << sKept;
    }
    for (char const* const sLost : {"clef:2", "clef:3", "clef:4", "sp", "arp(", "arp)", "inst:1", "trans:1", "vol:9"})
    {
        Text(sLost);
        EXPECT_TRUE(bScoreDirty) << sLost;
    }
    for (int32_t const sort : {0, 22, 25, 26, 35, -1})
    {
        Text("n0/24");
        StaffFirst(1)->sort = sort;
        EXPECT_EQ(StaffText(), "") << sort;
        EXPECT_TRUE(bScoreDirty) << sort;
    }
}

TEST_F(AbcWrite, AStaffOfNothingIsNothing)
{
    EXPECT_EQ(Text(""), "");
    EXPECT_TRUE(bEndedAtLineStart);
}

TEST_F(AbcWrite, LinesEndInCrLfWhenThatIsOn)
{
    bUseCrlf = true;
    Expect({{"n0/24 | n1/24 |", "C |\\\r\nD |\r\n"},
            {"n0/24 lyr\"a\" time:3/4 n1/24 key:1", "C \\\r\n%a\r\nM:3/4\r\nD \r\nK:G\r\n"},
            {"vol:80 n0/24 :| |: n0/24 nl n0/24 :|", "\\%volume omitted!\\\r\nC ::\\\r\nC \r\nC :|\r\n"}});
}
} // namespace
} // namespace zarn
