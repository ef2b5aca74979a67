// Windows and boxes: forwards to the host, and does nothing where there is none.
#include "platform/user.h"

#include "platform/commdlg.h"
#include "platform/host.h"
#include "platform/process.h"

#include <functional>
#include <map>
#include <utility>

namespace zarn
{
FormControl* Form::Find(int32_t lControl)
{
    for (FormControl& control : aControls)
        if (control.lId == lControl)
            return &control;
    return nullptr;
}

int32_t MessageBoxA(HWND, std::string_view sText, std::string_view sCaption, uint32_t lFlags)
{
    return host.pUser ? host.pUser->MessageBox(sText, sCaption, lFlags) : IDOK;
}

int32_t DialogBoxParamA(HWND, Form& form) { return host.pUser ? host.pUser->RunForm(form) : 0; }

bool ShowProgress(HWND, std::string_view sText, int32_t lDone, int32_t lTotal)
{
    return !host.pUser || host.pUser->ShowProgress(sText, lDone, lTotal);
}

HDLG CreateDialogParamA(HWND, Form const& form, std::function<void(int32_t lCommand)> onCommand)
{
    return host.pUser ? host.pUser->CreateModeless(form, std::move(onCommand)).release() : nullptr;
}

void SetDlgItemTextA(HDLG hDialog, int32_t lId, std::string_view sText)
{
    if (hDialog)
        hDialog->SetText(lId, sText);
}

void DestroyWindow(HDLG hDialog) { delete hDialog; }

void DispatchMessages()
{
    if (host.pUser)
        host.pUser->DispatchMessages();
}

void EnableWindow(HWND hwnd, bool bOn)
{
    if (hwnd)
        hwnd->Enable(bOn);
}

static int32_t lShowCount = 0; ///< ShowCursor's

HWND CreateWindowExA(std::string_view sTitle, Painter* pPainter)
{
    lShowCount = 0;
    return host.pUser ? host.pUser->CreateMainWindow(sTitle, pPainter) : nullptr;
}

static std::map<std::string, PanelSetup, std::less<>> panelClasses; ///< by their names

bool RegisterClassA(std::string_view szClass, PanelSetup const& setup)
{
    if (!host.pUser || !host.pUser->HasPanels())
        return false;
    panelClasses.insert_or_assign(std::string(szClass), setup);
    return true;
}

Panel* CreatePanel(HWND hwndParent, std::string_view szClass)
{
    auto const found = panelClasses.find(szClass);
    return hwndParent && host.pUser && found != panelClasses.end() ? host.pUser->CreatePanel(found->second) : nullptr;
}

void DestroyWindow(HWND hwnd)
{
    if (hwnd)
        hwnd->Destroy();
}

void SetWindowTextA(HWND hwnd, std::string_view sText)
{
    if (hwnd)
        hwnd->SetTitle(sText);
}

void SetWindowModified(HWND hwnd, bool bOn)
{
    if (hwnd)
        hwnd->SetModified(bOn);
}

RECT GetClientRect(HWND hwnd)
{
    SIZE const size = hwnd ? hwnd->ClientSize() : SIZE{};
    return {0, 0, size.cx, size.cy};
}

void InvalidateRect(HWND hwnd)
{
    if (hwnd)
        hwnd->Invalidate();
}

void UpdateWindow(HWND hwnd)
{
    if (hwnd)
        hwnd->Update();
}

void PostMessageA(HWND hwnd, void (*pAction)())
{
    if (hwnd)
        hwnd->Post(pAction);
}

HDC GetDC(HWND hwnd) { return hwnd ? hwnd->BeginDraw() : nullptr; }

void ReleaseDC(HWND hwnd, HDC hdc)
{
    if (hwnd)
        hwnd->EndDraw(hdc);
}

void SetScrollRange(HWND hwnd, int32_t lMost)
{
    if (hwnd)
        hwnd->SetScrollRange(lMost);
}

void SetScrollPos(HWND hwnd, int32_t lPlace)
{
    if (hwnd)
        hwnd->SetScrollPlace(lPlace);
}

void SetCursorPos(HWND hwnd, POINT place)
{
    if (hwnd)
        hwnd->SetPointer(place);
}

POINT GetCursorPos(HWND hwnd) { return hwnd ? hwnd->Pointer() : POINT{}; }

void SetWaitCursor(HWND hwnd, bool bOn)
{
    if (hwnd)
        hwnd->SetWaitPointer(bOn);
}

HDC BeginCursor(HWND hwnd) { return hwnd ? hwnd->BeginCursor() : nullptr; }

void CreateCursor(HWND hwnd, HDC hdc, POINT hotSpot)
{
    if (hwnd)
        hwnd->EndCursor(hdc, hotSpot);
}

void SetCursor(HWND hwnd, PointerShape shape)
{
    if (hwnd)
        hwnd->ShowPointer(shape);
}

int32_t ShowCursor(HWND hwnd, bool bShow)
{
    lShowCount += bShow ? 1 : -1;
    if (hwnd)
        hwnd->HidePointer(lShowCount < 0);
    return lShowCount;
}

int32_t TrackPopupMenu(HWND hwnd, std::vector<MenuItem> const& aMenu, POINT place)
{
    return hwnd ? host.pUser->PopupMenu(aMenu, place) : 0;
}

void SetStatusText(HWND hwnd, std::string_view sText)
{
    if (hwnd)
        hwnd->SetStatus(sText);
}

void SetMenu(HWND hwnd, std::vector<MenuItem> const& aMenu)
{
    if (hwnd)
        hwnd->SetMenu(aMenu);
}

void CheckMenuItem(HWND hwnd, int32_t lCommand, bool bOn)
{
    if (hwnd)
        hwnd->CheckItem(lCommand, bOn);
}

void EnableMenuItem(HWND hwnd, int32_t lCommand, bool bOn)
{
    if (hwnd)
        hwnd->EnableItem(lCommand, bOn);
}

void SetMenuItemInfoA(HWND hwnd, int32_t lCommand, std::string_view sText)
{
    if (hwnd)
        hwnd->SetItemText(lCommand, sText);
}

bool WinHelpA(HWND, std::string_view sFile) { return host.pUser && host.pUser->ShowHelp(sFile); }

void MessageBeep(uint32_t)
{
    if (host.pUser)
        host.pUser->Beep();
}

void PostQuitMessage(int32_t lCode)
{
    if (host.pUser)
        host.pUser->Quit(lCode);
}

void SetTimer(MainTimer timer, uint32_t cMilliseconds, std::function<void()> action)
{
    if (host.pUser)
        host.pUser->SetTimer(static_cast<int32_t>(timer), cMilliseconds, std::move(action));
}

void KillTimer(MainTimer timer)
{
    if (host.pUser)
        host.pUser->KillTimer(static_cast<int32_t>(timer));
}

void PostTask(std::function<void()> action)
{
    if (host.pUser)
        host.pUser->PostTask(std::move(action));
    else
        action();
}

int16_t GetAsyncKeyState(int32_t lKey)
{
    return lKey == VK_CONTROL && host.pUser && host.pUser->IsControlDown() ? INT16_MIN : int16_t{0};
}

bool GetOpenFileNameA(HWND, FileDialog& dialog) { return host.pUser && host.pUser->AskOpenName(dialog); }

bool GetSaveFileNameA(HWND, FileDialog& dialog)
{
    if (!host.pUser || !host.pUser->AskSaveName(dialog))
        return false;
    size_t const lName = dialog.szFile.find_last_of("/\\") + 1; // 0 when there is no folder
    if (dialog.szFile.find('.', lName) == dialog.szFile.npos && dialog.sDefaultExtension[0] != '\0')
    {
        if (dialog.sDefaultExtension[0] != '.')
            dialog.szFile += '.';
        dialog.szFile += dialog.sDefaultExtension;
    }
    return true;
}

uint32_t GetTickCount() { return host.pUser ? host.pUser->TickCount() : 0; }

bool CreateProcessA(std::string_view sCommandLine)
{
    size_t const lBlank = sCommandLine.find(' ');
    return host.pUser && lBlank != sCommandLine.npos && host.pUser->StartEditor(sCommandLine.substr(lBlank + 1));
}
} // namespace zarn
