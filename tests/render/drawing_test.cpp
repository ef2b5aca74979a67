#include "core/messages.h"
#include "core/text.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "layout/right_justify.h"
#include "platform/headless/recording_surface.h"
#include "render/draw_score.h"
#include "render/first_time_bar.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/key_signature.h"
#include "render/note_glyphs.h"
#include "render/page_foot.h"
#include "render/pages.h"
#include "render/symbols.h"
#include "render/ties.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <sstream>

namespace zarn
{
using namespace test;

namespace
{
class Drawing : public testing::Test
{
protected:
    ~Drawing() override
    {
        bShowArpeggio = true;
        bPrinting = bPrintScale = bDrawingCursor = false;
    }
    std::vector<std::string> Messages() { return process.user.Messages(); }
    DrawingProcess process;
};

/// A tune for each of the lists that stand in tests/golden.
struct Golden
{
    char const* sName;
    char const* sScore;
};
constexpr Golden aGoldens[] = {
    {"beams", "clef:1 time:4/4 n0/24 n2/24 n4/24 n6/24 n8/36 n7/12 n6/12 n5/12 n4/12 n3/12 n2/48 n1/16 n2/16 n3/16"},
    {"chords", "clef:1 [n0/48 n2/48 n4/48] [n7/24 n9/24] r24 [n11/96 n12/96] [n-3/24 n0/24] [n1/24 n3/24]"},
    {"rests", "clef:1 r192 r144 r96 r72 r48 r24 r12 r6 r32 r16"},
    {"values",
     "clef:1 n4/192 n4/144 n4/96 n9/72 n4/48 n4/24 | n9/24 n4/12 | n9/12 n4/6 | n9/6 n4/0 n4/32 n4/48/flag=96"},
    {"keys", "clef:1 key:7 clef:2 key:-7 clef:3 key:4,-3 clef:4 key:-2 key:0,-2"},
    {"bars", "clef:1 n4/48 | n4/48 || n4/48 |: n4/48 :| n4/48 :: n4/48 1st n4/48 :| up n4/48 down n4/48 time:6/8"},
    {"texts", "clef:1 title\"Air\" chord\"Am\" lyr\"la\" n4/48 text\"x\" annot\"a\" lyr\"\" n5/48 tempo:120 inst:3 "
              "trans:-2 vol:64 nl"},
    {"ties",
     "clef:1 n4/48/flag=1 tie n4/48/flag=2 slur( n5/48 n6/48 slur) slur( n11/24 n12/24 slur) arp( [n0/48 n4/48] arp)"},
};
} // namespace

TEST_F(Drawing, IsTheListThatWasLookedAt)
{
    for (Golden const& golden : aGoldens)
    {
        List_Clear(aStaffList[1]);
        Write(1, golden.sScore);
        FullAdjust();
        ExpectGolden(golden.sName, Drawn());
    }
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(Drawing, AnEmptyScoreShowsTwoSystemsOnTheScreenAndOneOnPaper)
{
    EXPECT_EQ(Count(Drawn(), "box"), 10);
    EXPECT_EQ(Count(DrawnPage(), "box"), 5);
}

TEST_F(Drawing, ASystemWithNothingOnThePageIsNotRuled)
{
    Write(1, "clef:1 n4/48");
    FullAdjust();
    lScroll = 1000;
    EXPECT_EQ(Count(Drawn(), "box"), 0);
}

TEST_F(Drawing, LayoutSignsVanishFromPaperUnlessTheyAreAskedFor)
{
    Write(1, "clef:1 n4/48 tempo:90 inst:3 trans:2 nl n4/48");
    FullAdjust();
    EXPECT_EQ(Count(Drawn(), "text"), 4);
    EXPECT_EQ(Count(DrawnPage(), "text"), 0);
    bShowLayout = true;
    EXPECT_EQ(Count(DrawnPage(), "text"), 4);
    bShowLayout = false;
}

TEST_F(Drawing, AHiddenSymbolIsNotDrawn)
{
    Write(1, "clef:1 n4/48");
    FullAdjust();
    At(1, 1)->fHidden = 1;
    EXPECT_EQ(DrawnSymbol(At(1, 1), 1, false), "");
}

TEST_F(Drawing, KeySignaturesDrawTheNaturalsThatGoAndTheSignsThatCome)
{
    struct
    {
        int32_t lKey;
        int32_t lOldKey;
        int32_t cNaturals; ///< four boxes each
        int32_t cSharps;   ///< four polygons each
        int32_t cFlats;    ///< three polygons and a box each
    } const aCase[] = {{1, 3, 2, 1, 0},  {-2, 3, 3, 0, 2}, {0, 0, 0, 0, 0},   {0, -1, 1, 0, 0},    {0, -2, 2, 0, 0},
                       {0, -7, 7, 0, 0}, {0, 2, 2, 0, 0},  {3, -1, 1, 3, 0},  {-3, -1, 0, 0, 3},   {-1, -3, 2, 0, 1},
                       {7, 0, 0, 7, 0},  {-7, 0, 0, 0, 7}, {100, 0, 0, 7, 0}, {2, 64 + 3, 1, 2, 0}};
    for (auto const& c : aCase)
    {
        Element el;
        el.sort = KEYSIG;
        el.lA = c.lKey;
        el.lB = c.lOldKey;
        el.lDiaPitch = 6;
        Draw_FoldElement(&el, 1);
        bPrinting = true;
        std::string const s = DrawnSymbol(&el, 1, false);
        bPrinting = false;
        int32_t const cRuled = s.empty() ? 0 : 5;
        EXPECT_EQ(Count(s, "polygon"), 4 * c.cSharps + 3 * c.cFlats) << c.lKey << " after " << c.lOldKey;
        EXPECT_EQ(Count(s, "box") - cRuled, 4 * c.cNaturals + c.cFlats) << c.lKey << " after " << c.lOldKey;
    }
}

TEST_F(Drawing, TheKeyOfCShowsThreeNaturalsWithTheInvisibleElements)
{
    Element el;
    el.sort = KEYSIG;
    el.lDiaPitch = 6;
    Draw_FoldElement(&el, 1);
    bPrinting = bShowLayout = true;
    EXPECT_EQ(Count(DrawnSymbol(&el, 1, false), "box"), 12 + 5);
    bShowLayout = false;
}

TEST_F(Drawing, LegersStandAtEverySecondPitchBeyondTheStaff)
{
    struct
    {
        int32_t lClef;
        int32_t lDiaPitch;
        int32_t cLegers;
    } const aCase[] = {{1, 0, 1},   {1, 1, 0},   {1, -1, 1}, {1, -2, 2}, {1, 11, 0}, {1, 12, 1}, {1, 15, 2},
                       {3, -12, 1}, {3, -11, 0}, {3, 0, 1},  {2, 6, 1},  {4, -8, 1}, {4, 4, 1},  {1, 6, 0}};
    for (auto const& c : aCase)
    {
        Element el;
        el.sort = NOTE;
        el.lDuration = 48;
        el.lDiaPitch = c.lDiaPitch;
        Draw_FoldElement(&el, c.lClef);
        EXPECT_EQ(Count(DrawnSymbol(&el, c.lClef, false), "line"), c.cLegers) << c.lClef << ": " << c.lDiaPitch;
    }
}

TEST_F(Drawing, APitchFarBeyondThePageEndsItsLegersThere)
{
    Element el;
    el.sort = NOTE;
    el.lDuration = 48;
    for (int32_t const lDiaPitch : {32767, -32768})
    {
        el.lDiaPitch = lDiaPitch;
        Draw_FoldElement(&el, 1);
        EXPECT_LT(Count(DrawnSymbol(&el, 1, false), "line"), 200);
    }
}

TEST_F(Drawing, AGraceNoteHasASlashForAHeadAndAHairLineForAFlag)
{
    NoteLook look;
    RecordingSurface surface({200, 200});
    DeviceContext dc{.pSurface = &surface};
    DrawNote(&dc, 100, 100, look);
    EXPECT_EQ(Count(surface.All(), "line"), 2);
    EXPECT_EQ(Count(surface.All(), "ellipse"), 0);
    EXPECT_EQ(Count(surface.All(), "polygon"), 0);
}

TEST_F(Drawing, FlagsAndStemsFollowTheDuration)
{
    struct
    {
        int32_t lDuration;
        bool bDotted;
        int32_t cStems;
        int32_t cFlags;
    } const aCase[] = {{192, false, 0, 0}, {144, true, 1, 0}, {96, false, 1, 0}, {48, false, 1, 0}, {24, false, 1, 1},
                       {36, true, 1, 1},   {12, false, 1, 2}, {6, false, 1, 3},  {72, true, 1, 0}};
    for (auto const& c : aCase)
    {
        RecordingSurface surface({200, 200});
        DeviceContext dc{.pSurface = &surface};
        SelectObject(&dc, GetStockObject(BLACK_BRUSH));
        NoteLook look;
        look.lDuration = c.lDuration;
        look.bDotted = c.bDotted;
        DrawNote(&dc, 100, 100, look);
        EXPECT_EQ(Count(surface.All(), "box"), c.cStems) << c.lDuration;
        EXPECT_EQ(Count(surface.All(), "polygon"), c.cFlags) << c.lDuration;
        EXPECT_EQ(Count(surface.All(), "ellipse"), c.bDotted ? 2 : 1) << c.lDuration;
    }
}

TEST_F(Drawing, AStemMeetsItsHeadOnBothSides)
{
    for (bool const bUp : {true, false})
    {
        RecordingSurface surface({200, 200});
        DeviceContext dc{.pSurface = &surface};
        NoteLook look;
        look.bUp = bUp;
        look.lDuration = 48;
        DrawNote(&dc, 100, 100, look);
        // Half a blob to the side, from the head's middle to its end.
        EXPECT_NE(
            surface.All().find(bUp ? Format("box %d,", 100 + lBlobX / 2 - 1) : Format("box %d,", 100 - lBlobX / 2 - 1)),
            std::string::npos)
            << surface.All();
    }
}

TEST_F(Drawing, AnOverrunTurnsTheRestOfItsStaffBlue)
{
    Write(1, "clef:1 n4/48 n4/48 n4/48");
    FullAdjust();
    At(1, 2)->fOverBar = fOverruns;
    std::string const s = Drawn();
    size_t const lBlue = s.find("#0000ff");
    ASSERT_NE(lBlue, std::string::npos);
    EXPECT_EQ(Count(s, "ellipse"), 4); // the clef's foot and three heads
    int32_t cBlueHeads = 0;
    std::istringstream lines(s);
    for (std::string sLine; std::getline(lines, sLine);)
        cBlueHeads += sLine.starts_with("ellipse") && sLine.find("#0000ff") != std::string::npos;
    EXPECT_EQ(cBlueHeads, 2);
}

TEST_F(Drawing, TheMarkIsRedOnTheScreenAndBlackOnPaper)
{
    Write(1, "clef:1 n4/48 n4/48");
    FullAdjust();
    pelMarkBegin = pelMarkEnd = At(1, 1);
    EXPECT_NE(Drawn().find("#ff0000"), std::string::npos);
    EXPECT_EQ(DrawnPage().find("#ff0000"), std::string::npos);
}

TEST_F(Drawing, ADamagedSymbolIsToldAndDrawingGoesOn)
{
    struct
    {
        int32_t sort;
        int32_t lClef;
        bool bCursor;
        char const* sMessage;
    } const aCase[] = {{CLEF, 9, false, "Duff clef type in DrawSymbol"},
                       {KEYSIG, 9, false, "Duff Clef type found in DrawKeySig"},
                       {SORT22, 1, false, "draw symbol of a sort NYI"},
                       {BOWING, 1, false, "Attempt to draw unknown thingy type"},
                       {SLUR, 1, false, "Tell Odrian:  SLUR element1 with no partner.  (OK to continue)"},
                       {SLUR, 1, true, "Tell Odrian: Attempt to draw SLUR into cursor.  (OK to carry on)."}};
    for (auto const& c : aCase)
    {
        process.user.shown.clear();
        Serious_Rearm();
        Element el;
        el.sort = c.sort;
        DrawnSymbol(&el, c.lClef, c.bCursor);
        EXPECT_EQ(Messages(), std::vector<std::string>{c.sMessage});
    }
}

TEST_F(Drawing, ATieThatLostItsOtherNoteIsBrokenWithAMessage)
{
    Write(1, "clef:1 n4/48/flag=1 n5/48");
    FullAdjust();
    Drawn();
    EXPECT_EQ(Messages(), std::vector<std::string>{"Tell Odrian: NULL tie-to note!! Breaking tie..."});
    EXPECT_EQ(At(1, 1)->lA, 0);
}

TEST_F(Drawing, ATieLooksForItsNoteOverBarsAndNotOverRests)
{
    Write(1, "n4/48/flag=1 | n5/48 n4/48/flag=2 n6/48/flag=1 r48 n6/48/flag=2");
    for (int32_t n : {0, 2, 3, 4, 6})
        if (Element* const pel = At(1, n); pel && pel->sort == NOTE)
            pel->lPitch = 60 + pel->lDiaPitch;
    At(1, 2)->lPitch = 99;
    EXPECT_EQ(FindTieTo(At(1, 0)), At(1, 3));
    EXPECT_EQ(FindTieTo(At(1, 4)), nullptr);
}

TEST_F(Drawing, EmptyTextsShowPlaceholdersAndCursorsSamples)
{
    struct
    {
        int32_t sort;
        char const* sPlaceholder;
        char const* sSample;
    } const aCase[] = {{CHORD, "chord??", "F#dim?"},
                       {LYRICS, "lyr??", "lyr"},
                       {TITLE, "Title?", "Ttl"},
                       {TEXT, "tx??", "tx"},
                       {ANNOT, "an??", "an"}};
    for (auto const& c : aCase)
    {
        Element el;
        el.sort = c.sort;
        EXPECT_NE(DrawnSymbol(&el, 1, false).find(Format("\"%s\"", c.sPlaceholder)), std::string::npos);
        EXPECT_NE(DrawnSymbol(&el, 1, true).find(Format("\"%s\"", c.sSample)), std::string::npos);
    }
}

TEST_F(Drawing, DynamicsAreNamedByTheirLevel)
{
    char const* const aNames[] = {"ppp", "pp ", "p  ", "mp ", "m  ", "mf ", "f  ", "ff ", "fff"};
    for (int32_t n = 0; n < 9; ++n)
    {
        Element el;
        el.sort = VOLUME;
        el.lA = 15 * n + 4;
        EXPECT_NE(DrawnSymbol(&el, 1, false).find(aNames[n]), std::string::npos) << n;
    }
}

TEST_F(Drawing, ADamagedBeamIsMendedWithinOnePaint)
{
    std::string sScore = "clef:1";
    for (int32_t n = 0; n < 3000; ++n)
        sScore += " n4/24";
    Write(1, sScore);
    for (Element* pel = At(1, 1); pel; pel = Next(pel))
        pel->beam = BEAM_FIRST;
    Drawn();
    EXPECT_EQ(StaffLast(1)->beam, BEAM_NONE);
}

namespace
{
/// The first column of the first line that reaches below a page's foot.
int32_t FirstLineBelow(int32_t lYFoot)
{
    int32_t lLeast = INT32_MAX;
    for (int32_t lStaff = 1; lStaff <= lStaffCount; ++lStaff)
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            if (ReachesBelow(pel, lYFoot))
                lLeast = std::min(lLeast, pel->lStrX);
    return lLeast == INT32_MAX ? lLeast : LineStart(lLeast);
}

/// Draws what first-time bars that began on earlier pages have on this one.
void DrawOpenFirstTimes(HDC hdc, int32_t lFrom)
{
    for (int32_t lStaff = 1; lStaff <= lStaffCount; ++lStaff)
    {
        Element* pelOpen = nullptr;
        for (Element* pel = StaffFirst(lStaff); pel && pel->lStrX < lFrom; pel = Next(pel))
            if (pel->sort == REPEATFIRST)
                pelOpen = pel;
            else if (pel->sort == REPEATEND || pel->sort == REPEATENDSTART)
                pelOpen = nullptr;
        if (pelOpen)
            DrawFirstTimeBar(hdc, pelOpen);
    }
}

/// The page loop in its plainest form: all of the Score folded and looked at for each page.
std::string PlainPages()
{
    constexpr int32_t lWidth = 1200;
    constexpr int32_t lHeight = 800;
    RecordingSurface surface({lWidth, lHeight});
    BeginPrintUnits(lWidth, lHeight, false);
    Font_Renew();
    lScroll = 0;
    int32_t lFrom = 0;
    for (int32_t lPage = 1;; ++lPage)
    {
        ReGrid();
        surface.aLines.push_back("page " + std::to_string(lPage));
        DeviceContext dc;
        dc.pSurface = &surface;
        Font_Select(&dc);
        SelectObject(&dc, GetStockObject(BLACK_BRUSH));
        int32_t lTo = FirstLineBelow(lTopMarginPx + lPageHeight);
        if (lTo <= lFrom)
            lTo = NextLine(lFrom);
        lPageBegin = lFrom;
        lPageEnd = lTo;
        bool const bMore = DrawScore(&dc, nullptr, lFrom, lTo);
        DrawOpenFirstTimes(&dc, lFrom);
        if (!bMore)
            break;
        lScroll += SystemHeight() * (lTo / lColsPerLine - lFrom / lColsPerLine);
        lFrom = lTo;
    }
    EndPrintUnits();
    Font_Renew();
    return surface.All();
}

std::string RandomTune(std::mt19937& random, int32_t cNotes, bool bInside = false)
{
    std::string s;
    for (int32_t n = 0; n < cNotes; ++n)
    {
        int32_t const lPitch = static_cast<int32_t>(random() % 18) - 4;
        int32_t const lDuration = std::array{12, 24, 24, 48, 48, 96}[random() % 6];
        if (random() % 20 == 0)
            s += " lyr\"word\"";
        if (random() % 15 == 0)
            s += Format(" n%d/%d/flag=1 tie n%d/%d/flag=2", lPitch, lDuration, lPitch, lDuration);
        else if (random() % 12 == 0)
            s += Format(" slur( n%d/24 n%d/24 n%d/48 slur)", lPitch, lPitch + 1, lPitch - 1);
        else if (random() % 30 == 0)
            s += Format(" |: n%d/96 1st n%d/96 :|", lPitch, lPitch);
        else if (!bInside && random() % 30 == 0) // reaches over many lines
            s += " slur(" + RandomTune(random, static_cast<int32_t>(random() % 90), true) + " slur)";
        else if (!bInside && random() % 60 == 0)
            s += " 1st" + RandomTune(random, static_cast<int32_t>(random() % 90), true) + " :|";
        else
            s += Format(" n%d/%d", lPitch, lDuration);
    }
    return s;
}
} // namespace

TEST_F(Drawing, PagesAreThoseOfThePlainLoop)
{
    std::mt19937 random(20);
    for (int32_t lRound = 0; lRound < 12; ++lRound)
    {
        Score_EmptyStaffs();
        SetStaffCount(lRound % 3 + 1);
        for (int32_t lStaff = 1; lStaff <= lStaffCount; ++lStaff)
            Write(lStaff, "clef:1 time:4/4" + RandomTune(random, 200));
        FullAdjust();
        for (int32_t lStaff = 1; lStaff <= lStaffCount; ++lStaff)
            for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
                pel->lPitch = pel->lDiaPitch;
        std::string const sPlain = PlainPages();
        EXPECT_GT(Count(sPlain, "page"), 2);
        ASSERT_EQ(DrawnPage(), sPlain) << lRound;
        bRightJustified = true;
        std::string const sJustified = PlainPages();
        EXPECT_NE(sJustified, sPlain);
        ASSERT_EQ(DrawnPage(), sJustified) << lRound;
        bRightJustified = false;
    }
    SetStaffCount(1);
}

TEST_F(Drawing, ATieOnANewPageBeginsAtItsNoteBehindALineWithoutOne)
{
    Write(1, "n4/48/flag=1 lyr\"word\" tie n4/48/flag=2 n4/48");
    int32_t const aColumns[] = {160, 310, 460, 470, 480}; // three lines of music stand on a page
    for (int32_t n = 0; n < 5; ++n)
    {
        At(1, n)->lStrX = aColumns[n];
        At(1, n)->lPitch = 64;
    }
    std::string const s = DrawnPage();
    EXPECT_EQ(Count(s, "page"), 2);
    EXPECT_EQ(s, PlainPages());
}

TEST_F(Drawing, PagesLeaveUnitsAndScrollAsTheyWere)
{
    Write(1, "clef:1 n4/48");
    FullAdjust();
    lScroll = 7;
    ReGrid();
    int32_t const y = At(1, 1)->lY;
    DrawnPage();
    EXPECT_EQ(lScroll, 7);
    EXPECT_EQ(lPageWidth, 1200);
    EXPECT_FALSE(bPrinting);
    EXPECT_EQ(At(1, 1)->lY, y);
}

TEST_F(Drawing, LinesBeyondAnyScrollAreNotLookedThroughOneByOne)
{
    Write(1, "clef:1 n4/48 n4/48");
    StaffLast(1)->lStrX = 2'000'000'000;
    lColsPerLine = 1;
    SetUnits();
    EXPECT_LT(Count(DrawnPage(), "page"), 10);
}

TEST_F(Drawing, TheVeryLastColumnEndsThePages)
{
    Write(1, "clef:1 n4/48 n4/48");
    StaffLast(1)->lStrX = INT32_MAX;
    EXPECT_LT(Count(DrawnPage(), "page"), 10);
}

TEST_F(Drawing, ColumnsOutOfADamagedFileEndInAFewPages)
{
    Write(1, "clef:1 n4/48 n4/48 n4/48 n4/48");
    int32_t const aColumns[] = {0, 2000000000, 10, -5000, 1500000000};
    int32_t n = 0;
    for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
        pel->lStrX = aColumns[n++];
    EXPECT_LT(Count(DrawnPage(), "page"), 20);
}
} // namespace zarn
