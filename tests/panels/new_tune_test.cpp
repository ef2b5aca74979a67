// The dialog of a new tune, and its hints.
#include "panels/new_tune.h"

#include "panels/hints.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>
#include <set>

namespace zarn
{
namespace
{
struct NewTune : testing::Test
{
    test::ScriptedProcess process;
    int32_t lClef = -1;
    int32_t lKey = -1;
    int32_t lNumerator = -1;
    int32_t lDenominator = -1;
    bool bTablature = true;

    int32_t Ask(char const* sFields)
    {
        process.user.answers.push_back({.kind = Answer::FORM, .sText = sFields});
        return Run();
    }
    int32_t Run() { return NewTuneDialog(nullptr, &lClef, &lKey, &lNumerator, &lDenominator, &bTablature); }
};
} // namespace

TEST_F(NewTune, WithNothingChangedItIsTrebleCAndFourFour)
{
    EXPECT_EQ(Ask("ok"), 1);
    EXPECT_EQ(lClef, 1);
    EXPECT_EQ(lKey, 0);
    EXPECT_EQ(lNumerator, 4);
    EXPECT_EQ(lDenominator, 4);
    EXPECT_FALSE(bTablature);
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"New tune - select clef, key signature and time signature "});
}

TEST_F(NewTune, EachChoiceComesOut)
{
    EXPECT_EQ(Ask("clef=Bass key=F# time=12/8 tablature=1 ok"), 1);
    EXPECT_EQ(lClef, 3);
    EXPECT_EQ(lKey, 6);
    EXPECT_EQ(lNumerator, 12);
    EXPECT_EQ(lDenominator, 8);
    EXPECT_TRUE(bTablature);
}

TEST_F(NewTune, EachRowOfTheTimesIsWhatItSays)
{
    int32_t const aTime[][2] = {{2, 4},  {3, 4}, {4, 4}, {6, 4}, {6, 8}, {9, 8},
                                {12, 8}, {1, 2}, {2, 2}, {3, 2}, {4, 2}};
    for (int32_t n = 0; n < 11; ++n)
    {
        EXPECT_EQ(Ask(("time=" + std::to_string(n) + " ok").c_str()), 1);
        EXPECT_EQ(lNumerator, aTime[n][0]);
        EXPECT_EQ(lDenominator, aTime[n][1]);
    }
}

TEST_F(NewTune, EachRowOfClefsAndKeysIsWhatItSays)
{
    for (int32_t n = 0; n < 13; ++n)
    {
        EXPECT_EQ(Ask(("clef=" + std::to_string(n % 4) + " key=" + std::to_string(n) + " ok").c_str()), 1);
        EXPECT_EQ(lClef, n % 4 + 1);
        EXPECT_EQ(lKey, n - 6);
    }
}

TEST_F(NewTune, ATimeThatIsNotThereIsFourFour)
{
    struct OddHost : ScriptHost
    {
        int32_t RunForm(Form& form) override
        {
            form.Find(lNewTuneTime)->lValue = lRow;
            return IDOK;
        }
        int32_t lRow = -1;
    } odd;
    host.pUser = &odd;
    for (int32_t const lRow : {-1, 11})
    {
        odd.lRow = lRow;
        EXPECT_EQ(Run(), 1);
        EXPECT_EQ(lNumerator, 4);
        EXPECT_EQ(lDenominator, 4);
    }
    host.pUser = &process.user;
}

TEST_F(NewTune, CancelAndNoDialogChangeNothing)
{
    EXPECT_EQ(Ask("clef=Bass cancel"), 0);
    process.user.bFormsWork = false;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(lClef, -1);
    EXPECT_EQ(lKey, -1);
    EXPECT_EQ(lNumerator, -1);
    EXPECT_EQ(lDenominator, -1);
    EXPECT_TRUE(bTablature);
}

TEST_F(NewTune, TheFormShowsItsListsWithTheUsualRowsChosen)
{
    Form form = NewTuneForm();
    EXPECT_EQ(form.lId, 7005);
    EXPECT_EQ(form.Find(7006)->aRows,
              (std::vector<std::string>{"Treble clef", "Alto clef", "Bass clef", "Tenor clef"}));
    EXPECT_EQ(form.sTitle, "New tune - select clef, key signature and time signature ");
    EXPECT_EQ(form.Find(7006)->lValue, 0);
    EXPECT_EQ(
        form.Find(7007)->aRows,
        (std::vector<std::string>{"Gb (6 flats) ", "Db (5 flats) ", "Ab (4 flats) ", "Eb (3 flats) ", "Bb (2 flats) ",
                                  "F  (1 flat)  ", "C  (open)    ", "G  (1 sharp) ", "D  (2 sharps)", "A  (3 sharps)",
                                  "E  (4 sharps)", "B  (5 sharps)", "F# (6 sharps)"}));
    EXPECT_EQ(form.Find(7007)->lValue, 6);
    EXPECT_EQ(form.Find(7008)->aRows, (std::vector<std::string>{"2/4 ", "3/4 ", "4/4 ", "6/4 ", "6/8 ", "9/8 ", "12/8",
                                                                "1/2 ", "2/2 ", "3/2 ", "4/2 "}));
    EXPECT_EQ(form.Find(7008)->lValue, 2);
    EXPECT_EQ(form.Find(7032)->sLabel, "Tablature");
    EXPECT_EQ(form.Find(7032)->lValue, 0);
}

TEST_F(NewTune, TheHintGoesByTheClock)
{
    struct
    {
        uint32_t lMs;
        int32_t nHint;
    } const aCase[] = {{0, 0}, {122, 0}, {123, 1}, {123 * 38, 38}, {123 * 39, 0}, {0xFFFFFFFF, 17}};
    for (auto const& c : aCase)
    {
        process.user.lNowMs = c.lMs;
        Form form = NewTuneForm();
        EXPECT_EQ(form.Find(7031)->sLabel, Hint(c.nHint)) << c.lMs;
    }
}

TEST(Hints, StandWordForWord)
{
    constexpr std::string_view aExpected[] = {
        "Many menu items show keyboard shortcuts to the right",
        "Typing ; with the cursor on a note turns it into or back from being a triplet",
        "Typing / enters a bar line - useful for the very first one in the piece",
        "Typing | enters a double bar line.",
        "You can have a short bar after a double bar line",
        "Typing } enters an end-of-repeat sign",
        "Typing [ starts an arpeggio sequence for tablature generation",
        "Typing Ctrl+Enter will enter an explicit newline in the score or lyrics",
        "< and > are the keyboard shortcuts for marking a section",
        "Type Alt+Em to unmark a section",
        "Ctrl+Z will undo the last alteration to the score",
        "Accidentals (sharps, flats and naturals) only last to the end of the bar",
        "Typing g will generate the tablature or hide it if it is already showing",
        "You can alter the amount of room for leger lines above or below the staff",
        "You can change the relative size of the fontused for text",
        "To change the MIDI instrument enter an instrument symbol in the score",
        "Tunes in ABC files must start with X:",
        "In keyboard mode the cursor always looks like +",
        "The symbols menu has many more symbols than the palette",
        "There are no key signatures in the palette, only in the symbols menu",
        "To enter a dotted note from the keyboard, enter the basic note and type . (a dot)",
        "Working inkeyboard mode is usually quicker than mouse mode",
        "Here are some of the guitar chords zarn recognises:\nA G7 Em Dm7 FDim B+ C#0 Bb-",
        "G6 has the same notes in it as Em7",
        "X as a guitar chord means silence",
        "/ as a guitar chord means repeat the previous chord",
        "Settings in the Settings sub-menu of the Options menu are permanent\nthey will still be there "
        "next time you use Zarn",
        "Typing + spreads the notes out, - pulls them together\nAlt++ spreads them vertically Alt+- "
        "collapses them vertically",
        "Editing in right justified mode can be painful, but printing that way can look nice",
        "You can set top, bottom, left and right margins in the Settings in Options menu",
        "You can give Zarn to a friend.  Give them Zarn.exe and Zarn.hlp (and as much music as "
        "possible!)",
        "'Toggle' means turn it on if it's off or off if it's on.",
        "The English call half notes 'minims' and quarter notes 'crotchets'",
        "You can generate bass tablature by setting 4 strings, treble at pitch 55,\n 5 semitones "
        "between each",
        "Expert guitarists should reduce the Wrist position weighting for tablature generation",
        "Altering a piece with tablature showing will only create the most obvious fingering\nTo have "
        "it fully reworked, type r",
        "To copy in music from a different file, Append the other file,\nMark, Copy and Paste the part "
        "you want then Mark and Cut the rest away",
        "If you need to see exactly where the cursor 'hot spot' is,\nhit Esc to go to keyboard mode.  "
        "Mouse operations will still work. ",
        "You may want to turn off the 'Adjust continuously' option\nif you are making lots of "
        "alterations.",
    };
    static_assert(std::size(aExpected) == lHints);
    for (int32_t n = 0; n < lHints; ++n)
        EXPECT_EQ(Hint(n), aExpected[n]) << n;
}

TEST(Hints, ThereAreThirtyNineAndNoTwoAreTheSame)
{
    std::set<std::string_view> aHint;
    for (int32_t n = 0; n < lHints; ++n)
        aHint.insert(Hint(n));
    EXPECT_EQ(aHint.size(), 39U);
    EXPECT_EQ(Hint(0), "Many menu items show keyboard shortcuts to the right");
    EXPECT_EQ(Hint(38), "You may want to turn off the 'Adjust continuously' option\n"
                        "if you are making lots of alterations.");
}
} // namespace zarn
