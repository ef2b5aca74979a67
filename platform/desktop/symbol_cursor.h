/// The pointer in the shape of a symbol.
#pragma once
#include "platform/desktop/qt_surface.h"
#include "platform/gdi.h"

#include <QCursor>
#include <QImage>

namespace zarn
{
/// What is drawn shows in black with a thin light rim, so that it can be seen on white, on staff lines and on notes.
class SymbolCursor
{
public:
    static constexpr int lSide = 32; ///< pixels of the drawing

    /// An empty picture, scale device pixels to one of the drawing; hand it back with End.
    [[nodiscard]] HDC Begin(double scale);
    void End(HDC hdc, POINT hotSpot);
    [[nodiscard]] QCursor const& Cursor() const { return cursor; }

private:
    QImage image;
    double scale = 1;
    QtSurface surface;
    QCursor cursor;
};
} // namespace zarn
