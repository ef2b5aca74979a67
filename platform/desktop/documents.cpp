// Both documents are made in memory, so that a file is written whole or not at all.
#include "platform/desktop/documents.h"

#include "platform/desktop/qt_text.h"

#include <QPageSize>
#include <cmath>

namespace zarn
{
namespace
{
constexpr int lPaperDpi = 300;
constexpr int lFiner = 2; // the middle of a pixel of the drawing is a whole unit of the page, too
constexpr double screenDpi = 96;
constexpr double metresPerInch = 0.0254;
constexpr double mostPictureSide = 32767; // what the painter's own coordinates reach
} // namespace

PdfDocument::PdfDocument(std::string_view sTitle, Sheet const& sheet) : sheet(sheet)
{
    buffer.open(QIODevice::WriteOnly);
    QSizeF const inches(double{1} * sheet.size.cx / lPaperDpi, double{1} * sheet.size.cy / lPaperDpi);
    writer.setResolution(lPaperDpi * lFiner);
    writer.setPageSize(QPageSize(inches, QPageSize::Inch, QString(), QPageSize::FuzzyMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setTitle(ToQt(sTitle));
    writer.setCreator(QStringLiteral("Zarn"));
}

Surface* PdfDocument::StartPage()
{
    SurfaceTarget paper = TargetOf(sheet, lFiner, false);
    paper.defaultEm *= lPaperDpi / screenDpi;
    bGood = bGood && (bBegun ? writer.newPage() : surface.Begin(writer, paper));
    bBegun = true;
    return bGood ? &surface : nullptr;
}

bool PdfDocument::Finish(std::string& sBytes)
{
    bGood = bGood && bBegun && surface.End();
    sBytes = bGood ? bytes.toStdString() : "The PDF could not be made.";
    return bGood;
}

PngDocument::PngDocument(SIZE size, int32_t lDpi) : target{.size = size, .scale = lDpi / screenDpi}
{
    double const width = std::max(std::round(size.cx * target.scale), 1.0);
    double const height = std::max(std::round(size.cy * target.scale), 1.0);
    if (width > mostPictureSide || height > mostPictureSide)
        return;
    image = QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull())
        return;
    image.fill(Qt::white);
    int const lDotsPerMetre = static_cast<int>(std::lround(lDpi / metresPerInch));
    image.setDotsPerMeterX(lDotsPerMetre);
    image.setDotsPerMeterY(lDotsPerMetre);
}

Surface* PngDocument::StartPage()
{
    if (bBegun || !surface.Begin(image, target))
        return nullptr;
    bBegun = true;
    return &surface;
}

bool PngDocument::EndPage() { return !surface.IsActive() || surface.End(); }

bool PngDocument::Finish(std::string& sBytes)
{
    bool const bEnded = EndPage();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    bool const bGood = bBegun && bEnded && image.save(&buffer, "PNG");
    sBytes = bGood ? bytes.toStdString() : "The picture could not be made.";
    return bGood;
}
} // namespace zarn
