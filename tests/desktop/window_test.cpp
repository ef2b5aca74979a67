// The main window under real events.
#include "desktop/window_fixture.h"

#include "platform/journal_host.h"

#include <QAbstractButton>
#include <QDropEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QUrl>
#include <QWheelEvent>
#include <fstream>

namespace zarn
{
using testing::ElementsAre;
using testing::IsEmpty;

using DesktopWindow = DesktopTest;

TEST_F(DesktopWindow, TellsItsSizeOnceItIsShownAndWheneverItChanges)
{
    Frame()->showNormal();
    Frame()->resize(500, 400);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !door.events.empty(); }));
    QApplication::processEvents();
    SIZE const size = pWindow->ClientSize();
    EXPECT_EQ(door.events.back(), (Event{.kind = EventKind::SIZE, .x = size.cx, .y = size.cy}));
    EXPECT_EQ(size.cx, Canvas()->width());
    EXPECT_GT(size.cy, 200);
}

/// Notes how often the program had painted when Qt first painted the canvas.
class FirstFrame : public QObject
{
public:
    explicit FirstFrame(LinePainter const& painter) : painter(painter) {}
    int32_t cPaintsAhead = -1;

private:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::Paint && cPaintsAhead < 0)
            cPaintsAhead = painter.cPaints;
        return QObject::eventFilter(pObject, pEvent);
    }
    LinePainter const& painter;
};

TEST(DesktopStart, AWindowUpdatedBeforeItIsShownHasItsContentsInTheFirstFrame)
{
    QtHost desktop;
    LinePainter painter;
    HWND const hwnd = desktop.CreateMainWindow("Zarn", &painter);
    ASSERT_NE(hwnd, nullptr);
    QMainWindow* const pFrame = static_cast<QMainWindow*>(desktop.MainWindow()->Frame());
    FirstFrame watch(painter);
    for (QWidget* const pWidget : pFrame->centralWidget()->findChildren<QWidget*>())
        pWidget->installEventFilter(&watch);
    hwnd->Update();
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch.cPaintsAhead >= 0; }));
    EXPECT_EQ(watch.cPaintsAhead, 1);
}

static int32_t cPostedActions = 0;

TEST_F(DesktopWindow, WhatIsPostedRunsLaterAndOnce)
{
    cPostedActions = 0;
    pWindow->Post([] { ++cPostedActions; });
    EXPECT_EQ(cPostedActions, 0);
    QApplication::processEvents();
    QApplication::processEvents();
    EXPECT_EQ(cPostedActions, 1);
}

TEST_F(DesktopWindow, ARepaintThatIsOwedIsPaidOnce)
{
    int32_t const cBefore = painter.cPaints;
    for (int32_t i = 0; i < 5; ++i)
        pWindow->Invalidate();
    EXPECT_EQ(painter.cPaints, cBefore) << "not before the program has done its work";
    QApplication::processEvents();
    EXPECT_EQ(painter.cPaints, cBefore + 1);
    pWindow->Update();
    EXPECT_EQ(painter.cPaints, cBefore + 1) << "nothing is owed";
    pWindow->Invalidate();
    pWindow->Update();
    EXPECT_EQ(painter.cPaints, cBefore + 2);
    QApplication::processEvents();
    EXPECT_EQ(painter.cPaints, cBefore + 2);
}

TEST_F(DesktopWindow, ABoxPutUpByAPaintIsAnsweredLikeAnyOther)
{
    int32_t lAnswer = 0;
    painter.pOnPaint = [&]
    {
        painter.pOnPaint = nullptr;
        lAnswer = desktop.MessageBox("Trouble", "Zarn Message", MB_OK | MB_ICONSTOP);
    };
    WhenAsked([](QWidget* pBox) { QTest::keyClick(pBox, Qt::Key_Return); });
    pWindow->Invalidate();
    ASSERT_TRUE(QTest::qWaitFor([&] { return lAnswer != 0; }));
    EXPECT_EQ(lAnswer, IDOK);
}

/// The canvas as the screen shows it, in device pixels.
static QImage Shown(QMainWindow& frame, QWidget& canvas)
{
    double const ratio = frame.devicePixelRatioF();
    QImage const all = frame.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QPoint const corner = canvas.mapTo(&frame, QPoint(0, 0));
    return all.copy(QRect((QPointF(corner) * ratio).toPoint(), (QSizeF(canvas.size()) * ratio).toSize()));
}

TEST_F(DesktopWindow, AStaffLineIsCrispOnTheScreen)
{
    QImage const image = Shown(*Frame(), *Canvas());
    double const ratio = Frame()->devicePixelRatioF();
    int cBlack = 0;
    int cGrey = 0;
    int const lBelow = static_cast<int>(ratio * (LinePainter::lLine + 5));
    for (int y = 3; y < lBelow; ++y)
    {
        QRgb const pixel = image.pixel(image.width() / 2, y);
        cBlack += pixel == qRgb(0, 0, 0);
        cGrey += pixel != qRgb(0, 0, 0) && pixel != qRgb(255, 255, 255);
    }
    EXPECT_EQ(cGrey, 0);
    EXPECT_EQ(cBlack, std::round(ratio));
}

TEST_F(DesktopWindow, ADirectDrawShowsWithoutARepaint)
{
    int32_t const cBefore = painter.cPaints;
    HDC const hdc = pWindow->BeginDraw();
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    Rectangle(hdc, 50, 50, 100, 100);
    pWindow->EndDraw(hdc);
    QApplication::processEvents();
    QImage const image = Shown(*Frame(), *Canvas());
    int const lInside = static_cast<int>(75 * Frame()->devicePixelRatioF());
    EXPECT_EQ(image.pixel(lInside, lInside), qRgb(0, 0, 0));
    EXPECT_EQ(painter.cPaints, cBefore);
}

namespace
{
/// What a widget was asked to paint.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget& widget) : widget(widget) { widget.installEventFilter(this); }
    ~PaintWatch() override { widget.removeEventFilter(this); }
    bool eventFilter(QObject*, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::Paint)
            painted |= static_cast<QPaintEvent*>(pEvent)->region().boundingRect();
        return false;
    }
    QRect painted;

private:
    QWidget& widget;
};
} // namespace

TEST_F(DesktopWindow, ADirectDrawPutsNoMoreOnTheScreenThanItTouched)
{
    QApplication::processEvents();
    PaintWatch const watch(*Canvas());
    pWindow->EndDraw(pWindow->BeginDraw());
    QApplication::processEvents();
    EXPECT_TRUE(watch.painted.isEmpty()) << "nothing was drawn";
    HDC const hdc = pWindow->BeginDraw();
    SelectObject(hdc, GetStockObject(BLACK_BRUSH));
    Ellipse(hdc, 50, 50, 100, 90);
    pWindow->EndDraw(hdc);
    QApplication::processEvents();
    EXPECT_TRUE(watch.painted.contains(QRect(50, 50, 50, 40)));
    EXPECT_TRUE(QRect(40, 40, 70, 60).contains(watch.painted))
        << watch.painted.width() << "x" << watch.painted.height();
}

TEST_F(DesktopWindow, TheShapeThatIsThereIsNotSetAgain)
{
    pWindow->ShowPointer(PointerShape::CROSS);
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::CrossCursor);
    Canvas()->setCursor(Qt::WaitCursor);
    pWindow->ShowPointer(PointerShape::CROSS);
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::WaitCursor);
    pWindow->ShowPointer(PointerShape::UP);
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::UpArrowCursor);
    pWindow->HidePointer(true);
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::BlankCursor);
    pWindow->ShowPointer(PointerShape::CROSS);
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::BlankCursor);
    pWindow->HidePointer(false);
    EXPECT_EQ(Canvas()->cursor().shape(), Qt::CrossCursor);
}

TEST_F(DesktopWindow, DrawsMayOverlapEachOtherAndAPaint)
{
    HDC const first = pWindow->BeginDraw();
    HDC const second = pWindow->BeginDraw();
    pWindow->Invalidate();
    pWindow->Update();
    EXPECT_TRUE(Rectangle(first, 0, 0, 5, 5));
    pWindow->EndDraw(first);
    EXPECT_TRUE(Rectangle(second, 0, 0, 5, 5));
    pWindow->EndDraw(second);
    pWindow->EndDraw(nullptr);
}

TEST_F(DesktopWindow, TheCloseButtonAsksAndDestroyEnds)
{
    EXPECT_FALSE(Frame()->close());
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::CLOSE}));
    EXPECT_TRUE(Frame()->isVisible());
    pWindow->Destroy();
    EXPECT_FALSE(Frame()->isVisible());
    door.events.clear();
    Frame()->close();
    EXPECT_THAT(door.events, IsEmpty());
}

TEST_F(DesktopWindow, TheTitleStandsAsItIs)
{
    pWindow->SetTitle("Greensleeves (from file 'tunes.abc')");
    EXPECT_EQ(pWindow->Title(), "Greensleeves (from file 'tunes.abc')");
    pWindow->SetTitle("");
    EXPECT_EQ(pWindow->Title(), "");
    pWindow->SetTitle("M\xE4"
                      "dchen");
    EXPECT_EQ(pWindow->Title(), "Mädchen");
}

TEST_F(DesktopWindow, EndingTheProgramEndsTheLoopWithItsCode)
{
    QTimer::singleShot(0, qApp, [this] { desktop.Quit(3); });
    EXPECT_EQ(desktop.Run(), 3);
}

TEST_F(DesktopWindow, EndingBeforeTheLoopLeavesItOut)
{
    desktop.Quit(0);
    EXPECT_EQ(desktop.Run(), 0);
}

// Keys

TEST_F(DesktopWindow, EveryKeyHasItsName)
{
    struct
    {
        int lKey;
        Qt::KeyboardModifiers modifiers;
        Event event;
    } const aCase[] = {
        {Qt::Key_A, Qt::NoModifier, {.sText = "a"}},
        {Qt::Key_A, Qt::ShiftModifier, {.fShift = true, .sText = "a"}},
        {Qt::Key_N, Qt::ControlModifier, {.fCtrl = true, .sText = "n"}},
        {Qt::Key_7, Qt::NoModifier, {.sText = "7"}},
        {Qt::Key_Ampersand, Qt::ShiftModifier, {.fShift = true, .sText = "7"}},
        {Qt::Key_ParenRight, Qt::ShiftModifier, {.fShift = true, .sText = "0"}},
        {Qt::Key_NumberSign, Qt::NoModifier, {.sText = "#"}},
        {Qt::Key_Less, Qt::ShiftModifier, {.fShift = true, .sText = "<"}},
        {Qt::Key_BraceRight, Qt::ShiftModifier, {.fShift = true, .sText = "}"}},
        {Qt::Key_Semicolon, Qt::NoModifier, {.sText = ";"}},
        {Qt::Key_Plus, Qt::AltModifier, {.fAlt = true, .sText = "+"}},
        {Qt::Key_Plus, Qt::KeypadModifier, {.sText = "+"}},
        {Qt::Key_Minus, Qt::NoModifier, {.sText = "-"}},
        {Qt::Key_Left, Qt::NoModifier, {.sText = "left"}},
        {Qt::Key_PageDown, Qt::ControlModifier, {.fCtrl = true, .sText = "pagedown"}},
        {Qt::Key_Return, Qt::ControlModifier, {.fCtrl = true, .sText = "enter"}},
        {Qt::Key_Enter, Qt::KeypadModifier, {.sText = "enter"}},
        {Qt::Key_Escape, Qt::NoModifier, {.sText = "esc"}},
        {Qt::Key_Tab, Qt::NoModifier, {.sText = "tab"}},
        {Qt::Key_Backtab, Qt::ShiftModifier, {.fShift = true, .sText = "tab"}},
        {Qt::Key_Space, Qt::NoModifier, {.sText = "space"}},
        {Qt::Key_Backspace, Qt::NoModifier, {.sText = "backspace"}},
        {Qt::Key_Delete, Qt::NoModifier, {.sText = "delete"}},
        {Qt::Key_F1, Qt::NoModifier, {.sText = "f1"}},
        {Qt::Key_F12, Qt::NoModifier, {.sText = "f12"}},
    };
    for (auto const& c : aCase)
    {
        door.events.clear();
        QTest::keyClick(Canvas(), static_cast<Qt::Key>(c.lKey), c.modifiers);
        Event expected = c.event;
        expected.kind = EventKind::KEY;
        EXPECT_THAT(door.events, ElementsAre(expected)) << c.event.sText;
    }
}

TEST_F(DesktopWindow, ADigitOfTheMainRowGoesByItsPlaceOnTheKeyboard)
{
    // On a German keyboard SHIFT and 7 make a slash.
    constexpr quint32 lScanCodeOf7 = 16;
    QKeyEvent slash(QEvent::KeyPress, Qt::Key_Slash, Qt::ShiftModifier, lScanCodeOf7, 0, 0, QStringLiteral("/"));
    QApplication::sendEvent(Canvas(), &slash);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::KEY, .fShift = true, .sText = "7"}));
}

TEST_F(DesktopWindow, ASignMadeWithTheRightHandAltIsJustThatSign)
{
    QKeyEvent brace(QEvent::KeyPress, Qt::Key_BraceRight, Qt::ControlModifier | Qt::AltModifier, QStringLiteral("}"));
    QApplication::sendEvent(Canvas(), &brace);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::KEY, .sText = "}"}));
}

TEST_F(DesktopWindow, KeysWithoutANameStayUnsaid)
{
    QTest::keyClick(Canvas(), Qt::Key_Shift);
    QTest::keyClick(Canvas(), Qt::Key_VolumeUp);
    QTest::keyClick(Canvas(), Qt::Key_Adiaeresis);
    EXPECT_THAT(door.events, IsEmpty());
}

// Mouse

TEST_F(DesktopWindow, ButtonsAndMovesComeInClientPixels)
{
    QTest::mouseMove(Canvas(), QPoint(40, 50));
    QTest::mouseClick(Canvas(), Qt::LeftButton, {}, QPoint(40, 50));
    QTest::mouseClick(Canvas(), Qt::RightButton, {}, QPoint(60, 70));
    QTest::mouseClick(Canvas(), Qt::MiddleButton, {}, QPoint(60, 70));
    std::vector<Event> buttons;
    for (Event const& event : door.events)
        if (event.kind != EventKind::MOVE)
            buttons.push_back(event);
    EXPECT_THAT(buttons, ElementsAre(Event{.kind = EventKind::LEFTDOWN, .x = 40, .y = 50},
                                     Event{.kind = EventKind::LEFTUP, .x = 40, .y = 50},
                                     Event{.kind = EventKind::RIGHTDOWN, .x = 60, .y = 70},
                                     Event{.kind = EventKind::RIGHTUP, .x = 60, .y = 70}));
    Event const& move = door.events.front();
    EXPECT_EQ(move.kind, EventKind::MOVE);
    EXPECT_NEAR(move.x, 40, 1); // a scaled screen may put the pointer a pixel off
    EXPECT_NEAR(move.y, 50, 1);
}

TEST_F(DesktopWindow, TheSecondPressOfADoubleClickIsAPress)
{
    QPointF const place(40, 50);
    QMouseEvent second(QEvent::MouseButtonDblClick, place, Canvas()->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                       Qt::NoModifier);
    QApplication::sendEvent(Canvas(), &second);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::LEFTDOWN, .x = 40, .y = 50}));
}

TEST_F(DesktopWindow, ThePointerStandsWhereTheProgramPutIt)
{
    for (POINT const place : {POINT{20, 20}, POINT{111, 77}, POINT{300, 201}})
    {
        pWindow->SetPointer(place);
        QApplication::processEvents();
        EXPECT_EQ(pWindow->Pointer(), place);
    }
    EXPECT_THAT(door.events, IsEmpty()) << "moved by the program, not by the user";
}

TEST_F(DesktopWindow, TheMouseTakesThePointerAwayAgain)
{
    pWindow->SetPointer({100, 100});
    QTest::mouseMove(Canvas(), QPoint(150, 120));
    QApplication::processEvents();
    ASSERT_FALSE(door.events.empty());
    EXPECT_EQ(door.events.back().kind, EventKind::MOVE);
    EXPECT_NEAR(door.events.back().x, 150, 1) << "scaled screens may report the next pixel";
    EXPECT_NEAR(door.events.back().y, 120, 1);
}

TEST(DesktopStart, WhereTheSystemsPointerCantBeMovedTheWindowDrawsItsOwn)
{
    ListeningDoor door;
    LinePainter painter;
    QtWindow window("Zarn", &painter, &door, false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !door.events.empty() && painter.cPaints > 0; }));
    QWidget* pCanvas = nullptr;
    for (QWidget* const pWidget : window.Frame()->findChildren<QWidget*>())
        if (pWidget->accessibleName() == QStringLiteral("Score"))
            pCanvas = pWidget;
    ASSERT_NE(pCanvas, nullptr);
    auto const IsBlack = [&](QPoint place)
    {
        double const ratio = pCanvas->devicePixelRatioF();
        QImage const image = pCanvas->grab().toImage();
        return image.pixelColor((QPointF(place) * ratio).toPoint()).lightness() < 100;
    };
    QTest::mouseMove(pCanvas, QPoint(300, 300));
    QApplication::processEvents();
    door.events.clear();

    window.ShowPointer(PointerShape::CROSS);
    EXPECT_EQ(pCanvas->cursor().shape(), Qt::CrossCursor);
    for (POINT const place : {POINT{100, 100}, POINT{140, 120}})
    {
        window.SetPointer(place);
        QApplication::processEvents();
        EXPECT_EQ(window.Pointer(), place);
        EXPECT_EQ(pCanvas->cursor().shape(), Qt::BlankCursor);
        EXPECT_TRUE(IsBlack({place.x - 5, place.y}) && IsBlack({place.x, place.y + 5}));
    }
    EXPECT_FALSE(IsBlack({95, 100})) << "where it stood before";
    EXPECT_THAT(door.events, IsEmpty());

    QTest::mouseClick(pCanvas, Qt::LeftButton, Qt::NoModifier, QPoint(300, 300));
    EXPECT_THAT(door.events, testing::Contains(Event{.kind = EventKind::LEFTDOWN, .x = 140, .y = 120}))
        << "a click means the pointer that can be seen";

    QTest::mouseMove(pCanvas, QPoint(320, 310));
    QApplication::processEvents();
    EXPECT_EQ(pCanvas->cursor().shape(), Qt::CrossCursor) << "the mouse takes it over";
    EXPECT_FALSE(IsBlack({135, 120}));
    EXPECT_EQ(door.events.back().kind, EventKind::MOVE);
    EXPECT_NEAR(door.events.back().x, 320, 1); // a scaled screen may put it a pixel off
    EXPECT_NEAR(door.events.back().y, 310, 1);
}

TEST_F(DesktopWindow, TheWheelScrollsALineForEachNotch)
{
    QPointF const place(50, 50);
    auto const turn = [&](int lEighths)
    {
        QWheelEvent wheel(place, Canvas()->mapToGlobal(place), {}, QPoint(0, lEighths), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(Canvas(), &wheel);
    };
    turn(-120);
    turn(60);
    turn(60);
    EXPECT_THAT(door.events,
                ElementsAre(Event{.kind = EventKind::SCROLL, .lNumber = static_cast<int32_t>(ScrollAction::LINEDOWN)},
                            Event{.kind = EventKind::SCROLL, .lNumber = static_cast<int32_t>(ScrollAction::LINEUP)}));
}

TEST_F(DesktopWindow, TheScrollBarSaysWhatWasAskedAndMovesOnlyForTheProgram)
{
    auto* const pBar = Frame()->findChild<QScrollBar*>();
    ASSERT_NE(pBar, nullptr);
    pWindow->SetScrollRange(50);
    pWindow->SetScrollPlace(10);
    EXPECT_EQ(pBar->value(), 10);
    struct
    {
        QAbstractSlider::SliderAction action;
        ScrollAction told;
    } const aCase[] = {{QAbstractSlider::SliderSingleStepAdd, ScrollAction::LINEDOWN},
                       {QAbstractSlider::SliderSingleStepSub, ScrollAction::LINEUP},
                       {QAbstractSlider::SliderPageStepAdd, ScrollAction::PAGEDOWN},
                       {QAbstractSlider::SliderPageStepSub, ScrollAction::PAGEUP}};
    for (auto const& c : aCase)
    {
        door.events.clear();
        pBar->triggerAction(c.action);
        EXPECT_THAT(door.events,
                    ElementsAre(Event{.kind = EventKind::SCROLL, .lNumber = static_cast<int32_t>(c.told)}));
        EXPECT_EQ(pBar->value(), 10);
    }
    door.events.clear();
    door.pOnEvent = [this](Event const& event) { pWindow->SetScrollPlace(event.x); };
    pBar->setSliderDown(true);
    pBar->setSliderPosition(30);
    pBar->triggerAction(QAbstractSlider::SliderMove);
    EXPECT_EQ(door.events.back(),
              (Event{.kind = EventKind::SCROLL, .lNumber = static_cast<int32_t>(ScrollAction::THUMB), .x = 30}));
    EXPECT_EQ(pBar->value(), 30);
}

TEST_F(DesktopWindow, ADroppedFileIsOpened)
{
    QMimeData data;
    data.setUrls(
        {QUrl(QStringLiteral("https://example.org/a.abc")), QUrl::fromLocalFile(QStringLiteral("/tmp/a b.zrn"))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Canvas(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Canvas(), &drop);
    EXPECT_THAT(door.events, IsEmpty()) << "the drop ends first";
    QApplication::processEvents();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !door.events.empty(); }));
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::OPEN, .sText = "/tmp/a b.zrn"}));
}

TEST_F(DesktopWindow, ADroppedLinkIsRefused)
{
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("https://example.org/a.abc"))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QApplication::sendEvent(Canvas(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

// Menus

static std::vector<MenuItem> SmallMenu()
{
    return {{0,
             "&File",
             false,
             {{1, "&New...\tCtrl+n"}, {}, {2, "Mark &Begin\t<", true}, {0, "S&ub", false, {{7, "Staff &1"}}}}}};
}

static QAction* Find(QMainWindow& frame, QString const& sText)
{
    for (QAction* const pAction : frame.menuBar()->findChildren<QAction*>())
        if (pAction->text() == sText)
            return pAction;
    return nullptr;
}

TEST_F(DesktopWindow, AMenuTableBecomesMenus)
{
    pWindow->SetMenu(SmallMenu());
    ASSERT_EQ(Frame()->menuBar()->actions().size(), 1);
    QMenu* const pFile = Frame()->menuBar()->actions().constFirst()->menu();
    ASSERT_NE(pFile, nullptr);
    ASSERT_EQ(pFile->actions().size(), 4);
    EXPECT_EQ(pFile->actions()[0]->text(), QStringLiteral("&New...\tCtrl+n"));
    EXPECT_TRUE(pFile->actions()[0]->shortcut().isEmpty());
    EXPECT_TRUE(pFile->actions()[1]->isSeparator());
    EXPECT_FALSE(pFile->actions()[2]->isEnabled());
    EXPECT_NE(pFile->actions()[3]->menu(), nullptr);
    Find(*Frame(), QStringLiteral("Staff &1"))->trigger();
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::COMMAND, .lNumber = 7}));
}

TEST_F(DesktopWindow, MenuItemsAreCheckedGreyedAndRenamedByTheirCommand)
{
    pWindow->SetMenu(SmallMenu());
    QAction* const pStaff = Find(*Frame(), QStringLiteral("Staff &1"));
    ASSERT_NE(pStaff, nullptr);
    pWindow->CheckItem(7, true);
    EXPECT_TRUE(pStaff->isChecked());
    pStaff->trigger();
    EXPECT_TRUE(pStaff->isChecked()) << "the program hasn't said otherwise";
    pWindow->CheckItem(7, false);
    EXPECT_FALSE(pStaff->isChecked());
    pWindow->EnableItem(7, false);
    EXPECT_FALSE(pStaff->isEnabled());
    pWindow->SetItemText(7, "Left margin percent (10)...");
    EXPECT_EQ(pStaff->text(), QStringLiteral("Left margin percent (10)..."));
    pWindow->CheckItem(99, true); // no such item
}

TEST_F(DesktopWindow, AMenuIsWorkedByItsLetters)
{
    pWindow->SetMenu(SmallMenu());
    QTest::keyClick(Frame(), Qt::Key_F, Qt::AltModifier);
    QWidget* const pMenu = QApplication::activePopupWidget();
    ASSERT_NE(pMenu, nullptr);
    QTest::keyClick(pMenu, Qt::Key_N);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::COMMAND, .lNumber = 1}));
}

TEST_F(DesktopWindow, AKeyOfTheMenuGoesToTheProgramAsAKey)
{
    pWindow->SetMenu(SmallMenu());
    QTest::keyClick(Canvas(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_THAT(door.events, ElementsAre(Event{.kind = EventKind::KEY, .fCtrl = true, .sText = "n"}));
}

// The rest

TEST_F(DesktopWindow, AScreenReaderFindsTheScoreAndTheBar)
{
    EXPECT_NE(Canvas(), nullptr);
    EXPECT_FALSE(Frame()->findChild<QScrollBar*>()->accessibleName().isEmpty());
}

TEST_F(DesktopWindow, TheWaitPointerComesAndGoes)
{
    pWindow->SetWaitPointer(true);
    pWindow->SetWaitPointer(true);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    pWindow->SetWaitPointer(false);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopWindow, AnEveningIsWrittenDownInAJournal)
{
    QTemporaryDir const folder;
    std::string const sPath = folder.filePath(QStringLiteral("evening.journal")).toStdString();
    JournalWriter journal;
    ASSERT_TRUE(journal.Open(sPath));
    QtHost recorded;
    JournalHost recorder(recorded, door, journal);
    recorded.SetDoor(&recorder);
    Window* const pRecorded = recorder.CreateMainWindow("Zarn", &painter);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !door.events.empty(); }));
    SIZE const size = pRecorded->ClientSize();
    door.pOnEvent = [&](Event const&)
    { EXPECT_EQ(recorder.MessageBox("Save Now?", "Zarn Message", MB_YESNOCANCEL | MB_ICONQUESTION), IDNO); };
    WhenAsked([](QWidget* pBox) { qobject_cast<QMessageBox*>(pBox)->button(QMessageBox::No)->click(); });
    EXPECT_FALSE(recorded.MainWindow()->Frame()->close());
    std::ifstream file(sPath);
    std::string const sWritten{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(sWritten, "size " + std::to_string(size.cx) + " " + std::to_string(size.cy) + "\nanswer no\nclose\n");
}
} // namespace zarn
