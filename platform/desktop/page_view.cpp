// Sheets in a view that scrolls.
#include "platform/desktop/page_view.h"

#include "platform/desktop/qt_surface.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zarn
{
namespace
{
constexpr int lGap = 12; // pixels around a sheet
constexpr int lFrame = 1;
} // namespace

PageView::PageView(PageSource& pages) : pages(pages)
{
    setAccessibleName(QStringLiteral("Pages"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
}

/// Pixels to a unit of the sheet: all of a sheet is seen, or when they stand one below the other all its width.
double PageView::Zoom() const
{
    SIZE const sheet = pages.Paper().size;
    double const across = double{1} * std::max(viewport()->width() - 2 * lGap, 1) / sheet.cx;
    double const down = double{1} * std::max(viewport()->height() - 2 * lGap, 1) / sheet.cy;
    return bContinuous ? across : std::min(across, down);
}

int PageView::Pitch() const { return static_cast<int>(std::ceil(pages.Paper().size.cy * Zoom())) + lGap; }

/// Of a sheet in the view.
QRect PageView::Place(int32_t l) const
{
    SIZE const sheet = pages.Paper().size;
    QSize const size(std::max(static_cast<int>(sheet.cx * Zoom()), 1),
                     std::max(static_cast<int>(sheet.cy * Zoom()), 1));
    QPoint const middle((viewport()->width() - size.width()) / 2, (viewport()->height() - size.height()) / 2);
    int const lTop = lGap + (l - 1) * Pitch() - verticalScrollBar()->value();
    return {bContinuous ? QPoint(middle.x(), lTop) : middle, size};
}

void PageView::SetRange()
{
    QScrollBar& bar = *verticalScrollBar();
    int const lHeight = viewport()->height();
    bar.setPageStep(lHeight);
    bar.setSingleStep(std::max(lHeight / 10, 1));
    int64_t const lAll = int64_t{pages.Count()} * Pitch() + lGap;
    bar.setRange(0, bContinuous ? static_cast<int>(std::clamp<int64_t>(lAll - lHeight, 0, INT32_MAX)) : 0);
}

void PageView::ShowPage(int32_t l)
{
    lPage = std::clamp(l, 1, std::max(pages.Count(), 1));
    if (bContinuous)
        verticalScrollBar()->setValue((lPage - 1) * Pitch());
    DrawLater();
    if (onMoved)
        onMoved();
}

void PageView::SetContinuous(bool bOn)
{
    int32_t const lSeen = lPage;
    bContinuous = bOn;
    // With the bar there or not the view has another width, which the zoom goes by.
    setVerticalScrollBarPolicy(bOn ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    pictures.clear();
    SetRange();
    ShowPage(lSeen);
}

void PageView::resizeEvent(QResizeEvent*)
{
    int32_t const lSeen = lPage;
    pictures.clear();
    SetRange();
    ShowPage(lSeen);
}

void PageView::scrollContentsBy(int, int)
{
    int32_t const lSeen = bContinuous ? (verticalScrollBar()->value() + Pitch() / 2) / Pitch() + 1 : lPage;
    lPage = std::clamp(lSeen, 1, std::max(pages.Count(), 1));
    DrawLater();
    if (onMoved)
        onMoved();
}

void PageView::keyPressEvent(QKeyEvent* pEvent)
{
    switch (pEvent->key())
    {
    case Qt::Key_PageUp:
        ShowPage(lPage - 1);
        break;
    case Qt::Key_PageDown:
        ShowPage(lPage + 1);
        break;
    case Qt::Key_Home:
        ShowPage(1);
        break;
    case Qt::Key_End:
        ShowPage(pages.Count());
        break;
    default:
        QAbstractScrollArea::keyPressEvent(pEvent);
    }
}

void PageView::wheelEvent(QWheelEvent* pEvent)
{
    if (bContinuous)
        QAbstractScrollArea::wheelEvent(pEvent);
    else if (int const lTurn = pEvent->angleDelta().y(); lTurn != 0)
        ShowPage(lPage + (lTurn < 0 ? 1 : -1));
}

void PageView::DrawLater()
{
    viewport()->update();
    if (!std::exchange(bDrawOwed, true))
        QMetaObject::invokeMethod(
            viewport(), [this] { DrawMissing(); }, Qt::QueuedConnection);
}

void PageView::DrawMissing()
{
    bDrawOwed = false;
    int32_t const lFirst = bContinuous ? std::max(verticalScrollBar()->value() / Pitch(), 1) : lPage;
    std::map<int32_t, QImage> seen;
    for (int32_t l = lFirst; l <= pages.Count() && (l == lPage || bContinuous); ++l)
    {
        if (Place(l).top() > viewport()->height())
            break;
        auto const found = pictures.find(l);
        seen[l] = found != pictures.end() ? found->second : Picture(l);
    }
    pictures = std::move(seen);
    viewport()->update();
}

QImage PageView::Picture(int32_t l) const
{
    double const ratio = devicePixelRatioF();
    QSize const size = Place(l).size();
    QImage image(static_cast<int>(size.width() * ratio), static_cast<int>(size.height() * ratio), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    image.fill(Qt::white);
    QtSurface surface;
    if (surface.Begin(image, TargetOf(pages.Paper(), Zoom() * ratio, true)))
        pages.Draw(l, surface);
    return image;
}

void PageView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    int32_t const lFirst = bContinuous ? std::max(verticalScrollBar()->value() / Pitch(), 1) : lPage;
    for (int32_t l = lFirst; l <= pages.Count() && (l == lPage || bContinuous); ++l)
    {
        QRect const place = Place(l);
        if (place.top() > viewport()->height())
            break;
        painter.fillRect(place.adjusted(-lFrame, -lFrame, lFrame, lFrame), Qt::black);
        painter.fillRect(place, Qt::white);
        if (auto const found = pictures.find(l); found != pictures.end())
            painter.drawImage(place, found->second);
    }
}
} // namespace zarn
