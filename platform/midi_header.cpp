// Room for long messages: lent where it is needed.
#include "platform/midi_header.h"

namespace zarn
{
static uint32_t LendRoom(HMIDIIN hIn, MIDIHDR* pHeader)
{
    if (!hIn)
        return MMSYSERR_INVALHANDLE;
    auto* const pLongData = dynamic_cast<LongDataInput*>(hIn);
    return pLongData ? pLongData->LendRoom(pHeader) : MMSYSERR_NOERROR;
}

uint32_t midiInPrepareHeader(HMIDIIN hIn, MIDIHDR* pHeader) { return LendRoom(hIn, pHeader); }

uint32_t midiInUnprepareHeader(HMIDIIN hIn, MIDIHDR*) { return LendRoom(hIn, nullptr); }
} // namespace zarn
