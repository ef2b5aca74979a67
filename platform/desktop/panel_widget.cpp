// A panel's picture, tips, presses and keys.
#include "platform/desktop/panel_widget.h"

#include "platform/desktop/key_names.h"
#include "platform/desktop/qt_surface.h"
#include "platform/desktop/qt_text.h"

#include <QCursor>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

namespace zarn
{
PanelWidget::PanelWidget(Canvas& canvas, CanvasOwner& owner, PanelSetup const& setup)
    : QWidget(&canvas), canvas(canvas), owner(owner), setup(setup)
{
    hide();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(ToQt(setup.sName));
    setCursor(setup.pointer == PanelPointer::UPARROW ? Qt::UpArrowCursor : Qt::ArrowCursor);
}

void PanelWidget::Invalidate()
{
    bRepaintOwed = true;
    update();
}

void PanelWidget::SetPlace(RECT const& place)
{
    setGeometry(place.left, place.top, place.right - place.left, place.bottom - place.top);
}

void PanelWidget::Show(bool bOn)
{
    if (!bOn && hasFocus())
        canvas.setFocus();
    setVisible(bOn);
}

bool PanelWidget::event(QEvent* pEvent)
{
    if (pEvent->type() != QEvent::ToolTip)
        return QWidget::event(pEvent);
    auto const& help = *static_cast<QHelpEvent*>(pEvent);
    std::string const sTip = setup.pContent->TipAt(*this, {help.x(), help.y()});
    if (sTip.empty())
        QToolTip::hideText();
    else
        QToolTip::showText(help.globalPos(), ToQt(sTip), this);
    return true;
}

void PanelWidget::paintEvent(QPaintEvent*)
{
    RenewImage();
    QPainter painter(this);
    painter.drawImage(QRectF(0, 0, image.width() / imageScale, image.height() / imageScale), image);
}

/// The content paints on it once, and again when it is out of date.
void PanelWidget::RenewImage()
{
    SurfaceTarget const target{.size = ClientSize(), .scale = devicePixelRatioF()};
    QSize const pixels(static_cast<int>(std::ceil(target.size.cx * target.scale)),
                       static_cast<int>(std::ceil(target.size.cy * target.scale)));
    if (!bRepaintOwed && image.size() == pixels && imageScale == target.scale)
        return;
    bRepaintOwed = false;
    imageScale = target.scale;
    image = QImage(pixels, QImage::Format_RGB32);
    QtSurface surface;
    if (!surface.Begin(image, target))
        return;
    RECT const whole{0, 0, target.size.cx, target.size.cy};
    surface.Fill(whole, setup.pContent->Background());
    DeviceContext dc{.pSurface = &surface};
    setup.pContent->Paint(*this, &dc);
    surface.Box(whole, Pen{}, Brush{.bNull = true});
    surface.End();
}

void PanelWidget::keyPressEvent(QKeyEvent* pEvent)
{
    bool const bEnter = pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter;
    QPoint const place = mapFromGlobal(QCursor::pos());
    if (bEnter && rect().contains(place))
        Click({place.x(), place.y()});
    else if (IsMereCharacter(*pEvent))
        Click(KeyData(*pEvent));
    else
        pEvent->ignore(); // the canvas, which the panel stands on, gets it
}

/// Types a sign and is nothing to the score: no command, no digit that makes a rest with SHIFT.
bool PanelWidget::IsMereCharacter(QKeyEvent const& key) const
{
    QString const sText = key.text();
    if (sText.isEmpty() || !sText.at(0).isPrint())
        return false;
    auto const event = Key_Event(key);
    if (!event)
        return true;
    bool const bRest = event->fShift && event->sText.size() == 1 && event->sText[0] >= '1' && event->sText[0] <= '7';
    return !bRest && !event->fCtrl && !event->fAlt && !owner.IsAccelerator(*event);
}

/// A panel takes a character as a click where its key says: how often it came, and the key's number.
POINT PanelWidget::KeyData(QKeyEvent const& key)
{
    constexpr quint32 lNumberMask = 0xFF;
    return {key.count(), static_cast<int32_t>(key.nativeScanCode() & lNumberMask)};
}

/// A press that is dragged off the panel belongs to the score from there on.
void PanelWidget::mouseMoveEvent(QMouseEvent* pEvent)
{
    POINT const place = PixelAt(pEvent->position());
    if (!rect().contains(place.x, place.y))
        owner.PointerMoved({x() + place.x, y() + place.y});
}

void PanelWidget::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::LeftButton)
        Click(PixelAt(pEvent->position()));
    else if (pEvent->button() == Qt::RightButton)
        owner.Receive({.kind = EventKind::COMMAND, .lNumber = setup.lCloseCommand});
}

void PanelWidget::Click(POINT place) { owner.Receive({.kind = setup.click, .x = place.x, .y = place.y}); }
} // namespace zarn
