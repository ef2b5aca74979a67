// zarn: the editor, or a conversion without a window. Here the host is chosen.
#include "app/editor.h"
#include "app/tasks.h"
#include "app/terminal.h"
#include "platform/module.h"

#include <cstdio>

namespace
{
int argumentCount = 0;
char** arguments = nullptr;

zarn::DesktopHost* Desktop(bool fWindow)
{
    // One host serves the whole process: a conversion of many tunes asks for it each time.
    static zarn::DesktopHost* pDesktop = nullptr;
    static bool bTried = false;
    if (bTried)
        return pDesktop;
    bTried = true;
    std::string sError;
    pDesktop = zarn::LoadDesktop(zarn::ExecutableFolder(), argumentCount, arguments, fWindow, sError);
    if (!pDesktop)
        zarn::Terminal_Error(sError);
    return pDesktop;
}

zarn::DesktopHost* DocumentHost() { return Desktop(false); }

int32_t Run(zarn::Options const& options)
{
    switch (options.task)
    {
    case zarn::Task::HELP:
        std::fputs(zarn::Options_Help(), stdout);
        return zarn::lStatusGood;
    case zarn::Task::VERSION:
        std::puts("zarn " ZARN_VERSION);
        return zarn::lStatusGood;
    case zarn::Task::EXPORT:
        return Task_Export(options, DocumentHost);
    case zarn::Task::CHECK:
        return Task_Check(options);
    case zarn::Task::DUMP:
        return Task_Dump(options);
    case zarn::Task::LIST:
        return Task_List(options);
    case zarn::Task::FINGERING:
        return Task_Fingering(options);
    case zarn::Task::PLAY:
        return Task_Play(options);
    case zarn::Task::REPLAY:
        return Task_Replay(options, DocumentHost);
    case zarn::Task::EDIT:
        break;
    }
    zarn::DesktopHost* const pDesktop = Desktop(true);
    return pDesktop ? Editor_Run(options, *pDesktop) : zarn::lStatusFailed;
}
} // namespace

int main(int argc, char** argv)
{
    argumentCount = argc;
    arguments = argv;
    zarn::Options options;
    std::string sError;
    if (!Options_Parse(std::vector<std::string>(argv + 1, argv + argc), &options, &sError))
    {
        std::fprintf(stderr, "zarn: %s\nzarn --help tells the words.\n", sError.c_str());
        return zarn::lStatusWrongWords;
    }
    zarn::bTerminalQuiet = options.bQuiet;
    return Run(options);
}
