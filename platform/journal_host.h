/// A host that keeps a journal: stands between the program and the real one, and writes down events and answers.
#pragma once
#include "platform/host.h"
#include "platform/journal_writer.h"

#include <utility>

namespace zarn
{
/// Hand it to the real host as its door, and to the program as its host. Both sides must outlive it.
class JournalHost : public UserHost, public Door
{
public:
    JournalHost(UserHost& real, Door& program, JournalWriter& journal)
        : real(real), program(program), journal(journal), lToldMs(real.TickCount())
    {
    }

    void Receive(Event const& event) override;
    [[nodiscard]] bool IsAccelerator(Event const& key) const override { return program.IsAccelerator(key); }

    int32_t MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags) override;
    int32_t RunForm(Form& form) override;
    int32_t PopupMenu(std::vector<MenuItem> const& aMenu, POINT place) override;
    bool AskOpenName(FileDialog& dialog) override;
    bool AskSaveName(FileDialog& dialog) override;
    HWND CreateMainWindow(std::string_view sTitle, Painter* pPainter) override
    {
        return real.CreateMainWindow(sTitle, pPainter);
    }
    [[nodiscard]] bool HasPanels() const override { return real.HasPanels(); }
    Panel* CreatePanel(PanelSetup const& setup) override { return real.CreatePanel(setup); }
    bool ShowProgress(std::string_view sText, int32_t lDone, int32_t lTotal) override
    {
        return real.ShowProgress(sText, lDone, lTotal);
    }
    bool ShowHelp(std::string_view sFile) override { return real.ShowHelp(sFile); }
    bool StartEditor(std::string_view sPath) override { return real.StartEditor(sPath); }
    void Quit(int32_t lCode) override { real.Quit(lCode); }
    uint32_t TickCount() override { return real.TickCount(); }
    void Beep() override { real.Beep(); }
    void SetTimer(int32_t lTimer, uint32_t cMilliseconds, std::function<void()> action) override
    {
        real.SetTimer(lTimer, cMilliseconds, std::move(action));
    }
    void KillTimer(int32_t lTimer) override { real.KillTimer(lTimer); }
    void PostTask(std::function<void()> action) override { real.PostTask(std::move(action)); }
    void PostEvent(Event const& event) override { real.PostEvent(event); }
    [[nodiscard]] bool IsControlDown() override { return real.IsControlDown(); }
    std::unique_ptr<Printer> DefaultPrinter() override { return real.DefaultPrinter(); }
    std::unique_ptr<PagedSurface> NewPdf(std::string_view sTitle, Sheet const& sheet) override
    {
        return real.NewPdf(sTitle, sheet);
    }
    std::unique_ptr<Dialog> CreateModeless(Form const& form, std::function<void(int32_t lCommand)> onCommand) override
    {
        return real.CreateModeless(form, std::move(onCommand));
    }
    void DispatchMessages() override { real.DispatchMessages(); }
    int32_t ShowPages(PageSource& pages) override;

private:
    void WriteTick();
    bool WriteName(FileDialog const& dialog, int32_t lFilterBefore, bool bGiven);

    UserHost& real;
    Door& program;
    JournalWriter& journal;
    uint32_t lToldMs; ///< the clock as far as the journal has told it
};
} // namespace zarn
