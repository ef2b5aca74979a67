// Which MIDI output is used, and its mode when it opens.
#include "midi/midi_setup.h"

#include "core/messages.h"
#include "core/text.h"
#include "midi/midi_device_dialog.h"
#include "midi/midi_out.h"
#include "midi/player.h"
#include "midi/record.h"

#include <string>

namespace zarn
{
constexpr uint32_t nController = 0xB0;
constexpr uint32_t nOmniOff = 124;
constexpr uint32_t nMonoOn = 126;
constexpr uint32_t cModeChannels = 8; ///< channel 8 is played on and keeps its mode, as it always has

static int32_t ChooseDevice()
{
    int32_t const cDevices = midiOutGetNumDevs();
    if (cDevices <= 0)
    {
        Inform("There are no MIDI devices configured on this system\nYou need a sound card with MIDI.");
        return -1;
    }
    if (cDevices > 1)
        return SelectMidiDevice(cDevices);
    std::string szName;
    if (MidiOut_Check("MidiOutGetDevCaps", midiOutGetDevCapsA(0, szName)))
        Inform(Format("Using device '%s' (only device available).", szName.c_str()));
    return 0;
}

static void SetMode(HMIDIOUT hOut, uint32_t nMode)
{
    for (uint32_t nChannel = 0; nChannel < cModeChannels; ++nChannel)
        (void)MidiOut_Send(hOut, nMode << 8 | (nController + nChannel));
}

HMIDIOUT OpenMidiOut()
{
    if (MidiOutHandle())
        return MidiOutHandle();
    lMidiOutDevice = ChooseDevice();
    if (lMidiOutDevice == -1)
        return nullptr;
    HMIDIOUT hOut = nullptr;
    (void)MidiOut_Check("MidiOutOpen", midiOutOpen(hOut, lMidiOutDevice));
    MidiOut_Set(hOut);
    SetMode(hOut, nOmniOff);
    SetMode(hOut, nMonoOn);
    return hOut;
}

void InitMidi()
{
    if (MidiOutHandle())
    {
        if (!AskYesNo("MIDI is already set up.  Re-do?", 1))
            return;
        UndoMidi();
    }
    OpenMidiOut();
}

void UndoMidi()
{
    Player_Stop();
    Recording_EndThru();
    AllNotesOff(MidiOutHandle());
    MidiOut_Set(nullptr);
}

void ShutDownMidi()
{
    Player_Stop();
    Recording_EndThru();
    MidiOut_Set(nullptr);
}
} // namespace zarn
