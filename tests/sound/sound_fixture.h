/// What the tests of sound share.
#pragma once
#include "platform/desktop/sound/sound_devices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace zarn::test
{
/// The font of the tests, by its full path: the system's default is another with each font installed.
constexpr char const* szTestFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";

constexpr uint32_t NoteOn(uint32_t nNote, uint32_t nVelocity = 100, uint32_t nChannel = 0)
{
    return 0x90 | nChannel | nNote << 8 | nVelocity << 16;
}
constexpr uint32_t Control(uint32_t nController, uint32_t nValue, uint32_t nChannel = 0)
{
    return 0xB0 | nChannel | nController << 8 | nValue << 16;
}
constexpr uint32_t Program(uint32_t nProgram, uint32_t nChannel = 0) { return 0xC0 | nChannel | nProgram << 8; }

/// The next cFrames as samples, left and right in turn.
inline std::vector<int16_t> Rendered(WaveSource& source, int32_t cFrames)
{
    std::vector<int16_t> aSamples(static_cast<size_t>(cFrames) * lWaveChannels);
    source.Render(aSamples.data(), cFrames);
    return aSamples;
}

inline int32_t Peak(std::vector<int16_t> const& aSamples)
{
    int32_t lPeak = 0;
    for (int16_t const n : aSamples)
        lPeak = std::max(lPeak, std::abs(int32_t{n}));
    return lPeak;
}

/// An environment variable for the time of a test.
class Environment
{
public:
    Environment(char const* szName, std::string const& szValue) : szName(szName)
    {
        char const* const sz = std::getenv(szName);
        bWasSet = sz != nullptr;
        szBefore = sz ? sz : "";
        setenv(szName, szValue.c_str(), 1);
    }
    ~Environment() { bWasSet ? setenv(szName, szBefore.c_str(), 1) : unsetenv(szName); }
    Environment(Environment const&) = delete;
    Environment& operator=(Environment const&) = delete;

private:
    char const* szName;
    std::string szBefore;
    bool bWasSet;
};
} // namespace zarn::test
