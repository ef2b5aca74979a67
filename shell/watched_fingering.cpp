#include "shell/watched_fingering.h"

#include "core/messages.h"
#include "tab/fingering_watch.h"

namespace zarn
{
static bool Show(int32_t lDone, int32_t lTotal)
{
    return ShowProgress(hwndMain, "Working out the fingering", lDone, lTotal);
}

WatchedFingering::WatchedFingering()
{
    bFingeringRuns = true;
    pFingeringWatch = Show;
}

WatchedFingering::~WatchedFingering()
{
    (void)Show(1, 1);
    pFingeringWatch = nullptr;
    bFingeringRuns = false;
}
} // namespace zarn
