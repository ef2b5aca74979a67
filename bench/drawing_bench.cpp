// Drawing: one paint of the window's first page (painting walks on to the end), and all pages of a score.
#include "score_bench.h"

#include "platform/headless/recording_surface.h"
#include "platform/svg.h"
#include "render/draw_score.h"
#include "render/pages.h"

namespace zarn::bench
{
constexpr SIZE sizeWindow{1200, 800};

static void PaintToRecorder(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
    {
        RecordingSurface surface(sizeWindow);
        DeviceContext dc{.pSurface = &surface};
        DrawVisible(&dc, nullptr);
        benchmark::DoNotOptimize(surface.aLines.size());
    }
    CountNotes(state);
}
BENCHMARK(PaintToRecorder)->Apply(AgreedSizes);

namespace
{
class SvgSink : public PageSink
{
public:
    HDC StartPage(int32_t) override
    {
        dc = DeviceContext{};
        dc.pSurface = document.StartPage();
        return &dc;
    }
    bool EndPage(HDC) override { return document.EndPage(); }
    SvgDocument document{sizeWindow, "Reels"};

private:
    DeviceContext dc;
};
} // namespace

static void SvgPages(benchmark::State& state)
{
    ReelsProcess process(state);
    for (auto _ : state)
    {
        SvgSink sink;
        DrawPages(sink, {sizeWindow.cx, sizeWindow.cy, false, 0});
        std::string sBytes;
        benchmark::DoNotOptimize(sink.document.Finish(sBytes));
    }
    CountNotes(state);
}
BENCHMARK(SvgPages)->Apply(AgreedSizes);
} // namespace zarn::bench
