/// Which lines of music have been ruled with staff lines since they were last forgotten.
///
/// Drawing rules a line when it meets the first symbol on it, and an adjust or a resize forgets what was ruled. Main
/// thread.
#pragma once
#include <cstdint>

namespace zarn
{
inline int32_t lFirstLineRuled = 1; ///< as LineOfColumn numbers them
inline int32_t lLastLineRuled = 0;  ///< below lFirstLineRuled when none is ruled

/// No line is ruled.
inline void RuledLines_Reset()
{
    lFirstLineRuled = 1;
    lLastLineRuled = 0;
}
} // namespace zarn
