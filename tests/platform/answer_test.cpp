#include "platform/answer.h"

#include <gtest/gtest.h>

using namespace zarn;

namespace
{
Form QuestionForm()
{
    return {.lId = 7009,
            .sTitle = "File source",
            .sAnswer = "box",
            .aControls = {{.kind = FormControl::STATIC, .lId = 8001, .sLabel = "Open existing file or start new one?"},
                          {.kind = FormControl::DEFAULT_BUTTON, .lId = 7010, .sLabel = "Open"},
                          {.kind = FormControl::BUTTON, .lId = 7011, .sLabel = "New"},
                          {.kind = FormControl::BUTTON, .lId = IDCANCEL, .sLabel = "Cancel"}}};
}

Form PromptForm(char const* sAnswer, int32_t lLimit = 0)
{
    return {.lId = 7001,
            .sTitle = "Input",
            .sAnswer = sAnswer,
            .aControls = {{.kind = FormControl::EDIT, .lId = 7002, .sLabel = "", .sText = "4", .lLimit = lLimit},
                          {.kind = FormControl::DEFAULT_BUTTON, .lId = IDOK, .sLabel = "OK"},
                          {.kind = FormControl::BUTTON, .lId = IDCANCEL, .sLabel = "Cancel"}}};
}

Form TuneForm()
{
    return {.lId = 7005,
            .sTitle = "New tune",
            .sAnswer = "form",
            .aControls = {{.kind = FormControl::COMBO,
                           .lId = 7007,
                           .sLabel = "",
                           .lValue = 0,
                           .aRows = {"F  (1 flat)  ", "C  (open)    ", "G  (1 sharp) "},
                           .sName = "key"},
                          {.kind = FormControl::CHECK, .lId = 7032, .sLabel = "Tablature", .sName = "tablature"},
                          {.kind = FormControl::EDIT, .lId = 7034, .sLabel = "", .sName = "numerator"},
                          {.kind = FormControl::BUTTON, .lId = 8020, .sLabel = "Guitar", .sName = "guitar"},
                          {.kind = FormControl::DEFAULT_BUTTON, .lId = IDOK, .sLabel = "OK"},
                          {.kind = FormControl::BUTTON, .lId = IDCANCEL, .sLabel = "Cancel"}}};
}
} // namespace

TEST(AnswerWords, EachFormReadsBackToTheSameWords)
{
    for (char const* const sWords :
         {"yes", "no", "cancel", "ok", "first", "second", "text The Irish  Washerwoman ", "text", "text  x",
          "text one\\ntwo\\r\\nthree", "text C:\\music", "text C:\\\\new", "number 12", "number -3", "row 0",
          "form clef=1 key=-2 ok", "form name=\"a b\" cancel"})
    {
        std::optional<Answer> const answer = Answer_Parse(sWords);
        ASSERT_TRUE(answer) << sWords;
        EXPECT_EQ(Answer_Format(*answer), sWords);
    }
}

TEST(AnswerWords, WhatIsNoAnswerIsRefused)
{
    for (char const* const sWords :
         {"", "maybe", "YES", "yes please", "number", "number x", "number 1 2", "number 9999999999", "row"})
        EXPECT_FALSE(Answer_Parse(sWords)) << sWords;
}

TEST(AnswerWords, AnyTextSurvivesEscaping)
{
    std::string const aParts[] = {"\\", "n", "r", "\n", "\r", "x"};
    for (std::string const& a : aParts)
        for (std::string const& b : aParts)
            for (std::string const& c : aParts)
                for (std::string const& d : aParts)
                {
                    std::string const s = a + b + c + d;
                    EXPECT_EQ(Text_Unescape(Text_Escape(s)), s);
                    EXPECT_EQ(Text_Escape(s).find_first_of("\r\n"), std::string::npos);
                }
}

TEST(AnswerWords, OneLineTurnsEachRunOfBreaksIntoABlank) { EXPECT_EQ(Text_OneLine("a\r\n\r\nb\nc"), "a b c"); }

TEST(BoxAnswers, ABoxTakesOnlyAButtonThatItHas)
{
    struct
    {
        uint32_t lFlags;
        Answer::Kind kind;
        int32_t lId;
    } const aCase[] = {{MB_YESNOCANCEL | MB_ICONQUESTION, Answer::YES, IDYES},
                       {MB_YESNOCANCEL, Answer::CANCEL, IDCANCEL},
                       {MB_YESNOCANCEL, Answer::OK, 0},
                       {MB_YESNO, Answer::NO, IDNO},
                       {MB_YESNO, Answer::CANCEL, 0},
                       {MB_OKCANCEL, Answer::OK, IDOK},
                       {MB_OKCANCEL, Answer::YES, 0},
                       {MB_OKCANCEL, Answer::TEXT, 0}};
    for (auto const& c : aCase)
        EXPECT_EQ(Box_Take(c.lFlags, {.kind = c.kind}), c.lId) << c.lFlags << ' ' << c.kind;
    for (int32_t const lId : {IDYES, IDNO, IDOK, IDCANCEL})
        EXPECT_EQ(Box_Take(lId == IDYES || lId == IDNO ? MB_YESNO : MB_OKCANCEL, Box_Answer(lId)), lId);
}

TEST(FormAnswers, AQuestionTakesItsFirstOrSecondButton)
{
    Form form = QuestionForm();
    EXPECT_EQ(Form_Take(form, {.kind = Answer::FIRST}), 7010);
    EXPECT_EQ(Form_Take(form, {.kind = Answer::SECOND}), 7011);
    EXPECT_EQ(Form_Take(form, {.kind = Answer::CANCEL}), IDCANCEL);
    EXPECT_EQ(Form_Take(form, {.kind = Answer::OK}), 0) << "it has no OK";
    EXPECT_EQ(Form_Take(form, {.kind = Answer::TEXT, .sText = "x"}), 0);
    EXPECT_EQ(Form_Answer(form, 7010), (Answer{.kind = Answer::FIRST}));
    EXPECT_EQ(Form_Answer(form, 7011), (Answer{.kind = Answer::SECOND}));
    EXPECT_EQ(Form_Answer(form, IDCANCEL), (Answer{.kind = Answer::CANCEL}));
}

TEST(FormAnswers, APromptTakesTextOrANumber)
{
    Form form = PromptForm("number");
    EXPECT_EQ(Form_Take(form, {.kind = Answer::NUMBER, .lNumber = -12}), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "-12");
    EXPECT_EQ(Form_Answer(form, IDOK), (Answer{.kind = Answer::NUMBER, .lNumber = -12}));
    EXPECT_EQ(Form_Take(form, {.kind = Answer::TEXT, .sText = "12 bars"}), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "12 bars");
    EXPECT_EQ(Form_Answer(form, IDOK), (Answer{.kind = Answer::TEXT, .sText = "12 bars"}));
    EXPECT_EQ(Form_Take(form, {.kind = Answer::OK}), IDOK) << "what is shown is taken as it stands";
    EXPECT_EQ(form.aControls[0].sText, "12 bars");
    EXPECT_EQ(Form_Take(form, {.kind = Answer::YES}), 0);
}

TEST(FormAnswers, TextStopsAtTheFieldsLimit)
{
    Form form = PromptForm("text", 4);
    EXPECT_EQ(Form_Take(form, {.kind = Answer::TEXT, .sText = "caf\xC3\xA9"}), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "caf") << "no character is cut in two";
}

TEST(FormAnswers, AListTakesARowThatItHas)
{
    Form form{
        .lId = 1,
        .sTitle = "Tunes",
        .sAnswer = "row",
        .aControls = {{.kind = FormControl::LIST, .lId = 2, .sLabel = "", .lValue = -1, .aRows = {"one", "two"}}}};
    EXPECT_EQ(Form_Take(form, {.kind = Answer::ROW, .lNumber = 2}), 0);
    EXPECT_EQ(Form_Take(form, {.kind = Answer::ROW, .lNumber = -1}), 0);
    EXPECT_EQ(form.aControls[0].lValue, -1);
    EXPECT_EQ(Form_Take(form, {.kind = Answer::ROW, .lNumber = 1}), IDOK);
    EXPECT_EQ(form.aControls[0].lValue, 1);
    EXPECT_EQ(Form_Answer(form, IDOK), (Answer{.kind = Answer::ROW, .lNumber = 1}));
}

TEST(FormAnswers, FieldsAreFilledByName)
{
    Form form = TuneForm();
    EXPECT_EQ(Form_Take(form, {.kind = Answer::FORM, .sText = "key=2 tablature=1 numerator=6 ok"}), IDOK);
    EXPECT_EQ(form.aControls[0].lValue, 2);
    EXPECT_EQ(form.aControls[1].lValue, 1);
    EXPECT_EQ(form.aControls[2].sText, "6");
    EXPECT_EQ(Form_Take(form, {.kind = Answer::FORM, .sText = "key=C  numerator=\"a \\\"b\\\\\" guitar"}), 8020);
    EXPECT_EQ(form.aControls[0].lValue, 1) << "a row by the first word of its text";
    EXPECT_EQ(form.aControls[2].sText, "a \"b\\");
    EXPECT_EQ(Form_Take(form, {.kind = Answer::FORM, .sText = "cancel"}), IDCANCEL);
}

TEST(FormAnswers, AFieldThatIsntThereLeavesTheDialogAlone)
{
    for (char const* const sText :
         {"tempo=3 ok", "key=3 ok", "key=H ok", "tablature=yes ok", "key=1", "key ok", "=1 ok", ""})
    {
        Form form = TuneForm();
        EXPECT_EQ(Form_Take(form, {.kind = Answer::FORM, .sText = std::string("numerator=9 ") + sText}), 0) << sText;
        EXPECT_EQ(form.aControls[2].sText, "") << sText;
    }
}

TEST(FormAnswers, WhatADialogTellsFillsItTheSameWayAgain)
{
    Form form = TuneForm();
    form.aControls[0].lValue = 2;
    form.aControls[1].lValue = 1;
    for (char const* const sText : {"6", "", "a b", "\"", "\\", "a\\n\nb"})
    {
        form.aControls[2].sText = sText;
        for (int32_t const lButton : {IDOK, 8020})
        {
            std::optional<Answer> const answer = Answer_Parse(Answer_Format(Form_Answer(form, lButton)));
            ASSERT_TRUE(answer);
            Form again = TuneForm();
            EXPECT_EQ(Form_Take(again, *answer), lButton) << answer->sText;
            EXPECT_EQ(again.aControls[0].lValue, 2);
            EXPECT_EQ(again.aControls[1].lValue, 1);
            EXPECT_EQ(again.aControls[2].sText, sText);
        }
    }
}
