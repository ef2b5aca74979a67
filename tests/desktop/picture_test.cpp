// Pictures of the specimen, compared with those that were looked at.
//
// Another version of Qt may smooth an edge a little differently, so a few pixels may be off, but never by a shape: each
// pixel is compared with the nearest one around it. ZARN_WRITE_GOLDENS writes the pictures anew.
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace zarn
{
namespace
{
QImage SpecimenAt(int lDpi, QString const& sPath)
{
    QProcess program;
    program.start(QStringLiteral(ZARN_PROGRAM),
                  {QStringLiteral("-q"), QStringLiteral("-o"), sPath, QStringLiteral("--page"), QStringLiteral("1"),
                   QStringLiteral("--dpi"), QString::number(lDpi), QStringLiteral(ZARN_SAMPLES_DIR "/specimen.zrn")});
    EXPECT_TRUE(program.waitForFinished()) << program.errorString().toStdString();
    EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
    return QImage(sPath);
}

int GreyAt(QImage const& image, int x, int y) { return image.valid(x, y) ? qGray(image.pixel(x, y)) : 255; }

/// How far a grey is from the closest one in the square of three around the same place.
int Distance(int grey, QImage const& image, int x, int y)
{
    if (grey == GreyAt(image, x, y))
        return 0;
    int nearest = 255;
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx)
            nearest = std::min(nearest, std::abs(grey - GreyAt(image, x + dx, y + dy)));
    return nearest;
}

/// Pixels of one picture that nothing in the other comes near to.
int CountStrange(QImage const& image, QImage const& other)
{
    constexpr int mostDistance = 64; // of 255
    int cStrange = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            cStrange += Distance(GreyAt(image, x, y), other, x, y) > mostDistance;
    return cStrange;
}
} // namespace

class Picture : public testing::TestWithParam<int>
{
};

TEST_P(Picture, OfTheSpecimenIsTheOneThatWasLookedAt)
{
    QTemporaryDir const folder;
    QImage const image = SpecimenAt(GetParam(), folder.filePath(QStringLiteral("specimen.png")));
    ASSERT_FALSE(image.isNull());
    QString const sGolden = QStringLiteral(ZARN_GOLDEN_DIR "/specimen-%1dpi.png").arg(GetParam());
    if (std::getenv("ZARN_WRITE_GOLDENS"))
    {
        ASSERT_TRUE(image.convertToFormat(QImage::Format_Grayscale8).save(sGolden));
    }
    QImage const golden(sGolden);
    ASSERT_EQ(image.size(), golden.size());
    constexpr int mostStrange = 20; // a missing dot is more
    EXPECT_LE(CountStrange(image, golden), mostStrange);
    EXPECT_LE(CountStrange(golden, image), mostStrange);
}
INSTANTIATE_TEST_SUITE_P(AtEachResolution, Picture, testing::Values(96, 192));

TEST(PictureComparison, NoticesASmallShapeThatIsGone)
{
    QImage golden(100, 100, QImage::Format_RGB32);
    golden.fill(Qt::white);
    QImage dotted = golden;
    for (int y = 40; y < 45; ++y)
        for (int x = 40; x < 45; ++x)
            dotted.setPixel(x, y, qRgb(0, 0, 0));
    EXPECT_EQ(CountStrange(golden, golden), 0);
    EXPECT_EQ(CountStrange(dotted, golden), 25);
}
} // namespace zarn
