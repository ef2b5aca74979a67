// Panels in front of the score, under real events.
#include "desktop/window_fixture.h"

#include "core/messages.h"
#include "panels/palette.h"
#include "panels/panel_size.h"
#include "panels/piano.h"

#include <QCursor>
#include <QHelpEvent>
#include <QToolTip>
#include <cmath>

namespace zarn
{
using testing::ElementsAre;
using testing::IsEmpty;

/// A red left half, and the background on the right.
class HalfContent : public PanelContent
{
public:
    void Paint(Panel& panel, HDC hdc) override
    {
        ++cPaints;
        SIZE const size = panel.ClientSize();
        HBRUSH const hbr = CreateSolidBrush(0x0000FF);
        FillRect(hdc, {0, 0, size.cx / 2, size.cy}, hbr);
        DeleteObject(hbr);
    }
    [[nodiscard]] COLORREF Background() const override { return 0xC0FFFF; }
    [[nodiscard]] std::string TipAt(Panel&, POINT place) override { return place.x < 50 ? "Crotchet  4" : ""; }
    int32_t cPaints = 0;
};

class DesktopPanel : public DesktopTest
{
protected:
    void SetUp() override
    {
        DesktopTest::SetUp();
        hwndBefore = hwndMain;
        hwndMain = pWindow;
        pPanel = desktop.CreatePanel(setup);
        ASSERT_NE(pPanel, nullptr);
        pPanel->SetPlace({20, 100, 220, 160});
        pPanel->Show(true);
        QApplication::processEvents();
        door.events.clear();
    }
    void TearDown() override { hwndMain = hwndBefore; }

    [[nodiscard]] QWidget* Widget(QString const& sName = QStringLiteral("Half")) const
    {
        for (QWidget* const pWidget : Canvas()->findChildren<QWidget*>())
            if (pWidget->accessibleName() == sName)
                return pWidget;
        return nullptr;
    }
    /// A picture in device pixels; kept where ZARN_PANEL_PICTURES says, to be looked at.
    [[nodiscard]] static QImage Picture(QWidget& widget, QString const& sName)
    {
        QImage const image = widget.grab().toImage();
        if (qEnvironmentVariableIsSet("ZARN_PANEL_PICTURES"))
            image.save(qEnvironmentVariable("ZARN_PANEL_PICTURES") + u'/' + sName + QStringLiteral(".png"));
        return image;
    }

    HalfContent content;
    PanelSetup setup{.sName = "Half", .pContent = &content, .lCloseCommand = 225};
    Panel* pPanel = nullptr;
    HWND hwndBefore = nullptr;
};

TEST_F(DesktopPanel, IsMadeHiddenAndShownWhereItWasPut)
{
    Panel* const pOther = desktop.CreatePanel(setup);
    EXPECT_FALSE(pOther->IsShown());
    EXPECT_TRUE(pPanel->IsShown());
    EXPECT_EQ(pPanel->ClientSize(), (SIZE{200, 60}));
    EXPECT_EQ(Widget()->geometry(), QRect(20, 100, 200, 60));
    pPanel->Show(false);
    EXPECT_FALSE(pPanel->IsShown());
    EXPECT_FALSE(Widget()->isVisible());
}

TEST_F(DesktopPanel, WithoutAWindowThereIsNone)
{
    QtHost bare;
    EXPECT_EQ(bare.CreatePanel(setup), nullptr);
}

TEST_F(DesktopPanel, ItsPictureFillsItToTheLastPixelInsideAFrame)
{
    QImage const image = Picture(*Widget(), QStringLiteral("half"));
    double const ratio = Widget()->devicePixelRatioF();
    EXPECT_EQ(image.width(), static_cast<int>(std::lround(200 * ratio)));
    auto const At = [&](double x, double y)
    { return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio)); };
    EXPECT_EQ(At(30.5, 30.5), QColor(255, 0, 0));
    EXPECT_EQ(At(150.5, 30.5), QColor(255, 255, 0xC0));
    for (QPointF const edge : {QPointF(0.2, 30), QPointF(199.6, 30), QPointF(100, 0.2), QPointF(100, 59.6)})
        EXPECT_EQ(At(edge.x(), edge.y()), QColor(Qt::black)) << edge.x() << " " << edge.y();
}

TEST_F(DesktopPanel, IsPaintedAnewOnlyWhenSomethingChanged)
{
    (void)Picture(*Widget(), QStringLiteral("half"));
    int32_t const cPaints = content.cPaints;
    (void)Picture(*Widget(), QStringLiteral("half"));
    EXPECT_EQ(content.cPaints, cPaints);
    pPanel->Invalidate();
    (void)Picture(*Widget(), QStringLiteral("half"));
    EXPECT_EQ(content.cPaints, cPaints + 1);
    pPanel->SetPlace({20, 100, 240, 160});
    (void)Picture(*Widget(), QStringLiteral("half"));
    EXPECT_EQ(content.cPaints, cPaints + 2);
}

TEST_F(DesktopPanel, ALeftPressIsAClickAndARightPressTheCloseCommand)
{
    QTest::mouseClick(Widget(), Qt::LeftButton, Qt::NoModifier, QPoint(31, 12));
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::PALETTE, .x = 31, .y = 12}));
    door.events.clear();
    QTest::mouseClick(Widget(), Qt::RightButton, Qt::NoModifier, QPoint(31, 12));
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::COMMAND, .lNumber = 225}));
    door.events.clear();
    QTest::mouseClick(Widget(), Qt::MiddleButton, Qt::NoModifier, QPoint(31, 12));
    EXPECT_THAT(door.events, IsEmpty());
}

TEST_F(DesktopPanel, ADoubleClickIsTwoClicks)
{
    QTest::mouseClick(Widget(), Qt::LeftButton, Qt::NoModifier, QPoint(3, 4));
    QTest::mouseDClick(Widget(), Qt::LeftButton, Qt::NoModifier, QPoint(3, 4));
    EXPECT_GE(door.events.size(), 2u);
    for (Event const& event : door.events)
        EXPECT_EQ(event, (Event{.kind = EventKind::PALETTE, .x = 3, .y = 4}));
}

TEST_F(DesktopPanel, APressDraggedOffItMovesThePointerOverTheScore)
{
    QTest::mousePress(Widget(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
    door.events.clear();
    QTest::mouseMove(Widget(), QPoint(40, 30));
    EXPECT_THAT(door.events, IsEmpty());
    QTest::mouseMove(Widget(), QPoint(40, -50));
    EXPECT_THAT(door.events, testing::Contains(Event{.kind = EventKind::MOVE, .x = 60, .y = 50}));
    QTest::mouseRelease(Widget(), Qt::LeftButton, Qt::NoModifier, QPoint(40, -50));
}

TEST_F(DesktopPanel, EnterClicksWhereThePointerIsAndOtherwiseGoesOnToTheScore)
{
    Widget()->setFocus();
    QCursor::setPos(Widget()->mapToGlobal(QPoint(60, 20)));
    QTest::keyClick(Widget(), Qt::Key_Return);
    ASSERT_EQ(door.events.size(), 1u);
    EXPECT_EQ(door.events[0].kind, EventKind::PALETTE);
    EXPECT_NEAR(door.events[0].x, 60, 1); // a scaled screen may put the pointer a pixel off
    door.events.clear();
    QCursor::setPos(Canvas()->mapToGlobal(QPoint(10, 10)));
    QApplication::processEvents();
    door.events.clear();
    QTest::keyClick(Widget(), Qt::Key_Return);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::KEY, .sText = "enter"}));
}

TEST_F(DesktopPanel, AllOtherKeysGoOnToTheScore)
{
    Widget()->setFocus();
    QTest::keyClick(Widget(), Qt::Key_A);
    QTest::keyClick(Widget(), Qt::Key_Left);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::KEY, .sText = "a"},
                                         Event{.kind = EventKind::KEY, .sText = "left"}));
}

TEST_F(DesktopPanel, ASignThatIsNoCommandIsAClickWhereItsKeySays)
{
    Widget()->setFocus();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Q, Qt::NoModifier, 24, 0, 0, QStringLiteral("q"), false, 1);
    QApplication::sendEvent(Widget(), &key);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::PALETTE, .x = 1, .y = 24}));
    door.events.clear();
    QTest::keyClick(Widget(), Qt::Key_Escape);
    QTest::keyClick(Widget(), Qt::Key_2, Qt::ShiftModifier);
    QTest::keyClick(Widget(), Qt::Key_Q, Qt::ControlModifier);
    ASSERT_EQ(door.events.size(), 3u);
    for (Event const& event : door.events)
        EXPECT_EQ(event.kind, EventKind::KEY) << event.sText;
}

TEST_F(DesktopPanel, HiddenWithTheKeysItGivesThemBackToTheScore)
{
    QTest::mouseClick(Widget(), Qt::LeftButton, Qt::NoModifier, QPoint(3, 4));
    ASSERT_TRUE(Widget()->hasFocus());
    pPanel->Show(false);
    EXPECT_TRUE(Canvas()->hasFocus());
}

TEST_F(DesktopPanel, ATipTellsWhatLiesThere)
{
    auto const Hover = [this](QPoint place)
    {
        QHelpEvent help(QEvent::ToolTip, place, Widget()->mapToGlobal(place));
        QApplication::sendEvent(Widget(), &help);
    };
    Hover({10, 10});
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Crotchet  4"));
    Hover({90, 10});
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible() || QToolTip::text().isEmpty(); }));
}

TEST_F(DesktopPanel, ThePointerIsAnArrowAndOverThePianoAnUpArrow)
{
    EXPECT_EQ(Widget()->cursor().shape(), Qt::ArrowCursor);
    setup.pointer = PanelPointer::UPARROW;
    setup.sName = "Up";
    (void)desktop.CreatePanel(setup);
    EXPECT_EQ(Widget(QStringLiteral("Up"))->cursor().shape(), Qt::UpArrowCursor);
}

TEST_F(DesktopPanel, ThePaletteAndThePianoShowTheirPictures)
{
    Host const before = host;
    host.pUser = &desktop;
    Panel* const pPiano = Piano_Create(pWindow);
    Panel* const pPalette = Palette_Create(pWindow);
    host = before;
    ASSERT_TRUE(pPalette && pPiano);
    pPalette->SetPlace({0, 700, 1200, 800});
    pPiano->SetPlace({5, 500, 1195, 695});
    QImage const piano = Picture(*Widget(QStringLiteral("Piano keyboard")), QStringLiteral("piano"));
    QImage const palette = Picture(*Widget(QStringLiteral("Note palette")), QStringLiteral("palette"));
    double const ratio = Frame()->devicePixelRatioF();
    auto const At = [&](QImage const& image, int32_t x, int32_t y)
    { return image.pixelColor(static_cast<int>((x + 0.5) * ratio), static_cast<int>((y + 0.5) * ratio)); };
    EXPECT_EQ(At(piano, 1190 * 22 / 43, 50), QColor(Qt::black));
    EXPECT_EQ(At(piano, 1190 * 22 / 43 + 5, 150), QColor(Qt::white));
    EXPECT_EQ(At(palette, 1200 * 4 / 31, 200 / 6), QColor(Qt::black)); // a crotchet's head
    EXPECT_EQ(At(palette, 1200 * 9 / 31, 50), QColor(255, 255, 0xC0)); // between the groups
}

TEST_F(DesktopPanel, TheSystemsBeepNeedsNoWindow)
{
    QtHost bare;
    bare.Beep();
}
} // namespace zarn
