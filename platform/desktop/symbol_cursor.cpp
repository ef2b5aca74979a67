// The rim is the shape itself in white, drawn around it a pixel away in eight directions.
#include "platform/desktop/symbol_cursor.h"

#include <QPixmap>
#include <cmath>

namespace zarn
{
HDC SymbolCursor::Begin(double newScale)
{
    scale = newScale;
    int const side = static_cast<int>(std::ceil(lSide * scale));
    image = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (!surface.Begin(image, {.size = {lSide, lSide}, .scale = scale}))
        return nullptr;
    return new DeviceContext{.pSurface = &surface};
}

/// The shape in one colour.
static QImage Coloured(QImage const& shape, QColor const& color)
{
    QImage coloured = shape;
    QPainter painter(&coloured);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(coloured.rect(), color);
    return coloured;
}

static bool IsEmpty(QImage const& shape)
{
    for (int y = 0; y < shape.height(); ++y)
        for (int x = 0; x < shape.width(); ++x)
            if (qAlpha(shape.pixel(x, y)) != 0)
                return false;
    return true;
}

void SymbolCursor::End(HDC hdc, POINT hotSpot)
{
    delete hdc;
    if (!surface.IsActive())
        return;
    surface.End();
    if (IsEmpty(image))
    {
        cursor = QCursor(Qt::ArrowCursor); // a symbol without a shape: the pointer must be seen
        return;
    }
    QImage rimmed(image.size(), image.format());
    rimmed.fill(Qt::transparent);
    {
        QPainter painter(&rimmed);
        QImage const rim = Coloured(image, Qt::white);
        int const far = static_cast<int>(std::lround(scale));
        for (int dy = -far; dy <= far; dy += far)
            for (int dx = -far; dx <= far; dx += far)
                painter.drawImage(dx, dy, rim);
        painter.drawImage(0, 0, Coloured(image, Qt::black));
    }
    QPixmap picture = QPixmap::fromImage(rimmed);
    picture.setDevicePixelRatio(scale);
    cursor = QCursor(picture, hotSpot.x, hotSpot.y);
}
} // namespace zarn
