// Any bytes as a MIDI file: read, laid out, drawn and written as a MIDI file again, and the score is sound throughout.
#include "core/messages.h"
#include "core/score.h"
#include "core/score_check.h"
#include "edit/new_score.h"
#include "fuzz/draw_all.h"
#include "layout/adjust.h"
#include "layout/clean_up.h"
#include "midi/midi_read.h"
#include "midi/midi_write.h"
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

static int32_t Open(std::string_view sFile)
{
    Score_New();
    HFILE const hFile = File_FromBytes(sFile);
    int32_t const lResult = ReadMidiFile(hFile);
    _lclose(hFile);
    RemoveSpuriousAccidentals();
    return lResult;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* pBytes, size_t cb)
{
    static ScriptHost user;
    static MapStore settings;
    static bool const bReady = []
    {
        host.pUser = &user;
        host.pSettings = &settings;
        Score_CreateLists();
        return true;
    }();
    static_cast<void>(bReady);
    user.shown.clear();
    Serious_Rearm();
    SetWindowUnits({0, 0, 1200, 800});
    Open({reinterpret_cast<char const*>(pBytes), cb});
    Check("reading");
    MiniAdjust();
    DrawAll();
    Check("mini adjust and drawing");
    for (bool const fPlayed : {false, true})
    {
        std::string sSaved;
        HFILE const hSaved = File_IntoString(&sSaved);
        if (!SaveMidiFile(hSaved, fPlayed, fPlayed ? 24 : 0, fPlayed) || !_lclose(hSaved))
            std::abort();
        if (Open(sSaved) != MIDI_FILE_READ)
            std::abort();
        Check("reading back what was written");
    }
    return 0;
}
