/// The host: who stands behind the platform's operations. Chosen once, in app/main.cpp, or by a test.
#pragma once
#include "platform/commdlg.h"
#include "platform/gdi.h"
#include "platform/print.h"
#include "platform/registry.h"
#include "platform/user.h"
#include "platform/winmm.h"

#include <functional>
#include <memory>
#include <string_view>

namespace zarn
{
/// Windows, boxes and dialogs.
class UserHost
{
public:
    virtual ~UserHost() = default;
    virtual int32_t MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags) = 0;
    virtual int32_t RunForm(Form& form) = 0;
    virtual int32_t PopupMenu(std::vector<MenuItem> const& aMenu, POINT place) = 0;
    virtual HWND CreateMainWindow(std::string_view sTitle, Painter* pPainter) = 0;
    [[nodiscard]] virtual bool HasPanels() const = 0;        ///< false: it knows no such windows
    virtual Panel* CreatePanel(PanelSetup const& setup) = 0; ///< of the main window; null when there is none
    virtual bool ShowProgress(std::string_view sText, int32_t lDone, int32_t lTotal) = 0;
    virtual bool ShowHelp(std::string_view sFile) = 0;
    virtual bool AskOpenName(FileDialog& dialog) = 0;
    virtual bool AskSaveName(FileDialog& dialog) = 0;
    virtual bool StartEditor(std::string_view sPath) = 0;
    virtual void Quit(int32_t lCode) = 0;
    virtual uint32_t TickCount() = 0;
    virtual void Beep() = 0;
    /// A timer of the main thread's, over and over until KillTimer; one of the same number is replaced.
    virtual void SetTimer(int32_t lTimer, uint32_t cMilliseconds, std::function<void()> action) = 0;
    virtual void KillTimer(int32_t lTimer) = 0;

    /// Has the action called from the message loop. Any thread.
    virtual void PostTask(std::function<void()> action) = 0;
    /// Hands the event in from the message loop, as if the user had done it. Any thread.
    virtual void PostEvent(Event const& event) = 0;
    /// The CTRL key is down now, whichever window has the keys. Any thread.
    [[nodiscard]] virtual bool IsControlDown() = 0;

    /// The user's printer; null when there is none.
    virtual std::unique_ptr<Printer> DefaultPrinter() = 0;
    /// A PDF of such pages. Null when it can't be made.
    virtual std::unique_ptr<PagedSurface> NewPdf(std::string_view sTitle, Sheet const& sheet) = 0;
    /// A box that doesn't wait; see CreateDialogParamA. Null when it can't be made.
    virtual std::unique_ptr<Dialog> CreateModeless(Form const& form,
                                                   std::function<void(int32_t lCommand)> onCommand) = 0;
    /// Lets in what waits for the windows and boxes.
    virtual void DispatchMessages() = 0;
    /// Shows pages until the user closes them: IDOK when they are to be printed, otherwise IDCANCEL.
    virtual int32_t ShowPages(PageSource& pages) = 0;
};

struct Host
{
    UserHost* pUser = nullptr;
    SettingsStore* pSettings = nullptr;
    SoundHost* pSound = nullptr; ///< null: no devices
    Door* pDoor = nullptr;       ///< where the host hands in what comes from outside
    std::string szStateFolder;   ///< of this user and program, for safety copies; empty: none are kept
    uint32_t cAutosaveMs = 120000;
};
inline Host host;
} // namespace zarn
