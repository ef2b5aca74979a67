// Scores by chance.
#include "support/random_score.h"

#include <cstring>

namespace zarn::test
{
namespace
{
class Writer
{
public:
    Writer(std::mt19937& random, int32_t lStaff) : random(random), lStaff(lStaff) {}

    int32_t Below(int32_t n) { return static_cast<int32_t>(random() % static_cast<uint32_t>(n)); }

    void Add(int32_t sort, int32_t lA = 0, int32_t lB = 0, int32_t lDiaPitch = 2, int32_t lDuration = 0)
    {
        Element el;
        el.sort = sort;
        el.lA = lA;
        el.lB = lB;
        el.lDiaPitch = lDiaPitch;
        el.lDuration = lDuration;
        el.lStaff = lStaff;
        el.up = lDiaPitch < 6;
        List_AddLast(aStaffList[lStaff], &el, el.storage);
    }

    void AddText(int32_t sort, int32_t cch)
    {
        RoomyElement el;
        el.sort = sort;
        el.lA = cch;
        el.lStaff = lStaff;
        el.storage = cbPlainElement + 1 + cch;
        std::memset(Element_TextBytes(&el), 'a' + Below(20), static_cast<size_t>(cch));
        List_AddLast(aStaffList[lStaff], &el, el.storage);
    }

    int32_t Duration()
    {
        static constexpr int32_t aDuration[] = {3, 6, 12, 24, 24, 24, 48, 48, 96, 192, 36, 72, 144, 18, 8, 16, 32, 0};
        return aDuration[Below(std::size(aDuration))];
    }

    void Chord()
    {
        int32_t const lNotes = 2 + Below(3);
        int32_t const lDuration = Duration();
        int32_t lDiaPitch = Below(10) - 6;
        for (int32_t n = 0; n < lNotes; ++n)
        {
            if (Below(5) == 0)
                Add(SHARP + Below(3), 0, 0, lDiaPitch);
            // Now and then a chord's notes differ in length.
            int32_t const l = Below(9) == 0 && lDuration != 0 ? 48 : lDuration;
            Add(NOTE, (n > 0 ? fChordBefore : 0) | (n + 1 < lNotes ? fChordMore : 0), 64, lDiaPitch, l);
            lDiaPitch += 1 + Below(4);
        }
    }

    void Symbol()
    {
        static constexpr int32_t aBars[] = {BAR, BAR, DOUBLEBAR, REPEATSTART, REPEATEND, REPEATENDSTART, REPEATFIRST};
        static constexpr int32_t aWords[] = {LYRICS, LYRICS, LYRICS, CHORD, CHORD, TEXT, TITLE, ABC, ANNOT};
        static constexpr int32_t aTime[][2] = {{2, 4}, {3, 4}, {4, 4}, {6, 8}, {9, 8}, {2, 2}, {5, 4}, {12, 8}, {1, 0}};
        static constexpr int32_t aOther[] = {TIE,   SLUR,       TEMPO,    INSTRUMENT, TRANSPOSE,
                                             SPACE, ARPEGSTART, ARPEGEND, BOWING,     22};
        int32_t const lKind = Below(100);
        if (lKind < 50)
            Add(NOTE, 0, 64, Below(26) - 8, Duration());
        else if (lKind < 60)
            Chord();
        else if (lKind < 66)
            Add(REST, 0, 0, 6, Duration());
        else if (lKind < 71)
            Add(SHARP + Below(3), 0, 0, Below(26) - 8);
        else if (lKind < 77)
            Add(aBars[Below(std::size(aBars))]);
        else if (lKind < 86)
            AddText(aWords[Below(std::size(aWords))], Below(7));
        else if (lKind < 88)
            Add(NEWLINE);
        else if (lKind < 90)
        {
            int32_t const lClef = 1 + Below(4);
            Add(CLEF, lClef, 0, lClef == 1 ? 4 : -4);
        }
        else if (lKind < 92)
            Add(KEYSIG, Below(15) - 7, Below(3) - 1);
        else if (lKind < 94)
        {
            auto const& time = aTime[Below(std::size(aTime))];
            Add(TIMESIG, time[0], time[1]);
        }
        else if (lKind < 96)
            Add(VOLUME, Below(128));
        else
            Add(aOther[Below(std::size(aOther))]);
    }

    int32_t Anything()
    {
        static constexpr int32_t aEnds[] = {INT32_MIN, INT32_MAX, -1, 0, 1, 4, 8, 12, 32767, -32768, 96, 192};
        return Below(3) != 0 ? aEnds[Below(std::size(aEnds))] : static_cast<int32_t>(random());
    }

    void Hostile()
    {
        RoomyElement el;
        el.sort = Below(20) == 0 ? Anything() : Below(36);
        if (Below(2) == 0)
            el.sort = NOTE;
        el.lA = Anything();
        el.lB = Anything();
        el.lStrX = Anything();
        el.lWidth = Anything();
        el.lDuration = Below(2) != 0 ? Anything() : 24;
        el.lTime = Anything();
        el.lDiaPitch = Anything();
        el.lStaff = Below(4) != 0 ? lStaff : Anything();
        el.beam = Anything();
        el.up = Anything();
        el.inx = Anything();
        if (Sort_BearsText(el.sort))
        {
            int32_t const cch = Below(40);
            el.storage = cbPlainElement + 1 + cch;
            std::memset(Element_TextBytes(&el), Below(256), static_cast<size_t>(cch));
        }
        List_AddLast(aStaffList[lStaff], &el, el.storage);
    }

private:
    std::mt19937& random;
    int32_t lStaff;
};
} // namespace

void WriteRandomStaff(std::mt19937& random, int32_t lStaff, int32_t lCount)
{
    Writer writer(random, lStaff);
    for (int32_t n = 0; n < lCount; ++n)
        writer.Symbol();
}

void WriteHostileStaff(std::mt19937& random, int32_t lStaff, int32_t lCount)
{
    Writer writer(random, lStaff);
    for (int32_t n = 0; n < lCount; ++n)
        writer.Hostile();
}
} // namespace zarn::test
