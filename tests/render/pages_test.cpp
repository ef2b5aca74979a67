#include "render/pages.h"

#include "core/score.h"
#include "layout/adjust.h"
#include "layout/place.h"
#include "layout/right_justify.h"
#include "platform/headless/recording_surface.h"
#include "platform/headless/virtual_printer.h"
#include "platform/page_record.h"
#include "render/document_pages.h"
#include "render/draw_score.h"
#include "render/font.h"
#include "render/geometry.h"
#include "support/drawing.h"
#include "support/random_score.h"
#include "support/score_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

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
    [[nodiscard]] SIZE Size() const { return surface.Size(); }
    HDC StartPage(int32_t) override
    {
        SelectObject(&dc, GetStockObject(BLACK_BRUSH));
        surface.lLowest = 0;
        return &dc;
    }
    bool EndPage(HDC) override
    {
        aLowest.push_back(surface.lLowest);
        return true;
    }

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

TEST_F(Pages, NoScoreOfAnyKindIsCutAtTheFootOfAPage)
{
    std::mt19937 random(20);
    for (int32_t n = 0; n < 60; ++n)
    {
        for (int32_t lStaff = 1; lStaff <= 3; ++lStaff)
            List_Clear(aStaffList[lStaff]);
        SetStaffCount(n % 3 + 1);
        for (int32_t lStaff = 1; lStaff <= n % 3 + 1; ++lStaff)
            test::WriteRandomStaff(random, lStaff, 400);
        bTabShowing = n % 6 == 3;
        bRightJustified = n % 4 == 1;
        FullAdjust();
        InkSink sink(sheetA4.BoxSize());
        int32_t const cPages = DrawPages(sink, {sink.Size().cx, sink.Size().cy, true, 0});
        EXPECT_EQ(static_cast<int32_t>(sink.aLowest.size()), cPages);
        for (int32_t const lLowest : sink.aLowest)
            EXPECT_LE(lLowest, sink.Size().cy) << "score " << n;
    }
    bTabShowing = bRightJustified = false;
}

TEST_F(Pages, AFirstTimeBarGoesOnFromPageToPage)
{
    std::vector<int32_t> aBoxes[2];
    for (int32_t n : {0, 1})
    {
        List_Clear(aStaffList[1]);
        WriteLines({n == 1 ? "clef:1 n4/48 1st n4/48" : "clef:1 n4/48 sp n4/48", "n4/48 n4/48", "n4/48 n4/48 :|",
                    "n4/48 n4/48"});
        VirtualPrinter printer;
        VirtualDocument document("", printer, true);
        EXPECT_EQ(DrawDocument(document, {1200, 300, true, 0}), 4);
        std::string sIgnored;
        ASSERT_TRUE(document.Finish(sIgnored));
        for (std::string const& sPage : printer.aPrinted.at(0).aPages)
            aBoxes[n].push_back(test::Count(sPage, "box"));
    }
    for (size_t nPage = 0; nPage < 4; ++nPage)
        EXPECT_EQ(aBoxes[1][nPage] > aBoxes[0][nPage], nPage < 3) << "page " << nPage + 1;
    EXPECT_EQ(aBoxes[1][1], aBoxes[0][1] + 1);
    EXPECT_EQ(aBoxes[1][2], aBoxes[0][2] + 1);
}

TEST_F(Pages, OneAloneIsTheSameAsAmongTheOthers)
{
    for (int32_t n = 0; n < 30; ++n)
        WriteLines({"clef:1 n4/48 n9/24 text\"x\" n-3/24"});
    VirtualPrinter printer;
    VirtualDocument all("", printer, true);
    int32_t const cPages = DrawDocument(all, {2232, 3158, true, 0});
    std::string sIgnored;
    ASSERT_TRUE(all.Finish(sIgnored));
    ASSERT_GT(cPages, 2);
    for (int32_t lPage = 1; lPage <= cPages; ++lPage)
    {
        VirtualDocument one("", printer, true);
        EXPECT_EQ(DrawDocument(one, {2232, 3158, true, lPage}), cPages);
        ASSERT_TRUE(one.Finish(sIgnored));
        ASSERT_EQ(printer.aPrinted.back().aPages.size(), 1U);
        EXPECT_EQ(printer.aPrinted.back().aPages[0], printer.aPrinted[0].aPages[static_cast<size_t>(lPage) - 1]);
    }
}

TEST_F(Pages, ARecordPlaysWhatItWasDrawn)
{
    WriteLines({"clef:1 key:2 time:4/4 n4/48 n9/24 text\"x\" n-3/24 n-3/24 slur( n-4/48 n-6/48 slur)"});
    PageRecord record({1200, 800});
    RecordingSurface direct({1200, 800});
    for (Surface* const pSurface : {static_cast<Surface*>(&record), static_cast<Surface*>(&direct)})
    {
        DeviceContext dc{.pSurface = pSurface};
        Ellipse(&dc, 1, 2, 30, 40);
        FillRect(&dc, {1, 1, 2, 2}, GetStockObject(BLACK_BRUSH));
        DrawVisible(&dc, nullptr);
    }
    RecordingSurface played({1200, 800});
    record.Play(played);
    EXPECT_EQ(played.aLines, direct.aLines);
    EXPECT_GT(direct.aLines.size(), 20U);
    EXPECT_EQ(record.Size(), (SIZE{1200, 800}));
}
} // namespace zarn
