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
    EXPECT_EQ(form.Find(7007)->aRows.size(), 13U);
    EXPECT_EQ(form.Find(7007)->aRows[6], "C  (open)    ");
    EXPECT_EQ(form.Find(7007)->lValue, 6);
    EXPECT_EQ(form.Find(7008)->aRows.size(), 11U);
    EXPECT_EQ(form.Find(7008)->aRows[2], "4/4 ");
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
