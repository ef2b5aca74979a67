#include "platform/memory.h"

#include "platform/large_pages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace zarn
{
TEST(Memory, BlocksDontOverlapAndKeepWhatIsWritten)
{
    constexpr size_t cBlocks = 2500; // over more than one piece of the system's memory
    std::vector<HGLOBAL> ahMemory;
    int32_t const cBefore = cGlobalBlocks;
    for (size_t n = 0; n < cBlocks; ++n)
    {
        ahMemory.push_back(GlobalAlloc(GMEM_MOVEABLE, cbGlobalMost));
        ASSERT_NE(ahMemory.back(), nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(GlobalLock(ahMemory.back())) % alignof(void*), 0u);
        std::memset(GlobalLock(ahMemory.back()), static_cast<int>(n % 251), cbGlobalMost);
    }
    EXPECT_EQ(cGlobalBlocks, cBefore + static_cast<int32_t>(cBlocks));
    for (size_t n = 0; n < cBlocks; ++n)
    {
        auto const* const pBytes = static_cast<unsigned char const*>(GlobalLock(ahMemory[n]));
        ASSERT_TRUE(pBytes[0] == n % 251 && pBytes[cbGlobalMost - 1] == n % 251) << n;
    }
    for (HGLOBAL const hMemory : ahMemory)
        GlobalFree(hMemory);
    EXPECT_EQ(cGlobalBlocks, cBefore);
}

TEST(Memory, ABlockThatIsTooLargeIsRefused)
{
    int32_t const cBefore = cGlobalBlocks;
    EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, cbGlobalMost + 1), nullptr);
    EXPECT_EQ(cGlobalBlocks, cBefore);
    GlobalFree(nullptr);
    EXPECT_EQ(cGlobalBlocks, cBefore);
}

TEST(LargePages, AVectorGrowsOverTheSizeOfAPageAndShrinksBack)
{
    std::vector<int32_t, LargePageAllocator<int32_t>> values;
    constexpr int32_t cValues = 3'000'000;
    for (int32_t l = 0; l < cValues; ++l)
        values.push_back(l);
    for (int32_t l = 0; l < cValues; ++l)
        ASSERT_EQ(values[static_cast<size_t>(l)], l);
    auto const moved = std::move(values);
    EXPECT_EQ(moved.size(), size_t{cValues});
    EXPECT_EQ(reinterpret_cast<uintptr_t>(moved.data()) % cbLargePage, 0u);
    auto copied = moved;
    copied.resize(3);
    copied.shrink_to_fit();
    EXPECT_EQ(copied.back(), 2);
}
} // namespace zarn
