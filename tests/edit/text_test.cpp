// Text elements: the current symbol, adding at a place, and another text in an element's place.
#include "edit/text.h"

#include "edit/current_symbol.h"
#include "layout/element_width.h"
#include "support/layout_fixture.h"
#include "support/score_text.h"

namespace zarn
{
namespace
{
using test::At;
using test::Read;
using test::Write;

struct Text : test::LayoutFixture
{
    Text() { bAutoLayout = false; }

    /// Adds "words" of that sort at a column and a height of staff 1 as they show under a treble clef.
    static Element* AddAt(int32_t sort, int32_t lStrX, int32_t lDiaPitch, std::string_view sText = "words")
    {
        int32_t x = 0;
        int32_t y = 0;
        Draw_Fold(lStrX, lDiaPitch, 1, 1, &x, &y);
        CurrentSymbol_Set(sort);
        Text_AddAtCursor(nullptr, sText, static_cast<int32_t>(sText.size()), x, y);
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            if (pel->sort == sort)
                return pel;
        return nullptr;
    }

    std::string sTooLong = "You have a too much text in one symbol.  The idea of lyrics is to spread them out one word "
                           "per note.  Edit the notes in first";
};

TEST_F(Text, EachWritingTypeHasItsSortItsFirstWordsAndItsTitle)
{
    struct
    {
        int32_t lType, sort;
        char const *sFirst, *sTitle;
    } const aCase[] = {{WRITE_TITLE, TITLE, "Line tit", "Title"},
                       {WRITE_LYRIC, LYRICS, "Text", "Lyric"},
                       {WRITE_HARMONY, CHORD, "Am7", "Harmony"},
                       {WRITE_TEXT, TEXT, "text", "Text"},
                       {WRITE_ANNOTATION, ANNOT, "annot", "Annotation"}};
    int32_t const aLength[] = {10, 4, 3, 4, 5};
    for (auto const& c : aCase)
    {
        elCurrent.lB = 7;
        CurrentSymbol_SetWriting(c.lType);
        EXPECT_EQ(elCurrent.sort, c.sort) << c.sTitle;
        EXPECT_EQ(Element_Text(&elCurrent), c.sFirst); // what a plain record holds of it
        EXPECT_EQ(elCurrent.lA, aLength[c.lType]);
        EXPECT_EQ(elCurrent.lB, 0);
        EXPECT_EQ(elCurrent.storage, 100);
        EXPECT_STREQ(Writing_Title(c.lType), c.sTitle);
    }
    EXPECT_STREQ(Element_TextBytes(&elCurrent), "annot");
    CurrentSymbol_SetWriting(WRITE_TITLE);
    EXPECT_STREQ(Element_TextBytes(&elCurrent), "Line title");
    EXPECT_TRUE(process.user.shown.empty());
}

TEST_F(Text, AnUnknownWritingTypeIsTold)
{
    for (int32_t const lType : {-1, 5})
    {
        CurrentSymbol_SetWriting(lType);
        EXPECT_EQ(elCurrent.sort, NOSORT);
        EXPECT_STREQ(Writing_Title(lType), "??? minor bug here!");
    }
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"What the blazes is this writing type?"});
}

TEST_F(Text, TheTextOfTheCurrentSymbolAddsItsLengthToTheStorage)
{
    CurrentSymbol_SetWriting(WRITE_TITLE);
    CurrentSymbol_SetText("Cooley's");
    EXPECT_EQ(Element_Text(&elCurrent), "Cooley's");
    EXPECT_EQ(elCurrent.lA, 8);
    EXPECT_EQ(elCurrent.storage, 108);
}

TEST_F(Text, TheTextOfTheCurrentSymbolIsCutAtAThousandBytes)
{
    CurrentSymbol_SetWriting(WRITE_TEXT);
    CurrentSymbol_SetText(std::string(1200, 'w'));
    EXPECT_EQ(Element_Text(&elCurrent), std::string(1000, 'w'));
    EXPECT_EQ(elCurrent.lA, 1000);
    EXPECT_EQ(elCurrent.storage, 1100);
}

TEST_F(Text, ManyTextsForOneCurrentSymbolNeverStateMoreThanItHolds)
{
    CurrentSymbol_SetWriting(WRITE_TEXT);
    for (int32_t n = 0; n < 5; ++n)
        CurrentSymbol_SetText(std::string(900, 'w'));
    CurrentSymbol_SetText("ab");
    EXPECT_EQ(Element_Text(&elCurrent), "ab");
    EXPECT_EQ(elCurrent.storage, 1100);
}

TEST_F(Text, EachSortHasItsHeightWhereverTheUserClicks)
{
    struct
    {
        int32_t sort;
        bool bBelow;
        int32_t lHeight;
    } const aCase[] = {{CHORD, true, -4},  {CHORD, false, 20}, {TITLE, true, 22},
                       {LYRICS, true, -7}, {TEXT, true, 3},    {ANNOT, true, 3}};
    for (auto const& c : aCase)
    {
        Score_EmptyStaffs();
        bChordsBelowStaff = c.bBelow;
        EXPECT_EQ(AddAt(c.sort, 10, 3)->lDiaPitch, c.lHeight) << c.sort;
    }
}

TEST_F(Text, TheAddedTextStandsAtItsColumnWithItsWidthAndLength)
{
    Write(1, "x:5 n0/48 x:20 n1/48");
    bTimesValid = true;
    Element const* const pel = AddAt(TEXT, 12, 3);
    EXPECT_EQ(Read(1), R"(n0/48 text"words" n1/48)");
    EXPECT_EQ(pel->lStrX, 12);
    EXPECT_EQ(pel->lA, 5);
    EXPECT_EQ(pel->storage, 106);
    EXPECT_EQ(List_ItemBytes(pel), 107);
    EXPECT_EQ(pel->lWidth, Element_Width(pel));
    EXPECT_GT(pel->lWidth, 1);
    EXPECT_TRUE(bScoreDirty);
    EXPECT_FALSE(bTimesValid);
}

TEST_F(Text, AHarmonyGoesStraightAheadOfTheNoteItStandsOver)
{
    Write(1, "x:12 | x:12 n1/48");
    AddAt(CHORD, 12, 3, "Am7");
    EXPECT_EQ(Read(1), R"(| chord"Am7" n1/48)");
}

TEST_F(Text, TheHeightIsKeptUnderTheClefOfThePlaceButAtTheEndOfAStaffTrebleIsAssumed)
{
    Write(1, "x:0 clef:3 x:20 n-12/48");
    EXPECT_EQ(AddAt(TEXT, 10, 3)->lDiaPitch, -9);
    EXPECT_EQ(AddAt(ANNOT, 30, 3)->lDiaPitch, 3);
}

TEST_F(Text, WithAutomaticLayoutTheScoreIsLaidOut)
{
    bAutoLayout = true;
    Write(1, "x:0 clef:1 x:6 time:4/4 x:100 n0/48");
    AddAt(CHORD, 100, 3, "Am7");
    EXPECT_LT(At(1, 2)->lStrX, 100);
    EXPECT_TRUE(bTimesValid);
}

TEST_F(Text, AnOverlongTextIsCutAndToldWhereverItGoesIn)
{
    std::string const sLong(1001, 'w');
    std::string const sMost(1000, 'w');
    EXPECT_EQ(Element_Text(AddAt(TEXT, 10, 3, sMost)), sMost);
    EXPECT_TRUE(process.user.shown.empty());
    Score_EmptyStaffs();

    Element* pel = AddAt(TEXT, 10, 3, sLong);
    EXPECT_EQ(Element_Text(pel), std::string(999, 'w'));
    EXPECT_EQ(pel->lA, 999);
    pel = Text_Replace(pel, sLong);
    EXPECT_EQ(Element_Text(pel), std::string(999, 'w'));
    EXPECT_EQ(pel->lA, 999);
    EXPECT_EQ(pel->storage, 1092);
    EXPECT_EQ(process.user.Messages(), (std::vector<std::string>{sTooLong, sTooLong}));
}

TEST_F(Text, AnotherTextTakesTheElementsPlaceAndAllThatPointedAtIt)
{
    Write(1, R"(n0/48 x:9 lyr"la" n1/48)");
    Element* const pelOld = At(1, 1);
    pelOld->lWidth = 17;
    pelInsertPoint = pelMarkBegin = pelMarkEnd = pelHighlight = pelUndoPlace = pelUndoEnd = pelPopup = pelOld;
    KeptCursor const kept(pelOld);
    Element* const pel = Text_Replace(pelOld, "Greensleeves");
    EXPECT_EQ(Read(1), R"(n0/48 lyr"Greensleeves" n1/48)");
    EXPECT_EQ(At(1, 1), pel);
    EXPECT_EQ(pel->lA, 12);
    EXPECT_EQ(pel->storage, 105);
    EXPECT_EQ(List_ItemBytes(pel), 105);
    EXPECT_EQ(pel->lStrX, 9);
    EXPECT_EQ(pel->lWidth, 17);
    for (Element const* const pelCursor :
         {pelInsertPoint, pelMarkBegin, pelMarkEnd, pelHighlight, pelUndoPlace, pelUndoEnd})
        EXPECT_EQ(pelCursor, pel);
    EXPECT_EQ(pelPopup, nullptr);
    EXPECT_EQ(kept.pel, pel);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(Text, AnEmptyTextIsATextToo)
{
    Write(1, R"(chord"Am7")");
    Element* const pel = Text_Replace(At(1, 0), "");
    EXPECT_EQ(Read(1), R"(chord"")");
    EXPECT_EQ(pel->lA, 0);
    EXPECT_EQ(pel->storage, 93);
}

TEST_F(Text, WhatPointsElsewhereStaysWhereItIs)
{
    Write(1, R"(n0/48 lyr"la" n1/48)");
    pelInsertPoint = At(1, 0);
    pelMarkEnd = At(1, 2);
    Text_Replace(At(1, 1), "lo");
    EXPECT_EQ(pelInsertPoint, At(1, 0));
    EXPECT_EQ(pelMarkEnd, At(1, 2));
    EXPECT_EQ(pelMarkBegin, nullptr);
}
} // namespace
} // namespace zarn
