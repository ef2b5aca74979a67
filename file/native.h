/// The program's own score file, .ZRN: versions 2 to 9 read, version 9 written, little-endian.
#pragma once
#include "platform/files.h"

#include <cstdint>

namespace zarn
{
/// Fills the Score from an open file, and completes it; 1 on success. On failure, 0: elements already read stay.
int32_t Native_Read(HFILE hFile, bool bClearFirst);
/// Writes the Score; 1 when all went well, 0 on failure.
int32_t Native_Write(HFILE hFile);
} // namespace zarn
