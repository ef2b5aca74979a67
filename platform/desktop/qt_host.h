/// The desktop host: windows, boxes, documents and settings, with Qt.
#pragma once
#include "platform/desktop/control_key.h"
#include "platform/desktop/one_window.h"
#include "platform/desktop/progress_box.h"
#include "platform/desktop/qt_settings.h"
#include "platform/desktop/qt_window.h"
#include "platform/desktop_module.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <atomic>
#include <functional>
#include <map>
#include <memory>

namespace zarn
{
/// A QApplication, or for documents alone a QGuiApplication, must stand before it and outlive it. Main thread.
class QtHost : public DesktopHost
{
public:
    QtHost() { clock.start(); }

    int32_t MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags) override;
    int32_t RunForm(Form& form) override;
    int32_t PopupMenu(std::vector<MenuItem> const& aMenu, POINT place) override;
    HWND CreateMainWindow(std::string_view sTitle, Painter* pPainter) override;
    [[nodiscard]] bool HasPanels() const override { return true; }
    Panel* CreatePanel(PanelSetup const& setup) override;
    bool ShowProgress(std::string_view sText, int32_t lDone, int32_t lTotal) override;
    bool ShowHelp(std::string_view sFile) override;
    bool AskOpenName(FileDialog& dialog) override;
    bool AskSaveName(FileDialog& dialog) override;
    bool StartEditor(std::string_view sPath) override;
    void Quit(int32_t lCode) override;
    uint32_t TickCount() override { return static_cast<uint32_t>(clock.elapsed()); }
    void Beep() override { QApplication::beep(); }
    void SetTimer(int32_t lTimer, uint32_t cMilliseconds, std::function<void()> action) override;
    void KillTimer(int32_t lTimer) override;
    void PostTask(std::function<void()> action) override;
    void PostEvent(Event const& event) override;
    [[nodiscard]] bool IsControlDown() override { return controlKey.IsDown(); }
    std::unique_ptr<Printer> DefaultPrinter() override;
    std::unique_ptr<PagedSurface> NewPdf(std::string_view sTitle, Sheet const& sheet) override;
    std::unique_ptr<Dialog> CreateModeless(Form const& form, std::function<void(int32_t lCommand)> onCommand) override;
    void DispatchMessages() override;
    int32_t ShowPages(PageSource& pages) override;

    void SetDoor(Door* pNewDoor) override { pDoor = pNewDoor; }
    int32_t Run() override;
    bool HandOver(std::string_view szPath) override { return OneWindow::Ask(szPath); }
    void TakeHandedOver() override;
    SettingsStore* Settings() override { return &settings; }
    std::unique_ptr<PagedSurface> NewPng(SIZE size, int32_t lDpi) override;

    [[nodiscard]] QtWindow* MainWindow() const { return pWindow.get(); }

private:
    [[nodiscard]] QWidget* DialogParent() const;
    void TakeFocusBack() const;

    QElapsedTimer clock;
    QtSettings settings;
    Door* pDoor = nullptr;
    std::unique_ptr<QtWindow> pWindow;
    ProgressBox progress;
    ControlKey controlKey;
    std::map<int32_t, std::unique_ptr<QTimer>> timers;
    std::unique_ptr<OneWindow> pOneWindow;
    QObject loop;          ///< what is posted is called in its thread, the main one, and not after its end
    bool bRunning = false; ///< in the message loop
    bool bQuit = false;
    int32_t lQuitCode = 0;
};
} // namespace zarn
