/// A panel as a widget in front of the canvas.
#pragma once
#include "platform/desktop/canvas.h"
#include "platform/user.h"

#include <QImage>

namespace zarn
{
/// Its picture is kept in an image of the screen's own pixels, made anew when something has changed. A press gives it
/// the keys, of which it keeps Enter while the pointer is in it, and the signs that are nothing to the score; all
/// others go on to that.
class PanelWidget : public QWidget, public Panel
{
public:
    PanelWidget(Canvas& canvas, CanvasOwner& owner, PanelSetup const& setup);

    SIZE ClientSize() override { return {width(), height()}; }
    void Invalidate() override;
    void SetPlace(RECT const& place) override;
    void Show(bool bOn) override;
    [[nodiscard]] bool IsShown() const override { return !isHidden(); }

protected:
    bool event(QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent*) override {} // the press was all
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override { mousePressEvent(pEvent); }
    bool focusNextPrevChild(bool) override { return false; } // TAB is a key like any other

private:
    [[nodiscard]] bool IsMereCharacter(QKeyEvent const& key) const;
    [[nodiscard]] static POINT KeyData(QKeyEvent const& key);
    void Click(POINT place);
    void RenewImage();

    Canvas& canvas;
    CanvasOwner& owner;
    PanelSetup setup;
    QImage image; ///< of device pixels; its own ratio stays 1
    double imageScale = 1;
    bool bRepaintOwed = true;
};
} // namespace zarn
