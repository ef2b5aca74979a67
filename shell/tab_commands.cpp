// Commands of the tablature. The search is the tab folder's; here stand the questions, and what follows each.
#include "shell/tab_commands.h"

#include "core/messages.h"
#include "core/settings.h"
#include "core/text.h"
#include "layout/adjust.h"
#include "panels/string_tuning.h"
#include "render/geometry.h"
#include "shell/command_numbers.h"
#include "shell/commands.h"
#include "shell/menu.h"
#include "shell/menu_parts.h"
#include "shell/number_prompt.h"
#include "shell/options.h"
#include "shell/panels_shown.h"
#include "shell/score_dc.h"
#include "shell/watched_fingering.h"
#include "tab/fingering.h"
#include "tab/tablature.h"
#include "tab/tuning.h"
#include "tab/weights.h"

#include <algorithm>
#include <bit>

namespace zarn
{
/// Where the menu of frets was opened last.
static int32_t lFretClickX = -1;
static int32_t lFretClickY = -1;

static void FingerWatched()
{
    WatchedFingering const watched;
    Tab_FingerStaffs();
}

static void MiniAdjustAndRepaint()
{
    MiniAdjust();
    InvalidateRect(hwndMain);
}

/// False, and the user is told, when some other number of staffs shows than the one that tablature needs.
static bool MayShow()
{
    if (VisibleCount() == 1)
        return true;
    Inform(Format("%s %s %s %d %s", "Restriction:", "Tablature can only be shown for one staff", "and you have",
                  VisibleCount(), "staffs showing"));
    return false;
}

static void Toggle(bool bOptimise)
{
    if (Tab_IsShown())
        Tab_SetShown(false);
    else if (!MayShow())
        return;
    else
    {
        Tab_SetShown(true);
        if (bOptimise)
            FingerWatched();
    }
    MiniAdjustAndRepaint();
}

void OptimisedTablatureCommand()
{
    if (bPianoShowing)
        PianoClosed();
    Toggle(true);
}

void ShowTablatureCommand()
{
    if (bPaletteShowing)
        PaletteClosed();
    Toggle(false);
}

void OptimiseTablatureCommand()
{
    FingerWatched();
    InvalidateRect(hwndMain);
}

void TuningCommand()
{
    int32_t lCount = 0;
    int32_t lTopPitch = 0;
    StringIntervals intervals{};
    Tab_GetTuning(&lCount, &lTopPitch, &intervals);
    DialogIntervals shown{};
    std::copy_n(intervals.begin(), shown.size(), shown.begin());
    if (StringTuningDialog(hwndMain, &lCount, &lTopPitch, &shown))
    {
        std::copy(shown.begin(), shown.end(), intervals.begin());
        Tab_SetTuning(lCount, lTopPitch, intervals);
    }
    OptimiseTablatureCommand();
}

static void Ask(FingeringWeight const& weight)
{
    *weight.plValue = NumberPrompt(hwndMain, weight.szPromptLabel, weight.lCommand, weight.lFallback);
    // The prompt stores under its label, which for some weights is the older name. A start looks for the newer one
    // first, so that has to hold what was asked last.
    if (std::string_view(weight.szPromptLabel) != weight.szName)
        SaveSetting(*weight.plValue, weight.szName);
    if (!AskOkCancel("Do you want the tablature recalculated now?", 1))
        return;
    FingerWatched();
    FullAdjust();
    InvalidateRect(hwndMain);
}

void WeightCommand(int32_t lCommand)
{
    for (FingeringWeight const& weight : Fingering_Weights())
        if (weight.lCommand == lCommand)
            Ask(weight);
    // The two go together: how far the wrist moves depends on how far the hand stretches.
    if (lCommand == COMMAND_WRISTMOVEMENT)
        WeightCommand(COMMAND_MAXSTRETCH);
}

void BarWeightCommand(int32_t lMask)
{
    auto const lBits = static_cast<uint32_t>(lMask);
    int32_t const lLowest = lMask == 0 ? 0 : std::countr_zero(lBits) + 1;
    auto const lHighest = static_cast<int32_t>(std::bit_width(lBits));
    int32_t& lCost = aBarCost[lBits];
    lCost = NumberPrompt(hwndMain, Format("Bar strings %d..%d", lLowest, lHighest), COMMAND_BARWEIGHT + lMask, lCost);
}

static std::vector<MenuItem> const& FretMenu()
{
    static std::vector<MenuItem> const aMenu = []
    {
        static std::vector<std::string> aLabels{"Fret 0 (open)"};
        for (int32_t lFret = 1; lFret <= lMostFret; ++lFret)
            aLabels.push_back(Format("Fret %d", lFret));
        std::vector<MenuItem> aItems;
        for (std::string const& sLabel : aLabels)
            aItems.push_back({COMMAND_FRET + static_cast<int32_t>(aItems.size()), sLabel.c_str()});
        return aItems;
    }();
    return aMenu;
}

void ChooseFret(POINT place)
{
    lFretClickX = place.x;
    lFretClickY = place.y;
    if (int32_t const lCommand = TrackPopupMenu(hwndMain, FretMenu(), place))
        Command_Run(lCommand);
}

void FretCommand(int32_t lFret)
{
    if (RefuseInRightJustified() || !Tab_IsShown() || lFretClickX < 0)
        return;
    ScoreDC const hdc;
    Tab_NoteFromFret(hdc, hwndMain, lFretClickX, lFretClickY, lFret);
}

void Tablature_Rerun()
{
    if (Tab_IsShown())
        FingerWatched();
}

static void ShowStored(FingeringWeight const& weight)
{
    // The widest bar's text has always been filled from another entry, and so shows 0; its price is right.
    constexpr int32_t lWidestBar = COMMAND_BARWEIGHT + 63;
    constexpr size_t nShownForWidest = 53;
    int32_t const lShown = weight.lCommand == lWidestBar ? aBarCost[nShownForWidest] : *weight.plValue;
    SetMenuText(weight.lCommand, WeightMenuText(weight, lShown));
}

void LoadTablatureSettings()
{
    lFretClickX = lFretClickY = -1;
    Tab_LoadTuning();
    Fingering_LoadWeights(ShowStored);
}
} // namespace zarn
