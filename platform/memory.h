/// Memory blocks for the List library, and the debugger's own channel.
///
/// The failures that a test asks for are part of the operation: memory that runs out is the one failure that no machine
/// here shows by itself.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#if defined(__SANITIZE_ADDRESS__)
#define ZARN_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZARN_ADDRESS_SANITIZER
#endif
#endif

namespace zarn
{
using HGLOBAL = void*;
constexpr uint32_t GMEM_MOVEABLE = 2;

constexpr size_t cbGlobalMost = 2048; ///< bytes of the largest block

/// A block of cb bytes, or null. Release it with GlobalFree. Main thread.
[[nodiscard]] HGLOBAL GlobalAlloc(uint32_t flags, size_t cb);
/// The block's address, good until GlobalFree; null when the block can't be fixed.
[[nodiscard]] void* GlobalLock(HGLOBAL hMemory);
void GlobalUnlock(HGLOBAL hMemory);
void GlobalFree(HGLOBAL hMemory);

/// One line to whoever debugs the program; kept in sLastDebugString for the tests.
void OutputDebugStringA(std::string_view sText);
inline std::string sLastDebugString;
/// Where a debugger would stop: one line on its channel, and on.
void DebugBreak();

/// How many more calls succeed before one fails; -1 never fails. Tests only, main thread.
inline int32_t lGlobalAllocsLeft = -1;
inline int32_t lGlobalLocksLeft = -1;

/// Blocks that are allocated and not yet released. Main thread.
inline int32_t cGlobalBlocks = 0;

/// Marks bytes as out of bounds, or as good again, where the address sanitizer watches; does nothing elsewhere.
#ifdef ZARN_ADDRESS_SANITIZER
void Memory_Forbid(void const* pBytes, size_t cb);
void Memory_Allow(void const* pBytes, size_t cb);
#else
inline void Memory_Forbid(void const*, size_t) {}
inline void Memory_Allow(void const*, size_t) {}
#endif
} // namespace zarn
