// Which MIDI input to record from.
#include "midi/in_device.h"

#include "core/messages.h"
#include "midi/midi_out.h"
#include "platform/user.h"
#include "platform/winmm.h"

#include <string>

namespace zarn
{
int32_t MidiIn_Choose()
{
    int32_t const cDevices = midiInGetNumDevs();
    for (int32_t lDevice = 0; lDevice < cDevices; ++lDevice)
    {
        std::string szName;
        MidiIn_ShowError("MidiInGetDevCaps", midiInGetDevCapsA(lDevice, szName));
        if (cDevices == 1 || MessageBoxA(hwndMain, szName, "Is this one OK?", MB_YESNO) == IDYES)
            return lDevice;
    }
    // The first one is tried all the same, and its error shown.
    if (cDevices <= 0)
        MessageBoxA(hwndMain, "No MIDI input devices available", "Sorry", MB_OK);
    else
        MessageBoxA(hwndMain, "Well there aren't any more!!", "Twit", MB_OK);
    return 0;
}

void MidiIn_ShowError(char const* szCaption, uint32_t nResult)
{
    if (nResult == MMSYSERR_NOERROR && !fMidiTrace)
        return;
    std::string szText;
    if (!midiInGetErrorTextA(nResult, szText))
        szText = "Unrecognised MIDI in error";
    MessageBoxA(hwndMain, szText, szCaption, MB_OK);
}
} // namespace zarn
