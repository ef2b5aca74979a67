// The menu as data. A label has "&" ahead of its mnemonic and a tab ahead of its key.
#include "shell/menu.h"

#include "core/messages.h"
#include "shell/command_numbers.h"
#include "shell/menu_parts.h"

#include <set>

namespace zarn
{
static std::set<int32_t> greyCommands;

static std::vector<MenuItem> FileMenu()
{
    std::vector<MenuItem> aItems = {{COMMAND_NEW, "&New...\tCtrl+n"},       {COMMAND_OPEN, "&Open...\tCtrl+o"},
                                    {COMMAND_APPEND, "Appe&nd..."},         {},
                                    {COMMAND_SAVE, "&Save\tCtrl+s"},        {COMMAND_SAVEAS, "Save &As..."},
                                    {COMMAND_SAVEPDF, "Save as P&DF..."},   {},
                                    {COMMAND_PREVIEW, "Print pre&view..."}, {COMMAND_PRINT, "&Print"},
                                    {COMMAND_PRINTONE, "Print &1 copy"},    {}};
    for (int32_t lRecent = 1; lRecent <= lMostRecent; ++lRecent)
        aItems.push_back({COMMAND_RECENT + lRecent, ""}); // shown once there is such a file
    aItems.push_back({});
    aItems.push_back({COMMAND_EXIT, "E&xit"});
    return aItems;
}

static std::vector<MenuItem> EditMenu()
{
    return {{COMMAND_UNDO, "&Undo\t^Z"},
            {},
            {COMMAND_CUT, "Cu&t\t^X", true},
            {COMMAND_COPY, "&Copy\t^C", true},
            {COMMAND_PASTE, "&Paste\t^V", true},
            {},
            {COMMAND_MARKBEGIN, "Mark &Begin\t<"},
            {COMMAND_MARKEND, "Mark &End\t>"},
            {COMMAND_CLEARMARK, "Clear &Mark\tF4"},
            {},
            {COMMAND_SLURMARK, "&Slur mark"},
            {0, "T&ranspose Mark", false, TransposeMarkMenu()},
            {0, "Transpose &All", false, TransposeAllMenu()},
            {},
            {COMMAND_INSERTPOINT, "&Insert point for piano\tv"}};
}

/// One entry for each staff; the first command's number is one above lCommand.
static std::vector<MenuItem> StaffMenu(int32_t lCommand)
{
    return {{lCommand + 1, "Staff &1"}, {lCommand + 2, "Staff &2"}, {lCommand + 3, "Staff &3"},
            {lCommand + 4, "Staff &4"}, {lCommand + 5, "Staff &5"}, {lCommand + 6, "Staff &6"},
            {lCommand + 7, "Staff &7"}, {lCommand + 8, "Staff &8"}};
}

static std::vector<MenuItem> SettingsMenu()
{
    return {{COMMAND_DEFAULTINSTRUMENT, "Default Instrument Number..."},
            {COMMAND_PLAYCHORDS, "Play guitar chords"},
            {},
            {COMMAND_USECRLF, "Use CRLF, not just LF for linefeeds in ABC output"},
            {COMMAND_CHORDSBELOW, "Put chord symbols below staff"},
            {COMMAND_WAITEACHPAGE, "Wait for each page"},
            {COMMAND_STORESPACING, "Set current horiz/vert stretch/squeeze as default spacing"},
            {COMMAND_FONTSCALE, "Font size scaling factor (100%)..."},
            {},
            {COMMAND_LEGERSABOVE, "Leger notes above staff..."},
            {COMMAND_LEGERSBELOW, "Leger notes below staff..."},
            {COMMAND_SYSTEMGAP, "Extra between systems..."},
            {},
            {COMMAND_LEFTMARGIN, "Left margin percent..."},
            {COMMAND_RIGHTMARGIN, "Right margin percent..."},
            {COMMAND_TOPMARGIN, "Top margin percent..."},
            {COMMAND_BOTTOMMARGIN, "Bottom margin percent..."},
            {},
            {COMMAND_TUNING, "Alter strings or tuning..."},
            {0, "Tablature weights", false, WeightsMenu()}};
}

static std::vector<MenuItem> OptionsMenu()
{
    return {{COMMAND_KEEPBARS, "&Keep bars together"},
            {COMMAND_SHOWINVISIBLE, "&Show invisible elements"},
            {COMMAND_BEAMQUAVERS, "&Beam quavers"},
            {COMMAND_ARPEGGIOMARKS, "Show arpeggio marks"},
            {COMMAND_RIGHTJUSTIFIED, "&Right justified"},
            {COMMAND_ADJUSTALWAYS, "&Adjust continuously"},
            {COMMAND_EDITMODE, "&Edit mode"},
            {COMMAND_PALETTE, "&Note Palette"},
            {COMMAND_PIANO, "&Piano keyboard"},
            {COMMAND_RECORD, "Record MIDI IN (flakey!!)"},
            {},
            {COMMAND_CLARINET, "&Clarinet transpose"},
            {COMMAND_GUITAR, "&Guitar transpose"},
            {COMMAND_DOUBLESPEED, "&Double Speed"},
            {COMMAND_ENDLESSREPEAT, "Endless Repeat Play"},
            {COMMAND_BARNDANCE, "Barn Dance Mode"},
            {COMMAND_DOTTEDCROTCHET, "Play dotted crotchet (1/4)"},
            {COMMAND_DOTTEDQUAVER, "Play dotted quaver (1/8)"},
            {COMMAND_SEMITONEROLLS, "Play Ornaments as semitone rolls"},
            {COMMAND_BOWEDTRIPLETS, "Play Ornaments as bowed triplet"},
            {COMMAND_DIATONICROLLS, "Play Ornaments as diatonic rolls"},
            {COMMAND_SHOWPLAYED, "Show place being played"},
            {0, "Play staff", false, StaffMenu(COMMAND_PLAYSTAFF)},
            {},
            {0, "Show staff", false, StaffMenu(COMMAND_SHOWSTAFF)},
            {0, "S&ettings", false, SettingsMenu()}};
}

static std::vector<MenuItem> ActionMenu()
{
    return {{COMMAND_KEYBOARDMODE, "&Keyboard mode\tEsc"},
            {COMMAND_MOUSEMODE, "Mouse mode\tEsc", true},
            {},
            {COMMAND_PLAY, "&Play (hold down CTRL to stop play)\tp"},
            {COMMAND_INITMIDI, "&InitMidi"},
            {COMMAND_UNDOMIDI, "&UndoMidi"},
            {},
            {COMMAND_FULLADJUST, "&Full Adjust\ta"},
            {COMMAND_MINIADJUST, "Mini Adjust"},
            {},
            {COMMAND_OPTIMISEDTABLATURE, "Create optimised/Hide tablature\tf"},
            {COMMAND_SHOWTABLATURE, "Show/Hide Tablature\ts"},
            {COMMAND_OPTIMISETABLATURE, "Optimise Tablature\to"},
            {},
            {COMMAND_REMOVESPURIOUS, "&Remove Spurious #/b"},
            {COMMAND_REMOVENEWLINES, "Remove all &Newlines"},
            {},
            {COMMAND_STRETCHHORIZ, "Stretch-horiz\t+"},
            {COMMAND_SQUEEZEHORIZ, "Squeeze-horiz\t-"},
            {COMMAND_STRETCHVERT, "Stretch-vert\tAlt++"},
            {COMMAND_SQUEEZEVERT, "Squeeze-vert\tAlt+-"},
            {COMMAND_RESETSPACING, "Reset Spacing to default"}};
}

static std::vector<MenuItem> HelpMenu()
{
    return {{COMMAND_HELP, "Help"},
            {COMMAND_ALLCOMMANDS, "&All commands..."},
            {COMMAND_BRIEFINFO, "Brief info about Zarn"}};
}

std::vector<MenuItem> const& MainMenu()
{
    static std::vector<MenuItem> const aMenu = {{0, "&File", false, FileMenu()},
                                                {0, "&Edit", false, EditMenu()},
                                                {0, "&Symbols", false, SymbolMenu()},
                                                {0, "&Tempo", false, TempoMenu()},
                                                {0, "&Instruments", false, InstrumentMenu()},
                                                {0, "&Options", false, OptionsMenu()},
                                                {0, "&Action", false, ActionMenu()},
                                                {0, "&Help", false, HelpMenu()}};
    return aMenu;
}

static void CollectGrey(std::vector<MenuItem> const& aItems)
{
    for (MenuItem const& item : aItems)
    {
        if (item.bGrey)
            greyCommands.insert(item.lCommand);
        CollectGrey(item.aItems);
    }
}

void Menu_Attach()
{
    greyCommands.clear();
    CollectGrey(MainMenu());
    SetMenu(hwndMain, MainMenu());
}

void Menu_Check(int32_t lCommand, bool bOn) { CheckMenuItem(hwndMain, lCommand, bOn); }

void Menu_Enable(int32_t lCommand, bool bOn)
{
    if (bOn)
        greyCommands.erase(lCommand);
    else
        greyCommands.insert(lCommand);
    EnableMenuItem(hwndMain, lCommand, bOn);
}

bool Menu_IsGrey(int32_t lCommand) { return greyCommands.contains(lCommand); }

void SetMenuText(int32_t lCommand, std::string_view sText) { SetMenuItemInfoA(hwndMain, lCommand, sText); }
} // namespace zarn
