// Apart from what they count: inlined, they would be taken for one allocation and another's release.
#include "counted_memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

constexpr size_t cbPrefix = __STDCPP_DEFAULT_NEW_ALIGNMENT__; ///< ahead of each piece, which keeps its size there

void* operator new(size_t cb)
{
    auto* const p = static_cast<std::byte*>(std::malloc(cb + cbPrefix));
    if (!p)
        throw std::bad_alloc();
    *reinterpret_cast<size_t*>(p) = cb;
    zarn::bench::cbInUse += static_cast<int64_t>(cb);
    zarn::bench::cbPeak = std::max(zarn::bench::cbPeak, zarn::bench::cbInUse);
    return p + cbPrefix;
}

void operator delete(void* p) noexcept
{
    if (!p)
        return;
    std::byte* const pPiece = static_cast<std::byte*>(p) - cbPrefix;
    zarn::bench::cbInUse -= static_cast<int64_t>(*reinterpret_cast<size_t*>(pPiece));
    std::free(pPiece);
}

void operator delete(void* p, size_t) noexcept { operator delete(p); }
