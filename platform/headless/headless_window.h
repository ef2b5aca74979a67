/// A main window that nobody sees: it remembers what it was told, and paints on any surface.
#pragma once
#include "platform/user.h"

#include <map>
#include <string>
#include <vector>

namespace zarn
{
/// Draws nothing; a size with nothing behind it.
class NullSurface : public Surface
{
public:
    explicit NullSurface(SIZE size) : size(size) {}
    SIZE Size() const override { return size; }
    void Line(POINT, POINT, Pen const&) override {}
    void Box(RECT, Pen const&, Brush const&) override {}
    void Ellipse(RECT, Pen const&, Brush const&) override {}
    void Polygon(std::span<POINT const>, Pen const&, Brush const&) override {}
    void Text(double, double, std::string_view, TextStyle const&) override {}
    void Fill(RECT, COLORREF) override {}

    SIZE size;
};

class HeadlessWindow : public Window
{
public:
    HeadlessWindow(std::string_view sTitle, Painter* pPainter) : sTitle(sTitle), pPainter(pPainter) {}

    SIZE ClientSize() override { return nowhere.size; }
    void SetTitle(std::string_view sText) override { sTitle = sText; }
    std::string Title() override { return sTitle; }
    void Invalidate() override { bRepaintOwed = true; }
    void Update() override;
    HDC BeginDraw() override;
    void EndDraw(HDC hdc) override;
    void SetScrollRange(int32_t lMost) override;
    void SetScrollPlace(int32_t lPlace) override;
    void SetPointer(POINT place) override { pointer = place; }
    POINT Pointer() override { return pointer; }
    void SetWaitPointer(bool bOn) override { bWaitPointer = bOn; }
    HDC BeginCursor() override;
    void EndCursor(HDC hdc, POINT place) override;
    void ShowPointer(PointerShape shown) override { shape = shown; }
    void HidePointer(bool bHidden) override { bPointerHidden = bHidden; }
    void SetStatus(std::string_view sText) override { sStatus = sText; }
    void SetMenu(std::vector<MenuItem> const& aMenu) override;
    void CheckItem(int32_t lCommand, bool bOn) override { items[lCommand].bChecked = bOn; }
    void EnableItem(int32_t lCommand, bool bOn) override { items[lCommand].bGrey = !bOn; }
    void SetItemText(int32_t lCommand, std::string_view sText) override { items[lCommand].sText = sText; }
    void SetModified(bool bOn) override { bModified = bOn; }
    void Destroy() override { bDestroyed = true; }
    void Enable(bool bOn) override { bEnabled = bOn; }
    void Post(void (*pAction)()) override { aPosted.push_back(pAction); } ///< called by the next RunLoop

    /// What a message loop does between two events: pays a repaint that is owed, calls what was posted, and pays what
    /// that left owed.
    void RunLoop();
    void Resize(SIZE size); ///< what a user does to the frame; a repaint is owed
    [[nodiscard]] bool IsChecked(int32_t lCommand) const;
    [[nodiscard]] bool IsGrey(int32_t lCommand) const;
    [[nodiscard]] std::string ItemText(int32_t lCommand) const; ///< empty when there is no such item

    /// Where paints and draws go; null for nowhere. It must outlive the window, or be taken back.
    Surface* pSurface = nullptr;
    int32_t cPaints = 0;      ///< times that the window was painted
    int32_t cDrawsOpen = 0;   ///< surfaces handed out and not yet handed back
    bool bRepaintOwed = true; ///< a new window owes its first paint
    bool bWaitPointer = false;
    PointerShape shape = PointerShape::ARROW;
    bool bPointerHidden = false;
    POINT hotSpot;              ///< of the last symbol pointer
    int32_t cCursors = 0;       ///< symbol pointers made
    Surface* pCursor = nullptr; ///< where the symbol pointer is drawn; null for nowhere
    std::string sStatus;
    bool bEnabled = true;
    bool bModified = false;  ///< what the mark beside the title tells
    bool bDestroyed = false; ///< it stays good as long as its host, and paints no more
    int32_t lScrollRange = 0;
    int32_t lScrollPlace = 0;

private:
    struct Item
    {
        std::string sText;
        bool bChecked = false;
        bool bGrey = false;
    };
    void AddItems(std::vector<MenuItem> const& aMenu);

    std::string sTitle;
    Painter* pPainter = nullptr;
    std::vector<void (*)()> aPosted;
    NullSurface nowhere{{1200, 800}};
    POINT pointer{20, 20};
    std::map<int32_t, Item> items; ///< by command
};
} // namespace zarn
