/// Sheets of paper to look at: one at a time, whole, or all of them one below the other.
#pragma once
#include "platform/print.h"

#include <QAbstractScrollArea>
#include <QImage>

#include <functional>
#include <map>

namespace zarn
{
/// A page is drawn when it comes into sight, between Qt's paints and never inside one, and is forgotten when it is out
/// of sight. Sheets are as large as the view lets them be.
class PageView : public QAbstractScrollArea
{
public:
    explicit PageView(PageSource& pages);
    void ShowPage(int32_t lPage); ///< from 1; held in the range
    void SetContinuous(bool bOn);
    [[nodiscard]] int32_t Page() const { return lPage; } ///< the one that is seen, or the topmost of them

    std::function<void()> onMoved; ///< another page is seen

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    [[nodiscard]] double Zoom() const;
    [[nodiscard]] int Pitch() const; ///< pixels from a sheet to the next
    [[nodiscard]] QRect Place(int32_t lPage) const;
    void SetRange();
    void DrawLater();
    void DrawMissing();
    [[nodiscard]] QImage Picture(int32_t lPage) const;

    PageSource& pages;
    std::map<int32_t, QImage> pictures; ///< of the pages in sight
    int32_t lPage = 1;
    bool bContinuous = false;
    bool bDrawOwed = false;
};
} // namespace zarn
