// An empty Score, as at start-up and for each tune that replaces another.
#include "edit/new_score.h"

#include "core/score.h"
#include "core/settings.h"
#include "edit/current_symbol.h"
#include "midi/guitar_chords.h"
#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
static constexpr int32_t lCrotchet = 48; ///< ticks

void Score_New()
{
    Score_EmptyStaffs();
    Geometry_Init();
    std::fill(std::begin(afPlay), std::end(afPlay), 1);
    LoadSetting(&fPlayChords, "Play guitar chords");
    bScoreDirty = false;
    bTimesValid = true;
    CurrentSymbol_SetNote(lCrotchet);
}
} // namespace zarn
