/// A panel that nobody sees: it remembers where it was put, and paints on any surface.
#pragma once
#include "platform/user.h"

namespace zarn
{
class HeadlessPanel : public Panel
{
public:
    explicit HeadlessPanel(PanelSetup const& setup) : setup(setup) {}

    SIZE ClientSize() override { return {place.right - place.left, place.bottom - place.top}; }
    void Invalidate() override { bRepaintOwed = true; }
    void SetPlace(RECT const& newPlace) override;
    void Show(bool bOn) override;
    [[nodiscard]] bool IsShown() const override { return bShown; }

    /// Fills in the background and paints, as a host with a screen does.
    void PaintOn(Surface& surface);

    PanelSetup setup;
    RECT place;
    bool bRepaintOwed = false;

private:
    bool bShown = false;
};
} // namespace zarn
