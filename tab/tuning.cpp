// The instrument in force, its settings, and the remarks on odd ones.
#include "tab/tuning.h"

#include "core/messages.h"
#include "core/settings.h"
#include "core/text.h"
#include "tab/weights.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lUsualStrings = 6;
constexpr std::array<int32_t, lMostStrings> aUsualPitch = {76, 71, 67, 62, 57, 52, 0, 0, 0};

static std::string TuningName(size_t nString) { return Format("Tuning of string %d", static_cast<int>(nString) + 1); }

int32_t Tab_UsedStrings() { return std::clamp(lStrings, 0, lMostStrings); }

void Tab_GetTuning(int32_t* plStrings, int32_t* plTopPitch, StringIntervals* pIntervals)
{
    *plStrings = lStrings;
    *plTopPitch = aOpenPitch[0];
    for (size_t n = 0; n < pIntervals->size(); ++n)
    {
        bool const bBetweenStrings = static_cast<int32_t>(n) < Tab_UsedStrings() - 1;
        (*pIntervals)[n] = bBetweenStrings ? Wrap_Sub(aOpenPitch[n], aOpenPitch[n + 1]) : 0;
    }
}

/// False when that number of strings is refused.
static bool RemarkOn(int32_t lNewStrings)
{
    if (lNewStrings < 0)
    {
        Inform("Negative numbers of strings sounds like something from Orvel Tamsing.  Can't do it here.  The local "
               "magic field are too weak!");
        return false;
    }
    if (lNewStrings > lUsualStrings)
        Inform("Sorry, I cannot handle more than 6 strings");
    if (lNewStrings == 0)
    {
        Inform("Zero strings!  Whatever turns you on... but just using blank paper would be easier!");
        Inform("Actually it occurs to me that this could be more fun for me than for you!  I'll do the tab with one "
               "line so that you can see where to look for the absence of notes.");
    }
    return true;
}

void Tab_SetTuning(int32_t lNewStrings, int32_t lTopPitch, StringIntervals const& intervals)
{
    if (!RemarkOn(lNewStrings))
        return;
    lStrings = lNewStrings;
    aOpenPitch[0] = lTopPitch;
    for (size_t n = 1; n < aOpenPitch.size(); ++n)
    {
        bool const bString = static_cast<int32_t>(n) < lStrings;
        aOpenPitch[n] = bString ? Wrap_Sub(aOpenPitch[n - 1], intervals[n - 1]) : 0;
    }
    // The table of open strings was always filled by one entry too many, and this weight lay behind it. Players have
    // tuned their other weights to how it searches without it, so a new tuning still puts it out of force.
    lUnnaturalTransitions = 0;
    SaveSetting(lStrings, "Number of strings");
    for (size_t n = 0; n < aOpenPitch.size(); ++n)
        SaveSetting(aOpenPitch[n], TuningName(n));
}

void Tab_LoadTuning()
{
    lStrings = lUsualStrings;
    aOpenPitch = aUsualPitch;
    LoadSetting(&lStrings, "Number of strings");
    lStrings = std::max(lStrings, 0);
    for (size_t n = 0; n < aOpenPitch.size(); ++n)
        LoadSetting(&aOpenPitch[n], TuningName(n));
    BarCosts_SetInitial();
}

int32_t Tab_OpenPitch(int32_t lString, int32_t lFret)
{
    size_t const n = static_cast<size_t>(std::clamp(lString, 1, lMostStrings)) - 1;
    return Wrap_Add(aOpenPitch[n], lFret);
}
} // namespace zarn
