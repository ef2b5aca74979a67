// Drawing for the fuzz targets: on the screen, right-justified, and on paper.
#include "fuzz/draw_all.h"

#include "layout/place.h"
#include "layout/right_justify.h"
#include "midi/play_list.h"
#include "midi/play_times.h"
#include "midi/refresh_pitches.h"
#include "midi/repeats.h"
#include "platform/headless/headless_window.h"
#include "render/draw_score.h"
#include "render/font.h"
#include "render/pages.h"

namespace zarn
{
namespace
{
constexpr SIZE sizeScreen{1200, 800};

class NullSink : public PageSink
{
public:
    HDC StartPage(int32_t) override
    {
        dc = DeviceContext{};
        dc.pSurface = &surface;
        return &dc;
    }
    bool EndPage(HDC) override { return ++cPages < cMostPages; }

private:
    static constexpr int32_t cMostPages = 50; ///< a thousand pages show nothing that fifty don't

    int32_t cPages = 0;
    NullSurface surface{{2480, 3508}};
    DeviceContext dc;
};

void DrawScreen()
{
    NullSurface surface(sizeScreen);
    DeviceContext dc;
    dc.pSurface = &surface;
    SelectObject(&dc, GetStockObject(BLACK_BRUSH));
    Font_Select(&dc);
    DrawVisible(&dc, nullptr);
}

void DrawPaper()
{
    NullSink sink;
    DrawPages(sink, {2480, 3508, true, 0});
}
} // namespace

void DrawAll()
{
    ReGrid();
    DrawScreen();
    bRightJustified = true;
    DrawScreen();
    bRightJustified = false;
    ReGrid();
    DrawPaper();
    bRightJustified = true;
    DrawPaper();
    bRightJustified = false;
    ReGrid();
    RefreshPitches(lHighestStaff);
    Score_BalanceRepeats(true);
    PlayRecords listPlay;
    BuildPlayList(listPlay, lHighestStaff, 0, PlayStyle{}, afPlay);
    SetPlayTimes(listPlay);
    Score_StripAddedRepeats();
}
} // namespace zarn
