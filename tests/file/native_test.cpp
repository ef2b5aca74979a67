// The native file: every version in, version 9 out.
#include "core/messages.h"
#include "core/score_check.h"
#include "core/text.h"
#include "file/native.h"
#include "file/native_format.h"
#include "file/order_chords.h"
#include "file/staff_places.h"
#include "layout/element_width.h"
#include "render/geometry.h"
#include "support/native_bytes.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace zarn;
using namespace zarn::test;

namespace
{
class Native : public testing::Test
{
protected:
    int32_t Load(std::string const& sBytes, bool bClearFirst = true)
    {
        HFILE const hFile = File_FromBytes(sBytes);
        int32_t const lResult = Native_Read(hFile, bClearFirst);
        _lclose(hFile);
        return lResult;
    }
    std::string Save()
    {
        std::string s;
        HFILE const hFile = File_IntoString(&s);
        EXPECT_EQ(Native_Write(hFile), 1);
        _lclose(hFile);
        return s;
    }
    std::vector<std::string> Messages()
    {
        auto const a = process.user.Messages();
        process.user.shown.clear();
        Serious_Rearm();
        return a;
    }
    static Record Sign(int32_t sort, int32_t lA = 0, int32_t lB = 0)
    {
        Record r;
        r.sort = sort;
        r.lDuration = 0;
        r.lA = lA;
        r.lB = lB;
        return r;
    }
    static Record Note(int32_t lDiaPitch, int32_t lStrX = 0, int32_t lA = 0)
    {
        Record r;
        r.lDiaPitch = lDiaPitch;
        r.lStrX = lStrX;
        r.lA = lA;
        return r;
    }

    ScriptedProcess process;
};

using Texts = std::vector<std::string>;
} // namespace

TEST_F(Native, EachVersionReadsItsOwnHeaderAndRecord)
{
    for (int32_t lVersion = 2; lVersion <= 9; ++lVersion)
    {
        SCOPED_TRACE(lVersion);
        NativeBytes file(lVersion);
        file.Add(Sign(CLEF, 3));
        Record note = Note(4, 10);
        note.lB = 99;
        note.lDuration = lVersion < 6 ? 16 : 48;
        file.Add(note);
        ASSERT_EQ(Load(file.End()), 1);
        EXPECT_EQ(Messages(), Texts{});
        EXPECT_TRUE(bKeepBarsTogether);
        EXPECT_FALSE(bBeamQuavers);
        EXPECT_TRUE(bShowLayout);
        EXPECT_EQ(lColsPerLine, 150) << "of the three pairs the last counts";
        EXPECT_EQ(lRowsPerPage, 120);
        Element const* const pelNote = NextNote(StaffFirst(1));
        ASSERT_TRUE(pelNote);
        EXPECT_EQ(pelNote->lDuration, 48);
        EXPECT_EQ(StaffFirst(1)->lA, lVersion < 6 ? 1 : 3) << "old clefs are all treble";
        if (lVersion != 5 && lVersion != 6 && lVersion != 7) // these are laid out, which sets the volume in force
        {
            EXPECT_EQ(pelNote->lB, lVersion < 5 ? 64 : 99);
        }
    }
}

TEST_F(Native, AVersion8FileKeepsItsColumnsAndAVersion7FileIsLaidOutAfresh)
{
    for (int32_t const lVersion : {7, 8})
    {
        NativeBytes file(lVersion);
        file.Add(Sign(CLEF, 1)).Add(Note(2, 77)).Add(Sign(SPACE));
        ASSERT_EQ(Load(file.End()), 1);
        if (lVersion == 8)
        {
            EXPECT_EQ(Read(1), "clef:1 n2/48 sp");
            EXPECT_EQ(Column(1, &Element::lStrX), "0 77 0");
        }
        else
        {
            EXPECT_EQ(Read(1).find("sp"), std::string::npos);
            EXPECT_NE(At(1, 1)->lStrX, 77);
        }
    }
}

TEST_F(Native, AnAbcFileEndsAtTheMagicWithoutAWord)
{
    EXPECT_EQ(Load("X:1\nT:The Humours of Glendart\nK:D\nA|\n"), 0);
    EXPECT_EQ(Messages(), Texts{});
}

TEST_F(Native, VersionsThatAreNoneAreToldOfOrPassedOver)
{
    NativeBytes ten(10);
    EXPECT_EQ(Load(ten.Add(Note(2)).End()), 1) << "with the magic it is read as version 9";
    EXPECT_EQ(Messages(), Texts{"File is bad. Version is apparently 10, program is version 9"});

    NativeBytes noMagic(500);
    noMagic.s[4] = 'x';
    EXPECT_EQ(Load(noMagic.End()), 0);
    EXPECT_EQ(Messages(), Texts{"File is bad. Version is apparently 500, program is version 9"});

    EXPECT_EQ(Load(NativeBytes(1009).End()), 1) << "the magic is what counts";
    EXPECT_EQ(Messages(), Texts{});
    EXPECT_EQ(Load(NativeBytes(-3).End()), 0);
    EXPECT_EQ(Messages(), Texts{});
    EXPECT_EQ(Load(NativeBytes(1).End()), 0);
    EXPECT_EQ(Messages(), Texts{"Too bad. Version 1 files not supported by version 9"});
}

TEST_F(Native, Version0HasNoStaffCountNoSpacingAndOldRecords)
{
    NativeBytes file(0);
    Record note = Note(2);
    note.lDuration = 16;
    lColsPerLine = 33;
    ASSERT_EQ(Load(file.Add(note).End()), 1);
    EXPECT_EQ(lColsPerLine, 33);
    ASSERT_TRUE(NextNote(StaffFirst(1)));
    EXPECT_EQ(NextNote(StaffFirst(1))->lDuration, 48);
    lColsPerLine = 150;
}

TEST_F(Native, AFileThatIsCutOffAnywhereIsToldOfAndKeepsWhatWasRead)
{
    NativeBytes file(9);
    Record fingered = Note(3, 9, 0x100);
    fingered.sFingering = "\2\3";
    std::string const sWhole = file.Add(Sign(CLEF, 1)).Add(TextRecord(TITLE, "Drowsy Maggie")).Add(fingered).End();
    ASSERT_EQ(Load(sWhole), 1);
    EXPECT_EQ(Messages(), Texts{});
    for (size_t cb = 0; cb + 2 < sWhole.size(); ++cb)
    {
        SCOPED_TRACE(cb);
        EXPECT_EQ(Load(sWhole.substr(0, cb)), 0);
        bool const bMagicCut = cb >= 4 && cb < 8;
        EXPECT_EQ(Messages(), bMagicCut ? Texts{} : Texts{"Read failure 3 (file too short)"});
        EXPECT_EQ(Score_CheckStructure(), Texts{});
    }
    EXPECT_EQ(Load(sWhole.substr(0, sWhole.size() - 2)), 1) << "the two bytes behind the end marker aren't read";
}

TEST_F(Native, AnElementTooShortEndsTheLoad)
{
    NativeBytes file(9);
    Record shortOne = Note(2);
    shortOne.storage = 91;
    EXPECT_EQ(Load(file.Add(Note(1)).Add(shortOne).Add(Note(3)).End()), 0);
    EXPECT_EQ(Messages(), Texts{"Short element number 2, storage=91"});
    EXPECT_EQ(Read(1), "n1/48");
}

TEST_F(Native, ARecordTooLongOrOnNoStaffEndsTheLoadWithASentence)
{
    NativeBytes longFile(9);
    Record longOne = TextRecord(TEXT, std::string(1001, 'a'));
    EXPECT_EQ(Load(longFile.Add(Note(1)).Add(longOne).End()), 0);
    EXPECT_EQ(Messages(), Texts{"Element number 2 has a text of 1001 bytes, longer than any can be: the file is "
                                "damaged.  What stands ahead of it was read."});
    for (int32_t const lStaff : {-1, 9, 32767})
    {
        NativeBytes file(9);
        Record lost = Note(2);
        lost.lStaff = lStaff;
        EXPECT_EQ(Load(file.Add(Note(1)).Add(lost).End()), 0);
        EXPECT_EQ(Messages(), Texts{Format("Element number 2 is on staff %d, which no score has: the file is "
                                           "damaged.  What stands ahead of it was read.",
                                           lStaff)});
        EXPECT_EQ(Read(1), "n1/48");
    }
}

TEST_F(Native, StorageFrom92To98BringsNoTextAndALongerOneDoes)
{
    NativeBytes file(9);
    Record title = TextRecord(TITLE, "");
    title.storage = 96;
    title.lA = 3;
    file.Add(TextRecord(TITLE, "Long one before")).Add(title).Add(TextRecord(TEXT, "Air", 100));
    Record full = TextRecord(TEXT, std::string(1000, 'a'));
    ASSERT_EQ(Load(file.Add(full).End()), 1);
    EXPECT_EQ(Element_Text(At(1, 0)), "Long one before");
    EXPECT_EQ(Element_Text(At(1, 1)), "") << "the text is lost and nothing else is";
    EXPECT_EQ(At(1, 1)->lA, 3);
    EXPECT_EQ(Element_Text(At(1, 2)), "Air");
    EXPECT_EQ(Element_Text(At(1, 3)), std::string(1000, 'a'));
}

TEST_F(Native, ATextWithoutANulEndsWithItsRecord)
{
    NativeBytes file(9);
    Record r = TextRecord(TEXT, std::string(20, 'x'), 98);
    ASSERT_EQ(Load(file.Add(r).End()), 1);
    EXPECT_EQ(Element_Text(At(1, 0)), std::string(20, 'x'));
}

TEST_F(Native, TheStaffCountShowsItsStaffsAndPlaysThemAll)
{
    std::fill(afPlay, afPlay + lStaffLists, 0);
    ASSERT_EQ(Load(NativeBytes(9, 3).End()), 1);
    EXPECT_EQ(VisibleCount(), 3);
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        EXPECT_EQ(afPlay[lStaff], 1);
    ASSERT_EQ(Load(NativeBytes(9, 0).End()), 1);
    EXPECT_EQ(VisibleCount(), 0);
    ASSERT_EQ(Load(NativeBytes(9, -5).End()), 1);
    EXPECT_EQ(VisibleCount(), 0);
    EXPECT_EQ(Messages(), Texts{});
    EXPECT_EQ(Load(NativeBytes(9, 9).End()), 0);
    EXPECT_EQ(Messages(), Texts{"Too many staffs in file."});
}

TEST_F(Native, AFlagThatIsNoneIsToldOfAndCountsAsOn)
{
    std::string s = NativeBytes(9).End();
    s[16] = 7;
    ASSERT_EQ(Load(s), 1);
    EXPECT_EQ(Messages(), Texts{"CheckBool failure number 2, value 7"});
    EXPECT_TRUE(bBeamQuavers);
}

TEST_F(Native, SpacingOutOfRangeIsMended)
{
    struct
    {
        int32_t lCols, lRows, lColsNow, lRowsNow;
    } const aCase[] = {{0, -4, 1, 1}, {10001, 2000000000, 150, 120}, {10000, 1, 10000, 1}};
    for (auto const& c : aCase)
    {
        ASSERT_EQ(Load(NativeBytes(9, 1, c.lCols, c.lRows).End()), 1);
        EXPECT_EQ(lColsPerLine, c.lColsNow);
        EXPECT_EQ(lRowsPerPage, c.lRowsNow);
    }
    lColsPerLine = 150;
    lRowsPerPage = 120;
}

TEST_F(Native, ANoteWithoutFingeringTakesThatOfTheLastOneThatHadSome)
{
    NativeBytes file(9);
    Record fingered = Note(3, 9, 0x100);
    fingered.sFingering = std::string("\4\377", 2);
    ASSERT_EQ(Load(file.Add(Note(1)).Add(fingered).Add(Note(5, 20)).End()), 1);
    EXPECT_EQ(Column(1, &Element::lString), "0 4 4");
    EXPECT_EQ(Column(1, &Element::lFret), "-1 255 255");
}

TEST_F(Native, AFretLosesItsHighBits)
{
    Write(1, "n2/48");
    At(1, 0)->lString = 3;
    At(1, 0)->lFret = 256 + 7;
    ASSERT_EQ(Load(Save()), 1);
    EXPECT_EQ(Column(1, &Element::lString), "3");
    EXPECT_EQ(Column(1, &Element::lFret), "7");
}

TEST_F(Native, ATextTooShortForItsRecordIsLostAndNothingElseIs)
{
    NativeBytes file(9);
    Record shortened = TextRecord(TEXT, "", 101);
    shortened.storage = 96;
    ASSERT_EQ(Load(file.Add(Note(1)).Add(shortened).Add(Note(3, 9)).End()), 1);
    std::string const sSaved = Save();
    ASSERT_EQ(Load(sSaved), 1);
    EXPECT_EQ(Read(1), "n1/48 text\"\" n3/48");
    EXPECT_EQ(At(1, 1)->storage, 96);
    EXPECT_EQ(Save(), sSaved);
}

TEST_F(Native, SlursPairLastOpenedFirstClosedAndOneWithoutAStartIsToldOf)
{
    NativeBytes file(9);
    file.Add(Sign(SLUR, 0, 0x1234)).Add(Sign(SLUR, 0, 77)).Add(Sign(SLUR, 1, 88)).Add(Sign(SLUR, 1)).Add(Sign(SLUR, 1));
    ASSERT_EQ(Load(file.End()), 1);
    EXPECT_EQ(At(1, 0)->pelPartner, At(1, 3));
    EXPECT_EQ(At(1, 3)->pelPartner, At(1, 0));
    EXPECT_EQ(At(1, 1)->pelPartner, At(1, 2));
    EXPECT_EQ(At(1, 2)->pelPartner, At(1, 1));
    EXPECT_EQ(At(1, 4)->pelPartner, nullptr);
    EXPECT_EQ(Column(1, &Element::lB), "0 0 0 0 0");
    EXPECT_EQ(Messages(), Texts{"Unmatched SLURs in file.  Tell Odrian."});
}

TEST_F(Native, ChordsComeOutInOrderWithTheirFlags)
{
    NativeBytes file(9);
    file.Add(Note(8, 5, 4)).Add(Note(1, 5, 1)).Add(Note(4, 5, 8)).Add(Note(6, 9, 4)).Add(Note(7, 12));
    ASSERT_EQ(Load(file.End()), 1);
    EXPECT_EQ(Read(1), "[n1/48/flag=1 n4/48 n8/48] n6/48] n7/48");
    EXPECT_EQ(Column(1, &Element::lA), "5 12 8 8 0");
}

TEST_F(Native, ReadingBehindWhatIsThereKeepsIt)
{
    NativeBytes file(9);
    file.Add(Note(4, 50)).Add(Sign(SLUR, 1));
    Write(1, "clef:3 n1/48 slur(");
    ASSERT_EQ(Load(file.End(), false), 1);
    EXPECT_EQ(Read(1), "clef:3 n1/48 slur( n4/48 slur)");
    EXPECT_EQ(At(1, 2)->pelPartner, At(1, 4));
    int32_t lX = 0;
    int32_t lY = 0;
    Draw_Fold(50, 4, 1, 3, &lX, &lY);
    EXPECT_EQ(At(1, 3)->lY, lY) << "under the clef that was there";
    pelMarkBegin = At(1, 0);
    ASSERT_EQ(Load(file.s, true), 1);
    EXPECT_EQ(pelMarkBegin, nullptr);
}

TEST_F(Native, WhatIsWrittenIsTheTableByteForByte)
{
    Element el;
    el.sort = CLEF;
    el.lA = 3;
    el.lStrX = 0x01020304;
    el.lX = -2;
    el.lDiaPitch = -5;
    el.inx = 9;
    el.lTime = 7;
    el.lStaff = 2;
    el.fHidden = 1;
    el.beam = 3;
    el.fOverBar = 2;
    el.up = 0;
    List_AddLast(aStaffList[2], &el, 100);
    bKeepBarsTogether = true;
    bBeamQuavers = false;
    bShowLayout = true;
    NativeBytes file(9, 2);
    std::string sExpected = file.s.substr(0, 24);
    for (int i = 0; i < 3; ++i)
        sExpected += file.s.substr(40, 8);
    file.s = sExpected;
    Record r = Sign(CLEF, 3);
    r.lStrX = 0x01020304;
    r.lX = -2;
    r.lDiaPitch = -5;
    r.inx = 9;
    r.lTime = 7;
    r.lStaff = 2;
    r.fHidden = 1;
    r.beam = 3;
    r.fOverBar = 2;
    r.up = 0;
    EXPECT_EQ(Save(), file.Add(r).End());
}

TEST_F(Native, AnEmptyScoreHasAStaffCountOfNought)
{
    std::string const s = Save();
    EXPECT_EQ(s.substr(8, 4), std::string(4, '\0'));
    EXPECT_EQ(s.size(), 48U + 41 + 2);
}

TEST_F(Native, WriteReadWriteGivesTheSameBytes)
{
    Write(1, "clef:1 key:2 time:6/8 title\"The Irish Washerwoman\" slur( [n0/48 n4/48 n7/48] slur) lyr\"la\" n3/24 |");
    Write(2, "clef:3 n-5/48 tie n-5/48 chord\"Am7\" r48 |");
    At(1, 5)->lString = 3;
    At(1, 5)->lFret = 11;
    Write(0, "n1/48");
    std::string const s1 = Save();
    EXPECT_EQ(Save(), s1) << "saving twice";
    ASSERT_EQ(Load(s1), 1);
    std::string const s2 = Save();
    ASSERT_EQ(Load(s2), 1);
    EXPECT_EQ(Save(), s2);
    EXPECT_EQ(Read(1), "clef:1 key:2 time:6/8 title\"The Irish Washerwoman\" slur( [n0/48/flag=256 n4/48/flag=256 "
                       "n7/48/flag=256] slur) lyr\"la\" n3/24/flag=256 |");
    EXPECT_EQ(Read(2), "clef:3 n-5/48/flag=256 tie n-5/48/flag=256 chord\"Am7\" r48 |");
    EXPECT_EQ(Messages(), Texts{});
}

TEST_F(Native, AFullDiskIsToldOfAtTheStartAndForEveryRecord)
{
    Write(1, "n1/48 n2/48");
    std::string s;
    HFILE hFile = File_IntoString(&s);
    cbDiskLeft = 3;
    EXPECT_EQ(Native_Write(hFile), 0);
    _lclose(hFile);
    EXPECT_EQ(Messages(), Texts{"File writing failed (catastrophic failure).  Music NOT saved.  "});

    hFile = File_IntoString(&s);
    cbDiskLeft = 60;
    EXPECT_EQ(Native_Write(hFile), 0);
    EXPECT_FALSE(_lclose(hFile));
    EXPECT_EQ(Messages(), Texts(3, "File writing failure (catastrophic error)")) << "two notes and the end marker";
    cbDiskLeft = -1;
}

TEST_F(Native, ALostStringLeavesTheFlagThatClaimsItsBytes)
{
    Element* const pel = Write(1, "n1/48");
    pel->lString = 2;
    (void)Save();
    EXPECT_EQ(pel->lA, fFingeringStored);
    pel->lString = 0;
    std::string const s = Save();
    EXPECT_EQ(pel->lA, fFingeringStored);
    EXPECT_EQ(s.size(), 48U + 43 + 43) << "no bytes stand behind the record";
}

TEST_F(Native, TheReaderTracesEachStep)
{
    static std::string sTrace;
    sTrace.clear();
    pDebugLogSink = [](std::string_view s)
    {
        if (s.starts_with("ReadFile: "))
            sTrace += s;
    };
    EXPECT_EQ(Load(NativeBytes(9).Add(Sign(BAR)).End()), 1);
    pDebugLogSink = nullptr;
    EXPECT_EQ(sTrace.substr(0, sTrace.find("ReadFile: element cBytes request", sTrace.find("extra"))),
              "ReadFile: version 9\nReadFile: lStaffs 1\nReadFile: keep bars together 1\nReadFile: beam quavers 0\n"
              "ReadFile: show layout 1\nReadFile: element cBytes request 41\nReadFile: Storage was 2\n"
              "ReadFile: Storage set to 100\nReadFile: element cBytes 41\nReadFile: storage 100\nReadFile: sort 2\n"
              "ReadFile: duration 0\nReadFile: extra bytes read 2\n");
}

TEST_F(Native, BadClefsMakeOneMessageAndNoMore)
{
    NativeBytes file(9);
    for (int32_t i = 0; i < 50; ++i)
        file.Add(Sign(CLEF, -1000000 + i)).Add(Note(2, 3));
    EXPECT_EQ(Load(file.End()), 1);
    EXPECT_EQ(Messages().size(), 1U);
}

TEST_F(Native, PlacesCarriedForwardAreThoseOfThePlainWalk)
{
    constexpr int32_t aSort[] = {NOTE, NOTE, NOTE, REST, CLEF, CHORD, SHARP, BAR, SLUR};
    std::mt19937 random(20);
    auto const Pick = [&](int32_t n) { return static_cast<int32_t>(random() % static_cast<uint32_t>(n)); };
    for (int32_t lRun = 0; lRun < 600; ++lRun)
    {
        StaffPlaces places;
        Score_EmptyStaffs();
        int32_t const lColumns = 1 + Pick(6);
        bool const bInOrder = Pick(2) == 0;
        int32_t lStrX = 0;
        for (int32_t i = 0; i < 40; ++i)
        {
            Element el;
            lStrX = bInOrder ? lStrX + Pick(3) / 2 : Pick(lColumns);
            el.sort = aSort[Pick(static_cast<int32_t>(std::size(aSort)))];
            el.lStrX = lStrX;
            el.lDiaPitch = Pick(30) - 10;
            el.lA = el.sort == CLEF ? Pick(6) : Pick(2);

            Element const* const pelPlace = FindPlace(el.lStrX, el.lDiaPitch, 1, el.sort);
            int32_t const lPlain = el.sort == CLEF ? el.lA : pelPlace ? ClefAt(Prev(pelPlace)) : ClefAtEnd(1);
            ASSERT_EQ(places.ClefFor(el), lPlain) << "run " << lRun << ", element " << i << " of sort " << el.sort
                                                  << " at " << el.lStrX << " behind " << Read(1);
            List_AddLast(aStaffList[1], &el, 100);
            places.Append(StaffLast(1));
            if (el.sort != SLUR || el.lA == 0)
                continue;
            Element* pelOpen = Prev(StaffLast(1));
            while (pelOpen && !(pelOpen->sort == SLUR && pelOpen->lA == 0 && !pelOpen->pelPartner))
                pelOpen = Prev(pelOpen);
            ASSERT_EQ(places.TakeOpenSlur(), pelOpen);
            if (pelOpen)
                pelOpen->pelPartner = StaffLast(1);
        }
    }
    Score_EmptyStaffs();
}

TEST_F(Native, AHugeColumnOfNotesLoadsInTimeThatGrowsWithItsLength)
{
    NativeBytes file(9);
    for (int32_t i = 0; i < 50000; ++i)
        file.Add(Note(i % 40 - i / 2, 3, 4)).Add(Sign(i % 3 ? SLUR : CLEF, i % 2));
    std::string const s = file.End();
    EXPECT_EQ(Load(s), 1);
    EXPECT_EQ(List_Card(aStaffList[1]), 100000);
}

TEST_F(Native, AChordTooLargeToPlayIsSortedAllTheSame)
{
    for (int32_t i = 0; i < 500; ++i)
        Write(1, Format("n%d/48/flag=%d", i * 37 % 100, i == 0 ? fChordMore : fChordBefore));
    OrderChords(1);
    for (Element const* pel = StaffFirst(1); Next(pel); pel = Next(pel))
        ASSERT_LE(pel->lDiaPitch, Next(pel)->lDiaPitch);
    EXPECT_EQ(StaffFirst(1)->lA & fChordBits, fChordMore);
    EXPECT_EQ(StaffLast(1)->lA & fChordBits, fChordBefore);
}
