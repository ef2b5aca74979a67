// How strokes become crisp.
//
// Antialiasing is on. A place of the drawing is the middle of its pixel, so that a hair line covers whole pixels and
// not two halves. Upright and level boxes and lines, nearly all of a score, aren't stroked at all: they are filled as
// boxes of whole device pixels, rounded in place and size and at least one wide, so that staff lines are equal at every
// scale. Slants, heads and dots keep their exact place and are smoothed.
//
// Everything is placed here, and the painter's own transform stays as it is: on paper each change of state costs as
// much to write as a symbol.
#include "platform/desktop/qt_surface.h"

#include "platform/desktop/qt_text.h"

#include <QFont>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <utility>

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

bool IsHairLine(Pen const& pen) { return pen.lWidth <= 1; }

/// One colour all over, and no wide pen that reaches beyond the box.
bool IsSolid(Pen const& pen, Brush const& brush)
{
    return pen.bNull || (IsHairLine(pen) && !brush.bNull && pen.color == brush.color);
}

/// An ellipse whose curves begin, bend and end at whole units: paper's are fine enough, and whole numbers are the
/// shortest to write.
QPainterPath WholeEllipse(QRectF const& box)
{
    constexpr double kappa = 0.5522847498307936; // how far a quarter's handles lie along its sides
    QPointF const center = box.center();
    double const handleX = std::round(box.width() / 2 * kappa);
    double const handleY = std::round(box.height() / 2 * kappa);
    QPainterPath path(QPointF(box.right(), center.y()));
    path.cubicTo(box.right(), center.y() + handleY, center.x() + handleX, box.bottom(), center.x(), box.bottom());
    path.cubicTo(center.x() - handleX, box.bottom(), box.left(), center.y() + handleY, box.left(), center.y());
    path.cubicTo(box.left(), center.y() - handleY, center.x() - handleX, box.top(), center.x(), box.top());
    path.cubicTo(center.x() + handleX, box.top(), box.right(), center.y() - handleY, box.right(), center.y());
    path.closeSubpath();
    return path;
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

SurfaceTarget TargetOf(Sheet const& sheet, double scale, bool bRaster)
{
    SIZE const box = sheet.BoxSize();
    return {.size = box,
            .scale = scale,
            .bRaster = bRaster,
            .origin = {sheet.box.left, sheet.box.top},
            .edges = {sheet.size.cx - box.cx, sheet.size.cy - box.cy}};
}

bool QtSurface::Begin(QPaintDevice& device, SurfaceTarget const& onWhat)
{
    target = onWhat;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    penInUse.reset();
    brushInUse.reset();
    return true;
}

bool QtSurface::End() { return painter.end(); }

QRect QtSurface::TakeTouched()
{
    QRectF const onDevice = std::exchange(touched, {});
    constexpr int smooth = 1; // a smoothed edge reaches into the next pixel
    return onDevice.isEmpty() ? QRect()
                              : QRectF(onDevice.topLeft() / target.scale, onDevice.size() / target.scale)
                                    .toAlignedRect()
                                    .adjusted(-smooth, -smooth, smooth, smooth);
}

/// Cut to the surface: a place may lie far beyond what Qt's whole numbers hold.
void QtSurface::Touch(QRectF const& onDevice) { touched |= onDevice & Device(); }

/// The box that a stroke along this one's edge reaches.
QRectF QtSurface::WithPen(QRectF const& onDevice, Pen const& pen) const
{
    double const beyond = std::max(pen.lWidth, 1) * target.scale;
    return onDevice.adjusted(-beyond, -beyond, beyond, beyond);
}

void QtSurface::Line(POINT from, POINT to, Pen const& pen)
{
    if (IsHairLine(pen) && (from.x == to.x || from.y == to.y))
    {
        double const left = std::min(from.x, to.x);
        double const top = std::min(from.y, to.y);
        FillBox({left, top, std::max(from.x, to.x) + 1.0 - left, std::max(from.y, to.y) + 1.0 - top}, pen.color);
        return;
    }
    UsePen(pen);
    QPointF const start = Middle(from);
    QPointF const end = Middle(to);
    painter.drawLine(start, end);
    Touch(WithPen(QRectF(start, end).normalized(), pen));
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
    bool const bSolid = IsSolid(pen, brush);
    UsePen(bSolid ? Pen{.bNull = true} : pen);
    UseBrush(brush);
    double const within = bSolid ? 0 : 0.5; // a pen runs along the middle of the outermost pixels
    QRectF const outline = whole.adjusted(within, within, -within, -within);
    QRectF const onDevice = Exact(outline);
    Touch(WithPen(onDevice, pen));
    if (target.bRaster)
        painter.drawEllipse(onDevice);
    else
        painter.drawPath(WholeEllipse(onDevice));
}

void QtSurface::Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (POINT const point : points)
        polygon.append(Middle(point));
    UsePen(pen);
    UseBrush(brush);
    painter.drawPolygon(polygon);
    Touch(WithPen(polygon.boundingRect(), pen));
}

void QtSurface::Text(double x, double baseline, std::string_view sText, TextStyle const& style)
{
    constexpr double mostPixels = 1000; // beyond it the painter's scale does the rest
    double const pixels = std::clamp(std::round(style.emPixels), 1.0, mostPixels);
    double const ratio = target.scale * style.emPixels / pixels;
    QPointF const start = OnDevice(QPointF(x, baseline));
    painter.setWorldTransform(QTransform(ratio * style.stretch, 0, 0, ratio, start.x(), start.y()));
    painter.setFont(Face(static_cast<int>(pixels), style.bBold));
    painter.setPen(ColorOf(style.color));
    penInUse.reset();
    painter.drawText(QPointF(0, 0), ToQt(sText));
    painter.resetTransform();
    constexpr double tallest = 2; // ems of the face above its baseline, and below
    double const em = style.emPixels * target.scale;
    Touch({start.x() - em, start.y() - tallest * em, Device().width(), 2 * tallest * em});
}

void QtSurface::Fill(RECT box, COLORREF color) { FillBox(ToQt(box), color); }

QRectF QtSurface::Device() const
{
    return {0, 0, (target.size.cx + target.edges.cx) * target.scale, (target.size.cy + target.edges.cy) * target.scale};
}

QPointF QtSurface::OnDevice(QPointF place) const
{
    return (place + QPointF(target.origin.x, target.origin.y)) * target.scale;
}

QRectF QtSurface::Exact(QRectF const& box) const { return {OnDevice(box.topLeft()), box.size() * target.scale}; }

/// The box in device pixels: on a raster whole ones, one at least.
QRectF QtSurface::OnDevice(QRectF const& box) const
{
    QRectF const exact = Exact(box);
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
    QRectF const device = Device();
    QRectF const visible = box & QRectF(0, 0, std::ceil(device.width()), std::ceil(device.height()));
    if (visible.isEmpty())
        return;
    Touch(visible);
    if (target.bRaster)
    {
        painter.fillRect(visible.toRect(), ColorOf(color));
        return;
    }
    UsePen({.bNull = true});
    UseBrush({.color = color});
    painter.drawRect(visible);
}

QPointF QtSurface::Middle(POINT place) const { return OnDevice(QPointF(place.x + 0.5, place.y + 0.5)); }

void QtSurface::UsePen(Pen const& pen)
{
    if (penInUse == pen)
        return;
    penInUse = pen;
    double const width = std::max(pen.lWidth, 1) * target.scale;
    painter.setPen(pen.bNull ? QPen(Qt::NoPen)
                             : QPen(ColorOf(pen.color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void QtSurface::UseBrush(Brush const& brush)
{
    if (brushInUse == brush)
        return;
    brushInUse = brush;
    painter.setBrush(brush.bNull ? QBrush(Qt::NoBrush) : QBrush(ColorOf(brush.color)));
}
} // namespace zarn
