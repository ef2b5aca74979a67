// Chords written as MIDI notes.
#include "tab/tab_fixture.h"

#include "core/text.h"

#include <algorithm>

namespace zarn::test
{
void Tune(std::initializer_list<int32_t> aPitches)
{
    lStrings = static_cast<int32_t>(aPitches.size());
    aOpenPitch = {};
    std::ranges::copy(aPitches, aOpenPitch.begin());
}

static Element* Append(Element const& el)
{
    List_AddLast(aStaffList[1], &el, cbPlainElement);
    return StaffLast(1);
}

Element* AddChord(std::vector<int32_t> const& aPitches)
{
    Element* pelFirst = nullptr;
    for (size_t i = 0; i < aPitches.size(); ++i)
    {
        Element el;
        el.sort = NOTE;
        el.lPitch = aPitches[i];
        el.lDuration = 48;
        el.lA = (i + 1 < aPitches.size() ? fChordMore : 0) | (i > 0 ? fChordBefore : 0);
        Element* const pel = Append(el);
        if (!pelFirst)
            pelFirst = pel;
    }
    return pelFirst;
}

Element* AddSign(int32_t sort)
{
    Element el;
    el.sort = sort;
    return Append(el);
}

std::string Fingered()
{
    std::string sAll;
    for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
    {
        if (pel->sort != NOTE)
            continue;
        if (!sAll.empty())
            sAll += pel->lA & fChordBefore ? '+' : ' ';
        sAll += Format("%d/%d/%d", pel->lString, pel->lFret, pel->lFinger);
    }
    return sAll;
}
} // namespace zarn::test
