/// The widget that the score shows on: shows the window's image, and turns what the user does into events.
#pragma once
#include "platform/event.h"
#include "platform/types.h"

#include <QWidget>

namespace zarn
{
/// The window that the canvas belongs to.
class CanvasOwner
{
public:
    virtual ~CanvasOwner() = default;
    virtual void Receive(Event const& event) = 0;
    [[nodiscard]] virtual bool IsAccelerator(Event const& key) const = 0; ///< the program takes it as a command
    virtual void PointerMoved(POINT place) = 0;                           ///< in client pixels
    virtual POINT ButtonPlace(POINT place) = 0; ///< where a button goes down or up, as the program sees it
    virtual void CanvasResized() = 0;
    virtual void ShowImage(QPainter& painter) = 0; ///< covers the whole canvas
};

/// The pixel that a mouse's position lies in.
[[nodiscard]] POINT PixelAt(QPointF const& position);

class Canvas : public QWidget
{
public:
    explicit Canvas(CanvasOwner& owner);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override { mousePressEvent(pEvent); }
    void wheelEvent(QWheelEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;
    bool focusNextPrevChild(bool) override { return false; } // TAB is a key like any other

private:
    void Scroll(ScrollAction action);
    void Button(QMouseEvent const& mouse, EventKind left, EventKind right);

    CanvasOwner& owner;
    int lWheelTurn = 0; ///< eighths of a degree not yet spent on a line
};
} // namespace zarn
