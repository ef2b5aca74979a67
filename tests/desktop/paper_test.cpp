// Sheets, the preview and the box that stands by while the program works.
#include "desktop/window_fixture.h"
#include "platform/desktop/modeless_box.h"
#include "platform/desktop/page_view.h"
#include "platform/desktop/preview.h"
#include "platform/desktop/qt_surface.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace zarn
{
namespace
{
/// Five small sheets; the nth has n black squares in its box.
struct Squares : PageSource
{
    [[nodiscard]] int32_t Count() const override { return 5; }
    [[nodiscard]] Sheet Paper() const override { return SheetOf({200, 300}); }
    void Draw(int32_t lPage, Surface& surface) override
    {
        aDrawn.push_back(lPage);
        for (int32_t n = 0; n < lPage; ++n)
            surface.Box({0, n * 20, 10, n * 20 + 10}, Pen{.bNull = true}, Brush{});
    }
    std::vector<int32_t> aDrawn;
};

QPushButton* Button(QWidget& within, char const* sText)
{
    for (QPushButton* const pButton : within.findChildren<QPushButton*>())
        if (pButton->text().remove(QLatin1Char('&')) == QLatin1String(sText))
            return pButton;
    ADD_FAILURE() << sText;
    return nullptr;
}
using DesktopPaper = DesktopTest;
} // namespace

TEST(SheetSurface, LeavesTheEdgesFreeAndDrawsOverThemWhereTheDrawingGoesOn)
{
    Sheet const sheet = SheetOf({200, 300}); // its box begins at 10, 15
    for (double const scale : {1.0, 2.0, 0.5})
    {
        QImage image(static_cast<int>(200 * scale), static_cast<int>(300 * scale), QImage::Format_RGB32);
        image.fill(Qt::white);
        QtSurface surface;
        ASSERT_TRUE(surface.Begin(image, TargetOf(sheet, scale, true)));
        EXPECT_EQ(surface.Size(), (SIZE{180, 270}));
        surface.Box({0, 0, 10, 10}, Pen{.bNull = true}, Brush{});
        surface.Box({-6, 100, 186, 110}, Pen{.bNull = true}, Brush{});
        ASSERT_TRUE(surface.End());
        auto const IsBlack = [&](double x, double y)
        { return image.pixel(static_cast<int>(x * scale), static_cast<int>(y * scale)) == qRgb(0, 0, 0); };
        EXPECT_TRUE(IsBlack(12, 17));
        EXPECT_FALSE(IsBlack(8, 17));
        EXPECT_FALSE(IsBlack(12, 12));
        EXPECT_TRUE(IsBlack(6, 118)) << "words may reach into the edge";
        EXPECT_TRUE(IsBlack(194, 118));
    }
}

TEST_F(DesktopPaper, TheBoxTellsItsButtonAndItsEscapeAndStays)
{
    std::vector<int32_t> aTold;
    Form const form{1,
                    "Printing...",
                    "box",
                    {{FormControl::STATIC, 3, "Now Printing: "},
                     {FormControl::STATIC, 2, "tunes/kesh.zrn"},
                     {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
    ModelessBox box(
        form, [&](int32_t l) { aTold.push_back(l); }, Frame());
    auto* const pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(pDialog, nullptr);
    EXPECT_EQ(pDialog->windowTitle().toStdString(), "Printing...");
    Button(*pDialog, "Cancel")->click();
    QTest::keyClick(pDialog, Qt::Key_Escape);
    pDialog->close();
    EXPECT_EQ(aTold, (std::vector<int32_t>{IDCANCEL, IDCANCEL, IDCANCEL}));
    EXPECT_TRUE(pDialog->isVisible());
    box.SetText(2, "(Cancelling...  can take a little while)");
    box.SetText(77, "no such control");
    QList<QLabel*> const labels = pDialog->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->text().toStdString(), "Now Printing: ");
    EXPECT_EQ(labels[1]->text().toStdString(), "(Cancelling...  can take a little while)");
}

TEST_F(DesktopPaper, ThePreviewGoesFromPageToPageAndEscapeClosesIt)
{
    Squares pages;
    WhenAsked(
        [&](QWidget* pDialog)
        {
            QWidget& dialog = *pDialog;
            auto* const pView = dialog.findChild<QAbstractScrollArea*>();
            auto* const pWhere = dialog.findChild<QLabel*>();
            EXPECT_TRUE(QTest::qWaitFor([&] { return !pages.aDrawn.empty(); }));
            EXPECT_EQ(pages.aDrawn, std::vector<int32_t>{1});
            EXPECT_EQ(pWhere->text().toStdString(), "Page 1 of 5");
            EXPECT_FALSE(Button(dialog, "Previous")->isEnabled());
            struct
            {
                Qt::Key key;
                char const* sWhere;
            } const aCase[] = {{Qt::Key_PageDown, "Page 2 of 5"}, {Qt::Key_End, "Page 5 of 5"},
                               {Qt::Key_PageDown, "Page 5 of 5"}, {Qt::Key_PageUp, "Page 4 of 5"},
                               {Qt::Key_Home, "Page 1 of 5"},     {Qt::Key_PageUp, "Page 1 of 5"}};
            for (auto const& c : aCase)
            {
                QTest::keyClick(pView, c.key);
                EXPECT_EQ(pWhere->text().toStdString(), c.sWhere);
            }
            Button(dialog, "Next")->click();
            EXPECT_EQ(pWhere->text().toStdString(), "Page 2 of 5");
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
    EXPECT_FALSE(Preview_Run(pages, Frame()));
}

TEST_F(DesktopPaper, ThePreviewShowsAllPagesOneBelowTheOtherAndDrawsThoseInSight)
{
    Squares pages;
    WhenAsked(
        [&](QWidget* pDialog)
        {
            QWidget& dialog = *pDialog;
            auto* const pView = dialog.findChild<QAbstractScrollArea*>();
            auto* const pWhere = dialog.findChild<QLabel*>();
            dialog.findChild<QCheckBox*>()->click();
            EXPECT_TRUE(QTest::qWaitFor([&] { return pages.aDrawn.size() > 1; }));
            EXPECT_LT(*std::max_element(pages.aDrawn.begin(), pages.aDrawn.end()), 4);
            EXPECT_GT(pView->verticalScrollBar()->maximum(), 0);
            pView->verticalScrollBar()->setValue(pView->verticalScrollBar()->maximum());
            EXPECT_TRUE(QTest::qWaitFor([&] { return pages.aDrawn.back() == 5; }));
            EXPECT_EQ(pages.aDrawn.back(), 5);
            EXPECT_EQ(pWhere->text().toStdString(), "Page 5 of 5");
            Button(dialog, "Print")->click();
        });
    EXPECT_TRUE(Preview_Run(pages, Frame()));
}

TEST_F(DesktopPaper, AViewShowsTheSheetWholeWithItsInkWhereItIsOnPaper)
{
    Squares pages;
    PageView view(pages);
    view.resize(424, 624); // a sheet of 200 by 300 is twice as large, with a rim around it
    view.setFrameShape(QFrame::NoFrame);
    view.SetContinuous(false);
    view.ShowPage(3);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    double const ratio = view.devicePixelRatioF();
    QImage const picture = view.grab().toImage();
    auto const At = [&](double x, double y)
    { return picture.pixelColor(static_cast<int>((12 + 2 * x) * ratio), static_cast<int>((12 + 2 * y) * ratio)); };
    EXPECT_EQ(At(3, 3), QColor(Qt::white));
    for (int32_t n = 0; n < 5; ++n)
        EXPECT_EQ(At(15, 20 + 20 * n), QColor(n < 3 ? Qt::black : Qt::white)) << n;
}
} // namespace zarn
