// The list library: links, accounting, and what it says of a client's mistakes.
#include "core/element.h"
#include "core/list.h"
#include "core/messages.h"
#include "platform/headless/script_host.h"
#include "platform/memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

using namespace zarn;

namespace
{
class ListTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Serious_Rearm();
        pOldUser = host.pUser;
        host.pUser = &user;
        list = List_Create();
    }
    void TearDown() override
    {
        lGlobalAllocsLeft = lGlobalLocksLeft = -1;
        if (list)
            List_Destroy(&list);
        host.pUser = pOldUser;
        Serious_Rearm();
    }

    /// Numbers as records of four bytes.
    static void Fill(List l, std::vector<int32_t> const& an)
    {
        for (int32_t const n : an)
            List_AddLast(l, &n, sizeof n);
    }
    static std::vector<int32_t> Forward(List l)
    {
        std::vector<int32_t> an;
        for (auto* p = List_FirstAs<int32_t>(l); p; p = List_NextAs(p))
            an.push_back(*p);
        return an;
    }
    static std::vector<int32_t> Backward(List l)
    {
        std::vector<int32_t> an;
        for (auto* p = List_LastAs<int32_t>(l); p; p = List_PrevAs(p))
            an.insert(an.begin(), *p);
        return an;
    }
    static int32_t* Find(List l, int32_t n)
    {
        auto* p = List_FirstAs<int32_t>(l);
        while (p && *p != n)
            p = List_NextAs(p);
        return p;
    }
    static void ExpectHolds(List l, std::vector<int32_t> const& an)
    {
        EXPECT_EQ(Forward(l), an);
        EXPECT_EQ(Backward(l), an);
        EXPECT_EQ(List_Card(l), static_cast<int32_t>(an.size()));
        EXPECT_EQ(List_IsEmpty(l), an.empty());
    }
    /// The only message shown since the last call; empty for none.
    std::string Message()
    {
        std::string const s = user.shown.empty() ? "" : user.shown.back().sText;
        EXPECT_LE(user.shown.size(), 1U);
        user.shown.clear();
        Serious_Rearm();
        return s;
    }
    /// A list whose anchor is the first thing in a block of its own.
    List FreshBlock()
    {
        for (int32_t cb = List_CurrentBlock().cbUsed; cb >= 0 && cb + cbListAnchor <= cbListBlock;
             cb = List_CurrentBlock().cbUsed)
            (void)List_NewLast(list, std::max(cbListBlock - cb - cbListItemHeader, 0));
        return List_Create();
    }

    ScriptHost user;
    UserHost* pOldUser = nullptr;
    List list = nullptr;
};
} // namespace

TEST_F(ListTest, AnEmptyListSaysNothing)
{
    EXPECT_FALSE(List_First(list));
    EXPECT_FALSE(List_Last(list));
    EXPECT_EQ(List_Card(list), 0);
    EXPECT_EQ(List_IsEmpty(list), 1);
    EXPECT_EQ(Message(), "");
}

TEST_F(ListTest, EveryFormPutsItsItemInItsPlace)
{
    int32_t n = 3;
    List_AddFirst(list, &n, 4);
    n = 5;
    List_AddLast(list, &n, 4);
    n = 4;
    List_AddAfter(list, Find(list, 3), &n, 4);
    n = 2;
    List_AddBefore(list, Find(list, 3), &n, 4);
    n = 1;
    List_AddAfter(list, nullptr, &n, 4);
    n = 6;
    List_AddBefore(list, nullptr, &n, 4);
    ExpectHolds(list, {1, 2, 3, 4, 5, 6});

    *static_cast<int32_t*>(List_NewFirst(list, 4)) = -1;
    *static_cast<int32_t*>(List_NewLast(list, 4)) = 9;
    *static_cast<int32_t*>(List_NewAfter(list, Find(list, -1), 4)) = 0;
    *static_cast<int32_t*>(List_NewBefore(list, Find(list, 9), 4)) = 8;
    *static_cast<int32_t*>(List_NewAfter(list, nullptr, 4)) = -2;
    *static_cast<int32_t*>(List_NewBefore(list, nullptr, 4)) = 10;
    ExpectHolds(list, {-2, -1, 0, 1, 2, 3, 4, 5, 6, 8, 9, 10});
}

TEST_F(ListTest, WalkingOffEitherEndGivesNullAndOnlyANullCursorIsToldOf)
{
    Fill(list, {1});
    EXPECT_FALSE(List_Prev(List_First(list)));
    void* const pEnd = List_Next(List_Last(list));
    EXPECT_FALSE(pEnd);
    EXPECT_EQ(Message(), "");
    EXPECT_FALSE(List_Next(pEnd));
    EXPECT_EQ(Message(), "Bug: List_Next of NULL cursor.  Continuing...");
}

TEST_F(ListTest, DeletingBackwardsGivesTheItemAhead)
{
    Fill(list, {1, 2, 3});
    EXPECT_EQ(List_DeleteBackwards(Find(list, 2)), Find(list, 1));
    EXPECT_EQ(List_DeleteBackwards(Find(list, 1)), nullptr);
    ExpectHolds(list, {3});
    EXPECT_EQ(Message(), "");
}

TEST_F(ListTest, InOrderTellsWhetherTheSecondIsReachedFromTheFirst)
{
    Fill(list, {1, 2, 3});
    EXPECT_EQ(List_InOrder(Find(list, 1), Find(list, 3)), 1);
    EXPECT_EQ(List_InOrder(Find(list, 2), Find(list, 2)), 1);
    EXPECT_EQ(List_InOrder(Find(list, 3), Find(list, 1)), 0);
    EXPECT_EQ(List_InOrder(nullptr, Find(list, 1)), 0);
    EXPECT_EQ(List_InOrder(Find(list, 1), nullptr), 0);
    EXPECT_EQ(Message(), "");
}

TEST_F(ListTest, JoiningMovesAllAndHealthIsSharedAndLeft)
{
    List listB = List_Create();
    Fill(list, {1, 2});
    Fill(listB, {3, 4});
    List_Join(list, listB);
    ExpectHolds(list, {1, 2, 3, 4});
    ExpectHolds(listB, {});
    List_Join(listB, list);
    ExpectHolds(listB, {1, 2, 3, 4});
    ExpectHolds(list, {});

    lGlobalAllocsLeft = 0;
    EXPECT_FALSE(List_NewLast(list, cbListLargestRecord + 1));
    EXPECT_FALSE(List_IsHealthy(list));
    List_Join(listB, list);
    EXPECT_FALSE(List_IsHealthy(listB)) << "an empty list's health still counts";
    EXPECT_TRUE(List_IsHealthy(list));
    ExpectHolds(listB, {1, 2, 3, 4});
    List_Clear(listB);
    EXPECT_TRUE(List_IsHealthy(listB));
    List_Destroy(&listB);
}

TEST_F(ListTest, SplittingGivesTheSecondListItsPartAndClearsWhatItHeld)
{
    struct
    {
        char const* sCase;
        bool bAfter;
        int32_t nCursor; ///< 0 for none
        std::vector<int32_t> aA, aB;
    } const aCase[] = {
        {"after the middle", true, 2, {3, 4}, {1, 2}},    {"after the last", true, 4, {}, {1, 2, 3, 4}},
        {"after nothing", true, 0, {1, 2, 3, 4}, {}},     {"before the middle", false, 3, {1, 2}, {3, 4}},
        {"before the first", false, 1, {}, {1, 2, 3, 4}}, {"before nothing", false, 0, {1, 2, 3, 4}, {}}};
    for (auto const& c : aCase)
    {
        SCOPED_TRACE(c.sCase);
        List listA = List_Create();
        List listB = List_Create();
        Fill(listA, {1, 2, 3, 4});
        Fill(listB, {99});
        (c.bAfter ? List_SplitAfter : List_SplitBefore)(listA, listB, c.nCursor ? Find(listA, c.nCursor) : nullptr);
        ExpectHolds(listA, c.aA);
        ExpectHolds(listB, c.aB);
        List_Destroy(&listA);
        List_Destroy(&listB);
    }
    EXPECT_EQ(Message(), "");
}

TEST_F(ListTest, OneItemIsTakenOutByTwoSplitsAndAJoinWithoutACopy)
{
    List listRest = List_Create();
    List listOne = List_Create();
    Fill(list, {1, 2, 3});
    int32_t* const p = Find(list, 2);
    List_SplitBefore(list, listRest, p);
    List_SplitAfter(listRest, listOne, p);
    List_Join(list, listRest);
    ExpectHolds(list, {1, 3});
    ExpectHolds(listOne, {2});
    EXPECT_EQ(List_First(listOne), p);
    List_Destroy(&listRest);
    List_Destroy(&listOne);
}

TEST_F(ListTest, EveryMistakeHasItsSentenceAndItsNeutralValue)
{
    List listNone = nullptr;
    int32_t n = 7;
    auto const Null = [](void const* p) { return p == nullptr; };
    struct
    {
        char const* sMessage;
        std::function<bool()> Do;
    } const aCase[] = {
        {"Bug:Attempt to destroy NULL list.  Continuing...",
         [&]
         {
             List_Destroy(nullptr);
             return true;
         }},
        {"Bug: List_AddFirst to bogus list.  Continuing...",
         [&]
         {
             List_AddFirst(nullptr, &n, 4);
             return true;
         }},
        {"Bug: List_NewFirst to bogus list.  Continuing...", [&] { return Null(List_NewFirst(nullptr, 4)); }},
        {"Bug: List_AddLast to bogus list. Continuing...",
         [&]
         {
             List_AddLast(nullptr, &n, 4);
             return true;
         }},
        {"Bug: List_NewLast in bogus list.  Continuing...", [&] { return Null(List_NewLast(nullptr, 4)); }},
        {"Bug: List_AddAfter in bogus list.  Continuing...",
         [&]
         {
             List_AddAfter(nullptr, nullptr, &n, 4);
             return true;
         }},
        {"Bug: List_NewAfter in bogus list. Continuing...", [&] { return Null(List_NewAfter(nullptr, nullptr, 4)); }},
        {"Bug: List_AddBefore in bogus list.  Continuing...",
         [&]
         {
             List_AddBefore(nullptr, nullptr, &n, 4);
             return true;
         }},
        {"Bug: List_NewBefore in bogus list.  Continuing...",
         [&] { return Null(List_NewBefore(nullptr, nullptr, 4)); }},
        {"Bug: List_Delete NULL item",
         [&]
         {
             List_Delete(nullptr);
             return true;
         }},
        {"List_DeleteBackwards NULL cursor.  Continuing...", [&] { return Null(List_DeleteBackwards(nullptr)); }},
        {"Bug: List_First of bogus list.  Continuing...", [&] { return Null(List_First(nullptr)); }},
        {"Bug: List_Last of bogus list.  Continuing...", [&] { return Null(List_Last(nullptr)); }},
        {"Bug: List_Next of NULL cursor.  Continuing...", [&] { return Null(List_Next(nullptr)); }},
        {"Bug: List_Prev of NULL cursor.  Continuing...", [&] { return Null(List_Prev(nullptr)); }},
        {"Bug: List_Clear of bogus list.  Continuing...",
         [&]
         {
             List_Clear(nullptr);
             return true;
         }},
        {"Bug: List_IsEmpty of bogus list.  Continuing...", [&] { return List_IsEmpty(nullptr) == 1; }},
        {"Bug: List_Join of bogus list.  Continuing...",
         [&]
         {
             List_Join(list, listNone);
             return true;
         }},
        {"Bug: List_Join of bogus list.  Continuing...",
         [&]
         {
             List_Join(listNone, list);
             return true;
         }},
        {"Bug: List_SplitAfter bogus list.  Continuing...",
         [&]
         {
             List_SplitAfter(list, listNone, nullptr);
             return true;
         }},
        {"Bug: List_SplitBefore bogus list.  Continuing...",
         [&]
         {
             List_SplitBefore(listNone, list, nullptr);
             return true;
         }},
        {"Bug: List_Card of bogus list.  Continuing...", [&] { return List_Card(nullptr) == 0; }}};
    for (auto const& c : aCase)
    {
        EXPECT_TRUE(c.Do()) << c.sMessage;
        EXPECT_EQ(Message(), c.sMessage);
    }
}

TEST_F(ListTest, AnAnchorCounts20AndAnItem24AndItsPayloadRoundedUpToFour)
{
    List listB = FreshBlock();
    EXPECT_EQ(List_CurrentBlock().cbUsed, 20);
    EXPECT_EQ(List_CurrentBlock().cLive, 1);
    Element const el;
    List_AddLast(listB, &el, cbPlainElement);
    EXPECT_EQ(List_CurrentBlock().cbUsed, 20 + 124);
    char c = 'x';
    List_AddLast(listB, &c, 1);
    EXPECT_EQ(List_CurrentBlock().cbUsed, 20 + 124 + 28);
    EXPECT_EQ(List_CurrentBlock().cLive, 3);
    List_Delete(List_Last(listB));
    EXPECT_EQ(List_CurrentBlock().cbUsed, 20 + 124 + 28) << "a freed item's space isn't used again";
    EXPECT_EQ(List_CurrentBlock().cLive, 2);
    List_Destroy(&listB);
}

TEST_F(ListTest, ARequestThatFillsTheBlockFitsAndOneByteMoreTakesANewOne)
{
    for (int32_t const cbMore : {0, 1})
    {
        List listB = FreshBlock();
        int32_t const cBlocks = cGlobalBlocks;
        (void)List_NewLast(listB, cbListBlock - 20 - cbListItemHeader + cbMore);
        EXPECT_EQ(cGlobalBlocks, cBlocks + cbMore);
        List_Destroy(&listB);
    }
}

TEST_F(ListTest, ABlockOfAnchorsOrOfTheSmallestItemsStaysInItsBounds)
{
    std::vector<List> aLists;
    for (int i = 0; i < 200; ++i)
        aLists.push_back(List_Create());
    for (List& l : aLists)
    {
        EXPECT_TRUE(List_IsEmpty(l));
        List_Destroy(&l);
    }
    for (int32_t const cb : {1, 4, 5, 8})
    {
        for (int i = 0; i < 300; ++i)
            std::memset(List_NewLast(list, cb), i, static_cast<size_t>(cb));
        int i = 0;
        for (auto* p = List_FirstAs<unsigned char>(list); p; p = List_NextAs(p), ++i)
            EXPECT_EQ(*p, static_cast<unsigned char>(i));
        List_Clear(list);
    }
}

TEST_F(ListTest, TheLastLiveItemOfABlockTakesTheBlockWithIt)
{
    int32_t const cBefore = cGlobalBlocks;
    List listB = FreshBlock();
    ASSERT_EQ(List_CurrentBlock().cLive, 1);
    List_Destroy(&listB);
    EXPECT_EQ(List_CurrentBlock().cbUsed, -1);
    EXPECT_LE(cGlobalBlocks, cBefore);
    listB = List_Create();
    EXPECT_EQ(List_CurrentBlock().cbUsed, 20) << "the next allocation takes a new one";
    List_Destroy(&listB);
}

TEST_F(ListTest, FreeingTwiceIsToldAndLeavesTheCountsAlone)
{
    Fill(list, {1, 2});
    int32_t* const p = Find(list, 1);
    List_Delete(p);
    int32_t const cLive = List_CurrentBlock().cLive;
    List_Delete(p);
    EXPECT_EQ(Message(), "List element doubly freed.  Tell Odrian");
    EXPECT_EQ(List_CurrentBlock().cLive, cLive);
    ExpectHolds(list, {2});
}

TEST_F(ListTest, MemoryThatRunsOutIsNoMessageButAnUnhealthyList)
{
    for (int32_t* const plLeft : {&lGlobalAllocsLeft, &lGlobalLocksLeft})
    {
        sLastDebugString.clear();
        List listB = FreshBlock();
        (void)List_NewLast(listB, cbListBlock - 20 - cbListItemHeader);
        ASSERT_EQ(List_CurrentBlock().cbUsed, cbListBlock);
        int32_t const cBlocks = cGlobalBlocks;
        *plLeft = 0;
        EXPECT_FALSE(List_NewLast(listB, 100));
        EXPECT_EQ(sLastDebugString, plLeft == &lGlobalAllocsLeft ? "GlobalAlloc failed!!\n" : "GlobalLock failed!!\n");
        EXPECT_EQ(List_CurrentBlock().cbUsed, -1);
        EXPECT_EQ(cGlobalBlocks, cBlocks);
        EXPECT_FALSE(List_IsHealthy(listB));
        EXPECT_EQ(List_Card(listB), 1);
        *plLeft = 0;
        EXPECT_FALSE(List_Create());
        Element const el;
        *plLeft = 0;
        List_AddLast(listB, &el, 100);
        EXPECT_EQ(List_Card(listB), 1);
        List_Destroy(&listB);
    }
    EXPECT_EQ(Message(), "");
}

TEST_F(ListTest, AnElementsTextEndsWithItsRecordEvenWithoutANul)
{
    RoomyElement el;
    el.storage = cbPlainElement + 5;
    std::memset(Element_TextBytes(&el), 'a', 40);
    List_AddLast(list, &el, el.storage);
    EXPECT_EQ(Element_Text(List_LastAs<Element>(list)), std::string(13, 'a'));
}
