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
    PdfDocument(std::string_view sTitle, Sheet const& sheet);
    Surface* StartPage() override;
    bool EndPage() override { return bGood; }
    bool Finish(std::string& sBytes) override;

private:
    Sheet sheet;
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
    bool EndPage() override;
    bool Finish(std::string& sBytes) override;

private:
    SurfaceTarget target;
    QImage image;
    bool bBegun = false;
    QtSurface surface; // last: it lets go of the image before that goes
};
} // namespace zarn
