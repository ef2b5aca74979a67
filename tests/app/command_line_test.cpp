// The program itself, run as a user runs it: exit status, what it says, and the files that it leaves.
#include "app/command_line_fixture.h"

#include <algorithm>
#include <sstream>

namespace zarn
{
namespace
{
/// Of each symbol of a dump but the title its height, sort and value: "pitch  3 sort NOTE lA 0".
std::string Symbols(std::string const& sDump)
{
    std::string s;
    std::istringstream lines(sDump);
    for (std::string sLine; std::getline(lines, sLine);)
    {
        size_t const lAt = sLine.find("pitch");
        if (lAt == sLine.npos || sLine.find("sort TITLE") != sLine.npos)
            continue;
        s += sLine.substr(lAt, sLine.find(" lX") - lAt) + ' ';
        size_t const lSort = sLine.find("sort ");
        s += sLine.substr(lSort, sLine.find(", lB") - lSort) + '\n';
    }
    return s;
}
} // namespace

TEST_F(CommandLine, HelpAndVersionGoToStandardOutput)
{
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_NE(sOut.find("--replay JOURNAL"), std::string::npos);
    EXPECT_EQ(Run("--version"), 0);
    EXPECT_EQ(sOut, "zarn " ZARN_VERSION "\n");
    EXPECT_EQ(sErr, "");
}

TEST_F(CommandLine, TransposingMovesTheWholeScoreAndLaysItOutAgain)
{
    Write(folder / "a.abc", "X:1\nT:Second\nK:A\nABcd|e4|\n");
    EXPECT_EQ(Run("-o moved.svg book.abc --tune 7 --transpose 2"), 0) << sErr;
    EXPECT_TRUE(Has("moved.svg"));
    EXPECT_EQ(Run("--dump book.abc --tune 7 --transpose 2"), 0) << sErr;
    std::string const sMoved = Symbols(sOut);
    EXPECT_EQ(Run("--dump a.abc --adjust"), 0) << sErr;
    EXPECT_EQ(sMoved, Symbols(sOut));
    EXPECT_NE(sMoved.find("sort KEYSIG lA 3"), std::string::npos) << sMoved;
    EXPECT_EQ(Run("--check book.abc --transpose 1"), 0) << sErr;
}

TEST_F(CommandLine, WrongWordsGiveStatusTwoAndOneClearLine)
{
    EXPECT_EQ(Run("--nonsense"), 2);
    EXPECT_NE(sErr.find("unknown option --nonsense"), std::string::npos);
    EXPECT_EQ(Run("-o x.mp3 book.abc"), 2);
    EXPECT_FALSE(Has("x.mp3"));
    EXPECT_EQ(Run("--exchange -o x.zrn book.abc"), 2);
    EXPECT_NE(sErr.find("--exchange goes with -o and a file that ends in .mid"), std::string::npos);
}

TEST_F(CommandLine, MidiFilesAreWrittenAsPlayedOrAsWrittenAndReadBack)
{
    EXPECT_EQ(Run("-o played.mid --tune 7 book.abc"), 0) << sErr;
    EXPECT_EQ(Run("--exchange -o written.mid --tune 7 book.abc"), 0) << sErr;
    EXPECT_NE(File("played.mid").find("\x91\x43\x40\x17\x43"), std::string::npos); // a quaver, one tick short
    EXPECT_NE(File("written.mid").find("\x91\x43\x40\x18\x43"), std::string::npos);
    EXPECT_EQ(Run("-o back.zrn written.mid"), 0) << sErr;
    EXPECT_EQ(Run("--dump written.mid"), 0) << sErr;
    std::string const sRead = Symbols(sOut);
    EXPECT_NE(sRead.find("sort KEYSIG lA 1"), std::string::npos) << sRead;
    EXPECT_EQ(Run("--check back.zrn"), 0) << sErr;
}

TEST_F(CommandLine, ADamagedMidiFileIsRefusedAndNothingIsWritten)
{
    Write(folder / "bad.mid", "MThd");
    EXPECT_EQ(Run("-o bad.zrn bad.mid"), 1);
    EXPECT_NE(sErr.find("the MIDI file is damaged, or of a kind that can't be read"), std::string::npos) << sErr;
    EXPECT_FALSE(Has("bad.zrn"));
}

TEST_F(CommandLine, EverySampleReadsAdjustsWritesAndReadsBackTheSame)
{
    int32_t cSamples = 0;
    for (fs::directory_entry const& entry : fs::directory_iterator(ZARN_SAMPLES_DIR))
    {
        std::string const sSample = entry.path().string();
        if (!sSample.ends_with(".abc") && !sSample.ends_with(".zrn"))
            continue; // a listing that somebody's window left there
        // Header lines stand on the staff that is never laid out: reading gives them their height.
        ASSERT_EQ(Run("--adjust -o once.zrn '" + sSample + "'"), 0) << sErr;
        ASSERT_EQ(Run("-o twice.zrn once.zrn"), 0) << sErr;
        ASSERT_EQ(Run("-o thrice.zrn twice.zrn"), 0) << sErr;
        EXPECT_EQ(File("once.zrn").size(), File("twice.zrn").size()) << sSample;
        EXPECT_TRUE(File("twice.zrn") == File("thrice.zrn")) << sSample << " reads back as something else";
        EXPECT_EQ(Run("--check once.zrn"), 0) << sErr;
        ++cSamples;
    }
    EXPECT_GE(cSamples, 7);
}

TEST_F(CommandLine, ATuneBecomesAScoreThatReadsBackTheSame)
{
    EXPECT_EQ(Run("-o one.zrn book.abc"), 0);
    EXPECT_EQ(sErr, "");
    EXPECT_EQ(Run("-o two.zrn one.zrn"), 0);
    EXPECT_EQ(File("one.zrn"), File("two.zrn"));
    EXPECT_FALSE(Has("zarn.lst")) << "the listing belongs to the window";
}

TEST_F(CommandLine, ATuneIsChosenByItsNumber)
{
    EXPECT_EQ(Run("-o x.svg --tune 7 book.abc"), 0);
    EXPECT_NE(File("x.svg").find("Second/one"), std::string::npos);
    EXPECT_EQ(Run("-o y.svg --tune 8 book.abc"), 1);
    EXPECT_EQ(sErr, "zarn: book.abc: there is no tune X:8 in the file\n");
    EXPECT_FALSE(Has("y.svg"));
}

TEST_F(CommandLine, AllTunesHaveNumberAndTitleInTheirNames)
{
    EXPECT_EQ(Run("-o x.svg --tune all book.abc"), 0);
    EXPECT_TRUE(Has("x-1-First.svg"));
    EXPECT_TRUE(Has("x-7-Second_one.svg"));
}

TEST_F(CommandLine, TheListTellsNumbersAndTitles)
{
    EXPECT_EQ(Run("--list book.abc"), 0);
    EXPECT_EQ(sOut, "01: First\n07: Second/one\n");
}

TEST_F(CommandLine, ACheckTellsEachComplaintOnceWithItsPlace)
{
    EXPECT_EQ(Run("--check book.abc"), 0);
    EXPECT_EQ(sErr, "");
    EXPECT_EQ(Run("--check bad.abc"), 1);
    EXPECT_EQ(sErr, "bad.abc:4:2: Ignoring unexpected ABC symbol  \"?D sE|\"\n"
                    "bad.abc:4:5: s meaning Slur is ignored - sorry\n");
    EXPECT_EQ(Run("-q --check bad.abc"), 1);
    EXPECT_EQ(sErr, "");
}

TEST_F(CommandLine, ADumpGoesToStandardOutput)
{
    EXPECT_EQ(Run("--dump book.abc"), 0);
    EXPECT_TRUE(sOut.starts_with("Score Dump (as requested)\r\n"));
    EXPECT_NE(sOut.find("sort NOTE"), std::string::npos);
}

TEST_F(CommandLine, WhatCantBeReadIsToldAndLeavesTheOutputWhole)
{
    Write(folder / "x.svg", "precious");
    Write(folder / "broken.zrn", std::string("\x09\0\0\0\x2A\xB1\x34\x9C\x01\0\0\0", 12));
    Write(folder / "empty.abc", "");
    for (char const* sFile : {"nosuch.abc", ".", "broken.zrn", "out"})
    {
        EXPECT_EQ(Run(std::string("-o x.svg ") + sFile), 1) << sFile;
        EXPECT_NE(sErr, "") << sFile;
        EXPECT_EQ(File("x.svg"), "precious") << sFile;
    }
}

TEST_F(CommandLine, WhatCantBeWrittenIsToldAndLeavesNothingBehind)
{
    EXPECT_EQ(Run("-o nosuch/x.svg book.abc"), 1);
    EXPECT_EQ(sErr, "zarn: nosuch/x.svg: the file can't be written there\n");
    fs::create_directory(folder / "dir.svg");
    EXPECT_EQ(Run("-o dir.svg book.abc"), 1);
    auto const cEntries = std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    EXPECT_EQ(cEntries, 5) << "two tunes, what it said twice, and the folder";
}

TEST_F(CommandLine, APageThatIsntThereIsTold)
{
    EXPECT_EQ(Run("-o x.svg --page 2 book.abc"), 1);
    EXPECT_EQ(sErr, "zarn: x.svg: there is no page 2; the last one is 1\n");
    EXPECT_FALSE(Has("x.svg"));
}

TEST_F(CommandLine, TheDrawingAreaIsThePicturesSize)
{
    EXPECT_EQ(Run("-o x.svg --size 640x480 book.abc"), 0);
    EXPECT_NE(File("x.svg").find("640"), std::string::npos);
    EXPECT_NE(File("x.svg").find("480"), std::string::npos);
}

TEST_F(CommandLine, AJournalPlaysBackAndWritesWhatCameOut)
{
    Write(folder / "j",
          "size 1000 700\nanswer number 12\ncommand 233\ncommand 309\ncommand 601\nexpect exactly what you "
          "did\n");
    EXPECT_EQ(Run("--replay j -o x.zrn book.abc"), 0);
    EXPECT_NE(sErr.find("question: Left margin percent (0) -> number 12"), std::string::npos);
    EXPECT_TRUE(Has("x.zrn"));
    Write(folder / "k", "command 601\nexpect nothing of the kind\n");
    EXPECT_EQ(Run("--replay j -o no/such/x.abc book.abc"), 1);
    EXPECT_NE(sErr.find("message: File failed to save"), std::string::npos) << "the failure of the writing is told too";
    EXPECT_EQ(Run("--replay k book.abc"), 1);
    EXPECT_EQ(Run("--replay nosuch book.abc"), 1);
}

TEST_F(CommandLine, AJournalPlaysATakeBackAndTracesWhatTheFollowerFinds)
{
    Write(folder / "j", "command 407\ncommand 207\ntick 700\nmidi 144 60 64\ntick 500\nmidi 144 64 64\n"
                        "tick 500\nmidi 144 67 64\ntick 300\ncommand 207\ntick 5000\n");
    EXPECT_EQ(Run("--replay j book.abc"), 0);
    for (char const* const sLine : {"First key down.  gltStart=700\r\n", "500 Second note == 48 beats rate=0.096\r\n",
                                    "1000 Delta= 500 Beat=96 Rate= 0.096 Setting timer for 250 mSec, gTimer=1\r\n",
                                    "1250 Ding! 0, dwuser=2, error=0 Delay=250\r\n"})
        EXPECT_NE(sErr.find(sLine), std::string::npos) << sLine << sErr;
    EXPECT_EQ(sErr.find("1500 Ding!"), std::string::npos) << "the take was over by then";
}

TEST_F(CommandLine, TablatureIsFingeredStoredAndWrittenAsText)
{
    EXPECT_EQ(Run("--tablature -o t.tab --tune 7 book.abc"), 0) << sErr;
    std::string const sTab = File("t.tab");
    EXPECT_EQ(sTab.substr(0, 2), "E-");
    EXPECT_EQ(sTab.size() % 67, 0u);
    EXPECT_EQ(Run("--tablature -o t.txt --tune 7 book.abc"), 0) << sErr;
    EXPECT_EQ(File("t.txt"), sTab);
    EXPECT_EQ(Run("--tablature -o t.zrn book.abc"), 0) << sErr;
    EXPECT_EQ(Run("-o plain.zrn book.abc"), 0) << sErr;
    EXPECT_NE(File("t.zrn"), File("plain.zrn")) << "string and fret stand in the score";
    EXPECT_EQ(Run("--tablature -o t.svg book.abc"), 0) << sErr;
    EXPECT_EQ(Run("-o plain.svg book.abc"), 0) << sErr;
    EXPECT_NE(File("t.svg"), File("plain.svg"));
    EXPECT_TRUE(sErr.empty()) << sErr;
}

TEST_F(CommandLine, TextTablatureNeedsTablatureAndLeavesTheOutputWhole)
{
    Write(folder / "t.tab", "old");
    EXPECT_EQ(Run("-o t.tab book.abc"), 1);
    EXPECT_EQ(sErr, "zarn: t.tab: tablature is written with --tablature; NOT yet saved\n");
    EXPECT_EQ(File("t.tab"), "old");
}

TEST_F(CommandLine, TablatureOfTwoStaffsIsRefused)
{
    Write(folder / "two.abc", "X:1\nT:Two\nL:1/4\nK:C\nV:1\nCDEF|\nV:2\nCDEF|\n");
    EXPECT_EQ(Run("--tablature -o t.svg two.abc"), 1);
    EXPECT_NE(sErr.find("Restriction: Tablature can only be shown for one staff and you have 2 staffs showing"),
              std::string::npos)
        << sErr;
    EXPECT_FALSE(Has("t.svg"));
}

TEST_F(CommandLine, AFingeringIsListedChordByChordWithItsPrices)
{
    Write(folder / "f.abc", "X:1\nT:F\nL:1/4\nM:2/4\nK:C\nB e|[Ec] f|\n");
    EXPECT_EQ(Run("--fingering f.abc"), 0) << sErr;
    EXPECT_EQ(sOut, "1\tB4\t2/0/0\t-1\t0\t-1\n"
                    "1\tE5\t1/0/0\t-1\t0\t-2\n"
                    "2\tE4 C5\t4/2/3 2/1/1\t200\t22\t220\n"
                    "2\tF5\t1/1/2\t88\t21\t329\n");
    Write(folder / "low.abc", "X:1\nT:Low\nL:1/4\nK:C\nC,,,, D|\n");
    EXPECT_EQ(Run("--fingering low.abc"), 1);
    EXPECT_NE(sErr.find("No fingerings possible."), std::string::npos) << sErr;
    EXPECT_TRUE(sOut.empty()) << sOut;
    EXPECT_EQ(sErr.find('%'), std::string::npos) << "no percentage where nobody looks on";
}

TEST_F(CommandLine, PaperAndPicturesNeedNoDisplay)
{
    if (!ZARN_HAS_DESKTOP)
        GTEST_SKIP() << "built without the desktop module";
    EXPECT_EQ(Run("-o x.pdf book.abc"), 0) << sErr;
    EXPECT_EQ(sErr, "");
    EXPECT_TRUE(File("x.pdf").starts_with("%PDF"));
    EXPECT_EQ(Run("-o x.png -r 192 book.abc"), 0) << sErr;
    EXPECT_TRUE(File("x.png").starts_with("\x89PNG"));
}

TEST_F(CommandLine, AFileOfRubbishIsComplainedOfAtALengthThatCanBeRead)
{
    std::string sRubbish = "X:1\nK:C\n";
    for (int32_t n = 0; n < 3000; ++n)
        sRubbish += std::string(static_cast<size_t>(n % 400), '?') + "\n";
    Write(folder / "rubbish.abc", sRubbish);
    EXPECT_EQ(Run("--check rubbish.abc"), 1);
    EXPECT_EQ(std::count(sErr.begin(), sErr.end(), '\n'), 1001);
    EXPECT_NE(sErr.find("rubbish.abc: what else is wrong with it isn't told\n"), std::string::npos);
    EXPECT_LT(sErr.size(), 300'000u);
}

TEST_F(CommandLine, ATuneBecomesAnAbcFileThatReadsBackTheSame)
{
    EXPECT_EQ(Run("-o one.abc --tune 7 book.abc"), 0) << sErr;
    EXPECT_EQ(sErr, "");
    EXPECT_EQ(File("one.abc"), "X:7\r\nT:Second/one\r\nL:1/8\r\nM:4/4\r\nK:G\r\nGABc |\\\r\nd4 |\r\n\r\n");
    EXPECT_EQ(Run("-o two.abc one.abc"), 0) << sErr;
    EXPECT_EQ(File("two.abc"), "X:0" + File("one.abc").substr(3)) << "no number was asked for";
    EXPECT_EQ(Run("-o two.abc one.abc"), 0) << "a file of one tune is written over: " << sErr;
}

TEST_F(CommandLine, ATuneTakesThePlaceOfItsNumberInAManyTuneFileOrGoesToItsEnd)
{
    Write(folder / "new.abc", "X:1\nT:New\nL:1/8\nK:C\nc4|\n");
    Write(folder / "other.abc", "X:7\nT:Seven\nL:1/8\nK:C\nE4|\n");
    std::string const sBook = File("book.abc");
    std::string const sNew = "X:1\r\nT:New\r\nL:1/8\r\nM:4/4\r\nK:C\r\nc4 |\r\n\r\n";
    EXPECT_EQ(Run("-o book.abc --tune 1 new.abc"), 0) << sErr;
    EXPECT_EQ(File("book.abc"), sNew + sBook.substr(sBook.find("X:7")));
    EXPECT_EQ(Run("-o new.abc --tune 7 other.abc"), 0) << sErr;
    EXPECT_TRUE(File("new.abc").starts_with("X:1\nT:New\nL:1/8\nK:C\nc4|\n\r\n\r\nX:7\r\nT:Seven\r\n"));
    EXPECT_EQ(Run("--list new.abc"), 0);
    EXPECT_EQ(sOut, "01: New\n07: Seven\n");
}

TEST_F(CommandLine, AScoreTakesItsPlaceInAManyTuneFileByNumber)
{
    ASSERT_EQ(Run("-o one.zrn book.abc"), 0) << sErr;
    EXPECT_EQ(Run("-o book.abc --tune 9 one.zrn"), 0) << sErr;
    EXPECT_EQ(Run("--list book.abc"), 0);
    EXPECT_EQ(sOut, "01: First\n07: Second/one\n09: First\n");
}

TEST_F(CommandLine, AManyTuneFileIsNotWrittenOverWithoutANumber)
{
    std::string const sBook = File("book.abc");
    EXPECT_EQ(Run("-o book.abc bad.abc"), 1);
    EXPECT_NE(sErr.find("zarn: book.abc: the file holds 2 tunes; --tune N says which one to replace or to add\n"),
              std::string::npos)
        << sErr;
    EXPECT_EQ(File("book.abc"), sBook);
}

TEST_F(CommandLine, ATuneThatIsWrittenIntoItsOwnFileGoesBackToItsPlace)
{
    std::string const sBook = File("book.abc");
    EXPECT_EQ(Run("-o ./book.abc --transpose 12 book.abc"), 0) << sErr;
    std::string const sNew = File("book.abc");
    EXPECT_TRUE(sNew.starts_with("X:1\r\nT:First\r\n")) << sNew;
    EXPECT_TRUE(sNew.ends_with(sBook.substr(sBook.find("X:7")))) << sNew;
}

TEST_F(CommandLine, EachTuneOfABookBecomesAnAbcFileWithItsNumber)
{
    EXPECT_EQ(Run("-o x.abc --tune all book.abc"), 0) << sErr;
    EXPECT_TRUE(File("x-1-First.abc").starts_with("X:1\r\nT:First\r\n"));
    EXPECT_TRUE(File("x-7-Second_one.abc").starts_with("X:7\r\nT:Second/one\r\n"));
    std::string const sFirst = File("x-1-First.abc");
    EXPECT_EQ(Run("-o x.abc --tune all book.abc"), 0) << sErr;
    EXPECT_EQ(File("x-1-First.abc"), sFirst) << "replaced, not added";
}

TEST_F(CommandLine, AnAbcFileThatCantBeWrittenLeavesOneClearLine)
{
    EXPECT_EQ(Run("-o no/such.abc book.abc"), 1);
    EXPECT_EQ(sErr, "zarn: no/such.abc: File failed to save (catastrophic error? out of space? read only file?)\n");
    fs::create_directories(folder / "dir.abc");
    EXPECT_EQ(Run("-o dir.abc book.abc"), 1);
    EXPECT_EQ(sErr, "zarn: dir.abc: what is there can't be read, so it isn't replaced\n");
    ASSERT_EQ(Run("-o one.zrn book.abc"), 0);
    EXPECT_EQ(Run("-o big.abc --tune 2147483647 one.zrn"), 1);
    EXPECT_EQ(sErr, "zarn: big.abc: there can be no tune X:2147483647 in a file\n");
    EXPECT_FALSE(Has("big.abc"));
}
} // namespace zarn
