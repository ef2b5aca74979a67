// Stretching a line: the pixel position, left margin included, is scaled by a ratio of columns.
//
// So the margin stretches along with the line, and a line that is over-full shrinks.
#include "layout/right_justify.h"

#include "core/text.h"
#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lWidthOfNone = 100; ///< columns that a line without a width counts for
constexpr int32_t lRepeatRoom = 2;    ///< columns kept free at a line's end for a repeat sign
constexpr int32_t lDoubleBarRoom = 1; ///< for a double bar
constexpr int32_t lOtherRoom = 3;     ///< for whatever is no bar line

static int64_t Cols() { return std::max(lColsPerLine, 1); }

namespace
{
/// One line of music on one staff.
struct Line
{
    Element const* pelFirst = nullptr;
    Element const* pelEnd = nullptr; ///< the last one of the line; null on the last line, which isn't stretched
    int32_t lStart = 0;              ///< column
    int64_t lWidth = 1;              ///< columns
};
} // namespace

static Line LineFrom(Element const* pelFirst)
{
    Line line{pelFirst, pelFirst, LineStart(pelFirst->lStrX), 1};
    while (line.pelEnd && line.pelEnd->sort != NEWLINE)
    {
        Element const* const pelNext = Next(line.pelEnd);
        if (pelNext && LineStart(pelNext->lStrX) != line.lStart)
            break;
        line.pelEnd = pelNext;
    }
    if (line.pelEnd)
        line.lWidth = int64_t{line.pelEnd->lStrX} - line.lStart;
    if (line.lWidth == 0)
        line.lWidth = lWidthOfNone;
    return line;
}

static void FoldAt(Element* pel, int64_t lStrX, int32_t lClef)
{
    Draw_Fold(Clamp32(lStrX), pel->lDiaPitch, pel->lStaff, lClef, &pel->lX, &pel->lY);
}

static bool IsRepeat(int32_t sort) { return sort == REPEATSTART || sort == REPEATEND || sort == REPEATENDSTART; }

/// A bar line that a NEWLINE follows: it closes the line.
static void PlaceClosingBar(Element* pel, Line const& line, int32_t lClef)
{
    if (pel->sort == DOUBLEBAR)
        FoldAt(pel, line.lStart + Cols() - lDoubleBarRoom, lClef);
    else if (IsRepeat(pel->sort))
        FoldAt(pel, line.lStart + Cols() - lRepeatRoom, lClef);
    else if (pel->lStrX == line.lStart)
        FoldAt(pel, line.lStart + Cols() / 2, lClef);
    else
        pel->lX = Clamp32(pel->lX * Cols() / (int64_t{pel->lStrX} - line.lStart) - 1);
}

static void Stretch(Element* pel, Line const& line)
{
    bool const bEnd = pel == line.pelEnd;
    if (bEnd && IsRepeat(pel->sort))
        pel->lX = Clamp32((Cols() - lRepeatRoom) * pel->lX / line.lWidth);
    else if (bEnd && pel->sort == BAR)
        pel->lX = Clamp32(pel->lX * Cols() / line.lWidth - 1);
    else if (bEnd && pel->sort == DOUBLEBAR)
        pel->lX = Clamp32((Cols() - lDoubleBarRoom) * pel->lX / line.lWidth);
    else
        pel->lX = Clamp32((Cols() - lOtherRoom) * pel->lX / line.lWidth);
}

void RightJustifyStaff(List list) { RightJustifyLines(List_FirstAs<Element>(list), 1, nullptr); }

void RightJustifyLines(Element* pelFirst, int32_t lClef, Element const* pelEnd)
{
    Line line;
    bool bEndPassed = false;
    for (Element* pel = pelFirst; pel; pel = Next(pel))
    {
        bEndPassed = bEndPassed || pel == pelEnd;
        if (!line.pelFirst && bEndPassed)
            return;
        if (pel->sort == CLEF)
            lClef = pel->lA;
        Draw_FoldElement(pel, lClef);
        if (!line.pelFirst)
            line = LineFrom(pel);
        if (!line.pelEnd)
            return;
        bool const bOpeningClef = pel->sort == CLEF && pel == line.pelFirst; // stays where it is
        Element* const pelNext = Next(pel);
        if (Sort_IsBarLike(pel->sort) && pelNext && pelNext == line.pelEnd && pelNext->sort == NEWLINE)
        {
            PlaceClosingBar(pel, line, lClef);
            Draw_FoldElement(pelNext, lClef);
            pelNext->lX = Clamp32((Cols() + 1) * pelNext->lX / line.lWidth);
            bEndPassed = bEndPassed || pelNext == pelEnd;
            pel = pelNext;
        }
        else if (!bOpeningClef)
            Stretch(pel, line);
        if (pel == line.pelEnd)
            line = Line();
    }
}
} // namespace zarn
