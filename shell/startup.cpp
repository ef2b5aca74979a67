// The order in which the program comes up and goes down.
#include "shell/startup.h"

#include "abc/abc_write.h"
#include "core/messages.h"
#include "core/score.h"
#include "core/settings.h"
#include "core/text.h"
#include "edit/new_score.h"
#include "midi/midi_setup.h"
#include "midi/record.h"
#include "panels/dialogs.h"
#include "platform/registry.h"
#include "render/font.h"
#include "render/geometry.h"
#include "shell/files.h"
#include "shell/keyboard.h"
#include "shell/load.h"
#include "shell/main_window.h"
#include "shell/menu.h"
#include "shell/modes.h"
#include "shell/mouse.h"
#include "shell/options.h"
#include "shell/page_commands.h"
#include "shell/panels_shown.h"
#include "shell/play_marker.h"
#include "shell/print.h"
#include "shell/recent_files.h"
#include "shell/record_command.h"
#include "shell/session.h"
#include "shell/tab_commands.h"

namespace zarn
{
constexpr char const* sFirstStartDone = "First start done";

void Score_StartUp()
{
    LoadSetting(&bChordsBelowStaff, "Guitar chords below staff");
    Score_CreateLists();
    Score_New();
}

void Page_StartUp(int32_t lWidth, int32_t lHeight)
{
    LoadPageSettings();
    SetWindowUnits({0, 0, lWidth, lHeight});
    LoadTablatureSettings();
}

static bool MakeMainWindow()
{
    static ScorePainter painter;
    hwndMain = CreateWindowExA("Zarn", &painter);
    if (!hwndMain)
        return false;
    Menu_Attach();
    Recent_ShowMenu();
    MainWindow_Created();
    Panels_Create();
    CreateMidiInWindow(hwndMain);
    RECT const client = GetClientRect(hwndMain);
    MainWindow_Resized({client.right, client.bottom});
    Modes_Show();
    Keyboard_Begin();
    Mouse_Begin();
    return true;
}

static std::string WithoutQuotes(std::string_view szCommandLine)
{
    if (szCommandLine.starts_with('"'))
        szCommandLine.remove_prefix(1);
    if (szCommandLine.ends_with('"'))
        szCommandLine.remove_suffix(1);
    return std::string(szCommandLine);
}

static void LoadCommandLineFile(std::string const& szName)
{
    std::string sTitle;
    if (LoadNamed(szName, lFirstTune, &sTitle) == LoadResult::LOADED)
        Recent_Add(szName);
    SetWindowTextA(hwndMain, sTitle);
    Options_ShowChecks();
    Font_Renew();
    InvalidateRect(hwndMain);
}

/// On the very first start on a machine: the five things to know.
static void GreetOnce()
{
    int32_t lDone = 0;
    if (LoadSetting(&lDone, sFirstStartDone) == ERROR_SUCCESS)
        return;
    Inform(Format("%s\r\n\r\n%s\r\n\r\n%s\r\n\r\n%s\r\n%s", "LEFT mouse button ADDS symbol to score.",
                  "RIGHT mouse button DELETES.", "Symbol menu selects symbol.", "Keyboard shortcuts are quicker.",
                  "(Keyboard mode is even quicker still)."));
    SaveSetting(1, sFirstStartDone);
}

static void AskHowToBegin()
{
    GreetOnce();
    switch (QuestionBox(hwndMain, "File source", "Open existing file or start new one?", "Open", "New"))
    {
    case 1:
        OpenFile(hwndMain);
        break;
    case 2:
        NewTune(hwndMain);
        break;
    default:
        break;
    }
}

/// The questions of a start: what an earlier session has lost, then, with nothing in hand, how to begin.
static void Begin(bool bEmptyHanded)
{
    if (!hwndMain) // closed before it was ever shown
        return;
    if (!Session_OfferLost() && bEmptyHanded)
        AskHowToBegin();
    Unsaved_Show();
}

bool StartUp(std::string_view szCommandLine)
{
    Score_StartUp();
    LoadSetting(&fWaitEachPage, "Wait for each page");
    LoadSetting(&bUseCrlf, szCrlfSetting);
    PlayMarker_LoadSetting();
    if (!MakeMainWindow())
        return false;
    if (!szCommandLine.empty())
        LoadCommandLineFile(WithoutQuotes(szCommandLine));
    UpdateWindow(hwndMain);
    LoadTablatureSettings();
    Options_ShowChecks();
    Session_Begin();
    // The questions belong to the first paint, and wait until that is on the screen: no box stands over an empty
    // window.
    if (szCommandLine.empty())
        PostMessageA(hwndMain, [] { Begin(true); });
    else
        PostMessageA(hwndMain, [] { Begin(false); });
    return true;
}

void LeaveProgram()
{
    RecordCommand_LeaveProgram();
    Session_End();
    ShutDownMidi();
}

void ShutDown()
{
    LeaveProgram();
    if (aStaffList[0]) // leaving through the window has freed them already
        Score_DestroyLists();
    hwndMain = nullptr;
    Panels_Forget();
    Font_Free();
    Geometry_Free();
}
} // namespace zarn
