// The open slurs of a reader: the places behind which they begin. The stack has no bound of its own.
#include "core/messages.h"
#include "edit/insert.h"
#include "edit/insert_run.h"
#include "edit/slur_mark.h"

#include <vector>

namespace zarn
{
static constexpr int32_t lCutCommand = 51; ///< the two commands that need a mark
static constexpr int32_t lCopyCommand = 52;

static std::vector<Element*> aOpenSlurs;

void SlurReset() { aOpenSlurs.clear(); }

void SlurOpen()
{
    if (pelInsertPoint)
        aOpenSlurs.push_back(pelInsertPoint);
}

void SlurClose()
{
    if (aOpenSlurs.empty())
        return;
    Element* const pelOpen = aOpenSlurs.back();
    aOpenSlurs.pop_back();
    if (pelInsertPoint && pelInsertPoint->lStaff != pelOpen->lStaff)
        return; // a slur never leaves its staff
    bool const bAroundNothing = pelOpen == pelInsertPoint;
    pelMarkBegin = bAroundNothing ? nullptr : Next(pelOpen);
    pelMarkEnd = pelInsertPoint;
    bool const bSlurred = pelMarkBegin && pelMarkEnd;
    SlurMark();
    if (bSlurred)
        InsertPoint_Advance();
    pelMarkBegin = pelMarkEnd = nullptr;
    EnableMenuItem(hwndMain, lCutCommand, false);
    EnableMenuItem(hwndMain, lCopyCommand, false);
}
} // namespace zarn
