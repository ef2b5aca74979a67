#include "render/symbols.h"

#include "core/messages.h"
#include "core/text.h"
#include "platform/headless/headless_window.h"
#include "render/draw_score.h"
#include "render/key_signature.h"
#include "render/legers.h"
#include "render/ruled_lines.h"
#include "render/ruling.h"
#include "render/strokes.h"
#include "support/drawing.h"
#include "support/glyph_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::At;
using test::Count;

class Symbols : public test::GlyphFixture
{
protected:
    ~Symbols() override { bShowLayout = false; }

    /// One symbol at (100, 200) as drawn, without the staff lines that it brings.
    std::string Drawn(Element* pel, bool bCursor = false)
    {
        lFirstLineRuled = 1;
        lLastLineRuled = 99;
        DrawSymbol(&dc, nullptr, pel, 1, bCursor);
        return Taken();
    }
    std::string Drawn(int32_t sort, int32_t lA, bool bCursor = false)
    {
        Element el;
        el.sort = sort;
        el.lA = lA;
        el.lX = 100;
        el.lY = 200;
        return Drawn(&el, bCursor);
    }
    /// The text of the one text that was drawn.
    static std::string TextOf(std::string const& s)
    {
        size_t const lFrom = s.find('"');
        return lFrom == s.npos ? "none" : s.substr(lFrom + 1, s.rfind('"') - lFrom - 1);
    }
};

TEST_F(Symbols, EachDynamicEndsBelowItsLimit)
{
    struct
    {
        int32_t lBelow;
        char const* sName;
    } const aCase[] = {{11, "ppp"}, {26, "pp "},  {41, "p  "},  {56, "mp "}, {71, "m  "},
                       {86, "mf "}, {101, "f  "}, {116, "ff "}, {999, "fff"}};
    int32_t lFirst = 0;
    for (auto const& c : aCase)
    {
        EXPECT_EQ(TextOf(Drawn(VOLUME, lFirst)), c.sName);
        EXPECT_EQ(TextOf(Drawn(VOLUME, c.lBelow - 1)), c.sName);
        lFirst = c.lBelow;
    }
}

TEST_F(Symbols, SignsOfTheLayoutAreTheirLetters)
{
    EXPECT_EQ(TextOf(Drawn(INSTRUMENT, 3)), "I3");
    EXPECT_EQ(TextOf(Drawn(TEMPO, 120)), "T120");
    EXPECT_EQ(TextOf(Drawn(TRANSPOSE, -2)), "X-2");
    EXPECT_EQ(TextOf(Drawn(NEWLINE, 0)), "/");
    EXPECT_EQ(TextOf(Drawn(MARKBEGIN, 0)), "<");
    EXPECT_EQ(TextOf(Drawn(MARKEND, 0)), ">");
}

TEST_F(Symbols, ASpaceShowsInACursorAndAmongTheInvisibleElements)
{
    EXPECT_EQ(TextOf(Drawn(SPACE, 0)), "none");
    EXPECT_EQ(TextOf(Drawn(SPACE, 0, true)), "*");
    bShowLayout = true;
    EXPECT_EQ(TextOf(Drawn(SPACE, 0)), ",");
}

TEST_F(Symbols, NothingStandsForNoSortAndForAbcText)
{
    EXPECT_EQ(Drawn(NOSORT, 0), "");
    EXPECT_EQ(Drawn(ABC, 0), "");
}

TEST_F(Symbols, ALongRestInACursorHasALineToHangOn)
{
    Element el;
    el.sort = REST;
    el.lX = 100;
    el.lY = 200;
    el.lDuration = 48;
    EXPECT_EQ(Count(Drawn(&el, true), "line 86,200"), 0);
    el.lDuration = 96;
    std::string const s = Drawn(&el, true);
    EXPECT_NE(s.find("line 86,200 114,200\nline 102,200 130,200\n"), std::string::npos) << s;
    EXPECT_EQ(Count(Drawn(&el, false), "line"), 0);
}

TEST_F(Symbols, ATieInACursorIsAnArcBelow)
{
    EXPECT_EQ(Drawn(TIE, 0, true), "polygon 100,207 100,209 104,221 104,219\npolygon 104,219 104,221 112,221 112,219\n"
                                   "polygon 112,219 112,221 116,209 116,207\n");
}

TEST_F(Symbols, AFirstTimeBarInACursorIsNothing) { EXPECT_EQ(Drawn(REPEATFIRST, 0, true), ""); }

TEST_F(Symbols, ArpeggioBracketsShowByTheirOption)
{
    bShowArpeggio = false;
    EXPECT_EQ(Drawn(ARPEGSTART, 0), "");
    bShowArpeggio = true;
    EXPECT_EQ(Count(Drawn(ARPEGSTART, 0), "line"), 3);
    EXPECT_NE(Drawn(ARPEGEND, 0), Drawn(ARPEGSTART, 0));
}

TEST_F(Symbols, ATextOfBlanksShowsItsPlaceholder)
{
    for (char const* const sText : {"", "   ", "\t", " \r", "\b\b"})
    {
        RoomyElement el;
        el.sort = LYRICS;
        el.lA = static_cast<int32_t>(std::string_view(sText).size());
        std::copy_n(sText, el.lA, Element_TextBytes(&el));
        EXPECT_EQ(TextOf(Drawn(&el)), "lyr??");
        EXPECT_EQ(TextOf(Drawn(&el, true)), el.lA ? "lyr??" : "lyr");
    }
}

TEST_F(Symbols, ChordNamesAndTitlesAreCentredButNotInACursor)
{
    for (int32_t const sort : {CHORD, TITLE, LYRICS, TEXT, ANNOT})
    {
        bool const bCentred = sort == CHORD || sort == TITLE;
        EXPECT_TRUE(Drawn(sort, 0).starts_with(bCentred ? "text 93," : "text 100,")) << sort;
        EXPECT_TRUE(Drawn(sort, 0, true).starts_with("text 100,")) << sort;
    }
}

TEST_F(Symbols, OfAChordTheFarEndCarriesTheFlagAndTheNearEndTheMarks)
{
    test::Write(1, "[n4/24 n6/24 n8/24]");
    for (bool const bUp : {true, false})
        for (int32_t n = 0; n < 3; ++n)
        {
            Element* const pel = At(1, n);
            pel->up = bUp;
            pel->lX = 100;
            pel->lY = 200 - 16 * n;
            pel->lA |= fStaccato;
            std::string const s = Drawn(pel);
            int32_t const lFarEnd = bUp ? 2 : 0;
            EXPECT_EQ(Count(s, "polygon"), n == lFarEnd) << n;
            EXPECT_EQ(Count(s, "ellipse"), 1 + (n == 2 - lFarEnd)) << n;
            // The near end joins its chord with a stem of its own.
            EXPECT_EQ(Count(s, "box"), 1 + (n == 2 - lFarEnd)) << n;
        }
    EXPECT_NE(Drawn(At(1, 2)).find("box 92,168 94,200\n"), std::string::npos);
}

TEST_F(Symbols, CrotchetsOfAChordNeedNoJoiningStem)
{
    test::Write(1, "[n4/48 n8/48]");
    EXPECT_EQ(Count(Drawn(At(1, 0)), "box"), 1);
}

TEST_F(Symbols, AFirstTimeBarStandsOverTheHighestSymbolAheadOfItsEnd)
{
    test::Write(1, "1st n4/48 n8/48 :|");
    int32_t const aY[] = {200, 180, 140, 20};
    for (int32_t n = 0; n < 4; ++n)
    {
        At(1, n)->lX = 100 + 100 * n;
        At(1, n)->lY = aY[n];
    }
    EXPECT_EQ(Drawn(At(1, 0)), "box 108,124 392,125\nbox 99,116 101,140\npolygon 100,114 100,118 96,126 96,122\n");
    At(1, 3)->sort = REPEATENDSTART;
    EXPECT_EQ(Count(Drawn(At(1, 0)), "box"), 2);
    At(1, 3)->sort = DOUBLEBAR;
    EXPECT_EQ(Drawn(At(1, 0)), ""); // open: no line
}

TEST_F(Symbols, AFirstTimeBarOverLinesHasASegmentForEachAndOneHook)
{
    test::Write(1, "1st n4/48 n4/48 lyr\"a\" n4/48 n4/48 :|");
    int32_t const aColumns[] = {100, 110, 120, 151, 160, 170, 310};
    for (int32_t n = 0; n < 7; ++n)
    {
        At(1, n)->lStrX = aColumns[n];
        Draw_FoldElement(At(1, n), 1);
    }
    std::string const s = Drawn(At(1, 0));
    EXPECT_EQ(Count(s, "box"), 3) << s; // two segments and the hook; no note stands on the third line
    EXPECT_EQ(Count(s, "polygon"), 1) << s;
    // Each stands over the place of a note two steps above the staff's top line.
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(100, 12, 1, 1, &x, &y);
    EXPECT_NE(s.find(Format("box %d,%d ", At(1, 0)->lX + 8, y - 16)), std::string::npos) << s;
    Draw_Fold(160, 12, 1, 1, &x, &y);
    EXPECT_NE(s.find(Format("box %d,%d %d,%d", At(1, 4)->lX + 8, y - 16, At(1, 5)->lX - 8, y - 15)), std::string::npos)
        << s;
}

TEST_F(Symbols, AKeySignatureTakesAColumnForEachSignAndOneBetween)
{
    struct
    {
        int32_t lKey;
        int32_t lOldKey;
        char const* sSigns; ///< by column: n natural, s sharp, f flat, a blank for none
    } const aCase[] = {{1, 3, "nn s"}, {-2, 3, "nnn ff"}, {2, 0, "ss"},  {0, 0, ""},
                       {3, 3, " sss"}, {-1, -1, " f"},    {3, 1, "sss"}, {0, -2, "nn"}};
    for (auto const& c : aCase)
    {
        int32_t x = 0;
        int32_t y = 0;
        Draw_Fold(10, 6, 1, 1, &x, &y);
        DrawKeySig(&dc, x, y, c.lKey, c.lOldKey, 1, false);
        std::string const sDrawn = Taken();
        std::string sExpected;
        auto const Sign = [&](int32_t lCol, int32_t lPitch, int32_t sort)
        {
            DrawKeySigElement(&dc, lCol, lPitch, 1, sort, 1);
            sExpected += Taken();
        };
        static constexpr int32_t aSharps[] = {10, 7, 11};
        static constexpr int32_t aFlats[] = {6, 9};
        int32_t lOld = c.lOldKey > 0 && c.lKey > 0 ? c.lKey : 0;
        int32_t lNew = 0;
        for (int32_t n = 0; c.sSigns[n]; ++n)
            if (c.sSigns[n] == 'n')
                Sign(10 + n, c.lOldKey > 0 ? aSharps[lOld++] : aFlats[lOld++], NATURAL);
            else if (c.sSigns[n] != ' ')
                Sign(10 + n, c.lKey > 0 ? aSharps[lNew++] : aFlats[lNew++], c.lKey > 0 ? SHARP : FLAT);
        EXPECT_EQ(sDrawn, sExpected) << c.lKey << " after " << c.lOldKey;
    }
}

TEST_F(Symbols, ATenorKeyHasTheAltosPitchesAndSoStandsOffItsStaff)
{
    struct
    {
        int32_t lClef;
        int32_t lSharpPitch;
        int32_t lFlatPitch;
    } const aCase[] = {{1, 10, 6}, {2, 3, -1}, {3, -4, -8}, {4, 3, -1}};
    for (auto const& c : aCase)
        for (int32_t const lKey : {1, -1})
        {
            DrawKeySig(&dc, 80, 200, lKey, 0, c.lClef, false);
            std::string const sDrawn = Taken();
            DrawKeySigElement(&dc, 10, lKey > 0 ? c.lSharpPitch : c.lFlatPitch, 1, lKey > 0 ? SHARP : FLAT, c.lClef);
            EXPECT_EQ(sDrawn, Taken()) << c.lClef;
        }
}

TEST_F(Symbols, AKeyInACursorShowsWhatItMightTakeAway)
{
    constexpr int32_t lStrokesOfASharp = 4;
    auto const Key = [this](int32_t lKey)
    {
        DrawKeySig(&dc, 80, 200, lKey, 0, 1, true);
        return Taken();
    };
    EXPECT_EQ(Count(Key(0), "box"), 8); // two naturals
    std::string const sG = Key(1);
    EXPECT_EQ(Count(sG, "box"), 4);
    EXPECT_EQ(Count(sG, "polygon"), lStrokesOfASharp);
    std::string const sF = Key(-1);
    EXPECT_EQ(Count(sF, "box"), 4 + 1);
    EXPECT_EQ(Count(Key(4), "polygon"), 4 * lStrokesOfASharp);
}

TEST_F(Symbols, AStrangeSignOfAKeyIsTold)
{
    EXPECT_EQ(DrawKeySigElement(&dc, 10, 6, 1, BAR, 1), 0);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Invalid DrawKeySigElement sort"});
}

TEST_F(Symbols, ALineIsRuledOnceAndTheNextOneTooOnTheScreen)
{
    RuledLines_Reset();
    RuleLine(&dc, nullptr, 10);
    EXPECT_EQ(Count(Taken(), "box"), 10);
    RuleLine(&dc, nullptr, 150); // counts to the first line
    RuleLine(&dc, nullptr, 0);
    EXPECT_EQ(Taken(), "");
    RuleLine(&dc, nullptr, 151);
    EXPECT_EQ(Count(Taken(), "box"), 5);
    RuledLines_Reset();
    bPrinting = true;
    RuleLine(&dc, nullptr, 151);
    EXPECT_EQ(Count(Taken(), "box"), 5);
}

TEST_F(Symbols, EveryBandOfASystemIsRuled)
{
    SetStaffCount(2);
    lScroll = 3;
    RuleSystem(&dc, 2);
    std::string const s = Taken();
    EXPECT_EQ(Count(s, "box"), 10);
    int32_t const lTop = 8 * (8 + 8 - 3 + SystemHeight());
    EXPECT_TRUE(s.starts_with(Format("box 0,%d 1200,%d\n", lTop - 1, lTop + 1))) << s;
    EXPECT_NE(s.find(Format("box 0,%d 1200,%d\n", lTop + 27 * 8 - 1, lTop + 27 * 8 + 1)), std::string::npos) << s;
    SetStaffCount(1);
    lScroll = 0;
}

TEST_F(Symbols, ASymbolInACursorRulesNothing)
{
    RuledLines_Reset();
    Element el;
    el.sort = SHARP;
    el.lX = el.lY = 100;
    DrawSymbol(&dc, nullptr, &el, 1, true);
    EXPECT_EQ(Count(Taken(), "box"), 0);
}

TEST_F(Symbols, TheVisibleRangeIsWholeLinesFromTheHeadToTheFoot)
{
    test::Write(1, "n4/48 n4/48 n4/48 n4/48");
    int32_t const aColumns[] = {10, 160, 310, 460};
    for (int32_t n = 0; n < 4; ++n)
    {
        At(1, n)->lStrX = aColumns[n];
        Draw_FoldElement(At(1, n), 1);
    }
    int32_t lTo = 0;
    int32_t lFrom = 0;
    int32_t const lBottomLine = (8 + 16) * 8;
    int32_t const lSystem = SystemHeight() * 8;
    VisibleRange(lBottomLine + 2 * lSystem, At(1, 0)->lY, &lTo, &lFrom);
    EXPECT_EQ(lTo, 450);
    EXPECT_EQ(lFrom, 150);
    VisibleRange(lBottomLine + 2 * lSystem - 1, 0, &lTo, &lFrom);
    EXPECT_EQ(lTo, 300); // the bottom line is below the foot, though the note isn't
    EXPECT_EQ(lFrom, 0);
    VisibleRange(INT32_MAX, 0, &lTo, &lFrom);
    EXPECT_EQ(lTo, INT32_MAX);
    VisibleRange(0, INT32_MAX, &lTo, &lFrom);
    EXPECT_EQ(lTo, 0);
    EXPECT_EQ(lFrom, 10); // nothing stands below the head: the end's column, unrounded
}

TEST_F(Symbols, APaintTellsWhetherAnythingRealLiesBeyondThePage)
{
    bPrinting = true;
    struct
    {
        char const* sBeyond;
        bool bMore;
    } const aCase[] = {{"", false}, {" sp nl sp", false}, {" nl n4/48", true}, {" lyr\"\"", true}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        test::Write(1, std::string("n4/48") + c.sBeyond);
        for (Element* pel = At(1, 1); pel; pel = Next(pel))
            pel->lStrX = 150;
        EXPECT_EQ(DrawScore(&dc, nullptr, 0, 150), c.bMore) << c.sBeyond;
    }
    bPrinting = false;
    EXPECT_FALSE(DrawScore(&dc, nullptr, 0, 150)) << "a paint on the screen goes on to the end";
}

TEST_F(Symbols, LegersAreThoseOfTheLoopOverEachWhereverTheStaffStands)
{
    struct
    {
        int32_t lLow;
        int32_t lHigh;
    } const aEdges[] = {{2, 10}, {-4, 4}, {-10, -2}, {-6, 2}};
    for (int32_t const lRows : {0, 60, -200, 300, -3000, 5000})
        for (int32_t lClef = 1; lClef <= 4; ++lClef)
            for (int32_t lPitch = -3000; lPitch <= 3000; lPitch += lPitch > -30 && lPitch < 30 ? 1 : 97)
            {
                lScroll = lRows;
                int32_t r = 0;
                auto const [lLow, lHigh] = aEdges[lClef - 1];
                auto const Plain = [&](int32_t lAt)
                {
                    int32_t x = 0;
                    int32_t y = 0;
                    Draw_Fold(10, lAt, 1, lClef, &x, &y);
                    r |= LegerLine(&dc, 100, y);
                };
                if (lPitch >= lLow - 1)
                    for (int32_t lAt = lHigh + 2; lAt <= lPitch; lAt += 2)
                        Plain(lAt);
                else
                    for (int32_t lAt = lLow - 2; lAt >= lPitch; lAt -= 2)
                        Plain(lAt);
                std::string const sPlain = Taken();
                ASSERT_EQ(DrawLegers(&dc, 100, 10, 1, lPitch, lClef), r) << lPitch << " scrolled by " << lRows;
                ASSERT_EQ(Taken(), sPlain) << lPitch << " scrolled by " << lRows;
            }
    lScroll = 0;
}

TEST_F(Symbols, ThePaintSetsTheScrollBarToTheFootOfTheLowestStaffsLastLine)
{
    SetStaffCount(2);
    test::Write(1, "n4/48");
    test::Write(2, "n4/48");
    At(1, 0)->lStrX = 310;
    At(2, 0)->lStrX = 10;
    HeadlessWindow window("", nullptr);
    DrawScore(&dc, &window, 0, 0);
    int32_t y = 0;
    int32_t lRows = 0;
    ScrollBottom(310, 2, &y, &lRows);
    EXPECT_EQ(window.lScrollRange, lRows + 1);
    SetStaffCount(1);
}
} // namespace
} // namespace zarn
