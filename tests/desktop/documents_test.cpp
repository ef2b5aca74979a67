// PDF and PNG documents.
#include "platform/desktop/documents.h"

#include <gtest/gtest.h>

namespace zarn
{
static void DrawStaffLine(Surface& surface)
{
    surface.Box({100, 100, 500, 101}, Pen{}, Brush{});
    surface.Text(100, 200, "Greensleeves", {.emPixels = 40, .stretch = 1, .bBold = true, .color = 0});
}

TEST(PngDocument, HasItsDotsToTheInchAndThatManyPixels)
{
    struct
    {
        int32_t lDpi;
        QSize pixels;
    } const aCase[] = {{96, {600, 400}}, {192, {1200, 800}}, {144, {900, 600}}};
    for (auto const& c : aCase)
    {
        PngDocument document({600, 400}, c.lDpi);
        ASSERT_TRUE(document.IsGood());
        Surface* const pPage = document.StartPage();
        ASSERT_NE(pPage, nullptr);
        EXPECT_EQ(pPage->Size(), (SIZE{600, 400}));
        DrawStaffLine(*pPage);
        document.EndPage();
        EXPECT_EQ(document.StartPage(), nullptr) << "a picture has one page";
        std::string sBytes;
        ASSERT_TRUE(document.Finish(sBytes));
        QImage const image =
            QImage::fromData(reinterpret_cast<uchar const*>(sBytes.data()), static_cast<int>(sBytes.size()), "PNG");
        EXPECT_EQ(image.size(), c.pixels);
        EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, c.lDpi, 0.1);
        EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255));
        EXPECT_EQ(image.pixel(c.pixels.width() / 2, 100 * c.lDpi / 96), qRgb(0, 0, 0));
    }
}

TEST(PngDocument, TooLargeAPictureIsRefused)
{
    EXPECT_FALSE(PngDocument({100000, 100}, 96).IsGood());
    EXPECT_FALSE(PngDocument({2000, 2000}, 2400).IsGood());
}

TEST(PngDocument, WithoutAPageThereIsNoPicture)
{
    PngDocument document({600, 400}, 96);
    std::string sBytes;
    EXPECT_FALSE(document.Finish(sBytes));
    EXPECT_EQ(sBytes, "The picture could not be made.");
}

TEST(PdfDocument, HasEveryPageItsSizeAndItsTitle)
{
    PdfDocument document("Greensleeves", sheetA4);
    for (int32_t lPage = 0; lPage < 3; ++lPage)
    {
        Surface* const pPage = document.StartPage();
        ASSERT_NE(pPage, nullptr);
        EXPECT_EQ(pPage->Size(), (SIZE{2232, 3158})) << "the edges stay free";
        DrawStaffLine(*pPage);
        document.EndPage();
    }
    std::string sBytes;
    ASSERT_TRUE(document.Finish(sBytes));
    EXPECT_TRUE(sBytes.starts_with("%PDF-"));
    EXPECT_NE(sBytes.find("/Count 3"), sBytes.npos);
    EXPECT_NE(sBytes.find("/MediaBox [0 0 595"), sBytes.npos);
    EXPECT_NE(sBytes.find("/FontFile2"), sBytes.npos) << "text stays text";
}

TEST(PdfDocument, TextWithNoSizeOfItsOwnIsAsLargeAsOnTheScreen)
{
    PdfDocument pdf("", sheetA4);
    PngDocument png({600, 400}, 192);
    EXPECT_DOUBLE_EQ(pdf.StartPage()->DefaultEm() / 300, png.StartPage()->DefaultEm() / 96);
}

TEST(PdfDocument, WithoutAPageThereIsNoDocument)
{
    PdfDocument document("Greensleeves", sheetA4);
    std::string sBytes;
    EXPECT_FALSE(document.Finish(sBytes));
    EXPECT_EQ(sBytes, "The PDF could not be made.");
}
} // namespace zarn
