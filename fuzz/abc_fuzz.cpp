// Any bytes as an ABC file: listed, read, laid out and saved, and the score is sound throughout.
#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "core/messages.h"
#include "core/score.h"
#include "core/score_check.h"
#include "edit/new_score.h"
#include "file/native.h"
#include "fuzz/draw_all.h"
#include "layout/adjust.h"
#include "platform/headless/script_host.h"
#include "render/geometry.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using namespace zarn;

static void Check(char const* sAfter)
{
    std::vector<std::string> const aWrong = Score_CheckStructure();
    for (std::string const& sWrong : aWrong)
        std::fprintf(stderr, "after %s: %s\n", sAfter, sWrong.c_str());
    if (!aWrong.empty())
        std::abort();
}

static std::string Saved()
{
    std::string sSaved;
    HFILE const hSaved = File_IntoString(&sSaved);
    if (!Native_Write(hSaved))
        std::abort();
    _lclose(hSaved);
    return sSaved;
}

static void Reload(std::string const& sSaved)
{
    HFILE const hFile = File_FromBytes(sSaved);
    if (!Native_Read(hFile, true))
        std::abort();
    _lclose(hFile);
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* pBytes, size_t cb)
{
    static ScriptHost user;
    static MapStore settings;
    static bool const bReady = []
    {
        host.pUser = &user;
        host.pSettings = &settings;
        bAbcListing = false;
        Score_CreateLists();
        return true;
    }();
    static_cast<void>(bReady);
    user.shown.clear();
    Serious_Rearm();
    Score_New();
    SetWindowUnits({0, 0, 1200, 800});

    HFILE const hFile = File_FromBytes({reinterpret_cast<char const*>(pBytes), cb});
    std::vector<AbcTuneRow> const aRows = Abc_ListTunes(hFile);
    ReadAbcNumbered(hFile, aRows.empty() ? 0 : aRows.front().lNumber, nullptr);
    _lclose(hFile);
    MiniAdjust();
    Check("reading and mini adjust");
    FullAdjust();
    DrawAll();
    Check("full adjust and drawing");
    // Times out of the last adjust aren't in the first file; from the second on nothing changes any more.
    std::string const sOnce = Saved();
    Reload(sOnce);
    std::string const sTwice = Saved();
    Reload(sTwice);
    Check("reading back");
    if (Saved() != sTwice)
        std::abort();
    return 0;
}
