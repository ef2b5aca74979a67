// The unseen panel.
#include "platform/headless/headless_panel.h"

namespace zarn
{
void HeadlessPanel::SetPlace(RECT const& newPlace)
{
    place = newPlace;
    bRepaintOwed = true;
}

void HeadlessPanel::Show(bool bOn)
{
    bRepaintOwed = bRepaintOwed || (bOn && !bShown);
    bShown = bOn;
}

void HeadlessPanel::PaintOn(Surface& surface)
{
    bRepaintOwed = false;
    SIZE const size = ClientSize();
    surface.Fill({0, 0, size.cx, size.cy}, setup.pContent->Background());
    DeviceContext dc{.pSurface = &surface};
    setup.pContent->Paint(*this, &dc);
}
} // namespace zarn
