/// The main window.
#pragma once
#include "platform/desktop/canvas.h"
#include "platform/desktop/drawn_pointer.h"
#include "platform/desktop/menu_bar.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/qt_surface.h"
#include "platform/desktop/symbol_cursor.h"
#include "platform/user.h"

#include <QImage>
#include <QLabel>
#include <QMainWindow>
#include <QScrollBar>
#include <functional>
#include <vector>

namespace zarn
{
/// The score is drawn into an image of the screen's own pixels, and the canvas shows the image. The program is asked to
/// paint between Qt's paints, never inside one, so that it may put a question at any time.
class QtWindow : public Window, private CanvasOwner
{
public:
    QtWindow(std::string_view sTitle, Painter* pPainter, Door* pDoor, bool bPointerMayMove = SystemPointerMayMove());
    ~QtWindow() override;

    SIZE ClientSize() override;
    void SetTitle(std::string_view sTitle) override;
    std::string Title() override { return sTitle; }
    void Invalidate() override;
    void Update() override;
    HDC BeginDraw() override;
    void EndDraw(HDC hdc) override;
    void SetScrollRange(int32_t lMost) override { pScroll->setRange(0, lMost); }
    void SetScrollPlace(int32_t lPlace) override { pScroll->setValue(lPlace); }
    void SetPointer(POINT place) override;
    POINT Pointer() override { return pointer.Place(); }
    void SetWaitPointer(bool bOn) override;
    HDC BeginCursor() override;
    void EndCursor(HDC hdc, POINT hotSpot) override;
    void ShowPointer(PointerShape newShape) override;
    void HidePointer(bool bHidden) override;
    void SetStatus(std::string_view sText) override;
    void SetMenu(std::vector<MenuItem> const& aMenu) override { menu.Build(aMenu); }
    void CheckItem(int32_t lCommand, bool bOn) override { menu.Check(lCommand, bOn); }
    void EnableItem(int32_t lCommand, bool bOn) override { menu.Enable(lCommand, bOn); }
    void SetItemText(int32_t lCommand, std::string_view sText) override { menu.SetText(lCommand, sText); }
    void Enable(bool bOn) override;
    void SetModified(bool bOn) override { frame.setWindowModified(bOn); }
    void Destroy() override; ///< it stays good as long as its host, and is no longer seen
    /// Runs the action from the message loop, once the window has been painted.
    void Post(void (*pAction)()) override;

    /// Whether this system lets a program move its pointer.
    [[nodiscard]] static bool SystemPointerMayMove();
    Panel* CreatePanel(PanelSetup const& setup); ///< lives as long as the window
    [[nodiscard]] QWidget* Frame() { return &frame; }
    void TakeFocus(); ///< keys go to the score again
    void Raise();     ///< in front of other programs' windows, where the system allows it
    [[nodiscard]] QPoint OnScreen(POINT place) const { return pCanvas->mapToGlobal(QPoint(place.x, place.y)); }

private:
    /// The close button asks; the program decides.
    class MainFrame : public QMainWindow
    {
    public:
        explicit MainFrame(QtWindow& window) : window(window) {}

    protected:
        void closeEvent(QCloseEvent* pEvent) override;

    private:
        QtWindow& window;
    };

    void Receive(Event const& event) override;
    [[nodiscard]] bool IsAccelerator(Event const& key) const override { return pDoor && pDoor->IsAccelerator(key); }
    void PointerMoved(POINT place) override;
    POINT ButtonPlace(POINT place) override { return pointer.Seen(place); }
    void CanvasResized() override;
    void ShowImage(QPainter& painter) override;

    void Scrolled(int lAction);
    [[nodiscard]] QCursor Cursor() const;
    void UseCursor();
    void Later(std::function<void()> pAction);
    void FirstPaint();
    void TellSize();
    void PayRepaint();
    void Repaint();
    void RenewImage();
    [[nodiscard]] SurfaceTarget Target() const;

    std::string sTitle; ///< without the mark
    Painter* pPainter;
    Door* pDoor;
    QImage image;          ///< of device pixels; its own ratio stays 1
    double imageScale = 1; ///< device pixels to one of the canvas's
    QtSurface surface;     ///< on the image, while someone draws
    int32_t cDrawing = 0;
    bool bOnScreen = false; ///< Qt has asked for a paint
    bool bRepaintOwed = true;
    bool bRepaintPosted = false;
    bool bPainting = false;
    bool bWaiting = false;
    bool bDestroyed = false;
    SIZE sizeTold;
    std::vector<void (*)()> aPosted; ///< waiting for the first paint
    MainFrame frame;
    Canvas* pCanvas; // Qt's, inside the frame, as is the bar
    QScrollBar* pScroll;
    class Pointer pointer;
    SymbolCursor symbolCursor;
    DrawnPointer drawnPointer;
    QRect drawnAt; ///< empty while the system's pointer shows
    PointerShape shape = PointerShape::ARROW;
    bool bPointerHidden = false;
    QLabel* pStatus; // Qt's, in the frame's status bar
    MenuBar menu;
};
} // namespace zarn
