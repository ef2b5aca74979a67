// The plain shapes are lines on a square of odd width, whose middle pixel is the hot spot.
#include "platform/desktop/drawn_pointer.h"

#include <QPainter>

namespace zarn
{
namespace
{
constexpr int lSide = 17; // pixels
constexpr int lMiddle = lSide / 2;

struct PlainShape
{
    QList<QLineF> lines;
    QPoint hotSpot;
};

PlainShape ShapeOf(Qt::CursorShape shape)
{
    constexpr double middle = lMiddle + 0.5;
    constexpr double first = 1.5;
    constexpr double last = lSide - 1.5;
    constexpr double barb = 5;
    switch (shape)
    {
    case Qt::CrossCursor:
        return {{{middle, first, middle, last}, {first, middle, last, middle}}, {lMiddle, lMiddle}};
    case Qt::UpArrowCursor:
        return {{{middle, first, middle, last},
                 {middle, first, middle - barb, first + barb},
                 {middle, first, middle + barb, first + barb}},
                {lMiddle, 1}};
    default:
        return {{{first, first, last - 3, last - 3},
                 {first, first, first, first + 2 * barb},
                 {first, first, first + 2 * barb, first}},
                {1, 1}};
    }
}

QPixmap Picture(QList<QLineF> const& lines)
{
    QPixmap picture(lSide, lSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double rim = 3;
    for (QPen const& pen : {QPen(Qt::white, rim), QPen(Qt::black, 1)})
    {
        painter.setPen(pen);
        painter.drawLines(lines);
    }
    return picture;
}
} // namespace

void DrawnPointer::SetShape(QCursor const& cursor)
{
    if (cursor.shape() == Qt::BitmapCursor)
    {
        picture = cursor.pixmap();
        hotSpot = cursor.hotSpot();
        return;
    }
    PlainShape const shape = ShapeOf(cursor.shape());
    picture = Picture(shape.lines);
    hotSpot = shape.hotSpot;
}

void DrawnPointer::Draw(QPainter& painter, POINT place) const
{
    painter.drawPixmap(QPoint(place.x, place.y) - hotSpot, picture);
}

QRect DrawnPointer::Covers(POINT place) const
{
    return {QPoint(place.x, place.y) - hotSpot, picture.deviceIndependentSize().toSize()};
}
} // namespace zarn
