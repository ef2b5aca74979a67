/// Drawing on anything that Qt can paint: the window's image, a picture, a page of a PDF.
#pragma once
#include "platform/paged_surface.h"

#include <QPainter>
#include <optional>

namespace zarn
{
/// What a surface is made for.
struct SurfaceTarget
{
    SIZE size;                   ///< in pixels of the drawing
    double scale = 1;            ///< device pixels to one pixel of the drawing
    bool bRaster = true;         ///< false for paper and PDF, which have no pixels to snap to
    double defaultEm = screenEm; ///< em of a text that asks for no size, in pixels of the drawing
    POINT origin = {};           ///< where the drawing begins on the device, in pixels of the drawing
    SIZE edges = {};             ///< what the device has besides size: the free edges of a sheet
};

/// The target that a sheet is, one pixel of the drawing being scale device pixels.
[[nodiscard]] SurfaceTarget TargetOf(Sheet const& sheet, double scale, bool bRaster);

/// Pixel (x, y) of the drawing covers the square from (x, y) to (x + 1, y + 1), whatever the scale. Draws nothing
/// outside of Begin and End.
class QtSurface : public Surface
{
public:
    /// False when the device can't be painted on; the surface is then not active. The device must outlive End.
    [[nodiscard]] bool Begin(QPaintDevice& device, SurfaceTarget const& onWhat);
    bool End(); ///< false when the device reports a failure
    [[nodiscard]] bool IsActive() const { return painter.isActive(); }
    /// What was drawn on since the last call, in whole pixels of the drawing; empty for nothing.
    [[nodiscard]] QRect TakeTouched();

    SIZE Size() const override { return target.size; }
    void Line(POINT from, POINT to, Pen const& pen) override;
    void Box(RECT box, Pen const& pen, Brush const& brush) override;
    void Ellipse(RECT box, Pen const& pen, Brush const& brush) override;
    void Polygon(std::span<POINT const> points, Pen const& pen, Brush const& brush) override;
    void Text(double x, double baseline, std::string_view sText, TextStyle const& style) override;
    void Fill(RECT box, COLORREF color) override;
    double DefaultEm() const override { return target.defaultEm; }

private:
    [[nodiscard]] QRectF Device() const; ///< all of it, in device pixels
    [[nodiscard]] QPointF OnDevice(QPointF place) const;
    [[nodiscard]] QRectF Exact(QRectF const& box) const;
    [[nodiscard]] QRectF OnDevice(QRectF const& box) const;
    void FillBox(QRectF const& box, COLORREF color);
    void FillOnDevice(QRectF const& box, COLORREF color);
    void FrameBox(QRectF const& outer, double width, COLORREF color);
    [[nodiscard]] QPointF Middle(POINT place) const; ///< of a pixel of the drawing, in device pixels
    [[nodiscard]] QRectF WithPen(QRectF const& onDevice, Pen const& pen) const;
    void Touch(QRectF const& onDevice);
    void UsePen(Pen const& pen);
    void UseBrush(Brush const& brush);

    QPainter painter;
    SurfaceTarget target;
    QRectF touched;              ///< in device pixels
    std::optional<Pen> penInUse; ///< what the painter has; none when it is unknown
    std::optional<Brush> brushInUse;
};
} // namespace zarn
