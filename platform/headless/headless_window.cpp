// The unseen window.
#include "platform/headless/headless_window.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace zarn
{
void HeadlessWindow::RunLoop()
{
    Update();
    for (void (*const pAction)() : std::exchange(aPosted, {}))
        pAction();
    Update();
}

void HeadlessWindow::Update()
{
    if (!bRepaintOwed || bDestroyed)
        return;
    bRepaintOwed = false; // a painter may well invalidate again
    ++cPaints;
    if (!pPainter)
        return;
    HDC const hdc = BeginDraw();
    pPainter->Paint(this, hdc);
    EndDraw(hdc);
}

HDC HeadlessWindow::BeginDraw()
{
    ++cDrawsOpen;
    auto pContext = std::make_unique<DeviceContext>();
    pContext->pSurface = pSurface ? pSurface : &nowhere;
    return pContext.release();
}

void HeadlessWindow::EndDraw(HDC hdc)
{
    if (!hdc)
        return;
    --cDrawsOpen;
    delete hdc;
}

HDC HeadlessWindow::BeginCursor()
{
    HDC const hdc = BeginDraw();
    if (pCursor)
        hdc->pSurface = pCursor;
    return hdc;
}

void HeadlessWindow::EndCursor(HDC hdc, POINT place)
{
    EndDraw(hdc);
    hotSpot = place;
    shape = PointerShape::SYMBOL;
    ++cCursors;
}

void HeadlessWindow::SetScrollRange(int32_t lMost)
{
    lScrollRange = lMost;
    SetScrollPlace(lScrollPlace);
}

void HeadlessWindow::SetScrollPlace(int32_t lPlace) { lScrollPlace = std::clamp(lPlace, 0, lScrollRange); }

void HeadlessWindow::SetMenu(std::vector<MenuItem> const& aMenu)
{
    items.clear();
    AddItems(aMenu);
}

void HeadlessWindow::AddItems(std::vector<MenuItem> const& aMenu)
{
    for (MenuItem const& item : aMenu)
    {
        if (item.lCommand != 0)
            items[item.lCommand] = {item.sLabel ? item.sLabel : "", false, item.bGrey};
        AddItems(item.aItems);
    }
}

void HeadlessWindow::Resize(SIZE size)
{
    nowhere.size = size;
    bRepaintOwed = true;
}

bool HeadlessWindow::IsChecked(int32_t lCommand) const
{
    auto const found = items.find(lCommand);
    return found != items.end() && found->second.bChecked;
}

bool HeadlessWindow::IsGrey(int32_t lCommand) const
{
    auto const found = items.find(lCommand);
    return found != items.end() && found->second.bGrey;
}

std::string HeadlessWindow::ItemText(int32_t lCommand) const
{
    auto const found = items.find(lCommand);
    return found != items.end() ? found->second.sText : std::string();
}
} // namespace zarn
