// Reading bytes through a buffer of our own: the next byte is looked at for every event.
#include "midi/midi_bytes.h"

#include <algorithm>

namespace zarn
{
bool MidiBytes::Fill()
{
    if (iNext < cbHeld)
        return true;
    int32_t const cb = _lread(hFile, aBuffer.data(), static_cast<int32_t>(aBuffer.size()));
    iNext = 0;
    cbHeld = cb > 0 ? static_cast<size_t>(cb) : 0;
    return cbHeld > 0;
}

bool MidiBytes::AtEnd() { return !Fill(); }

int32_t MidiBytes::Peek() { return Fill() ? aBuffer[iNext] : -1; }

int32_t MidiBytes::Next()
{
    if (!Fill())
        return -1;
    ++lPlace;
    return aBuffer[iNext++];
}

bool MidiBytes::Read(uint8_t* pBytes, int32_t cb)
{
    for (; cb > 0; --cb)
    {
        int32_t const lByte = Next();
        if (lByte < 0)
            return false;
        *pBytes++ = static_cast<uint8_t>(lByte);
    }
    return true;
}

bool MidiBytes::Skip(int32_t cb)
{
    for (; cb > 0; --cb)
        if (Next() < 0)
            return false;
    return true;
}

int64_t MidiBytes::VarLen()
{
    constexpr int64_t lMost = int64_t{1} << 40; // more than any time that is kept
    int64_t lValue = 0;
    for (;;)
    {
        int32_t const lByte = Next();
        if (lByte < 0)
            return 0;
        lValue = std::min(lValue << 7 | (lByte & 0x7F), lMost);
        if (lByte < 0x80)
            return lValue;
    }
}
} // namespace zarn
