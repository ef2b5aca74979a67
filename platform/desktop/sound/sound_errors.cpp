// The sentences: what happened, and what helps.
#include "platform/desktop/sound/sound_errors.h"

namespace zarn
{
bool SoundErrorText(uint32_t nResult, std::string& szText)
{
    switch (nResult)
    {
    case MMSYSERR_BADDEVICEID:
        szText = "There is no such MIDI device any more.";
        return true;
    case MMSYSERR_NODRIVER:
        szText = "The sound part of Zarn can't be loaded.";
        return true;
    case MIDIERR_NODEVICE:
        szText = "The MIDI device has gone.";
        return true;
    case lErrorNoFont:
        szText = "The built-in synthesizer finds no sound font. Install the package timgm6mb-soundfont, or another "
                 "General MIDI sound font.";
        return true;
    case lErrorBadFont:
        szText = "The sound font of the built-in synthesizer is missing, or is no sound font.";
        return true;
    case lErrorNoAudio:
        szText = "The built-in synthesizer finds no sound device: neither PulseAudio, ALSA nor JACK plays here.";
        return true;
    case lErrorNoMemory:
        szText = "There isn't enough memory for the built-in synthesizer.";
        return true;
    case lErrorPortFailed:
        szText = "The MIDI device is there, but can't be opened. Another program may be using it.";
        return true;
    default:
        return false;
    }
}
} // namespace zarn
