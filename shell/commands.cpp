// The dispatcher. The ranges, whose numbers carry a value, are asked first, then the flat table.
#include "shell/commands.h"

#include "core/score.h"
#include "shell/exit.h"
#include "shell/files.h"
#include "shell/help.h"
#include "shell/options.h"
#include "shell/page_commands.h"
#include "shell/staffs_shown.h"

namespace zarn
{
namespace
{
struct CommandRange
{
    int32_t lFirst;
    int32_t lLast;
    int32_t lBase; ///< the value is the number less this
    void (*pRun)(int32_t lValue);
};
constexpr CommandRange aRanges[] = {
    {COMMAND_SHOWSTAFF + 1, COMMAND_SHOWSTAFF + lHighestStaff, COMMAND_SHOWSTAFF, ShowOrHideStaff},
};

struct CommandRow
{
    int32_t lCommand;
    void (*pRun)();
};
constexpr CommandRow aCommands[] = {
    {COMMAND_NEW, NewCommand},
    {COMMAND_OPEN, OpenCommand},
    {COMMAND_SAVE, SaveCommand},
    {COMMAND_SAVEAS, SaveAsCommand},
    {COMMAND_EXIT, ExitCommand},
    {COMMAND_KEEPBARS, ToggleKeepBars},
    {COMMAND_SHOWINVISIBLE, ToggleShowInvisible},
    {COMMAND_BEAMQUAVERS, ToggleBeamQuavers},
    {COMMAND_RIGHTJUSTIFIED, ToggleRightJustified},
    {COMMAND_ADJUSTALWAYS, ToggleAdjustAlways},
    {COMMAND_CHORDSBELOW, ToggleChordsBelow},
    {COMMAND_ARPEGGIOMARKS, ToggleArpeggioMarks},
    {COMMAND_STORESPACING, StoreSpacing},
    {COMMAND_FONTSCALE, AskFontScale},
    {COMMAND_LEGERSABOVE, AskLegersAbove},
    {COMMAND_LEGERSBELOW, AskLegersBelow},
    {COMMAND_SYSTEMGAP, AskSystemGap},
    {COMMAND_LEFTMARGIN, AskLeftMargin},
    {COMMAND_RIGHTMARGIN, AskRightMargin},
    {COMMAND_TOPMARGIN, AskTopMargin},
    {COMMAND_BOTTOMMARGIN, AskBottomMargin},
    {COMMAND_FULLADJUST, FullAdjustCommand},
    {COMMAND_MINIADJUST, MiniAdjustCommand},
    {COMMAND_REMOVESPURIOUS, RemoveSpuriousCommand},
    {COMMAND_REMOVENEWLINES, RemoveNewlinesCommand},
    {COMMAND_STRETCHHORIZ, StretchHorizCommand},
    {COMMAND_SQUEEZEHORIZ, SqueezeHorizCommand},
    {COMMAND_STRETCHVERT, StretchVertCommand},
    {COMMAND_SQUEEZEVERT, SqueezeVertCommand},
    {COMMAND_RESETSPACING, ResetSpacingCommand},
    {COMMAND_DUMP, DumpCommand},
    {COMMAND_DEBUGLOGOFF, DebugLogOff},
    {COMMAND_DEBUGLOGON, DebugLogOn},
    {COMMAND_HELP, HelpCommand},
    {COMMAND_BRIEFINFO, BriefInfoCommand},
};

CommandRange const* FindRange(int32_t lCommand)
{
    for (CommandRange const& range : aRanges)
        if (lCommand >= range.lFirst && lCommand <= range.lLast)
            return &range;
    return nullptr;
}

CommandRow const* FindRow(int32_t lCommand)
{
    for (CommandRow const& row : aCommands)
        if (lCommand == row.lCommand)
            return &row;
    return nullptr;
}
} // namespace

void Command_Run(int32_t lCommand)
{
    if (CommandRange const* const pRange = FindRange(lCommand))
        pRange->pRun(lCommand - pRange->lBase);
    else if (CommandRow const* const pRow = FindRow(lCommand))
        pRow->pRun();
}

bool Command_Exists(int32_t lCommand) { return FindRange(lCommand) || FindRow(lCommand); }
} // namespace zarn
