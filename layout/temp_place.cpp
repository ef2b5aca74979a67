// One staff laid out as if it were alone.
//
// A column is what stands on one lStrX: the notes of a chord, and a word and a harmony ahead of them. lWidth is written
// to the element that ends its column.
#include "core/text.h"
#include "layout/element_width.h"
#include "layout/merge.h"

#include <algorithm>

namespace zarn
{
namespace
{
class StaffRun
{
public:
    explicit StaffRun(Element const* pelFrom)
        : lNextX(Clamp32(int64_t{pelFrom->lStrX} + pelFrom->lWidth)), lPrevTime(pelFrom->lTime),
          lNextTime(Clamp32(int64_t{pelFrom->lTime} + pelFrom->lDuration))
    {
    }

    void Lay(Element* pel)
    {
        SetTime(pel);
        pel->lStrX = std::max(pel->lStrX, lNextX);
        int32_t lWidth = Element_Width(pel);
        if (pel->sort == LYRICS || pel->sort == CHORD)
        {
            KeepNextWordClear(pel, lWidth);
            lWidth = 0; // words never widen the staff
        }
        bool const bFirstWord = (pel->sort == LYRICS && !bLyricSeen) || (pel->sort == CHORD && !bChordSeen);
        bool const bSharesColumn = pel->sort == NOTE || bFirstWord;
        lColumnWidth = bSharesColumn ? std::max(lColumnWidth, lWidth) : lWidth;
        if (pel->sort == CLEF)
        {
            pel->lStrX = Clamp32(int64_t{pel->lStrX} + lClefIndent);
            lNextX = Clamp32(int64_t{lNextX} + lClefIndent);
        }
        if (bFirstWord)
            (pel->sort == LYRICS ? bLyricSeen : bChordSeen) = true;
        else if (pel->sort != NOTE || (pel->lA & fChordMore) == 0)
            EndColumn(pel);
    }

private:
    static constexpr int32_t lClefIndent = 3; ///< a clef stands three columns in from its place

    /// While placing, a chord lasts as long as its shortest note; Score_SetTimes lets its last note rule. Both are
    /// meant.
    void SetTime(Element* pel)
    {
        if (pel->sort == NOTE && (pel->lA & fChordBefore) != 0)
        {
            pel->lTime = lPrevTime;
            lNextTime = std::min(lNextTime, Clamp32(int64_t{lPrevTime} + pel->lDuration));
            return;
        }
        pel->lTime = lPrevTime = lNextTime;
        lNextTime = Clamp32(int64_t{lNextTime} + pel->lDuration);
    }

    /// Two words in a row can't overlap. The sum of these walks is one walk for each sort, since each word is laid
    /// once.
    static void KeepNextWordClear(Element const* pelWord, int32_t lWidth)
    {
        Element* pel = Next(pelWord);
        while (pel && pel->sort != pelWord->sort)
            pel = Next(pel);
        if (pel)
            pel->lStrX = Clamp32(int64_t{pelWord->lStrX} + lWidth);
    }

    void EndColumn(Element* pel)
    {
        if (pel->sort == NOTE || pel->sort == LYRICS || pel->sort == CHORD)
            bLyricSeen = bChordSeen = false;
        pel->lWidth = lColumnWidth;
        lNextX = Clamp32(int64_t{lNextX} + lColumnWidth);
        lColumnWidth = 0;
    }

    int32_t lNextX;
    int32_t lPrevTime;
    int32_t lNextTime;
    int32_t lColumnWidth = 0;
    bool bLyricSeen = false;
    bool bChordSeen = false;
};
} // namespace

void TempPlace(Element* pelFrom, Element* pelTo)
{
    StaffRun run(pelFrom);
    for (Element* pel = Next(pelFrom); pel; pel = Next(pel))
    {
        run.Lay(pel);
        if (pel == pelTo)
            return;
    }
}
} // namespace zarn
