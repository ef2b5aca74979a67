// A verse, from the staff into a text and back under the notes.
#include "edit/lyrics.h"

#include "core/score_check.h"
#include "edit/undo.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::At;
using test::Read;
using test::Write;

struct Lyrics : test::LayoutFixture
{
    Lyrics() { bAutoLayout = false; }

    /// The staff after the text has been dealt out from its first element on.
    std::string Put(std::string_view sScore, std::string_view sText, int32_t nFrom = 0)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        PutLyrics(nullptr, nullptr, sText, At(1, nFrom));
        EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
        return Read(1);
    }

    static std::string Collect(std::string_view sScore)
    {
        Score_EmptyStaffs();
        std::string s;
        Lyrics_Collect(s, Write(1, sScore));
        return s;
    }

    static POINT Place(int32_t lStrX)
    {
        POINT place;
        Draw_Fold(lStrX, 0, 1, 1, &place.x, &place.y);
        return place;
    }
};

TEST_F(Lyrics, EachMarkDealsOutItsWay)
{
    struct
    {
        char const *sText, *sStaff;
    } const aCase[] = {
        {"foo+bar", R"(clef:1 lyr"foo" n0/48 n1/48 lyr"bar" n2/48)"},
        {"foo-bar baz", R"(clef:1 lyr"foo-" n0/48 lyr"bar " n1/48 lyr"baz" n2/48)"},
        {"Hel_ lo", R"(clef:1 lyr"Hel" n0/48 lyr"_" n1/48 lyr"lo" n2/48)"},
        {"a_b", R"(clef:1 lyr"a" n0/48 lyr"_" n1/48 lyr"b" n2/48)"},
        {"a+b", R"(clef:1 lyr"a" n0/48 n1/48 lyr"b" n2/48)"},
        {"a~b", R"(clef:1 lyr"a b" n0/48 n1/48 n2/48)"},
        {"+ +a", R"(clef:1 n0/48 n1/48 lyr"a" n2/48)"},
        {"__a", R"(clef:1 lyr"_" n0/48 lyr"_" n1/48 lyr"a" n2/48)"},
        {"-a", R"(clef:1 lyr"-" n0/48 lyr"a" n1/48 n2/48)"},
        {"\r\n a \r\n b", R"(clef:1 lyr"a " n0/48 lyr"b" n1/48 n2/48)"},
        {"", "clef:1 n0/48 n1/48 n2/48"},
    };
    for (auto const& c : aCase)
        EXPECT_EQ(Put("clef:1 n0/48 n1/48 n2/48", c.sText), c.sStaff) << c.sText;
}

TEST_F(Lyrics, BlanksAtTheEndLeaveAnEmptySyllable)
{
    EXPECT_EQ(Put("clef:1 n0/48 n1/48", "a "), R"(clef:1 lyr"a " n0/48 n1/48)");
    EXPECT_EQ(Put("clef:1 n0/48 n1/48", "a  "), R"(clef:1 lyr"a " n0/48 lyr"" n1/48)");
}

TEST_F(Lyrics, TiedNotesAndLaterNotesOfAChordTakeNoSyllable)
{
    EXPECT_EQ(Put("clef:1 n0/48/flag=1 tie n0/48/flag=2 n1/48", "a b"),
              R"(clef:1 lyr"a " n0/48/flag=1 tie n0/48/flag=2 lyr"b" n1/48)");
    EXPECT_EQ(Put("clef:1 [n0/48 n2/48 n4/48] n1/48", "a b"), R"(clef:1 lyr"a " [n0/48 n2/48 n4/48] lyr"b" n1/48)");
}

TEST_F(Lyrics, ASyllableStandsDirectlyAheadOfItsNote)
{
    EXPECT_EQ(Put("clef:1 n0/48 | #1 n1/48", "a b"), R"(clef:1 lyr"a " n0/48 | #1 lyr"b" n1/48)");
}

TEST_F(Lyrics, TheHeightIsKeptUnderEachClefInForce)
{
    Put("clef:1 n0/48 clef:3 n1/48 clef:2 n2/48", "a b c");
    EXPECT_EQ(At(1, 1)->lDiaPitch, -7);
    EXPECT_EQ(At(1, 4)->lDiaPitch, -19);
    EXPECT_EQ(At(1, 7)->lDiaPitch, -13);
}

TEST_F(Lyrics, WithMoreSyllablesThanNotesAWordGoesBehindTheLastAndTheRestIntoOneElement)
{
    EXPECT_EQ(Put("clef:1 n0/48 |", "a b c d"), R"(clef:1 lyr"a " n0/48 | lyr"b  " lyr"c d")");
    EXPECT_EQ(Put("clef:1 n0/48 |", "a b"), R"(clef:1 lyr"a " n0/48 | lyr"b ")");
}

TEST_F(Lyrics, WhenTheStaffEndsWithItsLastNoteTheRestStandsAheadOfThat)
{
    EXPECT_EQ(Put("clef:1 n0/48", "a b c"), R"(clef:1 lyr"a " lyr"b c" n0/48)");
    // From the head of a staff the insert point has gone to its end.
    EXPECT_EQ(Put("n0/48", "a b c"), R"(lyr"a " n0/48 lyr"b c")");
}

TEST_F(Lyrics, APlusAheadOfTheRestDropsAllOfIt)
{
    EXPECT_EQ(Put("clef:1 n0/48", "a ++b c"), R"(clef:1 lyr"a " n0/48)");
}

TEST_F(Lyrics, ARestOfMoreThanAThousandBytesIsCutAndTold)
{
    std::string const sLong(1500, 'w');
    EXPECT_EQ(Put("clef:1 n0/48", "a " + sLong), "clef:1 lyr\"a \" lyr\"" + std::string(999, 'w') + "\" n0/48");
    EXPECT_EQ(process.user.shown.size(), 1U);
}

TEST_F(Lyrics, AnEmptyTextDeletesTheLyricsFromThePlaceOnAndNoOthers)
{
    EXPECT_EQ(Put(R"(clef:1 lyr"a" n0/48 lyr"b" n1/48 chord"C" lyr"c" n2/48)", "", 2),
              R"(clef:1 lyr"a" n0/48 n1/48 chord"C" n2/48)");
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
}

TEST_F(Lyrics, OldSyllablesMakeWayForNewOnes)
{
    EXPECT_EQ(Put(R"(clef:1 lyr"a" n0/48 lyr"b" n1/48)", "x y"), R"(clef:1 lyr"x " n0/48 lyr"y" n1/48)");
    EXPECT_EQ(Put(R"(clef:1 lyr"a" n0/48 lyr"b" n1/48)", "x y", 1), R"(clef:1 lyr"x " n0/48 lyr"y" n1/48)");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(Lyrics, FromASyllableAtTheHeadOfAStaffTheListSaysSoAndTheWordsGoToTheEnd)
{
    EXPECT_EQ(Put(R"(lyr"a" n0/48 lyr"b" n1/48)", "x y"), R"(n0/48 lyr"x " lyr"y" n1/48)");
    EXPECT_EQ(process.user.shown.size(), 1U);
}

TEST_F(Lyrics, FromASyllableThatEndsItsStaffTheWordsGoBehindWhatStoodAheadOfIt)
{
    EXPECT_EQ(Put(R"(clef:1 | lyr"a")", "x y", 2), R"(clef:1 | lyr"x  " lyr"y")");
}

TEST_F(Lyrics, WordsOfAStaffStayOnIt)
{
    Write(1, "n0/48");
    Write(2, R"(clef:3 n1/48 |)");
    pelInsertPoint = At(1, 0);
    lInsertStaff = 1;
    PutLyrics(nullptr, nullptr, "a b", At(2, 2)); // there is no note behind the bar
    EXPECT_EQ(Read(1), "n0/48");
    EXPECT_EQ(Read(2), R"(clef:3 n1/48 | lyr"a  " lyr"b")");
    EXPECT_EQ(lInsertStaff, 2);
    EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
}

TEST_F(Lyrics, WhatIsLeftGoesToTheStaffThatTheInsertPointIsOn)
{
    Write(1, "clef:1 n0/48");
    Write(2, "clef:1 n1/48 n2/48");
    pelInsertPoint = At(2, 1); // as a click on staff 2 leaves it
    lInsertStaff = 1;
    PutLyrics(nullptr, nullptr, "+ word", At(1, 1));
    EXPECT_EQ(Read(1), "clef:1 n0/48");
    EXPECT_EQ(Read(2), R"(clef:1 n1/48 lyr"word" n2/48)");
    EXPECT_EQ(Score_CheckStructure(), std::vector<std::string>());
}

TEST_F(Lyrics, MarkAndUndoMoveAsForAnyDeletionAndUndoBringsOneSyllableBack)
{
    Write(1, R"(clef:1 r48 lyr"a" n0/48 lyr"b" n1/48)");
    pelMarkBegin = At(1, 2);
    pelMarkEnd = At(1, 4);
    pelInsertPoint = At(1, 4);
    PutLyrics(nullptr, nullptr, "", At(1, 0));
    EXPECT_EQ(pelMarkBegin, At(1, 2));
    EXPECT_EQ(pelMarkEnd, At(1, 2));
    EXPECT_EQ(pelInsertPoint, At(1, 2));
    EXPECT_EQ(lUndoState, UNDO_DELETE);
    Undo(nullptr, nullptr);
    EXPECT_EQ(Read(1), R"(clef:1 r48 lyr"a" n0/48 n1/48)");
}

TEST_F(Lyrics, NoPlaceDoesNothing)
{
    PutLyrics(nullptr, nullptr, "a b", nullptr);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(Lyrics, EachStaffIsCollectedItsWay)
{
    struct
    {
        char const *sStaff, *sText;
    } const aCase[] = {
        {R"(lyr"foo-" n0/48 lyr"bar " n1/48 lyr"baz" n2/48)", "foo-bar baz"},
        {R"(lyr"a b" n0/48 lyr"c" n1/48)", "a~b c"},
        {R"(lyr"a b  " n0/48)", "a~b"},
        {R"(lyr"a" n0/48 n1/48 lyr"b" n2/48)", "a +b"},
        {R"(lyr"a" n0/48 n1/48 n2/48)", "a"},
        {R"(n0/48 n1/48 n2/48)", ""},
        {R"(lyr"a" n0/48 nl lyr"b" n1/48)", "a \r\nb"},
        {R"(lyr"a" n0/48 nl)", "a"},
        {R"(lyr"a" [n0/48 n2/48] lyr"b" n1/48)", "a b"},
        {R"(lyr"a" n0/48/flag=1 tie n0/48/flag=2 lyr"b" n1/48)", "a b"},
        {R"(lyr"" n0/48 lyr"b" n1/48)", " b"},
        {R"(| chord"C" title"t")", ""},
    };
    for (auto const& c : aCase)
        EXPECT_EQ(Collect(c.sStaff), c.sText) << c.sStaff;
}

TEST_F(Lyrics, WhatIsCollectedGoesBehindTheTextThatStandsThere)
{
    std::string s = "Alas ";
    Lyrics_Collect(s, Write(1, R"(lyr"my" n0/48 lyr"love" n1/48)"));
    EXPECT_EQ(s, "Alas my love");
    Lyrics_Collect(s, nullptr);
    EXPECT_EQ(s, "Alas my love");
}

TEST_F(Lyrics, AheadOfTheFirstSyllableANoteIsLostAtEachEditing)
{
    std::string const sText = Collect(R"(n0/48 n1/48 n2/48 lyr"a" n3/48)");
    EXPECT_EQ(sText, "++a");
    EXPECT_EQ(Put("n0/48 n1/48 n2/48 n3/48", sText), R"(n0/48 n1/48 lyr"a" n2/48 n3/48)");
}

TEST_F(Lyrics, AWholeVerseComesBackAsItWent)
{
    std::string const sVerse = "A-las my love you do me wrong";
    std::string sNotes = "clef:1";
    for (int32_t n = 0; n < 8; ++n)
        sNotes += " n1/48";
    std::string const sStaff = Put(sNotes, sVerse);
    std::string sBack;
    Lyrics_Collect(sBack, At(1, 0));
    EXPECT_EQ(sBack, sVerse);
    EXPECT_EQ(Put(sStaff, sBack), sStaff);
}

TEST_F(Lyrics, EditingStartsAtTheFirstNoteOrAtWhatTheChordBitsLeave)
{
    struct
    {
        char const* sStaff;
        int32_t n;
    } const aCase[] = {
        {"x:5 clef:1 x:20 n0/48", 1},                   // the clef stands ahead of the place
        {"x:20 |", 0},                                  // lA 0
        {R"(x:20 lyr"1234" n0/48)", 0},                 // lA 4
        {R"(x:20 lyr"12345678" n0/48)", 1},             // lA 8
        {R"(x:20 lyr"123456789012" tempo:8 n0/48)", 2}, // lA 12
        {"x:10 [n0/48 n2/48]", 0},
    };
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        Write(1, c.sStaff);
        POINT const place = Place(10);
        EXPECT_EQ(FirstLyricPlace(place.x, place.y), At(1, c.n)) << c.sStaff;
    }
}

TEST_F(Lyrics, WithNothingBehindThePlaceThereIsNone)
{
    POINT const place = Place(10);
    EXPECT_EQ(FirstLyricPlace(place.x, place.y), nullptr);
    Write(1, R"(x:5 n0/48 x:20 lyr"12345678")");
    EXPECT_EQ(FirstLyricPlace(place.x, place.y), nullptr);
}

TEST_F(Lyrics, TheCommandAsksWithWhatStandsThereAndDealsOutTheAnswer)
{
    Write(1, R"(x:0 clef:1 x:6 time:4/4 x:20 lyr"old" n0/48 x:30 n1/48)");
    process.user.answers.push_back({.kind = Answer::TEXT, .sText = "new words"});
    POINT const place = Place(15);
    Lyrics_Edit(nullptr, nullptr, place.x, place.y);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Lyrics (Ctrl+Enter for new line)"});
    EXPECT_EQ(Read(1), R"(clef:1 time:4/4 lyr"new " n0/48 lyr"words" n1/48)");
    EXPECT_TRUE(bTimesValid); // it has been laid out
}

TEST_F(Lyrics, CancelDealsOutWhatStoodThere)
{
    Write(1, R"(x:0 clef:1 x:6 time:4/4 x:20 lyr"Green-" n0/48 x:30 lyr"sleeves" n1/48)");
    process.user.answers.push_back({.kind = Answer::CANCEL});
    Lyrics_EditFrom(nullptr, nullptr, At(1, 2));
    EXPECT_EQ(Read(1), R"(clef:1 time:4/4 lyr"Green-" n0/48 lyr"sleeves" n1/48)");
    EXPECT_EQ(lUndoState, UNDO_DELETE);
}

TEST_F(Lyrics, TheDialogsTakeTenThousandBytesAndOneThousand)
{
    for (bool const bPopup : {false, true})
    {
        Score_EmptyStaffs();
        Write(1, R"(x:20 lyr"a" n0/48 x:30 |)");
        std::string sLong;
        while (sLong.size() < 20'000)
            sLong += "wordword  ";
        process.user.answers.push_back({.kind = Answer::TEXT, .sText = sLong});
        Element* const pelFrom = At(1, 0);
        POINT const place = Place(15);
        if (bPopup)
            Lyrics_EditFrom(nullptr, nullptr, pelFrom);
        else
            Lyrics_Edit(nullptr, nullptr, place.x, place.y);
        std::string const sAnswer = process.user.shown.front().sAnswer;
        EXPECT_EQ(sAnswer.size(), std::string("text ").size() + (bPopup ? 1000 : 10'000));
        process.user.shown.clear();
    }
}

TEST_F(Lyrics, WithoutANoteTheCommandSaysWhatIsMissing)
{
    POINT const place = Place(15);
    Lyrics_Edit(nullptr, nullptr, place.x, place.y);
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Lyrics are placed under the notes.  To work at all there has to be at least "
                                       "one note following the insert point.  There isn't."});
}
} // namespace
} // namespace zarn
