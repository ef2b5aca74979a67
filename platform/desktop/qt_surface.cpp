// How strokes become crisp.
//
// Antialiasing is on, and the painter stands half a pixel to the right and down, so that a hair line covers whole
// pixels and not two halves. Upright and level boxes and lines, nearly all of a score, aren't stroked at all: they are
// filled as boxes of whole device pixels, rounded in place and size and at least one wide, so that staff lines are
// equal at every scale. Slants, heads and dots keep their exact place and are smoothed.
#include "platform/desktop/qt_surface.h"

#include "platform/desktop/qt_text.h"

#include <QFont>
#include <algorithm>
#include <cmath>

namespace zarn
{
namespace
{
QColor ColorOf(COLORREF color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

QRectF ToQt(RECT const& box)
{
    double const left = box.left;
    double const top = box.top;
    return {left, top, box.right - left, box.bottom - top};
}

QPointF ToQt(POINT place) { return {double{1} * place.x, double{1} * place.y}; }

bool IsHairLine(Pen const& pen) { return pen.lWidth <= 1; }

/// One colour all over, and no wide pen that reaches beyond the box.
bool IsSolid(Pen const& pen, Brush const& brush)
{
    return pen.bNull || (IsHairLine(pen) && !brush.bNull && pen.color == brush.color);
}

QPen Stroke(Pen const& pen)
{
    return QPen(ColorOf(pen.color), std::max(pen.lWidth, 1), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

/// The one face, as the built-in table of widths knows it: no hinting, no kerning.
QFont Face(int pixelSize, bool bBold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixelSize);
    font.setBold(bBold);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setKerning(false);
    return font;
}
} // namespace

bool QtSurface::Begin(QPaintDevice& device, SurfaceTarget const& onWhat)
{
    target = onWhat;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setWorldTransform(QTransform(target.scale, 0, 0, target.scale, target.scale / 2, target.scale / 2));
    return true;
}

bool QtSurface::End() { return painter.end(); }

void QtSurface::Line(POINT from, POINT to, Pen const& pen)
{
    if (IsHairLine(pen) && (from.x == to.x || from.y == to.y))
    {
        QRectF const span(ToQt(from), ToQt(to));
        FillBox(span.normalized().adjusted(0, 0, 1, 1), pen.color);
        return;
    }
    painter.setPen(Stroke(pen));
    painter.drawLine(ToQt(from), ToQt(to));
}

void QtSurface::Box(RECT box, Pen const& pen, Brush const& brush)
{
    QRectF const inside = ToQt(box);
    if (pen.bNull)
    {
        FillBox(inside, brush.color);
        return;
    }
    // The pen runs along the middle of the outermost pixels.
    double const beyond = (pen.lWidth - 1) / 2.0;
    QRectF const outer = inside.adjusted(-beyond, -beyond, beyond, beyond);
    if (!brush.bNull)
        FillBox(outer, brush.color);
    if (brush.bNull || brush.color != pen.color)
        FrameBox(outer, pen.lWidth, pen.color);
}

void QtSurface::Ellipse(RECT box, Pen const& pen, Brush const& brush)
{
    QRectF const whole = ToQt(box);
    constexpr double mostForBox = 2; // device pixels: a round shape so small comes out pale, or not at all
    if (target.bRaster && std::min(whole.width(), whole.height()) * target.scale <= mostForBox)
    {
        FillBox(whole, pen.bNull ? brush.color : pen.color);
        return;
    }
    if (IsSolid(pen, brush))
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ColorOf(brush.color));
        painter.drawEllipse(whole.translated(-0.5, -0.5));
        return;
    }
    Shape(pen, brush);
    painter.drawEllipse(whole.adjusted(0, 0, -1, -1));
}

void QtSurface::Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (POINT const point : points)
        polygon.append(ToQt(point));
    Shape(pen, brush);
    painter.drawPolygon(polygon);
}

void QtSurface::Text(double x, double baseline, std::string_view sText, TextStyle const& style)
{
    constexpr double mostPixels = 1000; // beyond it the painter's scale does the rest
    double const pixels = std::clamp(std::round(style.emPixels), 1.0, mostPixels);
    double const ratio = target.scale * style.emPixels / pixels;
    QTransform const before = painter.worldTransform();
    painter.setWorldTransform(
        QTransform(ratio * style.stretch, 0, 0, ratio, x * target.scale, baseline * target.scale));
    painter.setFont(Face(static_cast<int>(pixels), style.bBold));
    painter.setPen(ColorOf(style.color));
    painter.drawText(QPointF(0, 0), ToQt(sText));
    painter.setWorldTransform(before);
}

void QtSurface::Fill(RECT box, COLORREF color) { FillBox(ToQt(box), color); }

/// The box in device pixels: on a raster whole ones, one at least.
QRectF QtSurface::OnDevice(QRectF const& box) const
{
    QRectF const exact(box.topLeft() * target.scale, box.size() * target.scale);
    if (!target.bRaster)
        return exact;
    return {std::round(exact.left()), std::round(exact.top()), std::max(std::round(exact.width()), 1.0),
            std::max(std::round(exact.height()), 1.0)};
}

void QtSurface::FillBox(QRectF const& box, COLORREF color) { FillOnDevice(OnDevice(box), color); }

void QtSurface::FrameBox(QRectF const& outer, double width, COLORREF color)
{
    QRectF const frame = OnDevice(outer);
    double const thick = OnDevice({0, 0, width, width}).width();
    double const across = std::min(thick, frame.width());
    double const down = std::min(thick, frame.height());
    FillOnDevice({frame.left(), frame.top(), frame.width(), down}, color);
    FillOnDevice({frame.left(), frame.bottom() - down, frame.width(), down}, color);
    FillOnDevice({frame.left(), frame.top(), across, frame.height()}, color);
    FillOnDevice({frame.right() - across, frame.top(), across, frame.height()}, color);
}

void QtSurface::FillOnDevice(QRectF const& box, COLORREF color)
{
    // Cut to the surface first: a box may reach far beyond what Qt's whole numbers hold.
    QRectF const surface(0, 0, std::ceil(target.size.cx * target.scale), std::ceil(target.size.cy * target.scale));
    QRectF const visible = box & surface;
    if (visible.isEmpty())
        return;
    painter.setWorldMatrixEnabled(false);
    if (target.bRaster)
        painter.fillRect(visible.toRect(), ColorOf(color));
    else
        painter.fillRect(visible, ColorOf(color));
    painter.setWorldMatrixEnabled(true);
}

void QtSurface::Shape(Pen const& pen, Brush const& brush)
{
    painter.setPen(pen.bNull ? QPen(Qt::NoPen) : Stroke(pen));
    painter.setBrush(brush.bNull ? QBrush(Qt::NoBrush) : QBrush(ColorOf(brush.color)));
}
} // namespace zarn
