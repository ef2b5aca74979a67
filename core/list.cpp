// The list library and its block allocator.
//
// Allocation only ever moves forward in the current block: a freed item's space isn't used again, and a block goes back
// to the platform as a whole when nothing in it is alive. So a cursor that outlives its item still points into memory
// of the process for as long as a neighbour lives, and the poison in the header tells a second free.
#include "core/list.h"

#include "core/element.h"
#include "core/messages.h"
#include "core/text.h"
#include "platform/memory.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

namespace zarn
{
namespace
{
using Link = ListLink;

/// Real bytes of a block's area: what 1500 accounted bytes can come to. The dearest record is the smallest Element, 116
/// in the accounting and 152 here.
constexpr int32_t cbDearest = static_cast<int32_t>(sizeof(Link)) + 128;
constexpr int32_t cbRealArea = cbListBlock * cbDearest / (cbListItemHeader + cbElementFixed) / 8 * 8;
static_assert(sizeof(Link) % 8 == 0 && cbListLargestRecord <= INT16_MAX);
static_assert(sizeof(Link) * (cbListItemHeader + cbElementFixed) <= size_t{cbListAnchor} * cbDearest);

struct Block
{
    HGLOBAL hMemory;
    int32_t cLive;
    int32_t cbUsed;     ///< accounted
    int32_t cbRealUsed; ///< where the next piece begins
    int32_t lPad;
    alignas(8) std::byte aArea[cbRealArea];
};
static_assert(sizeof(Block) <= cbGlobalMost);

constexpr int32_t cbElementGrowth = static_cast<int32_t>(sizeof(Element)) - cbPlainElement;
constexpr uint32_t lPoison = 0xDEADBEEF;
Block* pCurrentBlock = nullptr;

constexpr int32_t RoundUp(int32_t n, int32_t lTo) { return (n + lTo - 1) / lTo * lTo; }

constexpr int32_t RealBytes(int32_t cb)
{
    return cb >= cbElementFixed ? std::max(cb, cbPlainElement) + cbElementGrowth + 1 : cb;
}

Link* HeaderOf(void const* pCursor) { return const_cast<Link*>(List_LinkOf(pCursor)); }

void* PayloadOf(Link* p) { return p + 1; }

Block* BlockOf(Link* p) { return reinterpret_cast<Block*>(reinterpret_cast<std::byte*>(p) - p->lInBlock); }

/// Of a piece that has just been carved.
uint32_t InCurrentBlock(Link const* p)
{
    return static_cast<uint32_t>(reinterpret_cast<std::byte const*>(p) -
                                 reinterpret_cast<std::byte const*>(pCurrentBlock));
}

/// Carves a piece of cbAccounted from the current block, in cbReal bytes; null when memory has run out.
void* Carve(int32_t cbAccounted, int32_t cbReal)
{
    if (!pCurrentBlock || pCurrentBlock->cbUsed + cbAccounted > cbListBlock)
    {
        HGLOBAL const hMemory = GlobalAlloc(GMEM_MOVEABLE, sizeof(Block));
        if (!hMemory)
        {
            OutputDebugStringA("GlobalAlloc failed!!\n");
            pCurrentBlock = nullptr;
            return nullptr;
        }
        void* const pMemory = GlobalLock(hMemory);
        pCurrentBlock = pMemory ? new (pMemory) Block : nullptr;
        if (!pCurrentBlock)
        {
            OutputDebugStringA("GlobalLock failed!!\n");
            GlobalFree(hMemory);
            return nullptr;
        }
        pCurrentBlock->hMemory = hMemory;
        pCurrentBlock->cLive = 0;
        pCurrentBlock->cbUsed = 0;
        pCurrentBlock->cbRealUsed = 0;
    }
    ++pCurrentBlock->cLive;
    void* const pPiece = pCurrentBlock->aArea + pCurrentBlock->cbRealUsed;
    pCurrentBlock->cbUsed = (pCurrentBlock->cbUsed + cbAccounted + 3) / 4 * 4;
    pCurrentBlock->cbRealUsed += RoundUp(cbReal, 8);
    return pPiece;
}

void Release(Link* p)
{
    if (p->lInBlock == lPoison)
    {
        Serious("List element doubly freed.  Tell Odrian");
        return;
    }
    Block* const pBlock = BlockOf(p);
    p->lInBlock = lPoison;
    if (!p->fIsAnchor)
        Memory_Forbid(PayloadOf(p), static_cast<size_t>(RoundUp(RealBytes(p->cbSize), 8)));
    if (--pBlock->cLive >= 1)
        return;
    if (pBlock->cLive < 0)
        Serious(Format("Bug in List code. Tell OdrianTy!\nList block allocation negative (%d) %8x", pBlock->cLive,
                       static_cast<unsigned>(reinterpret_cast<uintptr_t>(p))));
    if (pBlock == pCurrentBlock)
        pCurrentBlock = nullptr;
    HGLOBAL const hMemory = pBlock->hMemory;
    Memory_Allow(pBlock->aArea, sizeof pBlock->aArea);
    GlobalUnlock(hMemory);
    GlobalFree(hMemory);
}

/// A new item between two neighbours; its payload is not filled. Null when memory has run out.
Link* NewBetween(ListAnchor* list, Link* pPrev, Link* pNext, int32_t cb);

void CopyIn(Link* pItem, void const* pSource, int32_t cb)
{
    if (!pItem)
        return;
    size_t const cbCopied = static_cast<size_t>(cb >= cbElementFixed ? cb + cbElementGrowth : cb);
    auto* const pPayload = static_cast<std::byte*>(PayloadOf(pItem));
    std::memcpy(pPayload, pSource, cbCopied);
    std::memset(pPayload + cbCopied, 0, static_cast<size_t>(RealBytes(cb)) - cbCopied);
}
} // namespace

static_assert(sizeof(ListAnchor) == sizeof(Link));

namespace
{
Link* NewBetween(ListAnchor* list, Link* pPrev, Link* pNext, int32_t cb)
{
    int32_t const cbReal = RealBytes(cb);
    void* const pPiece =
        cb > cbListLargestRecord ? nullptr : Carve(cbListItemHeader + cb, static_cast<int32_t>(sizeof(Link)) + cbReal);
    if (!pPiece)
    {
        list->fHealthy = 0;
        return nullptr;
    }
    auto* const pItem = new (pPiece) Link;
    pItem->lInBlock = InCurrentBlock(pItem);
    pItem->fIsAnchor = 0;
    pItem->cbSize = static_cast<int16_t>(cb);
    pItem->pNext = pNext;
    pItem->pPrev = pPrev;
    pPrev->pNext = pItem;
    pNext->pPrev = pItem;
    return pItem;
}

/// The places that a cursor stands for; a null cursor is the head to After and the end to Before.
Link* NewAfter(List list, void const* pCursor, int32_t cb)
{
    Link* const pPrev = pCursor ? HeaderOf(pCursor) : list;
    return NewBetween(list, pPrev, pPrev->pNext, cb);
}

Link* NewBefore(List list, void const* pCursor, int32_t cb)
{
    Link* const pNext = pCursor ? HeaderOf(pCursor) : list;
    return NewBetween(list, pNext->pPrev, pNext, cb);
}

/// The New forms hand out zeros: nothing that a caller forgets to fill is ever a stray byte.
void* Blank(Link* pItem)
{
    if (!pItem)
        return nullptr;
    void* const pPayload = PayloadOf(pItem);
    std::memset(pPayload, 0, static_cast<size_t>(RealBytes(pItem->cbSize)));
    return pPayload;
}

/// a, which is empty, takes over all of b's items.
void List_Transfer(List listA, List listB)
{
    listA->pNext = listB->pNext;
    listA->pPrev = listB->pPrev;
    listA->pNext->pPrev = listA;
    listA->pPrev->pNext = listA;
    listB->pNext = listB->pPrev = listB;
}

/// The checks and the clearing that both splits begin with; true when there is something to move.
bool BeginSplit(List listA, List listB, void const* pCursor)
{
    if (!List_IsEmpty(listB))
        List_Clear(listB);
    if (!pCursor)
        return false;
    if (HeaderOf(pCursor) == listA)
    {
        listA->fHealthy = 0;
        listB->fHealthy = 0;
        return false;
    }
    return true;
}
} // namespace

int32_t List_RealBytes(int32_t cb) { return RealBytes(cb); }

List List_Create()
{
    void* const pPiece = Carve(cbListAnchor, static_cast<int32_t>(sizeof(ListAnchor)));
    if (!pPiece)
        return nullptr;
    auto* const list = new (pPiece) ListAnchor;
    list->pNext = list->pPrev = list;
    list->lInBlock = InCurrentBlock(list);
    list->fIsAnchor = 1;
    list->fHealthy = 1;
    return list;
}

void List_Destroy(List* pList)
{
    if (!pList || !*pList)
    {
        Serious("Bug:Attempt to destroy NULL list.  Continuing...");
        return;
    }
    // The items go first here: with the anchor freed ahead of them its block could go while the walk still needs the
    // anchor's address to end on, and nobody can tell the difference.
    List_Clear(*pList);
    Release(*pList);
    *pList = nullptr;
}

void List_AddFirst(List list, void const* pItem, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_AddFirst to bogus list.  Continuing...");
        return;
    }
    CopyIn(NewAfter(list, nullptr, cb), pItem, cb);
}

void* List_NewFirst(List list, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_NewFirst to bogus list.  Continuing...");
        return nullptr;
    }
    return Blank(NewAfter(list, nullptr, cb));
}

void List_AddLast(List list, void const* pItem, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_AddLast to bogus list. Continuing...");
        return;
    }
    CopyIn(NewBefore(list, nullptr, cb), pItem, cb);
}

void* List_NewLast(List list, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_NewLast in bogus list.  Continuing...");
        return nullptr;
    }
    return Blank(NewBefore(list, nullptr, cb));
}

void List_AddAfter(List list, void const* pCursor, void const* pItem, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_AddAfter in bogus list.  Continuing...");
        return;
    }
    CopyIn(NewAfter(list, pCursor, cb), pItem, cb);
}

void* List_NewAfter(List list, void const* pCursor, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_NewAfter in bogus list. Continuing...");
        return nullptr;
    }
    return Blank(NewAfter(list, pCursor, cb));
}

void List_AddBefore(List list, void const* pCursor, void const* pItem, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_AddBefore in bogus list.  Continuing...");
        return;
    }
    CopyIn(NewBefore(list, pCursor, cb), pItem, cb);
}

void* List_NewBefore(List list, void const* pCursor, int32_t cb)
{
    if (!list)
    {
        Serious("Bug: List_NewBefore in bogus list.  Continuing...");
        return nullptr;
    }
    return Blank(NewBefore(list, pCursor, cb));
}

void List_Delete(void* pCursor)
{
    if (!pCursor)
    {
        Serious("Bug: List_Delete NULL item");
        return;
    }
    Link* const pItem = HeaderOf(pCursor);
    if (pItem->lInBlock != lPoison) // a freed item's links lead nowhere: only the message is left for it
    {
        pItem->pPrev->pNext = pItem->pNext;
        pItem->pNext->pPrev = pItem->pPrev;
    }
    Release(pItem);
}

void* List_DeleteBackwards(void* pCursor)
{
    if (!pCursor)
    {
        Serious("List_DeleteBackwards NULL cursor.  Continuing...");
        return nullptr;
    }
    void* const pPrev = List_CursorOf(HeaderOf(pCursor)->pPrev);
    List_Delete(pCursor);
    return pPrev;
}

void* List_First(List list)
{
    if (!list)
    {
        Serious("Bug: List_First of bogus list.  Continuing...");
        return nullptr;
    }
    return List_CursorOf(list->pNext);
}

void* List_Last(List list)
{
    if (!list)
    {
        Serious("Bug: List_Last of bogus list.  Continuing...");
        return nullptr;
    }
    return List_CursorOf(list->pPrev);
}

void* List_NextOfNull()
{
    Serious("Bug: List_Next of NULL cursor.  Continuing...");
    return nullptr;
}

void* List_PrevOfNull()
{
    Serious("Bug: List_Prev of NULL cursor.  Continuing...");
    return nullptr;
}

int32_t List_InOrder(void const* pCursorA, void const* pCursorB)
{
    if (!pCursorA || !pCursorB)
        return 0;
    for (Link* p = HeaderOf(pCursorA); !p->fIsAnchor; p = p->pNext)
        if (PayloadOf(p) == pCursorB)
            return 1;
    return 0;
}

void List_Clear(List list)
{
    if (!list)
    {
        Serious("Bug: List_Clear of bogus list.  Continuing...");
        return;
    }
    Link* p = list->pNext;
    while (p != list)
    {
        Link* const pNext = p->pNext;
        Release(p);
        p = pNext;
    }
    list->pNext = list->pPrev = list;
    list->fHealthy = 1;
}

int32_t List_IsEmpty(List list)
{
    if (!list)
    {
        Serious("Bug: List_IsEmpty of bogus list.  Continuing...");
        return 1;
    }
    return list->pNext == list;
}

int32_t List_Card(List list)
{
    if (!list)
    {
        Serious("Bug: List_Card of bogus list.  Continuing...");
        return 0;
    }
    int32_t c = 0;
    for (Link* p = list->pNext; p != list; p = p->pNext)
        ++c;
    return c;
}

void List_Join(List listA, List listB)
{
    if (!listA || !listB)
    {
        Serious("Bug: List_Join of bogus list.  Continuing...");
        return;
    }
    listA->fHealthy = listA->fHealthy && listB->fHealthy;
    listB->fHealthy = 1;
    if (listB->pNext == listB)
        return;
    if (listA->pNext == listA)
    {
        List_Transfer(listA, listB);
        return;
    }
    Link* const pFirst = listB->pNext;
    Link* const pLast = listB->pPrev;
    pFirst->pPrev = listA->pPrev;
    listA->pPrev->pNext = pFirst;
    pLast->pNext = listA;
    listA->pPrev = pLast;
    listB->pNext = listB->pPrev = listB;
}

void List_SplitAfter(List listA, List listB, void const* pCursor)
{
    if (!listA || !listB)
    {
        Serious("Bug: List_SplitAfter bogus list.  Continuing...");
        return;
    }
    if (!BeginSplit(listA, listB, pCursor))
        return;
    Link* const pLast = HeaderOf(pCursor);
    if (pLast == listA->pPrev)
    {
        List_Transfer(listB, listA);
        return;
    }
    Link* const pFirst = listA->pNext;
    listA->pNext = pLast->pNext;
    listA->pNext->pPrev = listA;
    listB->pNext = pFirst;
    pFirst->pPrev = listB;
    listB->pPrev = pLast;
    pLast->pNext = listB;
}

void List_SplitBefore(List listA, List listB, void const* pCursor)
{
    if (!listA || !listB)
    {
        Serious("Bug: List_SplitBefore bogus list.  Continuing...");
        return;
    }
    if (!BeginSplit(listA, listB, pCursor))
        return;
    Link* const pFirst = HeaderOf(pCursor);
    if (pFirst == listA->pNext)
    {
        List_Transfer(listB, listA);
        return;
    }
    Link* const pLast = listA->pPrev;
    listA->pPrev = pFirst->pPrev;
    listA->pPrev->pNext = listA;
    listB->pNext = pFirst;
    pFirst->pPrev = listB;
    listB->pPrev = pLast;
    pLast->pNext = listB;
}

int32_t List_IsHealthy(List list) { return list ? list->fHealthy : 0; }

int32_t List_ItemBytes(void const* pCursor) { return pCursor ? HeaderOf(pCursor)->cbSize : 0; }

ListBlockCounts List_CurrentBlock()
{
    return pCurrentBlock ? ListBlockCounts{pCurrentBlock->cbUsed, pCurrentBlock->cLive} : ListBlockCounts{};
}
} // namespace zarn
