/// Room for the long messages of a MIDI input, under its platform names. Main thread.
#pragma once
#include "platform/winmm.h"

#include <cstdint>

namespace zarn
{
struct MIDIHDR
{
    char* lpData = nullptr;
    uint32_t dwBufferLength = 0;
};

/// What an input is besides when it needs room. One that tells only the first byte of a long message needs none.
class LongDataInput
{
public:
    virtual ~LongDataInput() = default;
    /// The room is the input's until it is taken back with null.
    virtual uint32_t LendRoom(MIDIHDR* pHeader) = 0;
};

[[nodiscard]] uint32_t midiInPrepareHeader(HMIDIIN hIn, MIDIHDR* pHeader); ///< lends it until it is unprepared
uint32_t midiInUnprepareHeader(HMIDIIN hIn, MIDIHDR* pHeader);
} // namespace zarn
