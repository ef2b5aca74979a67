// The scripted host. A question finds its answer at the head of the line or takes the safe one.
#include "platform/headless/script_host.h"

#include <algorithm>
#include <utility>

namespace zarn
{
int32_t ScriptHost::MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags)
{
    uint32_t const lButtons = lFlags & MB_BUTTONS;
    Shown box{std::string(sText), std::string(sCaption), lFlags};
    int32_t lId = IDOK;
    if (lButtons != MB_OK)
    {
        lId = answers.empty() ? 0 : Box_Take(lFlags, answers.front());
        if (lId != 0)
            answers.pop_front();
        else
            lId = lButtons == MB_YESNO ? IDNO : IDCANCEL;
        box.bQuestion = true;
        box.sAnswer = Answer_Format(Box_Answer(lId));
    }
    Show(std::move(box));
    return lId;
}

int32_t ScriptHost::RunForm(Form& form)
{
    if (!bFormsWork)
        return 0;
    Shown box{form.sTitle, form.sTitle, 0, true};
    for (FormControl const& control : form.aControls)
        if (control.kind == FormControl::STATIC && std::string_view(form.sAnswer) == "box")
        {
            box.sText = control.sLabel;
            break;
        }
    int32_t lButton = answers.empty() ? 0 : Form_Take(form, answers.front());
    if (lButton != 0)
        answers.pop_front();
    else
        lButton = IDCANCEL;
    box.sAnswer = Answer_Format(Form_Answer(form, lButton));
    Show(std::move(box));
    return lButton;
}

int32_t ScriptHost::PopupMenu(std::vector<MenuItem> const& aMenu, POINT)
{
    int32_t lCommand = 0;
    if (!answers.empty() && answers.front().kind == Answer::NUMBER)
        for (MenuItem const& item : aMenu)
            if (item.lCommand == answers.front().lNumber)
                lCommand = item.lCommand;
    if (lCommand != 0)
        answers.pop_front();
    Shown menu{aMenu.empty() ? "" : aMenu.front().sLabel, "menu", 0, true};
    menu.sAnswer = Answer_Format(lCommand ? Answer{Answer::NUMBER, {}, lCommand} : Answer{Answer::CANCEL});
    Show(std::move(menu));
    return lCommand;
}

HWND ScriptHost::CreateMainWindow(std::string_view sTitle, Painter* pPainter)
{
    if (!bWindowWorks)
        return nullptr;
    pWindow = std::make_unique<HeadlessWindow>(sTitle, pPainter);
    return pWindow.get();
}

Panel* ScriptHost::CreatePanel(PanelSetup const& setup)
{
    if (!pWindow || !bPanelsWork)
        return nullptr;
    panels.push_back(std::make_unique<HeadlessPanel>(setup));
    return panels.back().get();
}

bool ScriptHost::ShowProgress(std::string_view, int32_t lDone, int32_t lTotal)
{
    if (lDone < lTotal)
        aProgress.push_back(lDone);
    if (pOnProgress)
        pOnProgress(lDone, lTotal);
    return lDone >= lTotal || !bCallsOff;
}

void ScriptHost::SetTimer(int32_t lTimer, uint32_t cMilliseconds, std::function<void()> action)
{
    uint32_t const cPeriodMs = std::clamp(cMilliseconds, uint32_t{1}, uint32_t{INT32_MAX});
    timers[lTimer] = {cPeriodMs, lNowMs + cPeriodMs, std::move(action)};
}

void ScriptHost::Advance(uint32_t cMilliseconds)
{
    // The clock wraps: times are compared by how far they lie ahead.
    uint32_t const lFromMs = lNowMs;
    auto const msAhead = [this](auto const& timer) { return static_cast<int32_t>(timer.second.lDueMs - lNowMs); };
    for (;;)
    {
        int64_t const cLeftMs = int64_t{cMilliseconds} - (lNowMs - lFromMs); // less than 0 when a timer has slept
        auto const next = std::min_element(timers.begin(), timers.end(),
                                           [&](auto const& a, auto const& b) { return msAhead(a) < msAhead(b); });
        if (next == timers.end() || msAhead(*next) > cLeftMs)
        {
            lNowMs += static_cast<uint32_t>(std::max<int64_t>(cLeftMs, 0));
            return;
        }
        lNowMs += static_cast<uint32_t>(std::max(msAhead(*next), 0));
        next->second.lDueMs += next->second.cPeriodMs;
        auto const action = next->second.action; // the timer may end itself
        action();
    }
}

void ScriptHost::PostTask(std::function<void()> action)
{
    std::scoped_lock const lock(postedLock);
    posted.push_back(std::move(action));
}

void ScriptHost::PostEvent(Event const& event)
{
    PostTask(
        [event]
        {
            if (host.pDoor)
                host.pDoor->Receive(event);
        });
}

void ScriptHost::RunPosted()
{
    for (;;)
    {
        std::function<void()> action;
        {
            std::scoped_lock const lock(postedLock);
            if (posted.empty())
                return;
            action = std::move(posted.front());
            posted.pop_front();
        }
        action();
    }
}

namespace
{
class ScriptPrinter : public Printer
{
public:
    explicit ScriptPrinter(VirtualPrinter& printer) : printer(printer) {}
    [[nodiscard]] Sheet Paper() const override { return printer.paper; }
    std::unique_ptr<PagedSurface> StartDoc(std::string_view sTitle, std::function<bool()>) override
    {
        if (printer.fault == VirtualPrinter::Fault::STARTDOC)
            return nullptr;
        return std::make_unique<VirtualDocument>(sTitle, printer, true);
    }

private:
    VirtualPrinter& printer;
};
} // namespace

std::unique_ptr<Printer> ScriptHost::DefaultPrinter()
{
    return printer.bThere ? std::make_unique<ScriptPrinter>(printer) : nullptr;
}

std::unique_ptr<PagedSurface> ScriptHost::NewPdf(std::string_view sTitle, Sheet const&)
{
    return bPdfWorks ? std::make_unique<VirtualDocument>(sTitle, printer, false) : nullptr;
}

std::unique_ptr<Dialog> ScriptHost::CreateModeless(Form const& form, std::function<void(int32_t lCommand)> onCommand)
{
    return bFormsWork ? std::make_unique<HeadlessDialog>(form, std::move(onCommand), &pDialog) : nullptr;
}

void ScriptHost::DispatchMessages()
{
    if (pOnDispatch)
        pOnDispatch();
    RunPosted();
}

int32_t ScriptHost::ShowPages(PageSource& pages)
{
    aShownPages.clear();
    for (int32_t lPage = 1; lPage <= pages.Count(); ++lPage)
    {
        RecordingSurface surface(pages.Paper().BoxSize());
        pages.Draw(lPage, surface);
        aShownPages.push_back(surface.All());
    }
    bool const bPrint = !answers.empty() && answers.front().kind == Answer::OK;
    if (bPrint || (!answers.empty() && answers.front().kind == Answer::CANCEL))
        answers.pop_front();
    Show({"Print preview", "Print preview", 0, true, bPrint ? "ok" : "cancel"});
    return bPrint ? IDOK : IDCANCEL;
}

bool ScriptHost::ShowHelp(std::string_view sFile)
{
    aHelped.emplace_back(sFile);
    return bHelpWorks;
}

bool ScriptHost::AskOpenName(FileDialog& dialog) { return AskName(dialog); }

bool ScriptHost::AskSaveName(FileDialog& dialog) { return AskName(dialog); }

bool ScriptHost::AskName(FileDialog& dialog)
{
    Shown box{dialog.sTitle, dialog.sTitle, 0, true, "cancel"};
    bool const bType = answers.size() > 1 && answers[0].kind == Answer::ROW && answers[0].lNumber >= 0 &&
                       answers[0].lNumber < static_cast<int32_t>(dialog.aFilters.size());
    size_t const lName = bType ? 1 : 0;
    bool const bName = answers.size() > lName && answers[lName].kind == Answer::TEXT;
    bool const bAsOffered = !answers.empty() && answers[0].kind == Answer::OK && !dialog.szFile.empty();
    if (bName)
    {
        if (bType)
            dialog.lFilter = answers[0].lNumber + 1;
        dialog.szFile = answers[lName].sText;
        box.sAnswer = Answer_Format(answers[lName]);
        answers.erase(answers.begin(), answers.begin() + static_cast<std::ptrdiff_t>(lName) + 1);
    }
    else if (bAsOffered)
    {
        box.sAnswer = "ok";
        answers.pop_front();
    }
    else if (!answers.empty() && answers[0].kind == Answer::CANCEL)
        answers.pop_front();
    Show(std::move(box));
    return bName || bAsOffered;
}

bool ScriptHost::StartEditor(std::string_view sPath)
{
    aEdited.emplace_back(sPath);
    return bEditorWorks;
}

void ScriptHost::Quit(int32_t lCode)
{
    bQuit = true;
    lQuitCode = lCode;
}

void ScriptHost::Show(Shown box)
{
    shown.push_back(std::move(box));
    if (pOnShown)
        pOnShown(shown.back());
}

std::vector<std::string> ScriptHost::Messages() const
{
    std::vector<std::string> aTexts;
    for (Shown const& box : shown)
        aTexts.push_back(box.sText);
    return aTexts;
}
} // namespace zarn
