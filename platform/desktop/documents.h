/// Pages that become a file: PDF and PNG.
#pragma once
#include "platform/desktop/qt_surface.h"
#include "platform/paged_surface.h"

#include <QBuffer>
#include <QImage>
#include <QPdfWriter>

namespace zarn
{
/// Text stays text, and can be searched and copied.
class PdfDocument : public PagedSurface
{
public:
    /// size in units of 1/300 inch.
    PdfDocument(std::string_view sTitle, SIZE size);
    Surface* StartPage() override;
    void EndPage() override {}
    bool Finish(std::string& sBytes) override;

private:
    SIZE size;
    QByteArray bytes;
    QBuffer buffer{&bytes};
    QPdfWriter writer{&buffer};
    bool bBegun = false;
    bool bGood = true;
    QtSurface surface; // last: it lets go of the writer before that goes
};

class PngDocument : public PagedSurface
{
public:
    /// size in pixels of 1/96 inch; the picture has lDpi pixels to the inch.
    PngDocument(SIZE size, int32_t lDpi);
    [[nodiscard]] bool IsGood() const { return !image.isNull(); } ///< false: too large
    Surface* StartPage() override;
    void EndPage() override;
    bool Finish(std::string& sBytes) override;

private:
    SurfaceTarget target;
    QImage image;
    bool bBegun = false;
    QtSurface surface; // last: it lets go of the image before that goes
};
} // namespace zarn
