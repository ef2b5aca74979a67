// An edit: a click in the middle of the first page, the layout of the whole score behind it, and the repainted window;
// the note is taken out again in between.
#include "score_bench.h"

#include "core/messages.h"
#include "edit/add.h"
#include "edit/current_symbol.h"
#include "edit/undo.h"
#include "platform/headless/headless_window.h"
#include "render/draw_score.h"
#include "render/geometry.h"

namespace zarn::bench
{
static void Paint()
{
    NullSurface surface({1200, 800});
    DeviceContext dc{.pSurface = &surface};
    DrawVisible(&dc, nullptr);
}

static void ClickToPaint(benchmark::State& state)
{
    ReelsProcess process(state);
    CurrentSymbol_SetNote(24);
    int32_t x = 0;
    int32_t y = 0;
    Draw_Fold(lColsPerLine + lColsPerLine / 2, 4, 1, 1, &x, &y);
    for (auto _ : state)
    {
        AddAtMouse(nullptr, nullptr, x, y);
        Paint();
        state.PauseTiming();
        Undo(nullptr, nullptr);
        state.ResumeTiming();
    }
    CountNotes(state);
}
BENCHMARK(ClickToPaint)->Apply(AgreedSizes);
} // namespace zarn::bench
