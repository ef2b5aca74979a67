/// ABC's fields, other than X:. Each reader takes the line and gives the position to go on from; what it leaves of the
/// line is read as music.
#pragma once
#include "abc/abc_lines.h"

#include <cstdint>

namespace zarn
{
int32_t ReadMeter(AbcLine const& line);          ///< M:
int32_t ReadUnitLength(AbcLine const& line);     ///< L:
int32_t ReadTempo(AbcLine const& line);          ///< Q:, counted in units a minute
int32_t ReadVoice(AbcLine const& line);          ///< V:, the staff to go on with
int32_t ReadTitle(AbcLine const& line);          ///< T:, the first of the tune
int32_t ReadKey(AbcLine const& line, int32_t i); ///< K:, which may stand anywhere
int32_t ReadUnknownField(AbcLine const& line);   ///< kept whole, for the writer to put back
} // namespace zarn
