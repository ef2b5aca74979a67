// A timer of the main thread looks where the player is. It may go off while a dialog of an edit is open, so that it
// moves the view and lays nothing out.
#include "shell/play_marker.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/score_count.h"
#include "core/settings.h"
#include "core/text.h"
#include "layout/place.h"
#include "midi/play_record.h"
#include "midi/player.h"
#include "render/geometry.h"
#include "render/play_marker.h"
#include "render/ruled_lines.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/watched_fingering.h"

#include <algorithm>

namespace zarn
{
constexpr uint32_t lFollowMs = 30;
constexpr char const* sShowPlayed = "Show place being played";

static int32_t lMarked = lNoPlace; ///< column of the marker
static int32_t lScorePlayed = 0;   ///< cScoresBegun as the play began
static bool bBeginning = false;    ///< the device may still be being asked for

void ToggleShowPlayed()
{
    bShowPlayed = !bShowPlayed;
    Menu_Check(COMMAND_SHOWPLAYED, bShowPlayed);
    SaveSetting(bShowPlayed, sShowPlayed);
    PlayMarker_Follow();
}

void PlayMarker_LoadSetting() { LoadSetting(&bShowPlayed, sShowPlayed); }

void PlayMarker_Begin(void (*pBegin)())
{
    lScorePlayed = cScoresBegun;
    bBeginning = true;
    // Ahead of the play: without a thread for it, it is over when pBegin returns.
    SetTimer(MainTimer::PLAY_MARK, lFollowMs, PlayMarker_Follow);
    pBegin();
    bBeginning = false;
    PlayMarker_Follow();
}

/// Brings the line of the marker to the top when it isn't all on the window.
static void ScrollIntoView()
{
    RECT const box = PlayMarker_Box(lMarked);
    if (box.top >= 0 && box.bottom <= GetClientRect(hwndMain).bottom)
        return;
    int32_t const lLine = lMarked / std::max(lColsPerLine, 1);
    int32_t const lTop = std::max(Clamp32(int64_t{lLine} * SystemHeight()), 0);
    if (lTop == lScroll)
        return;
    lScroll = lTop;
    SetScrollPos(hwndMain, lScroll);
    RuledLines_Reset();
    ReGrid();
}

void PlayMarker_Follow()
{
    bool const bPlaying = Player_IsPlaying();
    if (!bPlaying && !bBeginning)
        KillTimer(MainTimer::PLAY_MARK);
    if (bPrinting || bFingeringRuns) // the units are the paper's, or the score is being fingered
        return;
    bool const bShown = bShowPlayed && bPlaying && lScorePlayed == cScoresBegun;
    int32_t const lNow = bShown ? Player_Column() : lNoPlace;
    if (lNow == lMarked)
        return;
    lMarked = lNow;
    if (hwndMain && lMarked != lNoPlace)
        ScrollIntoView();
    InvalidateRect(hwndMain);
}

void PlayMarker_Paint(HDC hdc)
{
    if (lMarked != lNoPlace)
        PlayMarker_Draw(hdc, lMarked);
}
} // namespace zarn
