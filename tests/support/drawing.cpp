// Drawing into a recorder, and the lists that it is compared with.
#include "support/drawing.h"

#include "layout/place.h"
#include "platform/headless/recording_surface.h"
#include "render/draw_score.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/pages.h"
#include "render/ruled_lines.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace zarn::test
{
namespace
{
constexpr SIZE sizePage{1200, 800};

struct Canvas
{
    RecordingSurface surface{sizePage};
    DeviceContext dc;
    Canvas()
    {
        dc.pSurface = &surface;
        SelectObject(&dc, GetStockObject(BLACK_BRUSH));
        Font_Select(&dc);
    }
};

class RecordingSink : public PageSink
{
public:
    HDC StartPage(int32_t lPage) override
    {
        canvas.surface.aLines.push_back("page " + std::to_string(lPage));
        return &canvas.dc;
    }
    bool EndPage(HDC) override { return true; }
    Canvas canvas;
};
} // namespace

DrawingProcess::DrawingProcess()
{
    SetWindowUnits({0, 0, sizePage.cx, sizePage.cy});
    Font_Renew();
}

DrawingProcess::~DrawingProcess() { Font_Renew(); }

std::string Drawn()
{
    ReGrid();
    Canvas canvas;
    DrawVisible(&canvas.dc, nullptr);
    return canvas.surface.All();
}

std::string DrawnPage()
{
    RecordingSink sink;
    DrawPages(sink, {sizePage.cx, sizePage.cy, false, 0});
    return sink.canvas.surface.All();
}

std::string DrawnSymbol(Element* pel, int32_t lClef, bool bCursor)
{
    RuledLines_Reset();
    Canvas canvas;
    DrawSymbol(&canvas.dc, nullptr, pel, lClef, bCursor);
    return canvas.surface.All();
}

int32_t Count(std::string_view sLines, std::string_view sWord)
{
    int32_t c = 0;
    std::istringstream lines{std::string(sLines)};
    for (std::string sLine; std::getline(lines, sLine);)
        c += sLine.starts_with(sWord);
    return c;
}

void ExpectGolden(std::string const& sName, std::string const& sActual)
{
    std::string const sPath = std::string(ZARN_GOLDEN_DIR) + "/" + sName + ".txt";
    if (std::getenv("ZARN_WRITE_GOLDENS"))
    {
        std::ofstream(sPath) << sActual;
        return;
    }
    std::ifstream file(sPath);
    ASSERT_TRUE(file) << sPath << " is missing";
    std::stringstream expected;
    expected << file.rdbuf();
    EXPECT_EQ(sActual, expected.str()) << "Look at what changed, then write the list anew with ZARN_WRITE_GOLDENS=1.";
}
} // namespace zarn::test
