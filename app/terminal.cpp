// Messages of a conversion, one line each.
#include "app/terminal.h"

#include <cstdio>

namespace zarn
{
/// Line ends would make two messages of one.
static std::string OneLine(std::string_view sText)
{
    std::string s;
    for (char const c : sText)
    {
        if (c == '\r' || c == '\n')
        {
            if (!s.empty() && s.back() != ' ')
                s += ' ';
        }
        else
            s += c;
    }
    while (!s.empty() && s.back() == ' ')
        s.pop_back();
    return s;
}

static void Tell(std::string_view sText)
{
    std::string const sLine = OneLine(sText);
    if (szTerminalFile.empty())
        std::fprintf(stderr, "zarn: %s\n", sLine.c_str());
    else
        std::fprintf(stderr, "zarn: %s: %s\n", szTerminalFile.c_str(), sLine.c_str());
}

void Terminal_Error(std::string_view sText)
{
    ++cTerminalErrors;
    Tell(sText);
}

void Terminal_Note(std::string_view sText)
{
    if (!bTerminalQuiet)
        Tell(sText);
}

void Terminal_Shown(Shown const& shown)
{
    if (!shown.sAnswer.empty())
        Terminal_Note(shown.sText + " -> " + shown.sAnswer);
    else if (shown.lFlags & MB_ICONSTOP)
        Terminal_Error(shown.sText);
    else
    {
        ++cTerminalComplaints;
        Terminal_Note(shown.sText);
    }
}

void Terminal_Progress(int32_t lDone, int32_t lTotal)
{
    static bool bShown = false;
    if (lDone < lTotal)
        std::fprintf(stderr, "\r%3d%%", static_cast<int>(int64_t{lDone} * 100 / lTotal));
    else if (bShown)
        std::fprintf(stderr, "\r    \r");
    bShown = lDone < lTotal;
    std::fflush(stderr);
}

/// The text, cut where a damaged line would fill the screen.
static std::string Shortened(std::string const& sText)
{
    constexpr size_t cchMost = 200;
    return sText.size() <= cchMost ? sText : sText.substr(0, cchMost) + "...";
}

void Terminal_Complaint(AbcComplaint const& complaint)
{
    // A file that isn't ABC at all has something to complain of at every byte.
    constexpr int32_t lMostTold = 1000;
    static std::string szFile;
    static int32_t cOfFile = 0;
    ++cTerminalComplaints;
    if (szFile != szTerminalFile)
        cOfFile = 0;
    szFile = szTerminalFile;
    if (bTerminalQuiet || ++cOfFile > lMostTold)
        return;
    std::fprintf(stderr, "%s:%d:%d: %s\n", szTerminalFile.c_str(), complaint.lLine, complaint.lColumn,
                 Shortened(OneLine(complaint.sText)).c_str());
    if (cOfFile == lMostTold)
        std::fprintf(stderr, "%s: what else is wrong with it isn't told\n", szTerminalFile.c_str());
}
} // namespace zarn
