/// What can go wrong with a device beyond the platform's own codes, and the sentences for it.
#pragma once
#include "platform/winmm.h"

#include <cstdint>
#include <string>

namespace zarn
{
constexpr uint32_t lErrorNoFont = 1001;     ///< none in the usual places
constexpr uint32_t lErrorBadFont = 1002;    ///< the file is missing, or no sound font
constexpr uint32_t lErrorNoAudio = 1003;    ///< no audio driver opens
constexpr uint32_t lErrorNoMemory = 1004;   ///< the synthesizer can't be made
constexpr uint32_t lErrorPortFailed = 1005; ///< a MIDI port is there, but doesn't open

/// A sentence for the user; false when there is none for that code, or it is no error.
[[nodiscard]] bool SoundErrorText(uint32_t nResult, std::string& szText);
} // namespace zarn
