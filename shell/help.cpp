// Help, the few words about the program, and what helps to find a fault.
#include "shell/help.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"

#include <cstdio>

namespace zarn
{
constexpr char const* sVersionDate = "November 2026";

void HelpCommand()
{
    if (!WinHelpA(hwndMain, "zarn.hlp"))
        MessageBoxA(hwndMain, "Help failed.  Check that you have zarn.hlp", "Zarn help", MB_OK);
}

void BriefInfoCommand()
{
    Inform(Format("Zarn version %s\r\n\r\n"
                  "If you report a bug\r\n"
                  "State:\r\n"
                  "   your machine configuration, and settings\r\n"
                  "   exactly what you did\r\n"
                  "   what you expected to happen\r\n"
                  "   what actually happened\r\n"
                  "   other relevant details, e.g. can you make it happen again?\r\n\r\n"
                  "%s",
                  ZARN_VERSION, sVersionDate));
}

static void CountPointer(bool bShow) { Inform(Format("Show count = %d", ShowCursor(hwndMain, bShow))); }

void HidePointerCommand() { CountPointer(false); }

void ShowPointerCommand() { CountPointer(true); }

void DumpCommand() { Score_Dump("Score Dump (as requested)\r\n"); }

static void ToStandardError(std::string_view sText)
{
    std::fwrite(sText.data(), 1, sText.size(), stderr);
    if (!sText.ends_with('\n'))
        std::fputc('\n', stderr);
}

void DebugLogOff() { pDebugLogSink = nullptr; }

void DebugLogOn() { pDebugLogSink = ToStandardError; }
} // namespace zarn
