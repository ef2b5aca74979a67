/// A desktop host with a door and a painter that remember.
#pragma once
#include "platform/desktop/qt_host.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zarn
{
class ListeningDoor : public Door
{
public:
    void Receive(Event const& event) override
    {
        events.push_back(event);
        if (pOnEvent)
            pOnEvent(event);
    }
    [[nodiscard]] bool IsAccelerator(Event const& key) const override { return key.sText == "a"; }
    std::vector<Event> events;
    std::function<void(Event const&)> pOnEvent;
};

/// White paper with one black line across, ten pixels from the top.
class LinePainter : public Painter
{
public:
    void Paint(HWND hwnd, HDC hdc) override
    {
        ++cPaints;
        SIZE const size = hwnd->ClientSize();
        FillRect(hdc, {0, 0, size.cx, size.cy}, GetStockObject(WHITE_BRUSH));
        SelectObject(hdc, GetStockObject(BLACK_BRUSH));
        Rectangle(hdc, 0, lLine, size.cx, lLine + 1);
        if (pOnPaint)
            pOnPaint();
    }
    static constexpr int32_t lLine = 10;
    int32_t cPaints = 0;
    std::function<void()> pOnPaint;
};

class DesktopTest : public testing::Test
{
protected:
    void SetUp() override
    {
        desktop.SetDoor(&door);
        pWindow = desktop.CreateMainWindow("Zarn", &painter);
        ASSERT_NE(pWindow, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(Frame()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return painter.cPaints > 0; }));
        QApplication::processEvents();
        door.events.clear();
    }

    [[nodiscard]] QMainWindow* Frame() const { return static_cast<QMainWindow*>(desktop.MainWindow()->Frame()); }
    [[nodiscard]] QWidget* Canvas() const
    {
        for (QWidget* const pWidget : Frame()->centralWidget()->findChildren<QWidget*>())
            if (pWidget->accessibleName() == QStringLiteral("Score"))
                return pWidget;
        return nullptr;
    }

    /// Does it as soon as a dialog stands and has the focus.
    template <typename ACT>
    void WhenAsked(ACT act)
    {
        QTimer::singleShot(0, qApp,
                           [this, act]
                           {
                               QWidget* const pDialog = QApplication::activeModalWidget();
                               if (pDialog && pDialog == QApplication::activeWindow())
                                   act(pDialog);
                               else
                                   WhenAsked(act);
                           });
    }

    QtHost desktop;
    ListeningDoor door;
    LinePainter painter;
    Window* pWindow = nullptr;
};
} // namespace zarn
