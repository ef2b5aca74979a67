/// A picture of the pointer, for where the system's own can't be moved.
#pragma once
#include "platform/types.h"

#include <QCursor>
#include <QPixmap>

class QPainter;

namespace zarn
{
/// Shows the shape that the system's pointer would have, black with a light rim. A symbol's shape brings its own
/// picture; the plain ones are drawn here.
class DrawnPointer
{
public:
    void SetShape(QCursor const& cursor);
    void Draw(QPainter& painter, POINT place) const; ///< its hot spot at a place in the painter's pixels
    [[nodiscard]] QRect Covers(POINT place) const;   ///< all that Draw paints on

private:
    QPixmap picture;
    QPoint hotSpot;
};
} // namespace zarn
