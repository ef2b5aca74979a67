// ABC's notes, bars and marks as the elements that they become.
#include "abc/abc_bars.h"
#include "abc/abc_listing.h"
#include "abc/abc_notes.h"
#include "abc/abc_state.h"
#include "abc_fixture.h"

namespace zarn
{
namespace
{
using test::At;
using test::Column;
using test::Read;

using AbcMusic = test::AbcTest;

struct Case
{
    char const* sMusic;
    char const* sExpected;
};

#define EXPECT_MUSIC(aCases)                                                                                           \
    for (Case const& c : aCases)                                                                                       \
    EXPECT_EQ(Music(c.sMusic), c.sExpected) << c.sMusic

TEST_F(AbcMusic, LettersAndOctaveMarksGiveThePlace)
{
    Case const aCase[] = {{"CDEFGAB", "n0/24 n1/24 n2/24 n3/24 n4/24 n5/24 n6/24"},
                          {"cdefgab", "n7/24 n8/24 n9/24 n10/24 n11/24 n12/24 n13/24"},
                          {"c'C,C,,", "n14/24 n-7/24 n-14/24"},
                          {"c''", "n21/24"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, OctaveMarksDoNotMix)
{
    EXPECT_EQ(Music("c',"), "n14/24 abc\",\"");
    EXPECT_EQ(Complaints(), "Ignoring unexpected ABC symbol  \",\\\"\n");
}

TEST_F(AbcMusic, LengthsAreFractionsOfTheUnit)
{
    Case const aCase[] = {{"A2", "n5/48"}, {"A/", "n5/12"},  {"A/4", "n5/6"},           {"A3/2", "n5/36"},
                          {"A0", "n5/24"}, {"A/0", "n5/12"}, {"A//", "n5/12 abc\"/\""}, {"z2 z/", "r48 r12"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, BrokenRhythmAddsHalvesHereAndTakesThemOffThere)
{
    Case const aCase[] = {{"A>B", "n5/36 n6/12"}, {"A>>B", "n5/42 n6/6"},        {"A<B", "n5/12 n6/36"},
                          {"A<<B", "n5/6 n6/42"}, {"A > B", "n5/36 n6/12"},      {"A>z", "n5/36 r12"},
                          {"z<A", "r12 n5/36"},   {"A>BC", "n5/36 n6/12 n0/24"}, {"> AB", "n5/12 n6/24"},
                          {"< AB", "n5/36 n6/24"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, ScalingEndsForAnyCountAndAnyDuration)
{
    EXPECT_EQ(AbcScale(24, 500), 46);
    EXPECT_EQ(AbcScale(24, -500), 2);
    EXPECT_EQ(AbcScale(INT32_MAX, 3), INT32_MAX);
}

TEST_F(AbcMusic, TupletsScaleEveryNoteAndRestThatTheyCount)
{
    Case const aCase[] = {{"(3abc d", "n12/16 n13/16 n7/16 n8/24"},
                          {"(2ab c", "n12/36 n13/36 n7/24"},
                          {"(4abcd", "n12/18 n13/18 n7/18 n8/18"},
                          {"(5abcde", "n12/9 n13/9 n7/9 n8/9 n9/9"},
                          {"(6abcdef", "n12/8 n13/8 n7/8 n8/8 n9/8 n10/8"},
                          {"(8a", "n12/9"},
                          {"(9a", "n12/5"},
                          {"(3azc", "n12/16 r16 n7/16"},
                          {"(3a{b}cd", "n12/16 n13/0 n7/16 n8/24"},
                          {"(3[ac]bd", "[n7/16 n12/16] n13/16 n8/24"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, ATupletOfSevenKeepsTheRatioAndCounts)
{
    EXPECT_EQ(Music("(3abc(7abcdefga"), "n12/16 n13/16 n7/16 n12/16 n13/16 n7/16 n8/16 n9/16 n10/16 n11/16 n12/24");
    EXPECT_EQ(Complaints(), "Unsupported tuplet length\n");
}

TEST_F(AbcMusic, InACompoundMeterFiveAndNineGoInThree)
{
    ReadText("X:1\nM:6/8\nL:1/8\nK:C\n(5a (9b\\\n");
    EXPECT_EQ(Read(1), "title\"\" clef:1 time:6/8 n12/14 n13/8");
}

TEST_F(AbcMusic, AccidentalsStandAheadOfTheirNotes)
{
    Case const aCase[] = {{"^A_B=c", "#5 n5/24 b6 n6/24 =7 n7/24"},
                          {"^^A", "#5 n5/24"},
                          {"^=A", "=5 n5/24"},
                          {"^z A", "r24 #5 n5/24"},
                          {"^|A", "| #5 n5/24"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, AnAccidentalTooManyIsToldAndTheLastCounts)
{
    Music("^=A");
    EXPECT_EQ(Complaints(), "Excessive accidentals\n");
}

TEST_F(AbcMusic, AccidentalsSoundToTheEndOfTheBar)
{
    Music("^FF|F");
    EXPECT_EQ(Column(1, &Element::lPitch), "64 64 64 64 66 66 64 65");
}

TEST_F(AbcMusic, ChordsComeInBothSpellings)
{
    Case const aCase[] = {{"[CEG]", "[n0/24 n2/24 n4/24]"},
                          {"+CEG+", "[n0/24 n2/24 n4/24]"},
                          {"[GCE]A", "[n0/24 n2/24 n4/24] n5/24"},
                          {"[C]", "n0/24"},
                          {"[]A", "n5/24"},
                          {"A[CE", "n5/24 [n0/24 [n2/24"}};
    Case const aClosed[] = {aCase[0], aCase[1], aCase[2], aCase[3], aCase[4]};
    EXPECT_MUSIC(aClosed);
    Music(aCase[5].sMusic);
    EXPECT_EQ(Column(1, &Element::lA), "0 1 4 0 4 12") << "a chord that is not closed stays open";
}

TEST_F(AbcMusic, AnAccidentalOnALaterChordNoteGoesAheadOfTheChord)
{
    EXPECT_EQ(Music("A[C^E_G]"), "n5/24 #2 b4 [n0/24 n2/24 n4/24]");
    EXPECT_EQ(At(1, 7)->lPitch, 65) << "E sharp";
}

TEST_F(AbcMusic, AnAccidentalOnTheFirstChordNoteGoesAheadOfAnEarlierChordOrToTheHead)
{
    EXPECT_EQ(Music("[CE]A[^DF]"), "#1 [n0/24 n2/24] n5/24 [n1/24 n3/24]");
    Score_EmptyStaffs();
    ReadText("X:1\nK:C\nA[^DF]\\\n");
    EXPECT_EQ(Read(1), "#1 title\"\" clef:1 time:4/4 n5/24 [n1/24 n3/24]");
}

TEST_F(AbcMusic, ABowingOutsideAChordGoesAheadOfAnEarlierChordOrToTheHead)
{
    EXPECT_EQ(Music("[CE]uA vB"), "up down [n0/24 n2/24] n5/24 n6/24");
    Score_EmptyStaffs();
    ReadText("X:1\nK:C\nuA\\\n");
    EXPECT_EQ(Read(1), "up title\"\" clef:1 time:4/4 n5/24");
    EXPECT_EQ(At(1, 0)->lDiaPitch, 18);
}

TEST_F(AbcMusic, AChordOfUnequalLengthsDropsTheNoteAndSaysSo)
{
    EXPECT_EQ(Music("[CE2G]"), "[n0/24 n4/24]");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"All notes in a chord must have same duration"});
}

TEST_F(AbcMusic, ATieComesInWithItsSecondNote)
{
    Case const aCase[] = {{"A-A", "n5/24/flag=1 tie n5/24/flag=2"},
                          {"A-|A", "n5/24/flag=1 | tie n5/24/flag=2"},
                          {"A-A-A", "n5/24/flag=1 tie n5/24/flag=3 tie n5/24/flag=2"},
                          {"[CE]-[EG]", "[n0/24 n2/24/flag=1] tie [n2/24/flag=2 n4/24]"},
                          {"A-[CA]", "n5/24/flag=1 tie [n0/24 n5/24/flag=2]"},
                          {"^F-F", "#3 n3/24/flag=1 tie n3/24/flag=2"},
                          {"A-B", "n5/24 n6/24"},
                          {"A-zA", "n5/24 r24 n5/24"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, ATieThatAnEmptyChordRepeatsIsMadeOnce)
{
    EXPECT_EQ(Music("[CE]-[CE]-[]-[]A"), "[n0/24/flag=1 n2/24/flag=1] tie [n0/24/flag=2 n2/24/flag=2] n5/24");
}

TEST_F(AbcMusic, SlursBracketWhatTheyHold)
{
    Case const aCase[] = {{"(AB)c", "slur( n5/24 n6/24 slur) n7/24"},
                          {"A(B(cd)e)", "n5/24 slur( n6/24 slur( n7/24 n8/24 slur) n9/24 slur)"},
                          {"A)B", "n5/24 n6/24"},
                          {"A()B", "n5/24 n6/24"},
                          {"(AB", "n5/24 n6/24"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, GraceNotesTakeNoTime)
{
    EXPECT_EQ(Music("{ag}f"), "n12/0 n11/0 n10/24");
    EXPECT_EQ(Music("{a{g}f}e"), "n12/0 n11/0 n10/24 n9/24");
    EXPECT_EQ(Complaints(), "Nested grace notes i.e. { { ... } }not allowed\nspurious '}'\n");
    EXPECT_EQ(Music("{z}"), "r24") << "a rest takes its time everywhere";
}

TEST_F(AbcMusic, StaccatoAndOrnamentAreUsedUpByTheNextNote)
{
    Case const aCase[] = {{".AB", "n5/24/flag=64 n6/24"},
                          {"~AB", "n5/24/flag=32 n6/24"},
                          {".~AB", "n5/24/flag=96 n6/24"},
                          {".zA", "r24 n5/24/flag=64"},
                          {"[.CE]", "[n0/24/flag=64 n2/24]"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, BarsAndRepeats)
{
    Case const aCase[] = {{"A|B", "n5/24 | n6/24"},
                          {"A||B", "n5/24 || n6/24"},
                          {"A|]", "n5/24 ||"},
                          {"[|A", "|| n5/24"},
                          {"|:A:|", "|: n5/24 :|"},
                          {"|:A:||", "|: n5/24 :|"},
                          {"|:A||:B:|", "|: n5/24 |: n6/24 :| :|"},
                          {" A::B", "n5/24 :: n6/24"},
                          {" A:|:B", "n5/24 :: n6/24"},
                          {"|:A|1B:|2C", "|: n5/24 | 1st n6/24 :| n0/24"},
                          {"|:A:||2B", "|: n5/24 :| n6/24"}};
    EXPECT_MUSIC(aCase);
}

TEST_F(AbcMusic, RepeatsThatDoNotBalanceGetTheirOtherHalf)
{
    EXPECT_EQ(Music(" A:|"), "|: n5/24 :|");
    EXPECT_EQ(Music("|:A"), "|: n5/24 :|");
    EXPECT_EQ(At(1, 3)->lA, 0) << "signs added while reading stay";
}

TEST_F(AbcMusic, EachSignHasItsHeight)
{
    ReadText("X:1\nQ:120\nL:1/8\nK:D\nz|1:|\nK:C\n\"Am\"A\\\n");
    EXPECT_EQ(Read(1), "title\"\" clef:1 key:2 time:4/4 tempo:60 |: r24 | 1st :| nl key:0,2 chord\"Am\" n5/24");
    EXPECT_EQ(Column(1, &Element::lDiaPitch), "22 4 6 6 18 2 6 2 12 2 6 6 -4 5");
    EXPECT_EQ(Column(1, &Element::lStrX), "0 0 0 0 0 0 0 0 0 0 0 0 0 0");
}

TEST_F(AbcMusic, AHarmonyRunsToItsClosingSignOrTheEndOfTheLine)
{
    EXPECT_EQ(Music("\"Am7\"A\"\"B"), "chord\"Am7\" n5/24 chord\"\" n6/24");
    EXPECT_EQ(Music("A\"G7"), "n5/24 chord\"G7\\\" nl");
}

TEST_F(AbcMusic, UnknownSignsAreToldAndKept)
{
    EXPECT_EQ(Music("AZ?"), "n5/24 abc\"Z\" abc\"?\"");
    EXPECT_EQ(Complaints(), "Ignoring unexpected ABC symbol  \"Z?\\\"\nIgnoring unexpected ABC symbol  \"?\\\"\n");
    EXPECT_EQ(aComplaints[0].lLine, 4);
    EXPECT_EQ(aComplaints[0].lColumn, 2);
    EXPECT_EQ(At(1, 4)->lB, 1);
    EXPECT_EQ(At(1, 4)->lA, 1);
}

TEST_F(AbcMusic, ATabIsAnUnknownSign) { EXPECT_EQ(Music("A\tB"), "n5/24 abc\"\t\" n6/24"); }

TEST_F(AbcMusic, SignsOfOtherReadersAreToldOrIgnored)
{
    EXPECT_EQ(Music("sA*B"), "n5/24 n6/24");
    EXPECT_EQ(Complaints(), "s meaning Slur is ignored - sorry\n");
}

TEST_F(AbcMusic, ChordBracketsOutOfPlaceAreTold)
{
    Music("[C[E]]A");
    EXPECT_EQ(Complaints(), "Nested chord start i.e. [...[\nExcess chord end symbol ']' found outside chord\n");
    EXPECT_EQ(Music("[C[E]]A"), "[n0/24 n2/24] n5/24");
}

TEST_F(AbcMusic, ACommentInMidLineHoldsTheLineFromItsSecondSign)
{
    EXPECT_EQ(Music("AB%x y"), "n5/24 n6/24 lyr\"B%x y\\\"");
    EXPECT_EQ(At(1, 5)->lA, 6);
    EXPECT_EQ(At(1, 5)->lB, 1);
}

TEST_F(AbcMusic, ANoteLongerThanASemibreveIsToldAndStands)
{
    EXPECT_EQ(Music("A16"), "n5/384");
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Too long.  Boredom coefficient > 1.0"});
}

TEST_F(AbcMusic, NumbersOfAnyLengthAreHeldInRange)
{
    EXPECT_EQ(Music("A99999999999999999999"), "n5/2147483647");
    EXPECT_EQ(Music("A/99999999999999999999"), "n5/0");
    EXPECT_EQ(Music("A99999999999999>B>C"), "n5/2147483647 n6/18 n0/12");
}

TEST_F(AbcMusic, ReadersCalledAtAWrongPlaceSaySo)
{
    struct
    {
        int32_t (*pRead)(AbcLine const&, int32_t);
        char const* sMessage;
    } const aCase[] = {{ReadSharp, "ABC sharp Bug"},
                       {ReadNatural, "ABC natural Bug"},
                       {ReadFlat, "ABC flat Bug"},
                       {ReadRepeatEnd, "Bogus ReadRepeatEnd call"},
                       {ReadRepeatStart, "Bogus ReadRepeatStart call"},
                       {ReadRepeatEndStart, "Bogus ReadRepeatEndStart call"},
                       {ReadRepeatFirst, "Bogus ReadRepeatFirst call"},
                       {ReadDoubleBar, "Bogus ReadDoubleBar call"},
                       {ReadSingleBar, "Bogus ReadSingleBar call"}};
    for (auto const& c : aCase)
    {
        c.pRead(AbcLine(), 0);
        EXPECT_EQ(process.user.shown.back().sText, c.sMessage);
    }
    EXPECT_EQ(process.user.shown.size(), std::size(aCase)) << "none of them keeps a later one from being heard";
}

TEST_F(AbcMusic, ALetterThatIsNoNoteIsToldAndStandsHigh)
{
    ReadText("X:1\nL:1/8\nK:C\n");
    ReadNote(AbcLine(), 0);
    EXPECT_EQ(Read(1), "title\"\" clef:1 time:4/4 n16/24");
    EXPECT_TRUE(bAbcLogged);
}
} // namespace
} // namespace zarn
