// The commands of the tablature, its weights, its instrument and its files.
#include "edit/current_symbol.h"
#include "layout/adjust.h"
#include "render/symbol_cursor.h"
#include "render/tab_band.h"
#include "shell/command_numbers.h"
#include "shell/fret_entry.h"
#include "shell/menu.h"
#include "shell/panels_shown.h"
#include "support/shell_fixture.h"
#include "tab/tuning.h"
#include "tab/weights.h"

#include <algorithm>

namespace zarn::test
{
namespace
{
struct TabCommands : Shell
{
    void SetUp() override { Start(); }

    void Lay(char const* sScore)
    {
        Write(1, sScore);
        Command(COMMAND_FULLADJUST);
        process.user.shown.clear();
    }
    static std::string Frets()
    {
        std::string s;
        for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
            if (pel->sort == NOTE)
                s += (s.empty() ? "" : " ") + std::to_string(pel->lString) + "/" + std::to_string(pel->lFret);
        return s;
    }
    static POINT OnString(int32_t lStrX, int32_t lString)
    {
        POINT place;
        TabFold(lStrX, lString, 1, &place.x, &place.y);
        return place;
    }
};
constexpr int32_t lTabFilter = 4; // rows of the save dialog
constexpr int32_t lTxtFilter = 5;
constexpr char const* sRecalculate = "Do you want the tablature recalculated now?";
} // namespace

TEST_F(TabCommands, OptimisedTablatureIsShownAndHidden)
{
    Lay("clef:1 n2/48 n9/48");
    Command(COMMAND_PIANO);
    Press("f");
    EXPECT_TRUE(bTabShowing);
    EXPECT_EQ(Frets(), "4/2 1/0");
    EXPECT_FALSE(bPianoShowing);
    EXPECT_FALSE(Checked(COMMAND_PIANO));
    EXPECT_TRUE(bPaletteShowing) << "the palette stays";
    Press("f");
    EXPECT_FALSE(bTabShowing);
    EXPECT_EQ(Frets(), "4/2 1/0") << "the fingering stays";
    EXPECT_TRUE(Messages().empty());
}

TEST_F(TabCommands, ShowingWithoutTheSearchLeavesTheFingeringToThePaint)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_PIANO);
    ASSERT_TRUE(bPaletteShowing);
    Press("s");
    EXPECT_TRUE(bTabShowing);
    EXPECT_EQ(Frets(), "0/-1");
    EXPECT_FALSE(bPaletteShowing);
    EXPECT_TRUE(bPianoShowing);
    Update();
    EXPECT_EQ(Frets(), "4/2");
    Press("s");
    EXPECT_FALSE(bTabShowing);
}

TEST_F(TabCommands, TablatureNeedsOneStaffAlone)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWSTAFF + 2);
    std::vector<std::string> const aTold{
        "Restriction: Tablature can only be shown for one staff and you have 2 staffs showing"};
    Command(COMMAND_OPTIMISEDTABLATURE);
    EXPECT_FALSE(bTabShowing);
    EXPECT_EQ(Messages(), aTold);
    EXPECT_EQ(Frets(), "0/-1");
    process.user.shown.clear();
    Command(COMMAND_SHOWTABLATURE);
    EXPECT_EQ(Messages(), aTold);
    Command(COMMAND_SHOWSTAFF + 2);
    Command(COMMAND_SHOWSTAFF + 1);
    process.user.shown.clear();
    Command(COMMAND_SHOWTABLATURE);
    EXPECT_EQ(Messages(), std::vector<std::string>{
                              "Restriction: Tablature can only be shown for one staff and you have 0 staffs showing"});
}

TEST_F(TabCommands, ShowingASecondStaffTurnsTheTablatureOff)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Command(COMMAND_SHOWSTAFF + 3);
    EXPECT_FALSE(bTabShowing);
    EXPECT_TRUE(Checked(COMMAND_SHOWSTAFF + 3));
    EXPECT_EQ(SystemHeight(), 2 * lStaffHeight + lExtraBetweenSystems);
}

TEST_F(TabCommands, OptimisingGivesTheWholePieceItsFingeringAgain)
{
    Lay("clef:1 n2/48 n9/48");
    Command(COMMAND_SHOWTABLATURE);
    At(1, 1)->lString = 6;
    At(1, 1)->lFret = 12;
    Press("o");
    EXPECT_EQ(Frets(), "4/2 1/0");
}

TEST_F(TabCommands, APieceThatCannotBePlayedIsMarkedAndTold)
{
    Lay("clef:1 n2/48 n-20/48 n2/48");
    Command(COMMAND_OPTIMISEDTABLATURE);
    EXPECT_EQ(Messages(), std::vector<std::string>{"No fingerings possible."});
    EXPECT_EQ(At(1, 2)->fOverBar, fUnplayable);
    EXPECT_FALSE(Window().bWaitPointer);
}

TEST_F(TabCommands, ALongSearchShowsHowFarItHasComeAndCanBeCalledOff)
{
    std::string sScore = "clef:1";
    for (int32_t n = 0; n < 40; ++n)
        sScore += n % 2 ? " n2/48" : " n9/48";
    Lay(sScore.c_str());
    Command(COMMAND_OPTIMISEDTABLATURE);
    EXPECT_TRUE(process.user.aProgress.empty()) << "none of a short one";
    Command(COMMAND_OPTIMISEDTABLATURE);
    process.user.lMsPerLook = 300;
    Command(COMMAND_OPTIMISEDTABLATURE);
    std::vector<int32_t> const aSeen = process.user.aProgress;
    EXPECT_GT(aSeen.size(), 1u);
    EXPECT_TRUE(std::is_sorted(aSeen.begin(), aSeen.end()));

    std::string const sBefore = Frets();
    lAvoidOpenStrings = 1000;
    process.user.bCallsOff = true;
    Command(COMMAND_OPTIMISETABLATURE);
    EXPECT_EQ(Frets(), sBefore) << "the old fingering is untouched";
    EXPECT_TRUE(Messages().empty());
    process.user.bCallsOff = false;
    Command(COMMAND_OPTIMISETABLATURE);
    EXPECT_NE(Frets(), sBefore);
}

TEST_F(TabCommands, TransposingWithTablatureFingersThePieceAnew)
{
    Lay("clef:1 n2/48 n4/48");
    Command(COMMAND_TRANSPOSEALL + 5);
    EXPECT_EQ(Frets(), "0/-1 0/-1") << "not while it is hidden";
    Command(COMMAND_TRANSPOSEALL - 5);
    Command(COMMAND_OPTIMISEDTABLATURE);
    EXPECT_EQ(Frets(), "4/2 3/0");
    Command(COMMAND_TRANSPOSEALL + 5);
    EXPECT_EQ(Frets(), "3/2 2/1");
}

TEST_F(TabCommands, AnAccidentalFingersItsBar)
{
    Lay("clef:1 time:2/4 n2/48 n4/48 | n2/48 n4/48 |");
    Command(COMMAND_OPTIMISEDTABLATURE);
    At(1, 5)->lFret = 77; // another bar
    Command(COMMAND_SHARP);
    Element const* const pel = At(1, 2);
    Click({pel->lX - xunit, pel->lY});
    EXPECT_EQ(Read(1), "clef:1 time:2/4 #2 n2/48 n4/48 | n2/48 n4/48 |");
    EXPECT_EQ(At(1, 3)->lFret, 3) << "it was 2";
    EXPECT_EQ(At(1, 6)->lFret, 77);
    Click({At(1, 2)->lX, At(1, 2)->lY}, true);
    EXPECT_EQ(Read(1), "clef:1 time:2/4 n2/48 n4/48 | n2/48 n4/48 |");
    EXPECT_EQ(At(1, 2)->lFret, 2) << "deleted again";
    Command(COMMAND_UNDO);
    EXPECT_EQ(At(1, 3)->lFret, 3) << "and undone";
}

TEST_F(TabCommands, AKeySignatureFingersItsBar)
{
    Lay("clef:1 time:2/4 n10/48 n4/48 |");
    Command(COMMAND_OPTIMISEDTABLATURE);
    ASSERT_EQ(At(1, 2)->lFret, 1);
    Command(COMMAND_KEYKEEPINGTEXT + 1);
    Click({At(1, 1)->lX, At(1, 1)->lY});
    EXPECT_EQ(Read(1), "clef:1 key:1 time:2/4 n10/48 n4/48 |");
    EXPECT_EQ(At(1, 3)->lFret, 2);
}

TEST_F(TabCommands, AWeightIsAskedForAndTheTablatureOffered)
{
    AnswersNumber(7);
    Command(COMMAND_AVOIDOPENSTRINGS);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Avoid open strings (0)", sRecalculate}));
    EXPECT_EQ(lAvoidOpenStrings, 7);
    EXPECT_EQ(process.settings.values.at("Avoid open strings"), 7);
    EXPECT_EQ(Window().ItemText(COMMAND_AVOIDOPENSTRINGS), "Avoid open strings (7)...");
}

TEST_F(TabCommands, EachWeightHasItsPrompt)
{
    for (FingeringWeight const& weight : Fingering_Weights())
    {
        process.user.shown.clear();
        process.settings.values.clear();
        AnswersNumber(41);
        Command(weight.lCommand);
        EXPECT_EQ(Messages()[0], Format("%s (%d)", weight.szPromptLabel, weight.lFallback));
        EXPECT_EQ(*weight.plValue, 41) << weight.szName;
        EXPECT_EQ(process.settings.values.at(weight.szPromptLabel), 41);
        EXPECT_EQ(process.settings.values.at(weight.szName), 41) << "the name that a start looks for first";
        EXPECT_EQ(Window().ItemText(weight.lCommand), Format("%s (41)...", weight.szPromptLabel));
    }
}

TEST_F(TabCommands, OnOkTheTablatureIsRecalculatedWithTheNewWeight)
{
    Lay("clef:1 n9/48");
    Command(COMMAND_OPTIMISEDTABLATURE);
    ASSERT_EQ(Frets(), "1/0");
    AnswersNumber(1000);
    Answers(Answer::CANCEL);
    Command(COMMAND_AVOIDOPENSTRINGS);
    EXPECT_EQ(Frets(), "1/0");
    AnswersNumber(1000);
    Answers(Answer::OK);
    Command(COMMAND_AVOIDOPENSTRINGS);
    EXPECT_EQ(Frets(), "2/5");
}

TEST_F(TabCommands, WristMovementRunsOnIntoMaxStretch)
{
    Command(COMMAND_WRISTMOVEMENT); // all cancelled
    EXPECT_EQ(Messages(),
              (std::vector<std::string>{"Wrist movement (100)", sRecalculate, "Max stretch (175)", sRecalculate}));
    EXPECT_EQ(lWristMovement, 100) << "the prompt's own value, which a cancel takes over";
    EXPECT_EQ(process.settings.values.at("Wrist movement"), 100);
    EXPECT_EQ(lMaxStretch, 175);
}

TEST_F(TabCommands, MoveBarlockFirstOffersThirtyAgainstTheSixtyInForce)
{
    EXPECT_EQ(lMoveBarlock, 60);
    Command(710);
    EXPECT_EQ(Messages()[0], "Weight for Moving Barlock (30)");
    EXPECT_EQ(lMoveBarlock, 30);
}

TEST_F(TabCommands, ABarsPriceFallsBackOnTheOneInForceAndAsksNothingMore)
{
    Command(COMMAND_BARWEIGHT + 7);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Bar strings 1..3 (30)"});
    AnswersNumber(99);
    Command(COMMAND_BARWEIGHT + 63);
    EXPECT_EQ(aBarCost[63], 99);
    EXPECT_EQ(process.settings.values.at("Bar strings 1..6"), 99);
    process.user.shown.clear();
    for (int32_t lMask = 0; lMask < 64; ++lMask)
        Command(COMMAND_BARWEIGHT + lMask);
    EXPECT_EQ(Messages()[0], "Bar strings 0..0 (0)") << "no string, no price";
    EXPECT_EQ(Messages()[4], "Bar strings 3..3 (0)");
    EXPECT_EQ(Messages()[5], "Bar strings 1..3 (30)") << "a gap isn't told";
}

TEST_F(TabCommands, StoredWeightsStandInTheMenuAtTheNextStart)
{
    process.settings.values = {{"First start done", 1},
                               {"Weight for Moving Finger", 42},
                               {"Bar strings 1..6", 70},
                               {"Unnatural transitions", 5},
                               {"Number of strings", 4}};
    ShutDown();
    ASSERT_TRUE(StartUp(""));
    EXPECT_EQ(Window().ItemText(706), "Move finger (42)...");
    EXPECT_EQ(Window().ItemText(711), "Finger movement (42)...");
    EXPECT_EQ(Window().ItemText(701), "Unnatural transitions (5)...");
    EXPECT_EQ(Window().ItemText(704), "Add finger (5)...") << "as built in";
    EXPECT_EQ(Window().ItemText(713), "Wrist movement (10)...");
    EXPECT_EQ(Window().ItemText(COMMAND_BARWEIGHT + 3), "Bar strings 1..2 (15)...");
    EXPECT_EQ(Window().ItemText(COMMAND_BARWEIGHT + 63), "Bar strings 1..6 (0)...") << "as it has always read";
    EXPECT_EQ(aBarCost[63], 70);
    EXPECT_EQ(lStrings, 4);
}

TEST_F(TabCommands, ANewTuningFingersThePieceAnewOkOrCancel)
{
    Lay("clef:1 n9/48");
    Command(COMMAND_SHOWTABLATURE);
    Command(COMMAND_TUNING); // cancelled
    EXPECT_EQ(Frets(), "1/0");
    EXPECT_EQ(lUnnaturalTransitions, 60);
    process.user.answers.push_back({.kind = Answer::FORM, .sText = "top=71 ok"});
    Command(COMMAND_TUNING);
    EXPECT_EQ(Frets(), "1/5");
    EXPECT_EQ(lUnnaturalTransitions, 0);
    EXPECT_EQ(process.settings.values.at("Tuning of string 1"), 71);
    EXPECT_EQ(process.settings.values.at("Tuning of string 2"), 66) << "by its interval";
    EXPECT_EQ(process.settings.values.at("Max stretch"), 175);
}

TEST_F(TabCommands, SevenStringsAreWarnedOfAndStored)
{
    process.user.answers.push_back({.kind = Answer::FORM, .sText = "strings=7 interval7=5 ok"});
    Command(COMMAND_TUNING);
    EXPECT_EQ(Messages(), (std::vector<std::string>{"String tuning", "Sorry, I cannot handle more than 6 strings"}));
    EXPECT_EQ(process.settings.values.at("Number of strings"), 7);
    EXPECT_EQ(aOpenPitch[6], 47);
}

TEST_F(TabCommands, AClickOnAStringOpensTheMenuOfFrets)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Press("esc"); // to keyboard mode
    CurrentSymbol_SetNote(24);
    AnswersNumber(COMMAND_FRET + 3);
    Click(OnString(60, 1));
    EXPECT_EQ(Messages(), std::vector<std::string>{"Fret 0 (open)"});
    EXPECT_EQ(Read(1), "clef:1 n2/48 n11/24");
    EXPECT_EQ(Frets(), "4/2 1/3");
    EXPECT_EQ(fMouseMode, 0) << "the mode stays as it was";
    Click(OnString(90, 2)); // and nothing chosen
    EXPECT_EQ(Read(1), "clef:1 n2/48 n11/24");
}

TEST_F(TabCommands, InRightJustifiedModeNoFretIsEntered)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Command(COMMAND_RIGHTJUSTIFIED);
    AnswersNumber(COMMAND_FRET + 3);
    Answers(Answer::NO);
    Click(OnString(60, 1));
    EXPECT_EQ(Messages().back(), "Cannot edit in Right-Justified mode.  Change back now?");
    EXPECT_EQ(Read(1), "clef:1 n2/48");
}

TEST_F(TabCommands, AFretCommandWithoutItsMenuDoesNothing)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_FRET + 3);
    Command(COMMAND_SHOWTABLATURE);
    Command(COMMAND_FRET + 3);
    EXPECT_EQ(Read(1), "clef:1 n2/48");
}

TEST_F(TabCommands, WhileThePianoShowsAClickOnAStringIsNoFret)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Command(COMMAND_PIANO);
    AnswersNumber(COMMAND_FRET + 3);
    Click(OnString(60, 1));
    EXPECT_EQ(Read(1), "clef:1 n2/48");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(TabCommands, AFretIsTypedOnAString)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Update();
    CurrentSymbol_SetNote(48);
    Window().SetPointer(OnString(60, 1));
    Press("space");
    EXPECT_EQ(fFretEntry, 1);
    EXPECT_NE(elCurrent.lA & fFretEntrySign, 0);
    Press("1");
    EXPECT_EQ(process.user.cBeeps, 1) << "no length comes of it";
    Press("2");
    EXPECT_EQ(lFretNumber, 12);
    EXPECT_EQ(Read(1), "clef:1 n2/48") << "the digits are the fret's";
    EXPECT_EQ(elCurrent.lDuration, 48);
    Press("enter");
    EXPECT_EQ(Read(1), "clef:1 n2/48 n16/48");
    EXPECT_EQ(Frets(), "4/2 1/12");
    EXPECT_EQ(fFretEntry, 0);
    EXPECT_EQ(elCurrent.lA & fFretEntrySign, 0);
    EXPECT_EQ(fMouseMode, 0);
}

TEST_F(TabCommands, AFretBeyondTheNeckIsIgnoredAndTheEntryGoesOn)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    CurrentSymbol_SetNote(48);
    Window().SetPointer(OnString(60, 1));
    Press("space");
    for (char const* const sDigit : {"2", "5"})
        Press(sDigit);
    Press("enter");
    EXPECT_EQ(Read(1), "clef:1 n2/48");
    EXPECT_EQ(fFretEntry, 1);
    for (int32_t n = 0; n < 20; ++n)
        Press("9");
    Press("enter");
    EXPECT_EQ(fFretEntry, 1);
    Press("down");
    EXPECT_EQ(fFretEntry, 0) << "the entry is given up";
    EXPECT_EQ(elCurrent.lA & fFretEntrySign, 0);
}

TEST_F(TabCommands, OnTheTablatureADigitWithoutAnEntryChoosesALength)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Press("esc");
    Window().SetPointer(OnString(60, 1));
    Press("3");
    EXPECT_EQ(elCurrent.lDuration, 96);
    EXPECT_EQ(Read(1), "clef:1 n2/48") << "and adds nothing";
    Press("2", true);
    EXPECT_EQ(elCurrent.sort, NOTE) << "nor is there a rest on a string";
    Command(COMMAND_REST + 3);
    EXPECT_EQ(elCurrent.sort, REST);
    EXPECT_EQ(Read(1), "clef:1 n2/48");
}

TEST_F(TabCommands, WhileAFretIsTypedTheKeysOfLengthsRest)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    CurrentSymbol_SetNote(48);
    Window().SetPointer(OnString(60, 1));
    Press("space");
    Command(COMMAND_NOTE + 1);
    Command(COMMAND_REST + 1);
    EXPECT_EQ(elCurrent.lDuration, 48);
    EXPECT_EQ(elCurrent.sort, NOTE);
}

TEST_F(TabCommands, UpAndDownGoByStrings)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    POINT const above = OnString(60, 1);
    Window().SetPointer({above.x, above.y - 2 * yunit});
    for (int32_t lString = 0; lString <= 6; ++lString)
    {
        if (lString > 0)
        {
            EXPECT_EQ(Window().Pointer().y, OnString(60, lString).y) << lString;
            EXPECT_EQ(Window().shape, PointerShape::SYMBOL);
        }
        Press("down");
        if (lString == 0 && !OnTablature(Window().Pointer().x, Window().Pointer().y))
            Press("down");
    }
    POINT const below = Window().Pointer();
    EXPECT_FALSE(OnTablature(below.x, below.y));
    Press("up");
    EXPECT_EQ(Window().Pointer().y, OnString(60, 5).y)
        << "a row onto the last string, and the one more that a string is";
    Press("right");
    EXPECT_EQ(Window().Pointer().y, OnString(60, 5).y) << "along the string";
}

TEST_F(TabCommands, ThePointerIsTheSymbolOnTheTablatureInBothModes)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Press("esc");
    POINT const place = OnString(60, 3);
    Window().SetPointer(place);
    Send(EventKind::MOVE, 0, place.x, place.y);
    EXPECT_EQ(Window().shape, PointerShape::SYMBOL);
    Window().SetPointer({place.x, 20});
    Send(EventKind::MOVE, 0, place.x, 20);
    EXPECT_EQ(Window().shape, PointerShape::CROSS);
}

TEST_F(TabCommands, ANewTuneShowsTablatureAsItsBoxSays)
{
    Command(COMMAND_PIANO);
    AnswersNewTune("tablature=1");
    Command(COMMAND_NEW);
    EXPECT_TRUE(bTabShowing);
    EXPECT_FALSE(bPianoShowing);
    AnswersNewTune("tablature=0");
    Command(COMMAND_NEW);
    EXPECT_FALSE(bTabShowing);
}

TEST_F(TabCommands, TablatureIsSavedAsText)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_OPTIMISEDTABLATURE);
    bScoreDirty = true;
    AnswersRow(lTabFilter);
    AnswersText(Path("tune.tab"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Title(), "tune.tab");
    EXPECT_EQ(Bytes(Path("tune.tab")).substr(0, 4), "E---");
    EXPECT_EQ(Bytes(Path("tune.tab")).size(), 7u * 67);
    EXPECT_TRUE(bScoreDirty) << "tablature doesn't hold it all";
    At(1, 1)->lFret = 9;
    Command(COMMAND_SAVE);
    EXPECT_NE(Bytes(Path("tune.tab")).find('9'), std::string::npos) << "the name is the name in hand";
}

TEST_F(TabCommands, SavingHiddenTablatureLeavesAnEmptyFile)
{
    Lay("clef:1 n2/48");
    AnswersRow(lTabFilter);
    AnswersText(Path("tune.tab"));
    Command(COMMAND_SAVEAS);
    EXPECT_EQ(Messages().back(), "To save tablature, first display the tablature\n(e.g. Action menu Show/Hide "
                                 "Tablature)\n\nNOT yet saved!");
    EXPECT_TRUE(std::filesystem::exists(Path("tune.tab")));
    EXPECT_EQ(Bytes(Path("tune.tab")), "");
}

TEST_F(TabCommands, TheTxtFilterWritesOnlyByTheExtension)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    Update();
    for (bool const bUseType : {true, false})
    {
        AnswersRow(lTxtFilter);
        AnswersText(Path("tune.txt"));
        Answers(bUseType ? Answer::YES : Answer::NO);
        Command(COMMAND_SAVEAS);
        EXPECT_EQ(Messages().back(), "File name extension conflicts with type.  Yes = use type, No = use extension");
        EXPECT_EQ(std::filesystem::exists(Path("tune.txt")), !bUseType);
    }
    EXPECT_EQ(Bytes(Path("tune.txt")).size(), 7u * 67);
}

TEST_F(TabCommands, AnAbcTextIsNotOverwrittenByItsTablature)
{
    std::string const szFile = MakeFile("tunes.txt", sTwoTunes);
    AnswersRow(0);
    Drop(szFile);
    Command(COMMAND_SHOWTABLATURE);
    process.user.shown.clear();
    Command(COMMAND_SAVE);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Save file"});
    EXPECT_EQ(Bytes(szFile), sTwoTunes);
}

TEST_F(TabCommands, AFullDiskLeavesTheOldTablature)
{
    Lay("clef:1 n2/48");
    Command(COMMAND_SHOWTABLATURE);
    std::string const szFile = MakeFile("tune.tab", "old");
    AnswersRow(lTabFilter);
    AnswersText(szFile);
    cbDiskLeft = 100;
    Command(COMMAND_SAVEAS);
    cbDiskLeft = -1;
    EXPECT_EQ(Messages().back(),
              "Writing the file failed - NOT saved!  The file on disk and the score are as they were.");
    EXPECT_EQ(Bytes(szFile), "old");
}
} // namespace zarn::test
