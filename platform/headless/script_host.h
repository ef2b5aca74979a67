/// The host without a window: a script of answers, and a log of what was shown.
#pragma once
#include "platform/answer.h"
#include "platform/headless/headless_dialog.h"
#include "platform/headless/headless_panel.h"
#include "platform/headless/headless_window.h"
#include "platform/headless/virtual_printer.h"
#include "platform/host.h"

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace zarn
{
/// What the host was asked to show.
struct Shown
{
    std::string sText; ///< of a message box; of a dialog its first static text when it asks a question, else its title
    std::string sCaption;
    uint32_t lFlags = 0;      ///< of a message box
    bool bQuestion = false;   ///< more than one answer was possible
    std::string sAnswer = {}; ///< what came back, in the words of Answer_Format; empty for a plain message
};

/// Answers wait in line: a question takes the first one when it fits, and otherwise gets its safe answer: Cancel, or No
/// where there is no Cancel. A plain message takes none. A file dialog takes `text PATH`, with `row N` ahead of it for
/// the file type (from 0). The clock stands still until someone moves it, or goes on with each look.
class ScriptHost : public UserHost
{
public:
    int32_t MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags) override;
    int32_t RunForm(Form& form) override;
    int32_t PopupMenu(std::vector<MenuItem> const& aMenu, POINT place) override; ///< takes `number N`, a command of its
    HWND CreateMainWindow(std::string_view sTitle, Painter* pPainter) override;
    [[nodiscard]] bool HasPanels() const override { return bPanelClassesWork; }
    Panel* CreatePanel(PanelSetup const& setup) override;
    bool ShowProgress(std::string_view sText, int32_t lDone, int32_t lTotal) override;
    bool ShowHelp(std::string_view sFile) override;
    bool AskOpenName(FileDialog& dialog) override;
    bool AskSaveName(FileDialog& dialog) override;
    bool StartEditor(std::string_view sPath) override;
    void Quit(int32_t lCode) override;
    uint32_t TickCount() override { return lNowMs += lMsPerLook; }
    void Beep() override { ++cBeeps; }
    void SetTimer(int32_t lTimer, uint32_t cMilliseconds, std::function<void()> action) override;
    void KillTimer(int32_t lTimer) override { timers.erase(lTimer); }
    void PostTask(std::function<void()> action) override;
    void PostEvent(Event const& event) override;
    [[nodiscard]] bool IsControlDown() override { return bControlDown; }
    std::unique_ptr<Printer> DefaultPrinter() override;
    std::unique_ptr<PagedSurface> NewPdf(std::string_view sTitle, Sheet const& sheet) override;
    std::unique_ptr<Dialog> CreateModeless(Form const& form, std::function<void(int32_t lCommand)> onCommand) override;
    void DispatchMessages() override;
    int32_t ShowPages(PageSource& pages) override; ///< takes `ok` to print

    /// The clock goes on, and the timers that fall due call, in the order of their times.
    void Advance(uint32_t cMilliseconds);
    /// Calls what was posted, also what that posts.
    void RunPosted();

    std::deque<Answer> answers;
    std::vector<Shown> shown;                           ///< messages and questions, in order
    std::vector<std::string> aEdited;                   ///< files that the text editor was started on
    std::vector<std::string> aHelped;                   ///< help files that were asked for
    std::unique_ptr<HeadlessWindow> pWindow;            ///< null until the program makes it
    std::vector<std::unique_ptr<HeadlessPanel>> panels; ///< in the order in which they were made
    int32_t cBeeps = 0;
    bool bQuit = false;
    int32_t lQuitCode = 0;
    bool bFormsWork = true; ///< false: a dialog can't be made
    bool bHelpWorks = true;
    bool bEditorWorks = true;
    bool bWindowWorks = true;
    bool bPanelClassesWork = true;
    bool bPanelsWork = true;
    uint32_t lNowMs = 0;
    uint32_t lMsPerLook = 0;        ///< by which the clock goes on whenever somebody looks at it
    std::vector<int32_t> aProgress; ///< how far long runs came, as they told it
    std::atomic<bool> bControlDown = false;
    bool bCallsOff = false; ///< the next long run that tells how far it has come is called off
    /// Called with each step of a long run, the last one with lDone equal to lTotal; for a command line that shows it.
    std::function<void(int32_t lDone, int32_t lTotal)> pOnProgress;
    /// Called with each message and question as it is shown; for a command line that tells its user.
    std::function<void(Shown const&)> pOnShown;

    VirtualPrinter printer;               ///< there is none until a test says so
    bool bPdfWorks = false;               ///< true: PDF documents are the printer's pages as text
    HeadlessDialog* pDialog = nullptr;    ///< the box that is open and that the program doesn't wait for
    std::function<void()> pOnDispatch;    ///< called whenever the program lets in what waits, ahead of that
    std::vector<std::string> aShownPages; ///< of the last ShowPages, in the words of RecordingSurface

    /// The texts of `shown`, for tests.
    [[nodiscard]] std::vector<std::string> Messages() const;

private:
    struct Timer
    {
        uint32_t cPeriodMs = 0;
        uint32_t lDueMs = 0;
        std::function<void()> action;
    };

    void Show(Shown box);
    bool AskName(FileDialog& dialog);

    std::map<int32_t, Timer> timers;
    std::mutex postedLock;
    std::deque<std::function<void()>> posted;
};
} // namespace zarn
