// The dialog of the instrument.
#include "panels/string_tuning.h"

#include "support/scripted_process.h"
#include "tab/tuning.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
struct StringTuning : testing::Test
{
    test::ScriptedProcess process;
    int32_t lCount = 6;
    int32_t lTop = 76;
    DialogIntervals intervals = {5, 4, 5, 5, 5, 0, 0, 0};

    int32_t Ask(char const* sFields)
    {
        process.user.answers.push_back({.kind = Answer::FORM, .sText = sFields});
        return StringTuningDialog(nullptr, &lCount, &lTop, &intervals);
    }
    [[nodiscard]] std::string Answered() const { return process.user.shown.back().sAnswer; }
};
constexpr DialogIntervals guitar = {5, 4, 5, 5, 5, 0, 0, 0};
constexpr DialogIntervals mandolin = {7, 7, 7, 0, 0, 0, 0, 0};
} // namespace

TEST_F(StringTuning, ShowsTheTuningInForce)
{
    EXPECT_EQ(Ask("ok"), 1);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"String tuning"});
    EXPECT_EQ(Answered(), "form strings=6 top=76 interval2=5 interval3=4 interval4=5 interval5=5 interval6=5 "
                          "interval7=0 interval8=0 interval9=0 stretch=175 ok");
    EXPECT_EQ(lCount, 6);
    EXPECT_EQ(lTop, 76);
    EXPECT_EQ(intervals, guitar);
    EXPECT_EQ(process.settings.values, (std::map<std::string, int32_t, std::less<>>{{"Max stretch", 175}}));
}

TEST_F(StringTuning, TheStretchIsTheStoredOne)
{
    process.settings.values["Max stretch"] = 210;
    lMaxStretch = 99;
    EXPECT_EQ(Ask("cancel"), 0);
    EXPECT_EQ(lMaxStretch, 99);
    EXPECT_EQ(Ask("ok"), 1);
    EXPECT_EQ(lMaxStretch, 210);
}

TEST_F(StringTuning, IntervalsBehindTheLastStringAreNought)
{
    lCount = 2;
    intervals.fill(9);
    EXPECT_EQ(Ask("ok"), 1);
    EXPECT_NE(Answered().find("interval2=9 interval3=9 interval4=0 interval5=0"), std::string::npos) << Answered();
    EXPECT_EQ(intervals, (DialogIntervals{9, 9, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Ask("strings=3 interval2=1 interval3=2 interval4=3 interval5=4 ok"), 1);
    EXPECT_EQ(intervals, (DialogIntervals{1, 2, 3, 0, 0, 0, 0, 0})) << "as many as there are strings";
}

TEST_F(StringTuning, GuitarOnAMandolinRestoresAllFields)
{
    EXPECT_EQ(Ask("mandolin ok"), 1);
    EXPECT_EQ(lCount, 4);
    EXPECT_EQ(lTop, 76);
    EXPECT_EQ(intervals, mandolin);
    EXPECT_EQ(lMaxStretch, 350);
    EXPECT_EQ(Ask("top=60 guitar ok"), 1);
    EXPECT_EQ(lCount, 6);
    EXPECT_EQ(lTop, 76);
    EXPECT_EQ(intervals, guitar);
    EXPECT_EQ(lMaxStretch, 175);
    EXPECT_EQ(process.settings.values.at("Max stretch"), 175);
}

TEST_F(StringTuning, AButtonOnlyFillsTheFields)
{
    EXPECT_EQ(Ask("mandolin cancel"), 0);
    EXPECT_EQ(lCount, 6);
    EXPECT_EQ(intervals, guitar);
    EXPECT_EQ(lMaxStretch, 175);
    EXPECT_TRUE(process.settings.values.empty());
    EXPECT_EQ(Ask("mandolin top=69 ok"), 1);
    EXPECT_EQ(lTop, 69) << "what is typed behind it counts";
    EXPECT_EQ(lCount, 4);
}

TEST_F(StringTuning, NumbersAreReadLoosely)
{
    EXPECT_EQ(Ask("strings=x top=-5 interval2=12x stretch=+80 ok"), 1);
    EXPECT_EQ(lCount, 0);
    EXPECT_EQ(lTop, -5);
    EXPECT_EQ(intervals, DialogIntervals{}) << "there is no string to tune";
    EXPECT_EQ(lMaxStretch, 80);
}

TEST_F(StringTuning, ATextIsCutAtTwentyBytes)
{
    EXPECT_EQ(Ask("top=0000000000000000000077 ok"), 1);
    EXPECT_EQ(lTop, 0);
}

TEST_F(StringTuning, WithoutADialogNothingChanges)
{
    process.user.bFormsWork = false;
    EXPECT_EQ(Ask("mandolin ok"), 0);
    EXPECT_EQ(lCount, 6);
    EXPECT_TRUE(process.settings.values.empty());
}
} // namespace zarn
