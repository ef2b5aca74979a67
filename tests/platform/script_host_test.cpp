#include "platform/headless/script_host.h"

#include "platform/headless/recording_surface.h"
#include "platform/process.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

using namespace zarn;

namespace
{
class ScriptedHost : public testing::Test
{
protected:
    test::ScriptedProcess process;
    ScriptHost& user = process.user;
};

Form Prompt()
{
    return {.lId = 7001,
            .sTitle = "Title",
            .sAnswer = "text",
            .aControls = {{.kind = FormControl::EDIT, .lId = 7002, .sLabel = "", .sText = "as it was"}}};
}
} // namespace

TEST_F(ScriptedHost, AQuestionTakesTheHeadOfTheLine)
{
    user.answers = {{.kind = Answer::NO}, {.kind = Answer::YES}};
    EXPECT_EQ(MessageBoxA(nullptr, "Save?", "Zarn Message", MB_YESNOCANCEL), IDNO);
    EXPECT_EQ(MessageBoxA(nullptr, "Save?", "Zarn Message", MB_YESNO), IDYES);
    EXPECT_TRUE(user.answers.empty());
    EXPECT_EQ(user.shown[0].sAnswer, "no");
    EXPECT_EQ(user.shown[0].sCaption, "Zarn Message");
}

TEST_F(ScriptedHost, WithoutAnAnswerThatFitsTheSafeOneIsGiven)
{
    user.answers = {{.kind = Answer::TEXT, .sText = "x"}};
    EXPECT_EQ(MessageBoxA(nullptr, "q", "", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxA(nullptr, "q", "", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxA(nullptr, "q", "", MB_YESNO), IDNO);
    EXPECT_EQ(user.answers.size(), 1u) << "an answer that doesn't fit waits on";
}

TEST_F(ScriptedHost, APlainMessageTakesNoAnswer)
{
    user.answers = {{.kind = Answer::OK}};
    EXPECT_EQ(MessageBoxA(nullptr, "Done", "", MB_OK | MB_ICONSTOP), IDOK);
    EXPECT_EQ(user.answers.size(), 1u);
    EXPECT_EQ(user.Messages(), std::vector<std::string>{"Done"});
    EXPECT_FALSE(user.shown[0].bQuestion);
}

TEST_F(ScriptedHost, EachThingShownIsTold)
{
    std::vector<std::string> aTold;
    user.pOnShown = [&](Shown const& shown) { aTold.push_back(shown.sText); };
    MessageBoxA(nullptr, "one", "", MB_OK);
    Form form = Prompt();
    EXPECT_EQ(DialogBoxParamA(nullptr, form), IDCANCEL);
    EXPECT_EQ(aTold, (std::vector<std::string>{"one", "Title"}));
}

TEST_F(ScriptedHost, ADialogIsFilledInByItsAnswer)
{
    user.answers = {{.kind = Answer::TEXT, .sText = "Planxty"}};
    Form form = Prompt();
    EXPECT_EQ(DialogBoxParamA(nullptr, form), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "Planxty");
    EXPECT_EQ(user.shown[0].sAnswer, "text Planxty");
    EXPECT_EQ(DialogBoxParamA(nullptr, form), IDCANCEL) << "no answer is left";
    user.bFormsWork = false;
    EXPECT_EQ(DialogBoxParamA(nullptr, form), 0);
}

TEST_F(ScriptedHost, AQuestionDialogIsToldByItsQuestion)
{
    Form form{.lId = 7009,
              .sTitle = "File source",
              .sAnswer = "box",
              .aControls = {{.kind = FormControl::STATIC, .lId = 8001, .sLabel = "Open or new?"}}};
    EXPECT_EQ(DialogBoxParamA(nullptr, form), IDCANCEL);
    EXPECT_EQ(user.shown[0].sText, "Open or new?");
    EXPECT_EQ(user.shown[0].sCaption, "File source");
}

TEST_F(ScriptedHost, AFileDialogTakesAPath)
{
    user.answers = {{.kind = Answer::TEXT, .sText = "my tunes/a b.abc"}, {.kind = Answer::CANCEL}};
    FileDialog dialog{.sTitle = "Open file"};
    EXPECT_TRUE(GetOpenFileNameA(nullptr, dialog));
    EXPECT_EQ(dialog.szFile, "my tunes/a b.abc");
    EXPECT_EQ(dialog.lFilter, 1);
    EXPECT_FALSE(GetOpenFileNameA(nullptr, dialog));
    EXPECT_TRUE(user.answers.empty());
    EXPECT_FALSE(GetOpenFileNameA(nullptr, dialog)) << "cancelled when nobody answers";
}

TEST_F(ScriptedHost, ARowAheadOfThePathChoosesTheFileType)
{
    FileDialog dialog{.aFilters = {{"Zarn files", "*.zrn"}, {"ABC files", "*.abc"}}};
    user.answers = {{.kind = Answer::ROW, .lNumber = 1}, {.kind = Answer::TEXT, .sText = "a.abc"}};
    EXPECT_TRUE(GetSaveFileNameA(nullptr, dialog));
    EXPECT_EQ(dialog.lFilter, 2);
    user.answers = {{.kind = Answer::ROW, .lNumber = 2}, {.kind = Answer::TEXT, .sText = "a.abc"}};
    EXPECT_FALSE(GetSaveFileNameA(nullptr, dialog)) << "there is no third type";
    EXPECT_EQ(user.answers.size(), 2u);
}

TEST_F(ScriptedHost, TheNameOfferedCanBeTakenAsItStands)
{
    FileDialog dialog{.szFile = "jig.zrn"};
    user.answers = {{.kind = Answer::OK}, {.kind = Answer::OK}};
    EXPECT_TRUE(GetSaveFileNameA(nullptr, dialog));
    dialog.szFile.clear();
    EXPECT_FALSE(GetSaveFileNameA(nullptr, dialog));
}

TEST_F(ScriptedHost, ANameSavedWithoutAnExtensionGetsTheDefaultOne)
{
    struct
    {
        char const* sGiven;
        char const* sDefault;
        char const* sName;
    } const aCase[] = {{"jig", ".zrn", "jig.zrn"},
                       {"jig.abc", ".zrn", "jig.abc"},
                       {"my.tunes/jig", "abc", "my.tunes/jig.abc"},
                       {"jig", "", "jig"},
                       {"c:\\my.tunes\\jig", ".zrn", "c:\\my.tunes\\jig.zrn"}};
    for (auto const& c : aCase)
    {
        FileDialog dialog{.sDefaultExtension = c.sDefault};
        user.answers = {{.kind = Answer::TEXT, .sText = c.sGiven}};
        ASSERT_TRUE(GetSaveFileNameA(nullptr, dialog));
        EXPECT_EQ(dialog.szFile, c.sName);
    }
}

TEST_F(ScriptedHost, WhatElseItIsAskedForIsNoted)
{
    EXPECT_TRUE(CreateProcessA("Notepad zarn.lst"));
    EXPECT_EQ(user.aEdited, std::vector<std::string>{"zarn.lst"});
    user.bHelpWorks = false;
    EXPECT_FALSE(WinHelpA(nullptr, "zarn.hlp"));
    EXPECT_EQ(user.aHelped, std::vector<std::string>{"zarn.hlp"});
    user.lNowMs = 77;
    EXPECT_EQ(GetTickCount(), 77u);
    PostQuitMessage(3);
    EXPECT_TRUE(user.bQuit);
    EXPECT_EQ(user.lQuitCode, 3);
}

namespace
{
struct BoxPainter : Painter
{
    void Paint(HWND hwnd, HDC hdc) override
    {
        Rectangle(hdc, 0, 0, 5, 5);
        if (bAgain)
            InvalidateRect(hwnd);
    }
    bool bAgain = false;
};
} // namespace

TEST_F(ScriptedHost, TheWindowPaintsWhenARepaintIsOwed)
{
    BoxPainter painter;
    RecordingSurface surface{{1200, 800}};
    HWND const hwnd = CreateWindowExA("Zarn", &painter);
    ASSERT_EQ(hwnd, user.pWindow.get());
    user.pWindow->pSurface = &surface;
    UpdateWindow(hwnd);
    UpdateWindow(hwnd);
    EXPECT_EQ(user.pWindow->cPaints, 1) << "the first paint is owed, the second isn't";
    EXPECT_EQ(surface.aLines.size(), 1u);
    painter.bAgain = true;
    InvalidateRect(hwnd);
    UpdateWindow(hwnd);
    EXPECT_EQ(user.pWindow->cPaints, 2) << "a painter that invalidates doesn't hold up the window";
    UpdateWindow(hwnd);
    EXPECT_EQ(user.pWindow->cPaints, 3);
    DestroyWindow(hwnd);
    UpdateWindow(hwnd);
    EXPECT_EQ(user.pWindow->cPaints, 3);
}

TEST_F(ScriptedHost, TheWindowRemembersWhatItIsTold)
{
    HWND const hwnd = CreateWindowExA("Zarn", nullptr);
    EXPECT_EQ(GetClientRect(hwnd), (RECT{0, 0, 1200, 800}));
    EXPECT_EQ(GetCursorPos(hwnd), (POINT{20, 20}));
    SetCursorPos(hwnd, {7, 8});
    EXPECT_EQ(GetCursorPos(hwnd), (POINT{7, 8}));
    SetWindowTextA(hwnd, "jig.zrn");
    EXPECT_EQ(hwnd->Title(), "jig.zrn");
    SetScrollRange(hwnd, 90);
    SetScrollPos(hwnd, 12);
    EXPECT_EQ(user.pWindow->lScrollRange, 90);
    EXPECT_EQ(user.pWindow->lScrollPlace, 12);
    SetScrollPos(hwnd, 91);
    EXPECT_EQ(user.pWindow->lScrollPlace, 90);
    SetScrollRange(hwnd, 30);
    EXPECT_EQ(user.pWindow->lScrollPlace, 30);
    SetScrollPos(hwnd, -1);
    EXPECT_EQ(user.pWindow->lScrollPlace, 0);
    SetWaitCursor(hwnd, true);
    EXPECT_TRUE(user.pWindow->bWaitPointer);

    SetMenu(hwnd, {{0, "&File", false, {{3, "&Save", false, {}}, {0, nullptr, false, {}}, {4, "Save &As", true, {}}}}});
    EXPECT_FALSE(user.pWindow->IsGrey(3));
    EXPECT_TRUE(user.pWindow->IsGrey(4));
    EnableMenuItem(hwnd, 4, true);
    CheckMenuItem(hwnd, 3, true);
    SetMenuItemInfoA(hwnd, 3, "Save (2)");
    EXPECT_FALSE(user.pWindow->IsGrey(4));
    EXPECT_TRUE(user.pWindow->IsChecked(3));
    EXPECT_EQ(user.pWindow->ItemText(3), "Save (2)");
    EXPECT_EQ(user.pWindow->ItemText(99), "");

    HDC const hdc = GetDC(hwnd);
    EXPECT_EQ(GetDeviceCaps(hdc, HORZRES), 1200);
    EXPECT_EQ(user.pWindow->cDrawsOpen, 1);
    ReleaseDC(hwnd, hdc);
    EXPECT_EQ(user.pWindow->cDrawsOpen, 0);
}

TEST_F(ScriptedHost, AWindowThatCantBeMadeIsNull)
{
    user.bWindowWorks = false;
    HWND const hwnd = CreateWindowExA("Zarn", nullptr);
    EXPECT_EQ(hwnd, nullptr);
    EXPECT_EQ(GetDC(hwnd), nullptr);
    ReleaseDC(hwnd, nullptr);
    EXPECT_EQ(GetClientRect(hwnd), RECT{});
}
