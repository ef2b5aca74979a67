/// Glyphs one by one: a column and a row are 8 pixels each, so a head is 14 by 14, a stem 36 long, a thick stroke 4 and
/// a half column or row 4.
#pragma once
#include "platform/headless/recording_surface.h"
#include "render/geometry.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>
#include <string>

namespace zarn::test
{
class GlyphFixture : public testing::Test
{
protected:
    GlyphFixture()
    {
        dc.pSurface = &surface;
        SetCursorScale(8);
        SelectObject(&dc, GetStockObject(BLACK_BRUSH));
    }
    ~GlyphFixture() override
    {
        bPrinting = bPrintScale = false;
        Geometry_Free();
    }

    /// What has been drawn since the last call, a line for each call.
    std::string Taken()
    {
        std::string s = surface.All();
        surface.aLines.clear();
        return s;
    }

    static constexpr int32_t lFarBelow = 100'000; ///< off any page

    ScriptedProcess process;
    RecordingSurface surface{{1200, 960}};
    DeviceContext dc;
};
} // namespace zarn::test
