// The pointer's one place.
#include "platform/desktop/pointer.h"

#include <QCursor>
#include <QWidget>
#include <cstdlib>

namespace zarn
{
void Pointer::Set(POINT place)
{
    set = place;
    if (bShown && bMayMove)
        QCursor::setPos(canvas.mapToGlobal(QPoint(place.x, place.y)));
}

POINT Pointer::Place() const
{
    if (set && (!bShown || !bMayMove))
        return *set;
    QPoint const place = canvas.mapFromGlobal(QCursor::pos());
    return Seen({place.x(), place.y()});
}

POINT Pointer::Seen(POINT reported) const { return IsEcho(reported) || IsDrawn() ? *set : reported; }

bool Pointer::Moved(POINT reported)
{
    if (IsEcho(reported))
        return false;
    set.reset();
    return true;
}

void Pointer::Show()
{
    bShown = true;
    if (set)
        Set(*set);
}

bool Pointer::IsEcho(POINT reported) const
{
    return set && std::abs(reported.x - set->x) <= 1 && std::abs(reported.y - set->y) <= 1;
}
} // namespace zarn
