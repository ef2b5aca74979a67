// The window's life: shown, first painted, resized, asked to close, destroyed.
#include "platform/desktop/qt_window.h"

#include "platform/desktop/panel_widget.h"
#include "platform/desktop/qt_text.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QStatusBar>
#include <cmath>
#include <utility>

namespace zarn
{
void QtWindow::MainFrame::closeEvent(QCloseEvent* pEvent)
{
    pEvent->ignore();
    window.Receive({.kind = EventKind::CLOSE});
}

bool QtWindow::SystemPointerMayMove() { return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland")); }

QtWindow::QtWindow(std::string_view sTitle, Painter* pPainter, Door* pDoor, bool bPointerMayMove)
    : pPainter(pPainter), pDoor(pDoor), frame(*this), pCanvas(new Canvas(*this)), pScroll(new QScrollBar(Qt::Vertical)),
      pointer(*pCanvas, bPointerMayMove), pStatus(new QLabel),
      menu(*frame.menuBar(), [this](int32_t lCommand) { Receive({.kind = EventKind::COMMAND, .lNumber = lCommand}); })
{
    pScroll->setFocusPolicy(Qt::NoFocus);
    pScroll->setAccessibleName(QStringLiteral("Line at the top"));
    pScroll->setRange(0, 0);
    QObject::connect(pScroll, &QScrollBar::actionTriggered, pCanvas, [this](int lAction) { Scrolled(lAction); });

    auto* const pInside = new QWidget;
    auto* const pLayout = new QHBoxLayout(pInside);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(pCanvas, 1);
    pLayout->addWidget(pScroll);
    frame.setCentralWidget(pInside);
    frame.statusBar()->addWidget(pStatus, 1);
    frame.statusBar()->setSizeGripEnabled(false);
    SetTitle(sTitle);
    // As large as it will be once maximised, so that the first size is nearly always the last one.
    frame.resize(QGuiApplication::primaryScreen()->availableSize());
    frame.showMaximized();
    pCanvas->setFocus();
}

QtWindow::~QtWindow()
{
    SetWaitPointer(false);
    bDestroyed = true;
    if (surface.IsActive())
        surface.End();
}

SIZE QtWindow::ClientSize() { return {pCanvas->width(), pCanvas->height()}; }

/// "[*]" is where Qt shows that the work is modified; twice over it stands for itself.
void QtWindow::SetTitle(std::string_view sNewTitle)
{
    QString title = ToQt(sNewTitle);
    sTitle = title.toStdString();
    QString const mark = QStringLiteral("[*]");
    frame.setWindowTitle(title.replace(mark, mark + mark) + mark);
}

void QtWindow::Invalidate()
{
    bRepaintOwed = true;
    if (bRepaintPosted)
        return;
    bRepaintPosted = true;
    Later([this] { PayRepaint(); });
}

/// Paints even ahead of the first frame on the screen, so that this one holds the music.
void QtWindow::Update()
{
    Repaint();
    if (bOnScreen && !bDestroyed)
        pCanvas->repaint();
}

HDC QtWindow::BeginDraw()
{
    if (cDrawing++ == 0)
    {
        if (image.isNull())
            RenewImage();
        else
            (void)surface.Begin(image, Target());
    }
    return new DeviceContext{.pSurface = &surface};
}

void QtWindow::EndDraw(HDC hdc)
{
    if (!hdc)
        return;
    delete hdc;
    if (--cDrawing == 0 && surface.IsActive())
        surface.End();
    if (QRect const touched = surface.TakeTouched(); !touched.isEmpty())
        pCanvas->update(touched);
}

void QtWindow::SetWaitPointer(bool bOn)
{
    if (bOn == bWaiting)
        return;
    bWaiting = bOn;
    if (bOn)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

HDC QtWindow::BeginCursor() { return symbolCursor.Begin(pCanvas->devicePixelRatioF()); }

void QtWindow::EndCursor(HDC hdc, POINT hotSpot)
{
    symbolCursor.End(hdc, hotSpot);
    shape = PointerShape::SYMBOL;
    UseCursor();
}

/// Each move asks for its shape: nearly always the one that is there.
void QtWindow::ShowPointer(PointerShape newShape)
{
    if (newShape == shape)
        return;
    shape = newShape;
    UseCursor();
}

void QtWindow::HidePointer(bool bHidden)
{
    bPointerHidden = bHidden;
    UseCursor();
}

void QtWindow::SetPointer(POINT place)
{
    pointer.Set(place);
    if (pointer.IsDrawn())
        UseCursor();
}

QCursor QtWindow::Cursor() const
{
    switch (shape)
    {
    case PointerShape::SYMBOL:
        return symbolCursor.Cursor();
    case PointerShape::CROSS:
        return Qt::CrossCursor;
    case PointerShape::UP:
        return Qt::UpArrowCursor;
    default:
        return Qt::ArrowCursor;
    }
}

/// Shows the system's pointer in the shape in force, or hides it and draws one where the program put it.
void QtWindow::UseCursor()
{
    pCanvas->update(drawnAt);
    drawnAt = {};
    pCanvas->setCursor(bPointerHidden || pointer.IsDrawn() ? QCursor(Qt::BlankCursor) : Cursor());
    if (bPointerHidden || !pointer.IsDrawn())
        return;
    drawnPointer.SetShape(Cursor());
    drawnAt = drawnPointer.Covers(pointer.Place());
    pCanvas->update(drawnAt);
}

void QtWindow::SetStatus(std::string_view sText) { pStatus->setText(ToQt(sText)); }

void QtWindow::Destroy()
{
    bDestroyed = true;
    frame.hide();
}

/// Not the frame itself: a box that stands over it would be disabled with it.
void QtWindow::Enable(bool bOn)
{
    frame.menuBar()->setEnabled(bOn);
    frame.centralWidget()->setEnabled(bOn);
    if (!bOn)
        return;
    TakeFocus();
    Later([this] { TakeFocus(); }); // once the box that stood over it has gone
}

void QtWindow::Post(void (*pAction)())
{
    if (bOnScreen)
        Later(pAction);
    else
        aPosted.push_back(pAction);
}

Panel* QtWindow::CreatePanel(PanelSetup const& setup) { return new PanelWidget(*pCanvas, *this, setup); }

void QtWindow::TakeFocus()
{
    if (bDestroyed)
        return;
    frame.activateWindow();
    pCanvas->setFocus();
}

void QtWindow::Raise()
{
    frame.setWindowState(frame.windowState() & ~Qt::WindowMinimized);
    frame.raise();
    TakeFocus();
}

void QtWindow::Receive(Event const& event)
{
    if (!bDestroyed && pDoor)
        pDoor->Receive(event);
}

void QtWindow::PointerMoved(POINT place)
{
    bool const bMoved = pointer.Moved(place);
    if (!drawnAt.isEmpty() && !pointer.IsDrawn())
        UseCursor();
    if (bMoved)
        Receive({.kind = EventKind::MOVE, .x = place.x, .y = place.y});
}

void QtWindow::CanvasResized()
{
    if (!bOnScreen)
        return;
    TellSize();
    Invalidate();
    PayRepaint();
}

void QtWindow::ShowImage(QPainter& painter)
{
    if (!bOnScreen)
    {
        // Its size is told and what was posted runs at once, but out of this paint.
        bOnScreen = true;
        Later([this] { FirstPaint(); });
    }
    double const ratio = pCanvas->devicePixelRatioF();
    QRectF const whole(pCanvas->rect());
    if (image.isNull() || image.width() < std::floor(whole.width() * ratio) ||
        image.height() < std::floor(whole.height() * ratio))
        painter.fillRect(whole, Qt::white);
    painter.drawImage(QRectF(0, 0, image.width() / ratio, image.height() / ratio), image);
    if (!drawnAt.isEmpty())
        drawnPointer.Draw(painter, pointer.Place());
    if (!image.isNull() && ratio != imageScale) // the window has gone to another screen
        Invalidate();
}

/// The scroll bar never moves by itself: the program moves it when it has scrolled.
void QtWindow::Scrolled(int lAction)
{
    Event event{.kind = EventKind::SCROLL};
    auto action = ScrollAction::THUMB;
    switch (lAction)
    {
    case QAbstractSlider::SliderSingleStepSub:
        action = ScrollAction::LINEUP;
        break;
    case QAbstractSlider::SliderSingleStepAdd:
        action = ScrollAction::LINEDOWN;
        break;
    case QAbstractSlider::SliderPageStepSub:
        action = ScrollAction::PAGEUP;
        break;
    case QAbstractSlider::SliderPageStepAdd:
        action = ScrollAction::PAGEDOWN;
        break;
    default:
        event.x = pScroll->sliderPosition();
    }
    event.lNumber = static_cast<int32_t>(action);
    if (action != ScrollAction::THUMB)
        pScroll->setSliderPosition(pScroll->value());
    Receive(event);
}

void QtWindow::Later(std::function<void()> pAction)
{
    QMetaObject::invokeMethod(pCanvas, std::move(pAction), Qt::QueuedConnection);
}

void QtWindow::FirstPaint()
{
    pointer.Show();
    UseCursor();
    TellSize();
    Update();
    for (void (*const pAction)() : std::exchange(aPosted, {}))
        Later(pAction);
}

void QtWindow::TellSize()
{
    SIZE const size = ClientSize();
    if (size == sizeTold)
        return;
    sizeTold = size;
    Receive({.kind = EventKind::SIZE, .x = size.cx, .y = size.cy});
}

void QtWindow::PayRepaint()
{
    bRepaintPosted = false;
    if (bOnScreen)
        Repaint();
}

void QtWindow::Repaint()
{
    if (!bRepaintOwed || bPainting || bDestroyed)
        return;
    bRepaintOwed = false;
    bPainting = true;
    RenewImage();
    HDC const hdc = BeginDraw();
    if (pPainter)
        pPainter->Paint(this, hdc);
    EndDraw(hdc);
    bPainting = false;
    if (bRepaintOwed)
        Invalidate();
}

SurfaceTarget QtWindow::Target() const
{
    return {.size = {pCanvas->width(), pCanvas->height()}, .scale = pCanvas->devicePixelRatioF()};
}

/// An image of the canvas's size in device pixels; who is drawing goes on upon it.
void QtWindow::RenewImage()
{
    SurfaceTarget const target = Target();
    QSize const pixels(static_cast<int>(std::ceil(target.size.cx * target.scale)),
                       static_cast<int>(std::ceil(target.size.cy * target.scale)));
    if (image.size() == pixels && imageScale == target.scale)
        return;
    imageScale = target.scale;
    if (surface.IsActive())
        surface.End();
    image = QImage(pixels, QImage::Format_RGB32);
    image.fill(Qt::white);
    if (cDrawing > 0)
        (void)surface.Begin(image, target);
}
} // namespace zarn
