#include "panels/dialogs.h"

#include "panels/forms.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
struct Dialogs : testing::Test
{
    test::ScriptedProcess process;

    void Answers(Answer answer) { process.user.answers.push_back(std::move(answer)); }
};
} // namespace

TEST_F(Dialogs, ATypedNumberComesBack)
{
    int32_t lValue = 100;
    Answers({.kind = Answer::NUMBER, .lNumber = -5});
    EXPECT_EQ(InputNumber(nullptr, &lValue, "Extra between systems (100)"), 1);
    EXPECT_EQ(lValue, -5);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{"Extra between systems (100)"});
}

TEST_F(Dialogs, ANumberIsReadLoosely)
{
    int32_t lValue = 100;
    Answers({.kind = Answer::TEXT, .sText = "12x"});
    EXPECT_EQ(InputNumber(nullptr, &lValue, "Title"), 1);
    EXPECT_EQ(lValue, 12);
}

TEST_F(Dialogs, CancelHandsBackTheNumberShown)
{
    int32_t lValue = 42;
    Answers({.kind = Answer::CANCEL});
    EXPECT_EQ(InputNumber(nullptr, &lValue, "Title"), 1);
    EXPECT_EQ(lValue, 42);
}

TEST_F(Dialogs, ANumberStaysWhenThereCanBeNoDialog)
{
    int32_t lValue = 42;
    process.user.bFormsWork = false;
    EXPECT_EQ(InputNumber(nullptr, &lValue, "Title"), 0);
    EXPECT_EQ(lValue, 42);
}

TEST_F(Dialogs, ATextIsCutToItsRoom)
{
    std::string sText = "old";
    Answers({.kind = Answer::TEXT, .sText = "Greensleeves"});
    EXPECT_EQ(InputText(nullptr, &sText, "Title", 5), 1);
    EXPECT_EQ(sText, "Green");
}

TEST_F(Dialogs, CancelLeavesTheText)
{
    std::string sText = "old";
    Answers({.kind = Answer::CANCEL});
    EXPECT_EQ(InputText(nullptr, &sText, "Title", 100), 1);
    EXPECT_EQ(sText, "old");
}

TEST_F(Dialogs, AQuestionTellsItsButtonsApart)
{
    Answers({.kind = Answer::FIRST});
    Answers({.kind = Answer::SECOND});
    Answers({.kind = Answer::CANCEL});
    EXPECT_EQ(QuestionBox(nullptr, "File source", "Open or new?", "Open", "New"), 1);
    EXPECT_EQ(QuestionBox(nullptr, "File source", "Open or new?", "Open", "New"), 2);
    EXPECT_EQ(QuestionBox(nullptr, "File source", "Open or new?", "Open", "New"), 0);
    EXPECT_EQ(process.user.shown[0].sText, "Open or new?");
}

TEST_F(Dialogs, AQuestionNobodyAnswersIsCancelled)
{
    EXPECT_EQ(QuestionBox(nullptr, "File source", "Open or new?", "Open", "New"), 0);
}

TEST(Forms, AFormHasATitleOfItsOwnWhenNoneIsGiven)
{
    EXPECT_EQ(InputForm("", "", "text", 0).sTitle, "Input");
    EXPECT_EQ(QuestionForm("", "", "a", "b").sTitle, "Question");
}
} // namespace zarn
