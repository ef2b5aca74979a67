#include "render/pages.h"

#include "core/score.h"
#include "layout/adjust.h"
#include "render/geometry.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zarn
{
namespace
{
/// Knows how far down anything was drawn.
class InkSurface : public Surface
{
public:
    explicit InkSurface(SIZE size) : size(size) {}
    SIZE Size() const override { return size; }
    void Line(POINT from, POINT to, Pen const&) override { Reach(std::max(from.y, to.y)); }
    void Box(RECT box, Pen const&, Brush const&) override { Reach(box.bottom); }
    void Ellipse(RECT box, Pen const&, Brush const&) override { Reach(box.bottom); }
    void Polygon(std::span<POINT const> points, Pen const&, Brush const&) override
    {
        for (POINT const point : points)
            Reach(point.y);
    }
    void Text(double, double baseline, std::string_view, TextStyle const& style) override
    {
        Reach(static_cast<int32_t>(baseline + style.emPixels / 4)); // with what hangs below the baseline
    }
    void Fill(RECT, COLORREF) override {}

    int32_t lLowest = 0;

private:
    void Reach(int32_t y) { lLowest = std::max(lLowest, y); }
    SIZE size;
};

class InkSink : public PageSink
{
public:
    explicit InkSink(SIZE size) : surface(size) { dc.pSurface = &surface; }
    HDC StartPage(int32_t) override
    {
        SelectObject(&dc, GetStockObject(BLACK_BRUSH));
        surface.lLowest = 0;
        return &dc;
    }
    void EndPage(HDC) override { aLowest.push_back(surface.lLowest); }

    std::vector<int32_t> aLowest; ///< by page
private:
    InkSurface surface;
    DeviceContext dc;
};

class Pages : public testing::Test
{
protected:
    /// A line of music for each text.
    static void WriteLines(std::initializer_list<char const*> lines)
    {
        for (char const* const sLine : lines)
            test::Write(1, std::string(sLine) + " nl");
        FullAdjust();
    }
    static std::vector<int32_t> LowestByPage(int32_t lHeight)
    {
        InkSink sink({1200, lHeight});
        DrawPages(sink, {1200, lHeight, false, 0});
        return sink.aLowest;
    }
    test::DrawingProcess process;
};
} // namespace

TEST_F(Pages, NothingIsCutAtTheFootOfAPage)
{
    WriteLines({"clef:1 n4/48", "n9/48 n11/24 n3/24 n11/24 n11/24", "n-3/48 n-7/24", "n8/24 n5/24 n8/24 n12/24",
                "lyr\"la\" n4/48", "r48 r24 r12", "clef:3 n-8/48 n0/24 n-1/24", "key:-4 n-6/48",
                "n-6/48/flag=64 slur( n-4/48 n-6/48 slur)", "n-8/48/flag=1 tie n-8/48/flag=2"});
    int32_t const lOneSystem = 50 * 800 / 120;
    for (int32_t lHeight = lOneSystem; lHeight < 1000; ++lHeight)
    {
        std::vector<int32_t> const aLowest = LowestByPage(lHeight);
        EXPECT_GT(aLowest.size(), 1U);
        for (int32_t const lLowest : aLowest)
            ASSERT_LE(lLowest, lHeight) << "of " << aLowest.size() << " pages";
    }
}

TEST_F(Pages, ASystemTallerThanThePageHasAPageOfItsOwn)
{
    WriteLines({"clef:1 n4/48", "n4/48", "n4/48"});
    EXPECT_EQ(LowestByPage(60).size(), 3U);
}

} // namespace zarn
