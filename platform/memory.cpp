// Memory blocks, with failures on demand.
//
// The blocks of the List library are cut from pieces of the size of a large page, and a block that is released waits
// there for the next one. Where the address sanitizer watches, each block is an allocation of its own, so that it sees
// a use of one that was released.
#include "platform/memory.h"

#include "platform/large_pages.h"

#include <cstddef>
#include <cstdlib>
#include <new>

#ifdef ZARN_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
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

#ifdef ZARN_ADDRESS_SANITIZER
static void* TakeBlock(size_t cb) { return std::malloc(cb); }
static void GiveBlock(void* p) { std::free(p); }
#else
namespace
{
constexpr size_t cbFirstPiece = size_t{256} << 10; ///< enough for most tunes, which need no large page

static_assert(cbFirstPiece % cbGlobalMost == 0 && cbLargePage % cbGlobalMost == 0, "a piece is cut without a rest");

class Slots
{
public:
    void* Take()
    {
        if (pGiven)
        {
            Given* const p = pGiven;
            pGiven = p->pNext;
            return p;
        }
        if (pNext == pEnd && !NewPiece())
            return nullptr;
        void* const p = pNext;
        pNext += cbGlobalMost;
        return p;
    }

    void Give(void* p) { pGiven = new (p) Given{pGiven}; }

private:
    struct Given
    {
        Given* pNext;
    };

    bool NewPiece()
    {
        size_t const cb = pEnd ? cbLargePage : cbFirstPiece;
        void* const p = LargePages_New(cb);
        if (!p)
            return false;
        pNext = static_cast<std::byte*>(p);
        pEnd = pNext + cb;
        return true;
    }

    Given* pGiven = nullptr;
    std::byte* pNext = nullptr;
    std::byte* pEnd = nullptr;
};

Slots slots;
} // namespace

static void* TakeBlock(size_t) { return slots.Take(); }
static void GiveBlock(void* p) { slots.Give(p); }
#endif

HGLOBAL GlobalAlloc(uint32_t, size_t cb)
{
    if (CountDown(lGlobalAllocsLeft))
        return nullptr;
    void* const p = cb <= cbGlobalMost ? TakeBlock(cb) : nullptr;
    if (p)
        ++cGlobalBlocks;
    return p;
}

void* GlobalLock(HGLOBAL hMemory) { return CountDown(lGlobalLocksLeft) ? nullptr : hMemory; }

void GlobalUnlock(HGLOBAL) {}

void GlobalFree(HGLOBAL hMemory)
{
    if (!hMemory)
        return;
    --cGlobalBlocks;
    GiveBlock(hMemory);
}

void OutputDebugStringA(std::string_view sText) { sLastDebugString = sText; }

void DebugBreak() { OutputDebugStringA("DebugBreak\n"); }

#ifdef ZARN_ADDRESS_SANITIZER
void Memory_Forbid(void const* pBytes, size_t cb) { ASAN_POISON_MEMORY_REGION(pBytes, cb); }
void Memory_Allow(void const* pBytes, size_t cb) { ASAN_UNPOISON_MEMORY_REGION(pBytes, cb); }
#endif
} // namespace zarn
