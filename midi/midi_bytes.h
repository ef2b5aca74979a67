/// The bytes of a MIDI file, one at a time, with the numbers made of them.
#pragma once
#include "platform/files.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zarn
{
class MidiBytes
{
public:
    explicit MidiBytes(HFILE hFile) : hFile(hFile) {}

    [[nodiscard]] int64_t Place() const { return lPlace; } ///< from where reading began
    [[nodiscard]] bool AtEnd();
    [[nodiscard]] int32_t Peek(); ///< the next byte, which stays; -1 at the end
    [[nodiscard]] int32_t Next(); ///< -1 at the end
    /// False when fewer than cb bytes are left; those are gone then.
    [[nodiscard]] bool Read(uint8_t* pBytes, int32_t cb);
    [[nodiscard]] bool Skip(int32_t cb);
    /// A variable-length quantity; 0 when the file ends in it.
    [[nodiscard]] int64_t VarLen();

private:
    [[nodiscard]] bool Fill();

    HFILE hFile;
    int64_t lPlace = 0;
    size_t iNext = 0;
    size_t cbHeld = 0;
    std::array<uint8_t, 4096> aBuffer;
};

/// A number of 2 to 4 bytes as this reader takes it: each byte counts 16 times the next, where 256 would be right.
/// Small numbers read the same; a division of 480 becomes 240, and all lengths of that file double. Music that was read
/// so stays as it was read.
template <size_t cb>
[[nodiscard]] int32_t MidiNumber(uint8_t const (&aBytes)[cb])
{
    static_assert(cb <= 4);
    int32_t l = 0;
    for (uint8_t const b : aBytes)
        l = l * 16 + b;
    return l;
}
} // namespace zarn
