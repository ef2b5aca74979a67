#include "shell/number_prompt.h"

#include "support/shell_fixture.h"

namespace zarn::test
{
namespace
{
struct NumberPrompts : Shell
{
    void SetUp() override { Start(); }
};
} // namespace

TEST_F(NumberPrompts, OnlyTheDotsAtTheEndAreNoPartOfTheName)
{
    struct
    {
        char const* sLabel;
        char const* sName;
    } const aCase[] = {{"Left margin percent...", "Left margin percent"},
                       {"Bar strings 1..2", "Bar strings 1..2"},
                       {"Bar strings 1..2.....", "Bar strings 1..2"},
                       {"Plain", "Plain"}};
    for (auto const& c : aCase)
    {
        AnswersNumber(31);
        EXPECT_EQ(NumberPrompt(hwndMain, c.sLabel, COMMAND_LEFTMARGIN, 5), 31) << c.sLabel;
        EXPECT_EQ(process.settings.values.at(c.sName), 31) << c.sLabel;
        EXPECT_EQ(Window().ItemText(COMMAND_LEFTMARGIN), std::string(c.sName) + " (31)...");
    }
}

TEST_F(NumberPrompts, TheStoredValueIsOfferedBeforeTheDefault)
{
    process.settings.values["Left margin percent"] = 12;
    EXPECT_EQ(NumberPrompt(hwndMain, "Left margin percent...", COMMAND_LEFTMARGIN, 5), 12) << "cancelled";
    EXPECT_EQ(NumberPrompt(hwndMain, "Right margin percent...", COMMAND_RIGHTMARGIN, 5), 5) << "cancelled";
    EXPECT_EQ(Messages(), (std::vector<std::string>{"Left margin percent (12)", "Right margin percent (5)"}));
    EXPECT_EQ(process.settings.values.at("Right margin percent"), 5) << "the value that was shown is stored";
}

TEST_F(NumberPrompts, AtStartOnlyAStoredValueStandsInTheMenu)
{
    process.settings.values["Top margin percent"] = -3;
    EXPECT_EQ(NumberPromptInit("Top margin percent...", COMMAND_TOPMARGIN, 7), -3);
    EXPECT_EQ(Window().ItemText(COMMAND_TOPMARGIN), "Top margin percent (-3)...");
    EXPECT_EQ(NumberPromptInit("Bottom margin percent...", COMMAND_BOTTOMMARGIN, 7), 7);
    EXPECT_EQ(Window().ItemText(COMMAND_BOTTOMMARGIN), "Bottom margin percent...");
    EXPECT_FALSE(process.settings.values.contains("Bottom margin percent")) << "and nothing is stored";
    EXPECT_TRUE(process.user.shown.empty());
}
} // namespace zarn::test
