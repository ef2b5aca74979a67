#include "panels/dialogs.h"

#include "core/messages.h"
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

TEST_F(Dialogs, AtAPlaceOkAndCancelAreToldApart)
{
    std::string sText = "old";
    Answers({.kind = Answer::TEXT, .sText = "Greensleeves"});
    Answers({.kind = Answer::CANCEL});
    EXPECT_EQ(InputText(nullptr, &sText, "Title", 5, {10, 20}), 1);
    EXPECT_EQ(InputText(nullptr, &sText, "Title", 5, {10, 20}), 0);
    EXPECT_EQ(sText, "Green");
    process.user.bFormsWork = false;
    EXPECT_EQ(InputText(nullptr, &sText, "Title", 5, {10, 20}), 0);
}

TEST_F(Dialogs, LyricsComeBackAsTyped)
{
    std::string sText = "old";
    Answers({.kind = Answer::TEXT, .sText = "Alas\r\nmy"});
    Answers({.kind = Answer::CANCEL});
    EXPECT_EQ(InputLyrics(nullptr, &sText, "Lyrics (Ctrl+Enter for new line)", 100), 1);
    EXPECT_EQ(InputLyrics(nullptr, &sText, "Lyrics (Ctrl+Enter for new line)", 100), 1);
    EXPECT_EQ(sText, "Alas\r\nmy");
    Answers({.kind = Answer::TEXT, .sText = "Greensleeves"});
    EXPECT_EQ(InputLyrics(nullptr, &sText, "", 5), 1);
    EXPECT_EQ(sText, "Green");
    process.user.bFormsWork = false;
    EXPECT_EQ(InputLyrics(nullptr, &sText, "", 5), 0);
}

TEST_F(Dialogs, ATimeSignatureIsTakenWhenItsDenominatorIsAPowerOfTwo)
{
    struct
    {
        char const *sNumerator, *sDenominator;
        int32_t lResult, lNumerator, lDenominator;
    } const aCase[] = {{"6", "8", 1, 6, 8},      {"3", "1", 1, 3, 1},
                       {"3", "0", 0, 3, 0},      {"3", "6", 0, 3, 6},
                       {"3", "12", 0, 3, 12},    {"-5", "-4", 1, 5, 4},
                       {"x", "2", 1, 0, 2},      {"3", "", 0, 3, 0},
                       {"7x", "16th", 1, 7, 16}, {"3", "-2147483648", 0, 3, 2147483647}};
    for (auto const& c : aCase)
    {
        int32_t lNumerator = 4;
        int32_t lDenominator = 4;
        Serious_Rearm();
        process.user.shown.clear();
        Answers({.kind = Answer::FORM,
                 .sText = std::string("numerator=\"") + c.sNumerator + "\" denominator=\"" + c.sDenominator + "\" ok"});
        EXPECT_EQ(InputTimeSignature(nullptr, &lNumerator, &lDenominator), c.lResult) << c.sDenominator;
        EXPECT_EQ(lNumerator, c.lNumerator);
        EXPECT_EQ(lDenominator, c.lDenominator);
        std::vector<std::string> aExpected{"Time-signature Input"};
        if (c.lResult == 0)
            aExpected.emplace_back("Time signature denominator must be a power of 2");
        EXPECT_EQ(process.user.Messages(), aExpected);
    }
}

TEST_F(Dialogs, ACancelledTimeSignatureIsTheOneShown)
{
    int32_t lNumerator = -3;
    int32_t lDenominator = 4;
    Answers({.kind = Answer::CANCEL});
    EXPECT_EQ(InputTimeSignature(nullptr, &lNumerator, &lDenominator), 1);
    EXPECT_EQ(lNumerator, 3);
    EXPECT_EQ(lDenominator, 4);
    process.user.bFormsWork = false;
    lNumerator = -3;
    EXPECT_EQ(InputTimeSignature(nullptr, &lNumerator, &lDenominator), 0);
    EXPECT_EQ(lNumerator, -3);
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
    EXPECT_EQ(LyricsForm("", "", 0).sTitle, "Lyrics");
    EXPECT_EQ(QuestionForm("", "", "a", "b").sTitle, "Question");
}

TEST(Forms, EachTemplateHasItsNumberItsTitleAndItsControls)
{
    struct
    {
        Form form;
        int32_t lId;
        char const* sTitle;
        std::vector<int32_t> aControls;
    } const aCase[] = {{InputForm("", "a", "text", 9), 7001, "Input", {7002, IDOK, IDCANCEL}},
                       {LyricsForm("", "a", 9), 7003, "Lyrics", {7002, IDOK, IDCANCEL}},
                       {QuestionForm("", "a", "b", "c"), 7009, "Question", {8001, 7010, 7011, IDCANCEL}},
                       {TimeSignatureForm("4", "4", 9), 7033, "Time-signature Input", {7034, 7035, IDOK, IDCANCEL}}};
    for (auto const& c : aCase)
    {
        EXPECT_EQ(c.form.lId, c.lId);
        EXPECT_EQ(c.form.sTitle, c.sTitle);
        std::vector<int32_t> aControls;
        for (FormControl const& control : c.form.aControls)
            aControls.push_back(control.lId);
        EXPECT_EQ(aControls, c.aControls) << c.sTitle;
    }
    EXPECT_EQ(LyricsForm("", "a", 9).aControls[0].kind, FormControl::MULTILINE);
    EXPECT_EQ(QuestionForm("", "a", "Open", "New").Find(7010)->sLabel, "Open");
    EXPECT_EQ(QuestionForm("", "a", "Open", "New").Find(7011)->sLabel, "New");
}
} // namespace zarn
