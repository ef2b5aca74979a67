/// Memory for large buffers, in large pages where the system has them.
///
/// A system hands memory out page by page as it is written for the first time, and for a buffer of some megabytes that
/// takes longer than the writing. A large page stands for 512 small ones.
#pragma once
#include <cstddef>
#include <new>

namespace zarn
{
constexpr size_t cbLargePage = size_t{2} << 20;

/// cb bytes, most of which are going to be written; null when memory has run out. Any thread.
[[nodiscard]] void* LargePages_New(size_t cb);
/// @param cb  as they were asked for with
void LargePages_Delete(void* pBytes, size_t cb);

/// For a vector that grows large.
template <typename T>
struct LargePageAllocator
{
    using value_type = T;

    LargePageAllocator() = default;
    template <typename U>
    LargePageAllocator(LargePageAllocator<U> const&)
    {
    }

    [[nodiscard]] T* allocate(size_t n)
    {
        if (void* const p = LargePages_New(n * sizeof(T)))
            return static_cast<T*>(p);
        throw std::bad_alloc();
    }
    void deallocate(T* p, size_t n) { LargePages_Delete(p, n * sizeof(T)); }
    friend bool operator==(LargePageAllocator const&, LargePageAllocator const&) { return true; }
};
} // namespace zarn
