/// Where the next element of a staff belongs and which slur it closes, carried along while a staff is filled.
///
/// The same answers as FindPlace, ClefAt and a walk back for an open slur give, without a walk for each element: a file
/// can hold 250,000 records in one column, and columns in no order at all.
#pragma once
#include "core/score.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zarn
{
/// What one staff holds so far. Every element of the staff has to pass through Append, in order.
class StaffPlaces
{
public:
    /// The clef in force ahead of the place where FindPlace would put such an element; at the end of the staff, the one
    /// in force there. For a CLEF its own. Logarithmic.
    [[nodiscard]] int32_t ClefFor(Element const& el) const;

    /// Takes note of an element that now ends the staff.
    void Append(Element* pel);

    /// The nearest start of a slur that has no end yet, which is then taken; null when there is none.
    [[nodiscard]] Element* TakeOpenSlur();

private:
    /// A note of the elements that share a step's column, higher than all before it there.
    struct Higher
    {
        int32_t lDiaPitch;
        int32_t lClefAhead;
    };
    /// An element further right than all before it: only such a one can be the first at or behind a column.
    struct Step
    {
        int32_t lStrX;
        int32_t lClefAhead;
        bool bNote;          ///< the element is a NOTE
        bool bRunEnds;       ///< another column came behind the elements that share this one, under...
        int32_t lClefAtEnd;  ///< ...this clef
        bool bChordStops;    ///< a NOTE, a REST or another column came, which ends the way of a CHORD, under...
        int32_t lClefAtStop; ///< ...this clef
        size_t lFirstHigher; ///< in aHigher; up to the next step's
    };

    [[nodiscard]] int32_t ClefForNote(Element const& el, size_t lStep) const;
    void EndRun(Step& step) const;
    void JoinRun(Step& step, Element const& el);
    void StopChord(Step& step) const;

    std::vector<Step> aSteps;    ///< by rising lStrX
    std::vector<Higher> aHigher; ///< step by step, by rising lDiaPitch in each
    std::vector<Element*> aOpenSlurs;
    int32_t lClef = 1; ///< at the end of the staff
};
} // namespace zarn
