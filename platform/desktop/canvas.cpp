// From Qt's events to the program's.
#include "platform/desktop/canvas.h"

#include "platform/desktop/key_names.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QTimer>
#include <QUrl>
#include <cmath>

namespace zarn
{
POINT PixelAt(QPointF const& position)
{
    return {static_cast<int32_t>(std::floor(position.x())), static_cast<int32_t>(std::floor(position.y()))};
}

/// The first local file of what is dragged; empty for none.
static QString DraggedFile(QMimeData const& data)
{
    for (QUrl const& url : data.urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

Canvas::Canvas(CanvasOwner& owner) : owner(owner)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAcceptDrops(true);
    setAccessibleName(QStringLiteral("Score"));
    constexpr int lLeastSide = 200; // pixels: beyond it there is nothing to see
    setMinimumSize(lLeastSide, lLeastSide);
}

void Canvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    owner.ShowImage(painter);
}

void Canvas::resizeEvent(QResizeEvent*) { owner.CanvasResized(); }

void Canvas::keyPressEvent(QKeyEvent* pEvent)
{
    if (auto const event = Key_Event(*pEvent))
        owner.Receive(*event);
    else
        QWidget::keyPressEvent(pEvent);
}

void Canvas::mouseMoveEvent(QMouseEvent* pEvent) { owner.PointerMoved(PixelAt(pEvent->position())); }

void Canvas::mousePressEvent(QMouseEvent* pEvent) { Button(*pEvent, EventKind::LEFTDOWN, EventKind::RIGHTDOWN); }

void Canvas::mouseReleaseEvent(QMouseEvent* pEvent) { Button(*pEvent, EventKind::LEFTUP, EventKind::RIGHTUP); }

void Canvas::Button(QMouseEvent const& mouse, EventKind left, EventKind right)
{
    if (mouse.button() != Qt::LeftButton && mouse.button() != Qt::RightButton)
        return;
    POINT const place = owner.ButtonPlace(PixelAt(mouse.position()));
    owner.Receive({.kind = mouse.button() == Qt::LeftButton ? left : right, .x = place.x, .y = place.y});
}

void Canvas::wheelEvent(QWheelEvent* pEvent)
{
    constexpr int lNotch = 120; // eighths of a degree, as mice report them
    bool const bZoom = pEvent->modifiers().testFlag(Qt::ControlModifier);
    lWheelTurn += pEvent->angleDelta().y();
    for (; lWheelTurn >= lNotch; lWheelTurn -= lNotch)
        Scroll(bZoom ? ScrollAction::STRETCH : ScrollAction::LINEUP);
    for (; lWheelTurn <= -lNotch; lWheelTurn += lNotch)
        Scroll(bZoom ? ScrollAction::SQUEEZE : ScrollAction::LINEDOWN);
    pEvent->accept();
}

void Canvas::Scroll(ScrollAction action)
{
    owner.Receive({.kind = EventKind::SCROLL, .lNumber = static_cast<int32_t>(action)});
}

void Canvas::dragEnterEvent(QDragEnterEvent* pEvent)
{
    if (!DraggedFile(*pEvent->mimeData()).isEmpty())
        pEvent->acceptProposedAction();
}

void Canvas::dropEvent(QDropEvent* pEvent)
{
    std::string const sPath = DraggedFile(*pEvent->mimeData()).toStdString();
    if (sPath.empty())
        return;
    pEvent->acceptProposedAction();
    // The program may ask questions; where the file came from is waiting for the drop to end.
    QTimer::singleShot(0, this, [this, sPath] { owner.Receive({.kind = EventKind::OPEN, .sText = sPath}); });
}
} // namespace zarn
