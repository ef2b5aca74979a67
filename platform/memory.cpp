// Memory blocks on the standard allocator, with failures on demand.
#include "platform/memory.h"

#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/asan_interface.h>
#endif
#endif

namespace zarn
{
/// True when this call is the one that has to fail.
static bool CountDown(int32_t& lLeft)
{
    if (lLeft < 0)
        return false;
    if (lLeft == 0)
    {
        lLeft = -1;
        return true;
    }
    --lLeft;
    return false;
}

HGLOBAL GlobalAlloc(uint32_t, size_t cb)
{
    if (CountDown(lGlobalAllocsLeft))
        return nullptr;
    void* const p = std::malloc(cb);
    if (p)
        ++cGlobalBlocks;
    return p;
}

void* GlobalLock(HGLOBAL hMemory) { return CountDown(lGlobalLocksLeft) ? nullptr : hMemory; }

void GlobalUnlock(HGLOBAL) {}

void GlobalFree(HGLOBAL hMemory)
{
    if (hMemory)
        --cGlobalBlocks;
    std::free(hMemory);
}

void OutputDebugStringA(std::string_view sText) { sLastDebugString = sText; }

void DebugBreak() { OutputDebugStringA("DebugBreak\n"); }

#if defined(ASAN_POISON_MEMORY_REGION)
void Memory_Forbid(void const* pBytes, size_t cb) { ASAN_POISON_MEMORY_REGION(pBytes, cb); }
void Memory_Allow(void const* pBytes, size_t cb) { ASAN_UNPOISON_MEMORY_REGION(pBytes, cb); }
#else
void Memory_Forbid(void const*, size_t) {}
void Memory_Allow(void const*, size_t) {}
#endif
} // namespace zarn
