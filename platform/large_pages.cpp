// Large pages on Linux, where a program asks for them and may not get them; the plain allocator elsewhere.
#include "platform/large_pages.h"

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace zarn
{
static std::align_val_t Alignment(size_t cb)
{
    return std::align_val_t{cb >= cbLargePage ? cbLargePage : alignof(std::max_align_t)};
}

void* LargePages_New(size_t cb)
{
    void* const p = ::operator new(cb, Alignment(cb), std::nothrow);
#ifdef __linux__
    if (p && cb >= cbLargePage)
        (void)::madvise(p, cb / cbLargePage * cbLargePage, MADV_HUGEPAGE);
#endif
    return p;
}

void LargePages_Delete(void* pBytes, size_t cb) { ::operator delete(pBytes, Alignment(cb)); }
} // namespace zarn
