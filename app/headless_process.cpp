// The host of a conversion, from its start to its end.
#include "app/headless_process.h"

#include "abc/abc_reader.h"
#include "app/terminal.h"
#include "platform/process.h"
#include "shell/startup.h"

namespace zarn
{
HeadlessProcess::HeadlessProcess()
{
    user.pOnShown = Terminal_Shown;
    if (ErrorIsTerminal() && !bTerminalQuiet)
        user.pOnProgress = Terminal_Progress;
    host = Host{};
    host.pUser = &user;
    host.pSettings = &settings;
    bAbcListing = false;
    pOnAbcComplaint = Terminal_Complaint;
}

void HeadlessProcess::BeginConversion(int32_t lWidth, int32_t lHeight)
{
    Score_StartUp();
    Page_StartUp(lWidth, lHeight);
}

HeadlessProcess::~HeadlessProcess()
{
    // A long Score isn't freed symbol by symbol: that would be time for nothing.
    LeaveProgram();
    host = Host{};
}
} // namespace zarn
