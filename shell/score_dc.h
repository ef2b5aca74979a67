/// The main window's surface, ready to draw symbols on, for as long as a command runs.
#pragma once
#include "core/messages.h"
#include "platform/user.h"
#include "render/font.h"

namespace zarn
{
class ScoreDC
{
public:
    ScoreDC() : hdc(GetDC(hwndMain))
    {
        if (!hdc)
            return;
        SelectObject(hdc, GetStockObject(BLACK_BRUSH));
        Font_Select(hdc);
    }
    ~ScoreDC() { ReleaseDC(hwndMain, hdc); }
    ScoreDC(ScoreDC const&) = delete;
    ScoreDC& operator=(ScoreDC const&) = delete;
    operator HDC() const { return hdc; } // NOLINT(google-explicit-constructor): it stands for the surface everywhere

private:
    HDC hdc;
};
} // namespace zarn
