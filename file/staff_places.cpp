// The places of a staff that is being filled.
//
// The first element at or behind a column is always one that stands further right than all before it; these are kept as
// steps, by rising column, and found by halving. What follows a step in its own column only matters to notes and to
// harmonies, and is boiled down as it comes in: to the notes that are higher than all before them, and to the clefs in
// force where the run of that column ends.
#include "file/staff_places.h"

#include <algorithm>

namespace zarn
{
int32_t StaffPlaces::ClefFor(Element const& el) const
{
    if (el.sort == CLEF)
        return el.lA;
    auto const step = std::lower_bound(aSteps.begin(), aSteps.end(), el.lStrX,
                                       [](Step const& s, int32_t lStrX) { return s.lStrX < lStrX; });
    if (step == aSteps.end())
        return lClef;
    if (step->lStrX == el.lStrX && el.sort == CHORD)
        return step->bChordStops ? step->lClefAtStop : lClef;
    if (step->lStrX == el.lStrX && el.sort == NOTE && step->bNote)
        return ClefForNote(el, static_cast<size_t>(step - aSteps.begin()));
    return step->lClefAhead;
}

int32_t StaffPlaces::ClefForNote(Element const& el, size_t lStep) const
{
    Step const& step = aSteps[lStep];
    int64_t const lLowest = int64_t{el.lDiaPitch} - ClefOffset(step.lClefAhead);
    size_t const lEnd = lStep + 1 < aSteps.size() ? aSteps[lStep + 1].lFirstHigher : aHigher.size();
    auto const first = aHigher.begin() + static_cast<std::ptrdiff_t>(step.lFirstHigher);
    auto const end = aHigher.begin() + static_cast<std::ptrdiff_t>(lEnd);
    auto const note =
        std::lower_bound(first, end, lLowest, [](Higher const& h, int64_t lPitch) { return h.lDiaPitch < lPitch; });
    if (note != end)
        return note->lClefAhead;
    return step.bRunEnds ? step.lClefAtEnd : lClef;
}

void StaffPlaces::Append(Element* pel)
{
    if (!aSteps.empty() && pel->lStrX != aSteps.back().lStrX)
        EndRun(aSteps.back());
    if (aSteps.empty() || pel->lStrX > aSteps.back().lStrX)
        aSteps.push_back({pel->lStrX, lClef, pel->sort == NOTE, false, 0, false, 0, aHigher.size()});
    if (!aSteps.back().bRunEnds)
        JoinRun(aSteps.back(), *pel);
    if (pel->sort == CLEF)
        lClef = pel->lA;
    else if (pel->sort == SLUR && pel->lA == 0 && !pel->pelPartner)
        aOpenSlurs.push_back(pel);
}

void StaffPlaces::EndRun(Step& step) const
{
    if (step.bRunEnds)
        return;
    step.bRunEnds = true;
    step.lClefAtEnd = lClef;
    StopChord(step);
}

void StaffPlaces::JoinRun(Step& step, Element const& el)
{
    if (el.sort == NOTE && (aHigher.size() == step.lFirstHigher || el.lDiaPitch > aHigher.back().lDiaPitch))
        aHigher.push_back({el.lDiaPitch, lClef});
    if (el.sort == NOTE || el.sort == REST)
        StopChord(step);
}

void StaffPlaces::StopChord(Step& step) const
{
    if (!step.bChordStops)
        step.lClefAtStop = lClef;
    step.bChordStops = true;
}

Element* StaffPlaces::TakeOpenSlur()
{
    if (aOpenSlurs.empty())
        return nullptr;
    Element* const pel = aOpenSlurs.back();
    aOpenSlurs.pop_back();
    return pel;
}
} // namespace zarn
