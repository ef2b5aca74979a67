/// How far a symbol that joins two places looks for the other one.
#pragma once
#include "core/score.h"

#include <algorithm>
#include <cstdint>

namespace zarn
{
/// Elements that a tie, a slur or a first-time bar may reach over: hundreds of bars. What a damaged file joins beyond
/// that counts as not joined, so that a paint costs in proportion to the score.
constexpr int32_t lLongestReach = 2000;

/// Goes along a staff and tells whether a symbol that was passed reaches for one to come.
class OpenReach
{
public:
    void Pass(Element const* pel)
    {
        switch (pel->sort)
        {
        case SLUR:
            cSlurs = std::max(cSlurs + (pel->lA == 0 ? 1 : -1), 0);
            break;
        case REPEATFIRST:
            bFirstTime = true;
            break;
        case REPEATEND:
        case REPEATENDSTART:
            bFirstTime = false;
            break;
        case TIE:
            bTie = true;
            break;
        case NOTE:
            bTie = false;
            bChord = (pel->lA & fChordMore) != 0;
            bBeam = pel->beam == BEAM_FIRST || (bBeam && pel->beam != BEAM_LAST);
            break;
        default:
            break;
        }
    }
    [[nodiscard]] bool IsOpen() const { return cSlurs > 0 || bFirstTime || bTie || bChord || bBeam; }

private:
    int32_t cSlurs = 0;
    bool bFirstTime = false;
    bool bTie = false;
    bool bChord = false;
    bool bBeam = false;
};
} // namespace zarn
