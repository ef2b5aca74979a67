/// The one container: a circular doubly linked list of variable-sized records with an anchor.
///
/// Records are copied in and live in shared blocks of fixed size. A cursor is the address of a record's payload, so
/// client code works on the payload directly and walks with List_Next and List_Prev. A mistake in client code shows
/// itself as a message, and the program goes on with the neutral value that each operation names.
///
/// Sizes are accounted sizes: an anchor counts 20 bytes, an item 24 and its payload, a block 1500. The machine's own
/// records are wider where they hold pointers, which List_RealBytes tells. One thread at a time may use the library.
#pragma once
#include <cstdint>

namespace zarn
{
/// What an anchor and an item's header have in common, at the same places: a walk tells by fIsAnchor that it is round.
/// It stands here so that a walk, which is most of what the program does, needs no calls; only the library changes it.
struct ListLink
{
    ListLink* pNext;
    ListLink* pPrev;
    uint32_t lInBlock; ///< bytes from its block's head; 0xDEADBEEF once it has been freed
    int16_t fIsAnchor;
    union
    {
        int16_t fHealthy; ///< of an anchor
        int16_t cbSize;   ///< of an item: its payload in accounted bytes; the payload follows at once
    };
};

struct ListAnchor : ListLink
{
};
using List = ListAnchor*; ///< a handle; null is no list

constexpr int32_t cbListBlock = 1500;                                   ///< usable bytes of a block
constexpr int32_t cbListAnchor = 20;                                    ///< accounted size of an anchor
constexpr int32_t cbListItemHeader = 24;                                ///< accounted size of an item's header
constexpr int32_t cbListLargestRecord = cbListBlock - cbListItemHeader; ///< the largest payload that can be added

/// Real bytes of a payload of cb accounted bytes. A record of at least 92 is an Element, whose three pointers take no
/// room in the accounting; behind its text one more byte is kept 0, so that no text ever runs past its record.
[[nodiscard]] int32_t List_RealBytes(int32_t cb);

[[nodiscard]] List List_Create(); ///< an empty list, or null when memory has run out
void List_Destroy(List* pList);   ///< frees the list with all items and sets the handle to null

void List_AddFirst(List list, void const* pItem, int32_t cb);
void List_AddLast(List list, void const* pItem, int32_t cb);
/// Behind the cursor; a null cursor stands for the place ahead of the first item.
void List_AddAfter(List list, void const* pCursor, void const* pItem, int32_t cb);
/// Ahead of the cursor; a null cursor stands for the place behind the last item.
void List_AddBefore(List list, void const* pCursor, void const* pItem, int32_t cb);

/// The New forms give the cursor of a payload that the caller fills, or null when memory has run out.
[[nodiscard]] void* List_NewFirst(List list, int32_t cb);
[[nodiscard]] void* List_NewLast(List list, int32_t cb);
[[nodiscard]] void* List_NewAfter(List list, void const* pCursor, int32_t cb);
[[nodiscard]] void* List_NewBefore(List list, void const* pCursor, int32_t cb);

void List_Delete(void* pCursor);
/// As List_Delete; gives the item ahead of the deleted one, null when that was the first.
void* List_DeleteBackwards(void* pCursor);

[[nodiscard]] void* List_First(List list); ///< null when empty
[[nodiscard]] void* List_Last(List list);  ///< null when empty

/// The header of a payload.
[[nodiscard]] inline ListLink const* List_LinkOf(void const* pCursor)
{
    return static_cast<ListLink const*>(pCursor) - 1;
}
/// The cursor of a neighbour, or null for the anchor.
[[nodiscard]] inline void* List_CursorOf(ListLink* p) { return p->fIsAnchor ? nullptr : p + 1; }

/// Tell the user; null.
void* List_NextOfNull();
void* List_PrevOfNull();

/// Null behind the last item.
[[nodiscard]] inline void* List_Next(void const* pCursor)
{
    return pCursor ? List_CursorOf(List_LinkOf(pCursor)->pNext) : List_NextOfNull();
}
/// Null ahead of the first item.
[[nodiscard]] inline void* List_Prev(void const* pCursor)
{
    return pCursor ? List_CursorOf(List_LinkOf(pCursor)->pPrev) : List_PrevOfNull();
}

/// 1 when b is a or lies behind it in the same list; 0 otherwise, and when either is null. Linear.
[[nodiscard]] int32_t List_InOrder(void const* pCursorA, void const* pCursorB);

void List_Clear(List list);                    ///< frees all items; the list is healthy again
[[nodiscard]] int32_t List_IsEmpty(List list); ///< 1 or 0
[[nodiscard]] int32_t List_Card(List list);    ///< number of items, by walking them

void List_Join(List listA, List listB); ///< b's items go to the end of a
/// b gets a's items up to and including the cursor; what b held is cleared first. A null cursor moves nothing.
void List_SplitAfter(List listA, List listB, void const* pCursor);
/// b gets the cursor's item and all behind it; what b held is cleared first. A null cursor moves nothing.
void List_SplitBefore(List listA, List listB, void const* pCursor);

/// 1 while no allocation for the list has failed and no split was given an impossible cursor.
[[nodiscard]] int32_t List_IsHealthy(List list);

/// The payload size that was asked for when the item was made, in accounted bytes.
[[nodiscard]] int32_t List_ItemBytes(void const* pCursor);

/// What the allocator counts, for tests: bytes used and things alive in the current block; -1 when there is none.
struct ListBlockCounts
{
    int32_t cbUsed = -1;
    int32_t cLive = -1;
};
[[nodiscard]] ListBlockCounts List_CurrentBlock();

/// The first, next and following item as a record of type T; the same results and messages as the plain forms.
template <typename T>
[[nodiscard]] T* List_FirstAs(List list)
{
    return static_cast<T*>(List_First(list));
}
template <typename T>
[[nodiscard]] T* List_LastAs(List list)
{
    return static_cast<T*>(List_Last(list));
}
template <typename T>
[[nodiscard]] T* List_NextAs(T const* p)
{
    return static_cast<T*>(List_Next(p));
}
template <typename T>
[[nodiscard]] T* List_PrevAs(T const* p)
{
    return static_cast<T*>(List_Prev(p));
}
} // namespace zarn
