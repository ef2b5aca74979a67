/// A program that links this counts what it has in use through operator new.
#pragma once
#include <cstdint>

namespace zarn::bench
{
inline int64_t cbInUse = 0;
inline int64_t cbPeak = 0; ///< the most that cbInUse has been since it was last set
} // namespace zarn::bench
