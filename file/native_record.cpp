// One element as 41 bytes, and back: the two directions side by side.
#include "core/text.h"
#include "file/native_format.h"

#include <algorithm>

namespace zarn
{
static void PutShort(uint8_t* pBytes, int32_t lValue)
{
    int32_t const l = std::clamp<int32_t>(lValue, INT16_MIN, INT16_MAX);
    pBytes[0] = static_cast<uint8_t>(l);
    pBytes[1] = static_cast<uint8_t>(l >> 8);
}

static int32_t GetShort(uint8_t const* pBytes) { return static_cast<int16_t>(pBytes[0] | pBytes[1] << 8); }

void Native_PutLong(uint8_t* pBytes, int32_t lValue)
{
    for (int32_t i = 0; i < 4; ++i)
        pBytes[i] = static_cast<uint8_t>(static_cast<uint32_t>(lValue) >> 8 * i);
}

int32_t Native_GetLong(uint8_t const* pBytes)
{
    uint32_t l = 0;
    for (int32_t i = 0; i < 4; ++i)
        l |= static_cast<uint32_t>(pBytes[i]) << 8 * i;
    return static_cast<int32_t>(l);
}

void NativeRecord_Pack(Element const& el, uint8_t (&aRecord)[cbNativeRecord])
{
    PutShort(aRecord + AT_STORAGE, el.storage - lStorageLess);
    Native_PutLong(aRecord + AT_INX, el.inx);
    Native_PutLong(aRecord + AT_STRX, el.lStrX);
    PutShort(aRecord + AT_DURATION, el.lDuration);
    Native_PutLong(aRecord + AT_TIME, el.lTime);
    PutShort(aRecord + AT_STAFF, el.lStaff);
    Native_PutLong(aRecord + AT_X, el.lX);
    Native_PutLong(aRecord + AT_Y, el.lY);
    PutShort(aRecord + AT_DIAPITCH, el.lDiaPitch);
    Native_PutLong(aRecord + AT_A, el.lA);
    Native_PutLong(aRecord + AT_B, el.lB);
    aRecord[AT_SORT] = static_cast<uint8_t>(el.sort);
    aRecord[AT_BEAM] = static_cast<uint8_t>(el.beam);
    aRecord[AT_UP] = static_cast<uint8_t>(el.up);
    aRecord[AT_OVERBAR] = static_cast<uint8_t>(el.fOverBar);
    aRecord[AT_HIDDEN] = static_cast<uint8_t>(el.fHidden);
}

void NativeRecord_Unpack(uint8_t const (&aRecord)[cbNativeRecord], int32_t lVersion, Element& el)
{
    int32_t const lStored = GetShort(aRecord + AT_STORAGE);
    el.storage = lStored + (lVersion < lFirstVersionWithStorage98 ? lOldStorageLess : lStorageLess);
    ReadTrace("Storage was", lStored);
    ReadTrace("Storage set to", el.storage);
    el.inx = Native_GetLong(aRecord + AT_INX);
    el.lStrX = Native_GetLong(aRecord + AT_STRX);
    el.lDuration = GetShort(aRecord + AT_DURATION);
    if (lVersion < lFirstVersionWith48Ticks && el.lDuration != lEndMark)
        el.lDuration = el.lDuration * lCrotchet / lOldCrotchet;
    el.lTime = Native_GetLong(aRecord + AT_TIME);
    el.lStaff = GetShort(aRecord + AT_STAFF);
    el.lX = Native_GetLong(aRecord + AT_X);
    el.lY = Native_GetLong(aRecord + AT_Y);
    el.lDiaPitch = GetShort(aRecord + AT_DIAPITCH);
    el.lA = Native_GetLong(aRecord + AT_A);
    el.lB = Native_GetLong(aRecord + AT_B);
    el.sort = aRecord[AT_SORT];
    el.beam = aRecord[AT_BEAM];
    el.up = aRecord[AT_UP];
    el.fOverBar = aRecord[AT_OVERBAR];
    el.fHidden = aRecord[AT_HIDDEN];
    if (lVersion < lFirstVersionWithVolume && el.sort == NOTE)
        el.lB = 64;
    if (lVersion < lFirstVersionWith48Ticks && el.sort == CLEF)
        el.lA = 1;
    if (el.sort == SLUR)
        el.lB = 0; // an address of another day; the partner has a field of its own
    el.text[0] = el.text[1] = '\0';
}

void ReadTrace(char const* sName, int32_t lValue)
{
    if (pDebugLogSink)
        DebugLog(Format("ReadFile: %s %d\n", sName, lValue));
}
} // namespace zarn
