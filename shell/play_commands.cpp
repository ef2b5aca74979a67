// The commands that sound.
#include "shell/play_commands.h"

#include "core/messages.h"
#include "midi/play_score.h"
#include "midi/sound_note.h"
#include "shell/play_marker.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lHighestProgram = 127;
constexpr int32_t lHighestChannel = 15;

void PlayCommand()
{
    BalancedRepeats const repeats;
    if (repeats.bAdded)
        InvalidateRect(hwndMain);
    PlayMarker_Begin([] { PlayFromMark(fBarnDance, lSwing); });
}

static void SoundMiddleC()
{
    constexpr int32_t lMiddleC = 60;
    constexpr int32_t lVolume = 64;
    SoundNote(lMiddleC, lPianoProgram, lPianoChannel, lVolume);
}

void SoundNextProgram(int32_t lStep)
{
    lPianoProgram = std::clamp(lPianoProgram + lStep, 0, lHighestProgram);
    SoundMiddleC();
}

void SoundNextChannel(int32_t lStep)
{
    lPianoChannel = std::clamp(lPianoChannel + lStep, 0, lHighestChannel);
    SoundMiddleC();
}
} // namespace zarn
