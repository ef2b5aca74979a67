/// The key and the accidentals in force, carried along a walk over one staff.
///
/// KeyAt and AccidStateAt walk back from each place that asks, which costs a bar, and a staff without bars whole. Who
/// walks a staff anyway takes this along.
#pragma once
#include "core/element.h"

#include <cstdint>
#include <map>

namespace zarn
{
/// What KeyAt and AccidStateAt would find at a place of a list, for an element of any staff number.
class SignsInForce
{
public:
    SignsInForce() = default; ///< at the head of a list
    /// At the place ahead of pel, by a walk from the head of its list; null is the head of any.
    explicit SignsInForce(Element const* pel);

    /// The place moves on behind pel.
    void Pass(Element const* pel);

    [[nodiscard]] int32_t Accid(int32_t lStaff, int32_t lDiaPitch) const; ///< as AccidStateAt
    [[nodiscard]] int32_t Key(int32_t lStaff) const;                      ///< as KeyAt

private:
    std::map<int32_t, std::map<int32_t, int32_t>> aAccids; ///< by staff number and position
    std::map<int32_t, int32_t> aKeys;                      ///< by staff number
};
} // namespace zarn
