/// The host without a window: a script of answers, and a log of what was shown.
#pragma once
#include "platform/host.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace zarn
{
/// One answer that waits for its question.
struct Answer
{
    enum Kind
    {
        YES,
        NO,
        CANCEL,
        OK,
        FIRST,
        SECOND,
        TEXT,
        NUMBER,
        ROW,
        FORM
    } kind = OK;
    std::string sText;   ///< TEXT: the text; FORM: NAME=VALUE ... and ok or cancel
    int32_t lNumber = 0; ///< NUMBER and ROW
};

/// What the host was asked to show.
struct Shown
{
    std::string sText;
    std::string sCaption;
    uint32_t lFlags = 0; ///< of a message box
    std::string sAnswer; ///< what came back; empty for a plain message
};

/// Answers wait in line: a question takes the first one when its kind fits, and otherwise gets its safe answer: Cancel,
/// or No where there is no Cancel. Settings live in a map; the clock stands still until someone moves it.
class ScriptHost : public UserHost
{
public:
    int32_t MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags) override;
    int32_t RunForm(Form& form) override;
    HWND CreateMainWindow(std::string_view sTitle, Painter* pPainter) override;
    bool ShowHelp(std::string_view sFile) override;
    bool AskOpenName(FileDialog& dialog) override;
    bool AskSaveName(FileDialog& dialog) override;
    bool StartEditor(std::string_view sPath) override;
    void Quit(int32_t lCode) override;
    uint32_t TickCount() override { return lNowMs; }

    std::deque<Answer> answers;
    std::vector<Shown> shown;         ///< messages and questions, in order
    std::vector<std::string> aEdited; ///< files that the text editor was started on
    std::vector<std::string> aHelped; ///< help files that were asked for
    bool bQuit = false;
    int32_t lQuitCode = 0;
    bool bHelpWorks = true;
    uint32_t lNowMs = 0;
    /// Called with each message and question as it is shown; for a command line that tells its user.
    void (*pOnShown)(Shown const& shown) = nullptr;

    /// The texts of `shown`, for tests.
    [[nodiscard]] std::vector<std::string> Messages() const;
};

/// Makes a ScriptHost with a map of settings the host of the process for as long as it lives, with empty staff lists;
/// what a test of the music needs.
class ScriptedProcess
{
public:
    ScriptedProcess();
    ~ScriptedProcess();
    ScriptedProcess(ScriptedProcess const&) = delete;
    ScriptedProcess& operator=(ScriptedProcess const&) = delete;

    ScriptHost user;
    MapStore settings;

private:
    Host previous;
};
} // namespace zarn
