// Any bytes as a native file: no crash, a sound Score, and a file that comes out as it went in.
#include "core/messages.h"
#include "core/score.h"
#include "core/score_check.h"
#include "file/native.h"
#include "fuzz/draw_all.h"
#include "layout/adjust.h"
#include "platform/headless/script_host.h"
#include "platform/host.h"
#include "render/geometry.h"

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace zarn;

static void ExpectSound(char const* sWhen)
{
    for (std::string const& s : Score_CheckStructure())
    {
        std::fprintf(stderr, "%s: %s\n", sWhen, s.c_str());
        std::abort();
    }
}

static int32_t Load(std::string_view sBytes)
{
    HFILE const hFile = File_FromBytes(sBytes);
    int32_t const lResult = Native_Read(hFile, true);
    _lclose(hFile);
    return lResult;
}

static std::string Save()
{
    std::string s;
    HFILE const hFile = File_IntoString(&s);
    if (!Native_Write(hFile))
        std::abort();
    _lclose(hFile);
    return s;
}

/// A note that says that its fingering is stored while it has none makes a file that can't be read again, and the
/// format stands so.
static void ForgetEmptyFingerings()
{
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            if (pel->sort == NOTE && pel->lString == 0)
                pel->lA &= ~fFingeringStored;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* pBytes, size_t cb)
{
    static ScriptHost user;
    static MapStore settings;
    static bool const bStarted = []
    {
        host = Host{};
        host.pUser = &user;
        host.pSettings = &settings;
        Score_CreateLists();
        return true;
    }();
    (void)bStarted;
    user.shown.clear();
    Serious_Rearm();
    Geometry_Init();
    SetWindowUnits({0, 0, 1200, 800});

    (void)Load({reinterpret_cast<char const*>(pBytes), cb});
    ExpectSound("read");
    DrawAll();
    ExpectSound("drawn as it came");
    FullAdjust();
    DrawAll();
    ExpectSound("adjusted and drawn");
    ForgetEmptyFingerings();
    // The first file written may hold device positions of a stage that its own header doesn't ask for, the second a
    // chord put in order anew, whose notes then take over a fingering: from the third on nothing changes any more.
    for (int32_t i = 0; i < 2; ++i)
        if (!Load(Save()))
            std::abort();
    std::string const sThird = Save();
    if (!Load(sThird) || Save() != sThird)
        std::abort();
    ExpectSound("read again");
    Score_EmptyStaffs();
    return 0;
}
