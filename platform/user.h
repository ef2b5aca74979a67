/// Windows, menus, boxes, pointer and scroll bar, under their platform names. Main thread.
#pragma once
#include "platform/event.h"
#include "platform/gdi.h"
#include "platform/types.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn
{
constexpr uint32_t MB_OK = 0;
constexpr uint32_t MB_OKCANCEL = 1;
constexpr uint32_t MB_YESNOCANCEL = 3;
constexpr uint32_t MB_YESNO = 4;
constexpr uint32_t MB_ICONSTOP = 0x10;
constexpr uint32_t MB_ICONQUESTION = 0x20;
constexpr uint32_t MB_ICONINFORMATION = 0x40;
constexpr uint32_t MB_DEFBUTTON2 = 0x100;
constexpr uint32_t MB_BUTTONS = 0xF; ///< the bits that choose the buttons

constexpr int32_t IDOK = 1;
constexpr int32_t IDCANCEL = 2;
constexpr int32_t IDYES = 6;
constexpr int32_t IDNO = 7;

/// One entry of a menu: a command, a submenu, or a separator. Menus are data; the host turns them into real ones.
struct MenuItem
{
    int32_t lCommand = 0;         ///< 0 for a submenu or a separator
    char const* sLabel = nullptr; ///< "&" ahead of the mnemonic, tab ahead of the key; null for a separator; empty:
                                  ///< not shown until it is given a text
    bool bGrey = false;           ///< at start
    std::vector<MenuItem> aItems = {}; ///< of a submenu
};

/// An edit that a FILL_BUTTON fills in, and with what.
struct FormFill
{
    int32_t lEdit = 0;
    std::string sText;
};

/// A control of a dialog; the value is a text, a row from 0, or 1 and 0.
struct FormControl
{
    enum Kind
    {
        STATIC,
        EDIT,
        MULTILINE,
        BUTTON,
        DEFAULT_BUTTON,
        FILL_BUTTON, ///< fills edits in, and the dialog goes on
        COMBO,
        CHECK,
        LIST
    } kind = STATIC;
    int32_t lId = 0; ///< a button's is what the dialog ends with
    std::string sLabel;
    std::string sText = {}; ///< EDIT and MULTILINE: in and out
    int32_t lValue = 0;     ///< COMBO and LIST: the row, -1 for none; CHECK: 1 or 0
    std::vector<std::string> aRows = {};
    bool bSearch = false;              ///< LIST: a line above it narrows the rows to those that hold what is typed
    int32_t lLimit = 0;                ///< EDIT and MULTILINE: bytes that it takes; 0 for no limit
    std::string sName = {};            ///< what an answer calls it in a dialog of several fields; empty for none
    std::vector<FormFill> aFills = {}; ///< FILL_BUTTON
};

/// A modal dialog. What answers it in a journal is told by sAnswer: "box", "text", "number", "row" or "form".
struct Form
{
    int32_t lId = 0;
    std::string sTitle;
    char const* sAnswer = "box";
    std::vector<FormControl> aControls;
    std::optional<POINT> place = {}; ///< of its top left corner, in client pixels of the main window; centred without

    [[nodiscard]] FormControl* Find(int32_t lControl);
};

/// Shapes of the pointer over the score.
enum class PointerShape
{
    ARROW,
    CROSS,  ///< keyboard mode
    UP,     ///< over the score while the piano shows
    SYMBOL, ///< what the last EndCursor made
};

/// A window of the host's. The main window is the one that scrolls and has a menu; panels are its children.
class Window
{
public:
    virtual ~Window() = default;
    virtual SIZE ClientSize() = 0;
    virtual void SetTitle(std::string_view sTitle) = 0;
    virtual std::string Title() = 0;
    virtual void Invalidate() = 0; ///< a repaint is owed
    virtual void Update() = 0;     ///< pays it now
    virtual HDC BeginDraw() = 0;   ///< the window's surface between paints; hand it back with EndDraw
    virtual void EndDraw(HDC hdc) = 0;
    virtual void SetScrollRange(int32_t lMost) = 0;  ///< vertical, from 0 to lMost
    virtual void SetScrollPlace(int32_t lPlace) = 0; ///< held in the range
    virtual void SetPointer(POINT place) = 0;
    virtual POINT Pointer() = 0;
    virtual void SetWaitPointer(bool bOn) = 0;
    /// An empty picture of 32 by 32 pixels that becomes the symbol pointer: whatever is drawn on it shows in black with
    /// a light rim. Hand it back with EndCursor. Null when there can be none.
    virtual HDC BeginCursor() = 0;
    virtual void EndCursor(HDC hdc, POINT hotSpot) = 0; ///< shows it
    virtual void ShowPointer(PointerShape shape) = 0;
    virtual void HidePointer(bool bHidden) = 0;         ///< over this window; its shape is kept
    virtual void SetStatus(std::string_view sText) = 0; ///< the status bar's
    virtual void SetMenu(std::vector<MenuItem> const& aMenu) = 0;
    virtual void CheckItem(int32_t lCommand, bool bOn) = 0;
    virtual void EnableItem(int32_t lCommand, bool bOn) = 0;
    virtual void SetItemText(int32_t lCommand, std::string_view sText) = 0; ///< an empty text hides the item
    virtual void SetModified(bool bOn) = 0; ///< beside the title, in the manner of the system
    virtual void Destroy() = 0;
    virtual void Enable(bool bOn) = 0; ///< false: it takes no input
    /// Calls pAction once, from the message loop, after the repaint that is owed. Without a loop: at once.
    virtual void Post(void (*pAction)()) { pAction(); }
};
using HWND = Window*;

/// A child window of the main one, in front of the score. A hair line frames it on the inside. Made hidden; it lives as
/// long as its host.
class Panel
{
public:
    virtual ~Panel() = default;
    virtual SIZE ClientSize() = 0;
    virtual void Invalidate() = 0;                ///< a repaint is owed
    virtual void SetPlace(RECT const& place) = 0; ///< client pixels of the main window
    virtual void Show(bool bOn) = 0;
    [[nodiscard]] virtual bool IsShown() const = 0;
};

/// What a panel shows.
class PanelContent
{
public:
    virtual ~PanelContent() = default;
    virtual void Paint(Panel& panel, HDC hdc) = 0; ///< upon the background, which the host has filled in
    [[nodiscard]] virtual COLORREF Background() const = 0;
    /// What lies at a place in the panel's own pixels, in the user's words; empty for nothing.
    [[nodiscard]] virtual std::string TipAt(Panel& panel, POINT place) = 0;
};

enum class PanelPointer
{
    ARROW,
    UPARROW
};

/// How a panel is made. A left press in it, or Enter with the pointer in it, reaches the door as an event of the kind
/// `click` with the place in the panel's own pixels; a right press as the command lCloseCommand.
struct PanelSetup
{
    char const* sName = "";           ///< for screen readers
    PanelContent* pContent = nullptr; ///< must outlive the host
    EventKind click = EventKind::PALETTE;
    int32_t lCloseCommand = 0;
    PanelPointer pointer = PanelPointer::ARROW;
};

/// A box that stands over the main window while the program goes on.
class Dialog
{
public:
    virtual ~Dialog() = default;
    virtual void SetText(int32_t lId, std::string_view sText) = 0; ///< of the control with that id
};
using HDLG = Dialog*;

/// Who paints a window when its host finds that a repaint is owed.
class Painter
{
public:
    virtual ~Painter() = default;
    virtual void Paint(HWND hwnd, HDC hdc) = 0;
};

int32_t MessageBoxA(HWND hwnd, std::string_view sText, std::string_view sCaption, uint32_t lFlags);
/// Runs the dialog; gives the id of the button that ended it, IDCANCEL when it was closed; 0 when it can't be made.
[[nodiscard]] int32_t DialogBoxParamA(HWND hwnd, Form& form);
/// A box that the program doesn't wait for; the user gets into it with DispatchMessages. onCommand is told each button
/// that is pressed, and IDCANCEL when the box is to be closed; it stays until DestroyWindow. Null when it can't be
/// made.
[[nodiscard]] HDLG CreateDialogParamA(HWND hwnd, Form const& form, std::function<void(int32_t lCommand)> onCommand);
void SetDlgItemTextA(HDLG hDialog, int32_t lId, std::string_view sText);
void DestroyWindow(HDLG hDialog);
/// PeekMessageA, IsDialogMessageA, TranslateMessage and DispatchMessageA until no message waits.
void DispatchMessages();
void EnableWindow(HWND hwnd, bool bOn); ///< false: it takes no input
/// Shows how far a long run of the main thread has come: opens a box with Cancel at its first call, closes it once
/// lDone is lTotal. False when the user calls the run off, which closes it too. The main window takes no input
/// meanwhile.
[[nodiscard]] bool ShowProgress(HWND hwnd, std::string_view sText, int32_t lDone, int32_t lTotal);
/// The main window, shown maximised; null when there can be none.
[[nodiscard]] HWND CreateWindowExA(std::string_view sTitle, Painter* pPainter);
/// Makes a kind of panel known under a name, in place of one of that name; false when the host has no panels to give.
[[nodiscard]] bool RegisterClassA(std::string_view szClass, PanelSetup const& setup);
/// A panel of that kind in the main window; later ones lie in front of earlier ones. Null when there can be none.
[[nodiscard]] Panel* CreatePanel(HWND hwndParent, std::string_view szClass);
void DestroyWindow(HWND hwnd);
void SetWindowTextA(HWND hwnd, std::string_view sText);
/// The mark beside the title that tells of unsaved work.
void SetWindowModified(HWND hwnd, bool bOn);
[[nodiscard]] RECT GetClientRect(HWND hwnd);
void InvalidateRect(HWND hwnd);
void UpdateWindow(HWND hwnd);
/// Has pAction called from the message loop, once the window shows its picture.
void PostMessageA(HWND hwnd, void (*pAction)());
[[nodiscard]] HDC GetDC(HWND hwnd);
void ReleaseDC(HWND hwnd, HDC hdc);
void SetScrollRange(HWND hwnd, int32_t lMost); ///< of the vertical bar: 0 to lMost
void SetScrollPos(HWND hwnd, int32_t lPlace);  ///< where it stands, held in its range
void SetCursorPos(HWND hwnd, POINT place);
[[nodiscard]] POINT GetCursorPos(HWND hwnd);
void SetWaitCursor(HWND hwnd, bool bOn);
/// The picture of the symbol pointer, and the pointer made of it, in place of the one before (see Window).
[[nodiscard]] HDC BeginCursor(HWND hwnd);
void CreateCursor(HWND hwnd, HDC hdc, POINT hotSpot);
void SetCursor(HWND hwnd, PointerShape shape);
/// Counts one up or down from 0, where the main window began, and gives the count. Below 0 the pointer is hidden.
int32_t ShowCursor(HWND hwnd, bool bShow);
/// Opens the menu at a place in client pixels; the command that was chosen, 0 for none.
[[nodiscard]] int32_t TrackPopupMenu(HWND hwnd, std::vector<MenuItem> const& aMenu, POINT place);
void SetStatusText(HWND hwnd, std::string_view sText);
void SetMenu(HWND hwnd, std::vector<MenuItem> const& aMenu);
void CheckMenuItem(HWND hwnd, int32_t lCommand, bool bOn);
void EnableMenuItem(HWND hwnd, int32_t lCommand, bool bOn);
void SetMenuItemInfoA(HWND hwnd, int32_t lCommand, std::string_view sText); ///< an empty text hides the item
/// Opens the manual; false when it can't be found.
[[nodiscard]] bool WinHelpA(HWND hwnd, std::string_view sFile);
/// The sound of a refusal.
void MessageBeep(uint32_t lType);

/// The main thread's timers.
enum class MainTimer : int32_t
{
    PLAY_MARK, ///< moves the marker of the place being played
    AUTOSAVE
};
/// Calls over and over from the message loop until KillTimer.
void SetTimer(MainTimer timer, uint32_t cMilliseconds, std::function<void()> action);
void KillTimer(MainTimer timer);

/// Has the action called from the message loop; without a host at once. Any thread.
void PostTask(std::function<void()> action);
constexpr int32_t VK_CONTROL = 0x11;
/// The key's state now, in the high bit; only CTRL is known. Any thread.
[[nodiscard]] int16_t GetAsyncKeyState(int32_t lKey);

/// Ends the message loop.
void PostQuitMessage(int32_t lCode);
} // namespace zarn
