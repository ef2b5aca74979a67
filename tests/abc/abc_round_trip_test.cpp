// Tunes read, written and read again: what ABC text can carry comes back, and each kind of loss has a name.
#include "abc_write_fixture.h"
#include "core/text.h"
#include "layout/adjust.h"
#include "midi/refresh_pitches.h"
#include "render/geometry.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>

namespace zarn
{
namespace
{
namespace fs = std::filesystem;
using test::Read;
using test::Write;

class AbcRoundTrip : public test::AbcWriteTest
{
protected:
    AbcRoundTrip() { bUseCrlf = true; }

    /// The music of staff 1 after its tune was written and read again, behind title and clef.
    std::string Again(std::string_view sScore)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        std::string const sTune = Tune("T");
        Score_EmptyStaffs();
        ReadText(sTune);
        std::string const sHeader = "title\"T\" clef:1 ";
        std::string const sStaff = Read(1);
        EXPECT_TRUE(sStaff.starts_with(sHeader)) << sStaff;
        return sStaff.size() > sHeader.size() ? sStaff.substr(sHeader.size()) : "";
    }

    /// Everything of a staff that the text carries, in order, one word a symbol. A key or a meter that is in force
    /// already, such as the key at a line's start, tells nothing.
    static std::vector<std::string> Carried(int32_t lStaff)
    {
        std::vector<std::string> aWords;
        std::string sKey = "key:0";
        std::string sMeter = "time:4/4";
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            std::string sWord = CarriedWord(pel);
            std::string* const psInForce = pel->sort == KEYSIG ? &sKey : pel->sort == TIMESIG ? &sMeter : nullptr;
            if (sWord.empty() || (psInForce && *psInForce == sWord))
                continue;
            if (psInForce)
                *psInForce = sWord;
            aWords.push_back(std::move(sWord));
        }
        return aWords;
    }
    /// The words, kept fields and titles of a staff: their places may shift, so they are compared as a bag.
    static std::multiset<std::string> Texts()
    {
        std::multiset<std::string> texts;
        for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
            for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
                if (pel->sort == ABC || pel->sort == LYRICS)
                    texts.insert(Format("%d:", lStaff) + std::string(Element_Text(pel)));
        return texts;
    }

private:
    static std::string CarriedWord(Element const* pel)
    {
        switch (pel->sort)
        {
        case NOTE:
            return Format("n%d=%d/%d*%x", pel->lDiaPitch, pel->lPitch, pel->lDuration, pel->lA);
        case REST:
            return Format("r%d", pel->lDuration);
        case KEYSIG:
            return Format("key:%d", pel->lA);
        case TIMESIG:
            return Format("time:%d/%d", pel->lA, pel->lB);
        case TEMPO:
            return Format("tempo:%d", pel->lA);
        case CHORD:
        case TITLE:
            return '"' + std::string(Element_Text(pel)) + '"';
        case BAR:
        case DOUBLEBAR:
        case REPEATSTART:
        case REPEATEND:
        case REPEATENDSTART:
        case REPEATFIRST:
        case SLUR:
        case BOWING:
            return Sort_Name(pel->sort, pel->lA);
        default:
            return {};
        }
    }
};

TEST_F(AbcRoundTrip, WhatTheTextCarriesComesBack)
{
    for (std::string const sScore :
         {"time:4/4 n0/48 r24 n1/12 n2/36 n3/16 n4/16 n5/16 n6/6 n7/72 |", "time:4/4 n-14/96 n27/96 |",
          "time:4/4 [n0/96 n2/96 n4/96] n7/96/flag=96 |", "time:4/4 n4/0 n5/0 n6/192 |",
          "time:4/4 n0/96/flag=1 tie n0/96/flag=2 |",
          "time:4/4 [n0/96/flag=1 n2/96/flag=1] tie [n0/96/flag=2 n2/96/flag=2] |",
          "time:4/4 slur( n0/96 n1/96 slur) |", "time:4/4 |: n0/192 | 1st n1/192 :| n2/192 |",
          "time:4/4 |: n0/192 :: n1/192 :|", "time:4/4 n0/192 || n1/192 | n2/192 ||", "time:4/4 tempo:90 n0/192 |",
          "key:-5 time:6/8 n0/144 | time:3/4 n0/144 |", "time:4/4 chord\"Am7\" n0/192 | abc\"N:here\" n0/192 |",
          "time:4/4 lyr\"la\" n0/192 | nl n0/192 |", "time:4/4 n0/96/flag=64 n1/96/flag=32 |",
          "time:4/4 n0/96/flag=96 n1/96 |", "time:4/4 r384 r192 r96 r72 r48 r36 r24 r18 r12 r6 |",
          "time:4/4 n0/96 #3 n3/96 | b6 n6/96 =3 n3/96 |"})
        EXPECT_EQ(Again(sScore), sScore + " nl");
    EXPECT_EQ(Complaints(), "");
}

TEST_F(AbcRoundTrip, EachKindOfLossIsKnown)
{
    struct
    {
        char const* sLoss;
        std::string sScore;
        std::string sBack;
    } const aCase[] = {
        {"six flats become six sharps", "key:-6 n0/192 |", "key:6 time:4/4 n0/192 | nl"},
        {"clefs", "clef:3 n0/192 |", "time:4/4 n0/192 | nl"},
        {"a bass alone", "chord\"/E\" n0/192 |", "time:4/4 n0/192 | nl"},
        {"spaces and arpeggios", "sp arp( n0/192 arp) |", "time:4/4 n0/192 | nl"},
        {"what plays, at a line's start", "vol:80 inst:4 trans:-2 n0/192 |", "time:4/4 n0/192 | nl"},
        {"in mid-line its note becomes words", "n0/96 vol:80 n0/96 |",
         "time:4/4 n0/96 lyr\"4 \\%volume omitted!\\\" n0/96 | nl"},
        {"texts become lyrics", "text\"slow\" n0/96 annot\"x\" n0/96 |",
         "time:4/4 lyr\"slow\" n0/96 lyr\"x\" n0/96 | nl"},
        {"a sign comes back at each note that had it", "#3 n3/96 n3/96 |", "time:4/4 #3 n3/96 #3 n3/96 | nl"},
        {"a key of the first bar goes to the header", "n0/96 key:1 n0/96 |", "key:1 time:4/4 n0/96 n0/96 | nl"},
        {"a key in mid-line ends the line", "n0/192 | n0/96 key:1 n0/96 |",
         "time:4/4 n0/192 | n0/96 nl key:1 n0/96 | nl"},
        {"and so does a tempo", "n0/192 | n0/96 tempo:60 n0/96 |", "time:4/4 n0/192 | n0/96 nl tempo:60 n0/96 | nl"},
        {"a meter in force isn't repeated", "time:4/4 n0/192 | time:4/4 n0/192 |", "time:4/4 n0/192 | n0/192 | nl"},
        {"a meter behind a repeat's start", "n0/192 | |: time:3/4 n0/144 :|",
         "time:4/4 n0/192 | |: abc\"M\" abc\":\" abc\"3\" abc\"/\" abc\"4\" nl n0/144 :| nl"},
        {"a repeat's end and the next one's start become one sign", "|: n0/192 :| |: n1/192 :|",
         "time:4/4 |: n0/192 :: n1/192 :| nl"},
        {"a tempo that a sign precedes at a line's start ends the tune", "n0/192 | #3 tempo:60 n3/192 |",
         "time:4/4 n0/192 |"},
        {"and so does a key", "n0/192 | #3 key:2 n3/192 |", "time:4/4 n0/192 |"},
        {"and a new line", "n0/192 | #3 nl n3/192 |", "time:4/4 n0/192 |"},
        {"a meter behind a slur's start", "n0/192 | slur( time:3/4 n0/144 slur) |",
         "time:4/4 n0/192 | slur( abc\"M\" abc\":\" abc\"3\" abc\"/\" abc\"4\" nl n0/144 slur) | nl"},
        {"kept words behind a repeat's start are read as music", "n0/192 | |: abc\"w:la\" n0/192 :|",
         "time:4/4 n0/192 | |: abc\"w\" abc\":\" abc\"l\" n12/24 nl n0/192 :| nl"},
        {"a first-time bar that a clef precedes gets one bar line too many",
         "|: n0/192 | clef:1 1st n1/192 :| n2/192 |", "time:4/4 |: n0/192 | | 1st n1/192 :| n2/192 | nl"},
        {"a tie from one note of a chord alone", "n7/96 [n0/96/flag=1 n2/96] tie n0/192/flag=2 |",
         "time:4/4 n7/96 [n0/96 n2/96] n0/192 | nl"},
        {"further titles", "title\"One\" title\"Two\" n0/192 |", "time:4/4 n0/192 | nl"},
        {"notes beyond the names", "n28/192 |", "time:4/4 abc\"X\" abc\"8\" | nl"},
        {"a tempo of nothing", "tempo:0 n0/192 |", "time:4/4 n0/192 | nl"},
        {"lines within words", "lyr\"one\ntwo\" n0/192 |", "time:4/4 lyr\"one two\" n0/192 | nl"},
        {"a chord's tie reaches back as well",
         "[n0/48 n2/48] [n0/48/flag=1 n2/48/flag=1] tie [n0/96/flag=2 n2/96/flag=2] |",
         "time:4/4 [n0/48/flag=1 n2/48/flag=1] tie [n0/48/flag=3 n2/48/flag=3] tie [n0/96/flag=2 n2/96/flag=2] | nl"},
        {"a bowing outside a chord goes ahead of the chord before", "[n0/96 n2/96] up n4/96 |",
         "time:4/4 up [n0/96 n2/96] n4/96 | nl"},
    };
    for (auto const& c : aCase)
        EXPECT_EQ(Again(c.sScore), c.sBack) << c.sLoss;
}

TEST_F(AbcRoundTrip, AScoreWhoseTextEndsEarlyStaysUnsaved)
{
    for (char const* const sEarly :
         {"n0/192 | #3 tempo:60 n3/192 |", "n0/192 | #3 key:2 n3/192 |", "n0/192 | #3 nl n3/192 |"})
    {
        Score_EmptyStaffs();
        Write(1, sEarly);
        (void)Tune();
        EXPECT_TRUE(bScoreDirty) << sEarly;
    }
    Score_EmptyStaffs();
    Write(1, "n0/192 | #3 n3/192 | nl tempo:60 n3/192 |");
    (void)Tune();
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(AbcRoundTrip, ABowingWithNoChordAheadOfItGoesToTheHeadOfTheStaff)
{
    Write(1, "n0/96 up n1/48 down n2/48 |");
    std::string const sTune = Tune("T");
    Score_EmptyStaffs();
    ReadText(sTune);
    EXPECT_EQ(Read(1), "down up title\"T\" clef:1 time:4/4 n0/96 n1/48 n2/48 | nl");
}

TEST_F(AbcRoundTrip, MarksAndFingeringsAreLost)
{
    Element el;
    for (int32_t const lSort : {MARKBEGIN, MARKEND})
    {
        el.sort = lSort;
        el.lStaff = 1;
        List_AddLast(aStaffList[1], &el, el.storage);
    }
    Element* const pelNote = Write(1, "n0/192 |");
    pelNote->lString = 2;
    pelNote->lFret = 1;
    pelNote->lB = 100;
    std::string const sTune = Tune("T");
    Score_EmptyStaffs();
    ReadText(sTune);
    EXPECT_EQ(Read(1), "title\"T\" clef:1 time:4/4 n0/192 | nl");
    EXPECT_EQ(test::Column(1, &Element::lString), "0 0 0 0 0 0");
}

TEST_F(AbcRoundTrip, WordsBeyondALinesLengthAreReadAsMusic)
{
    std::string const sBack = Again("lyr\"" + std::string(505, 'h') + "\" n0/192 |");
    EXPECT_EQ(sBack, "time:4/4 lyr\"" + std::string(499, 'h') +
                         "\" abc\"h\" abc\"h\" abc\"h\" abc\"h\" abc\"h\" abc\"h\" nl n0/192 | nl");
    EXPECT_TRUE(Complaints().starts_with("An input file line exceeds my 500 char limit.\n"));
}

TEST_F(AbcRoundTrip, BeamsAreMadeAnew)
{
    Write(1, "time:4/4 n0/24 n1/24 n2/96 |");
    std::string const sPlain = Tune();
    Score_EmptyStaffs();
    ReadText(sPlain);
    FullAdjust();
    EXPECT_NE(test::Column(1, &Element::beam).find("1 2"), std::string::npos);
}

TEST_F(AbcRoundTrip, HiddenStaffsAreLeftOut)
{
    Write(1, "n0/192 |");
    Write(2, "n1/192 |");
    std::string const sTune = Tune();
    Score_EmptyStaffs();
    ReadText(sTune);
    EXPECT_EQ(Read(2), "");
}

/// A tune that was read once, and what came of it.
class AbcFiles : public AbcRoundTrip
{
protected:
    struct Outcome
    {
        int32_t cTunes = 0;
        int32_t cEqual = 0;
    };

    /// Reads, writes and reads each tune of a file.
    Outcome TryFile(fs::path const& path)
    {
        std::ifstream file(path, std::ios::binary);
        std::string const sFile(std::istreambuf_iterator<char>(file), {});
        HFILE const hFile = File_FromBytes(sFile);
        std::set<int32_t> tunes;
        for (AbcTuneRow const& row : Abc_ListTunes(hFile))
            tunes.insert(row.lNumber);
        Outcome outcome;
        for (int32_t const lTune : tunes)
        {
            ++outcome.cTunes;
            outcome.cEqual += TryTune(path, hFile, lTune);
        }
        _lclose(hFile);
        return outcome;
    }

    Outcome TryFolder(fs::path const& folder)
    {
        Outcome all;
        for (fs::directory_entry const& entry : fs::directory_iterator(folder))
            if (entry.path().extension() == ".abc")
            {
                Outcome const one = TryFile(entry.path());
                all.cTunes += one.cTunes;
                all.cEqual += one.cEqual;
            }
        return all;
    }

private:
    struct Heard
    {
        std::vector<std::string> aStaff[lStaffLists];
        std::multiset<std::string> texts;
    };

    static Heard Hear()
    {
        RefreshPitches(lHighestStaff);
        Heard heard;
        for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
            heard.aStaff[lStaff] = Carried(lStaff);
        heard.texts = Texts();
        return heard;
    }

    /// True when nothing was lost.
    bool TryTune(fs::path const& path, HFILE hFile, int32_t lTune)
    {
        Score_EmptyStaffs();
        std::fill(std::begin(abStaffVisible), std::end(abStaffVisible), false);
        ReadAbcNumbered(hFile, lTune, &sTitle);
        MiniAdjust();
        Heard const before = Hear();
        std::string const sTune = Tune(sTitle, lTune);
        Score_EmptyStaffs();
        ReadText(sTune, lTune);
        MiniAdjust();
        Heard const after = Hear();
        bool bEqual = true;
        for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
            bEqual = Tell(path, lTune, lStaff, before.aStaff[lStaff], after.aStaff[lStaff]) && bEqual;
        if (before.texts != after.texts)
        {
            bEqual = false;
            std::cout << path.filename().string() << " X:" << lTune << ": words and fields differ\n";
        }
        if (!bEqual && std::getenv("ZARN_SHOW"))
            std::cout << sTune << "\n----\n" << Read(1) << "\n";
        return bEqual;
    }

    static bool Tell(fs::path const& path, int32_t lTune, int32_t lStaff, std::vector<std::string> const& aBefore,
                     std::vector<std::string> const& aAfter)
    {
        if (aBefore == aAfter)
            return true;
        size_t n = 0;
        while (n < aBefore.size() && n < aAfter.size() && aBefore[n] == aAfter[n])
            ++n;
        std::cout << path.filename().string() << " X:" << lTune << ", staff " << lStaff << ": symbol " << n << " was "
                  << (n < aBefore.size() ? aBefore[n] : "missing") << " and is "
                  << (n < aAfter.size() ? aAfter[n] : "missing") << '\n';
        return false;
    }
};

TEST_F(AbcFiles, EveryTuneOfTheSamplesComesBack)
{
    Outcome const outcome = TryFolder(ZARN_SAMPLES_DIR);
    EXPECT_GT(outcome.cTunes, 5);
    EXPECT_EQ(outcome.cEqual, outcome.cTunes);
    EXPECT_EQ(Complaints(), "");
}

TEST_F(AbcFiles, TunesOfAFolderThatIsAskedForComeBack)
{
    char const* const szFolder = std::getenv("ZARN_DATA");
    if (!szFolder)
        GTEST_SKIP() << "ZARN_DATA names no folder of ABC files";
    Outcome const outcome = TryFolder(szFolder);
    std::cout << outcome.cEqual << " of " << outcome.cTunes << " tunes came back whole\n";
    EXPECT_GT(outcome.cTunes, 0);
}
} // namespace
} // namespace zarn
