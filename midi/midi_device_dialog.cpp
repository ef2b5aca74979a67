// The "Select MIDI device" dialog.
#include "midi/midi_device_dialog.h"

#include "core/messages.h"
#include "core/text.h"
#include "midi/midi_out.h"
#include "platform/user.h"

#include <string>
#include <utility>
#include <vector>

namespace zarn
{
static constexpr int32_t lDeviceForm = 7050;
static constexpr int32_t lDeviceLabel = 7051;
static constexpr int32_t lDeviceList = 7052;
static constexpr int32_t lSaveWarning = 7053;
static constexpr int32_t lDriverWarning = 7054;

/// One line for each device that tells its name: its number and that.
static std::vector<std::string> DeviceLines(int32_t cDevices)
{
    std::vector<std::string> aLines;
    for (int32_t lDevice = 0; lDevice < cDevices; ++lDevice)
    {
        std::string szName;
        if (MidiOut_Check("MidiOutGetDevCaps", midiOutGetDevCapsA(lDevice, szName)))
            aLines.push_back(Format("%d: %s", lDevice, szName.c_str()));
    }
    return aLines;
}

static Form DeviceForm(std::vector<std::string> aLines)
{
    FormControl list{FormControl::LIST, lDeviceList, ""};
    list.lValue = -1;
    list.aRows = std::move(aLines);
    return {lDeviceForm,
            "Select MIDI device",
            "row",
            {{FormControl::STATIC, lDeviceLabel, "&Available MIDI devices:"},
             std::move(list),
             {FormControl::STATIC, lSaveWarning, "WARNING! Save your work before the very first time you try this."},
             {FormControl::STATIC, lDriverWarning, "A bad MIDI device driver can crash your system."},
             {FormControl::DEFAULT_BUTTON, IDOK, "OK"},
             {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
}

/// The digits up to the first ":".
static int32_t NumberOfLine(std::string const& sLine)
{
    int64_t lNumber = 0;
    for (char const c : sLine)
    {
        if (c == ':')
            break;
        if (c >= '0' && c <= '9')
            lNumber = Clamp32(lNumber * 10 + (c - '0'));
    }
    return static_cast<int32_t>(lNumber);
}

int32_t SelectMidiDevice(int32_t cDevices)
{
    Form form = DeviceForm(DeviceLines(cDevices));
    if (DialogBoxParamA(hwndMain, form) != IDOK)
        return -1;
    FormControl const& list = *form.Find(lDeviceList);
    if (list.aRows.empty())
        return -1;
    // Without a choice it is the last one listed: OK alone has always taken that.
    bool const bChosen = list.lValue >= 0 && list.lValue < static_cast<int32_t>(list.aRows.size());
    return NumberOfLine(bChosen ? list.aRows[static_cast<size_t>(list.lValue)] : list.aRows.back());
}
} // namespace zarn
