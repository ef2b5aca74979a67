// Texts and lyrics as a user enters them.
#include "edit/current_symbol.h"
#include "shell/command_numbers.h"
#include "shell/options.h"
#include "support/shell_fixture.h"

namespace zarn::test
{
struct TextCommands : Shell
{
    void SetUp() override
    {
        Start();
        Write(1, "clef:1 n4/48 n5/48 lyr\"la \" n6/48");
        Command(COMMAND_FULLADJUST);
        process.user.shown.clear();
    }
    void PointAt(Element const* pel) { Window().SetPointer({pel->lX, pel->lY}); }
};

TEST_F(TextCommands, InKeyboardModeATextGoesInAtThePointerAndIsTheCurrentSymbol)
{
    Press("esc");
    PointAt(At(1, 2));
    AnswersText("am7");
    Press("h");
    EXPECT_EQ(Messages(), std::vector<std::string>{"Harmony"});
    EXPECT_EQ(Read(1), "clef:1 n4/48 chord\"Am7\" n5/48 lyr\"la \" n6/48");
    EXPECT_EQ(elCurrent.sort, CHORD);
    EXPECT_EQ(Element_Text(&elCurrent), "Am7");
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(TextCommands, InMouseModeAClickPutsItDownAndASecondOneACopy)
{
    AnswersText("slowly");
    Command(COMMAND_TEXT);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 lyr\"la \" n6/48");
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(At(1, 1)->lStrX, 15, 1, 1, &x, &y);
    Click({x, y});
    Click({x, y});
    EXPECT_EQ(Read(1), "clef:1 text\"slowly\" text\"slowly\" n4/48 n5/48 lyr\"la \" n6/48");
}

TEST_F(TextCommands, CancelLeavesTheTypesFirstWords)
{
    Answers(Answer::CANCEL);
    Command(COMMAND_ANNOTATION);
    EXPECT_EQ(elCurrent.sort, ANNOT);
    EXPECT_EQ(Element_Text(&elCurrent), "annot");
}

TEST_F(TextCommands, TheDialogBeginsEmpty)
{
    Answers(Answer::OK);
    Command(COMMAND_TEXT);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Text"});
    EXPECT_EQ(Element_Text(&elCurrent), "") << "nothing was typed";
}

TEST_F(TextCommands, ATextTakes256BytesAndAnEditedOneAHundred)
{
    Press("esc");
    PointAt(At(1, 2));
    AnswersText(std::string(300, 'a'));
    Command(COMMAND_TEXT);
    EXPECT_EQ(Element_Text(&elCurrent), std::string(256, 'a'));
    Element const* const pel = At(1, 4);
    ASSERT_EQ(pel->sort, LYRICS);
    AnswersNumber(COMMAND_EDITITEM);
    AnswersText(std::string(300, 'b'));
    Click({pel->lX, pel->lY}, true);
    EXPECT_EQ(Element_Text(At(1, 4)), std::string(100, 'b'));
}

TEST_F(TextCommands, OnlyTheFirstLetterOfAHarmonyIsRaised)
{
    for (auto const& [sTyped, sTaken] : {std::pair{"em7", "Em7"}, {"gdim", "Gdim"}, {"/", "/"}, {"", ""}})
    {
        AnswersText(sTyped);
        Command(COMMAND_HARMONY);
        EXPECT_EQ(Element_Text(&elCurrent), sTaken);
        AnswersText(sTyped);
        Command(COMMAND_WORD);
        EXPECT_EQ(Element_Text(&elCurrent), sTyped) << "other texts stay as typed";
    }
}

TEST_F(TextCommands, CancelOfAnEditedSyllableStoresWhatItHeld)
{
    Element const* const pel = At(1, 3);
    POINT const place{pel->lX, pel->lY};
    AnswersNumber(COMMAND_EDITITEM);
    Answers(Answer::CANCEL);
    bScoreDirty = false;
    Click(place, true);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 lyr\"la \" n6/48");
    EXPECT_TRUE(bScoreDirty);
}

TEST_F(TextCommands, EachKindHasItsTitle)
{
    Command(COMMAND_TITLE);
    Command(COMMAND_WORD);
    Command(COMMAND_HARMONY);
    Command(COMMAND_TEXT);
    Command(COMMAND_ANNOTATION);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Title", "Lyric", "Harmony", "Text", "Annotation"}));
}

TEST_F(TextCommands, AVerseNeedsKeyboardMode)
{
    Press("l");
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_TRUE(Messages()[0].starts_with("Adding lyrics like this only works in keyboard mode.  Hit Esc"));
    process.user.shown.clear();
    Press("esc");
    PointAt(At(1, 1));
    AnswersText("do re mi");
    Press("l");
    EXPECT_EQ(Read(1), "clef:1 lyr\"do \" n4/48 lyr\"re \" n5/48 lyr\"mi\" n6/48");
}

TEST_F(TextCommands, ASyllableHasAPopUpUnderTheRightButton)
{
    Element const* const pel = At(1, 3);
    ASSERT_EQ(pel->sort, LYRICS);
    POINT const place{pel->lX, pel->lY};
    AnswersNumber(COMMAND_EDITITEM);
    AnswersText("lo ");
    Click(place, true);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Edit this symbol", "Edit symbol"}));
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 lyr\"lo \" n6/48");
    EXPECT_EQ(pelPopup, nullptr);
    Click(place, true); // nothing is chosen
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 lyr\"lo \" n6/48");
    AnswersNumber(COMMAND_DELETEITEM);
    Click(place, true);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 n6/48");
    Command(COMMAND_DELETEITEM); // no pop-up is open
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 n6/48");
}

TEST_F(TextCommands, InEditModeWhatThePopUpDeletesIsThePointer)
{
    Element const* const pel = At(1, 3);
    Command(COMMAND_EDITMODE);
    CurrentSymbol_SetNote(48);
    AnswersNumber(COMMAND_DELETEITEM);
    Click({pel->lX, pel->lY}, true);
    EXPECT_EQ(elCurrent.sort, LYRICS);
    EXPECT_EQ(Window().hotSpot.x, 0);
    EXPECT_EQ(Window().hotSpot.y, 8);
}

TEST_F(TextCommands, InEditModeWhatAnUndoTakesAwayIsThePointer)
{
    Command(COMMAND_EDITMODE);
    Command(COMMAND_SHARP);
    POINT const place{At(1, 1)->lX - 20, At(1, 1)->lY};
    Click(place);
    ASSERT_EQ(Read(1), "clef:1 #4 n4/48 n5/48 lyr\"la \" n6/48");
    Command(COMMAND_NOTE + 3);
    EXPECT_EQ(Window().hotSpot.y, 23);
    Command(COMMAND_UNDO);
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 lyr\"la \" n6/48");
    EXPECT_EQ(elCurrent.sort, SHARP);
    EXPECT_EQ(Window().hotSpot.y, 16);
}

TEST_F(TextCommands, OnlyTheFirstSignOfAHarmonyIsMadeACapital)
{
    for (auto const& [sTyped, sStored] :
         std::initializer_list<std::pair<char const*, char const*>>{{"am7", "Am7"}, {"bb", "Bb"}, {"#a", "#a"}})
    {
        AnswersText(sTyped);
        Command(COMMAND_HARMONY);
        EXPECT_EQ(Element_Text(&elCurrent), sStored);
    }
    AnswersText("am7");
    Command(COMMAND_TEXT);
    EXPECT_EQ(Element_Text(&elCurrent), "am7");
}

TEST_F(TextCommands, ATextTakesTwoHundredAndFiftySixBytesAndAnElementOneHundred)
{
    AnswersText(std::string(300, 'w'));
    Command(COMMAND_TEXT);
    EXPECT_EQ(Element_Text(&elCurrent).size(), 256U);
    Element const* const pel = At(1, 3);
    AnswersNumber(COMMAND_EDITITEM);
    AnswersText(std::string(300, 'w'));
    Click({pel->lX, pel->lY}, true);
    EXPECT_EQ(Element_Text(At(1, 3)).size(), 100U);
}

TEST_F(TextCommands, AllLyricsFromASyllableOnAreEditedInOne)
{
    Element const* const pel = At(1, 3);
    AnswersNumber(COMMAND_EDITLYRICS);
    AnswersText("one two");
    Click({pel->lX, pel->lY}, true);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Edit this symbol", "Lyrics (Ctrl+Enter for new line)"}));
    EXPECT_EQ(Read(1), "clef:1 n4/48 n5/48 lyr\"one \" lyr\"two\" n6/48");
}

TEST_F(TextCommands, TransposingAndTimeSignaturesAskTheirDialogs)
{
    Command(COMMAND_TRANSPOSEALL + 2);
    EXPECT_EQ(Read(1), "clef:1 n5/48 n6/48 lyr\"la \" #7 n7/48");
    Command(COMMAND_TRANSPOSEMARK + 2);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Mark the section to transpose first"});
    process.user.shown.clear();
    Command(COMMAND_OTHERTIME);
    EXPECT_EQ(elCurrent.sort, TIMESIG);
    EXPECT_EQ(elCurrent.lA, 4);
    EXPECT_EQ(elCurrent.lB, 4);
}
} // namespace zarn::test
