/// ABC's bar lines and repeat signs. Each reader takes the position of its sign and gives the one to go on from.
#pragma once
#include "abc/abc_lines.h"

#include <cstdint>

namespace zarn
{
int32_t ReadRepeatEnd(AbcLine const& line, int32_t i);      ///< ":|" and ":||", with a 2 right behind
int32_t ReadRepeatStart(AbcLine const& line, int32_t i);    ///< "|:"
int32_t ReadRepeatEndStart(AbcLine const& line, int32_t i); ///< "::"
int32_t ReadRepeatFirst(AbcLine const& line, int32_t i);    ///< "|1"
int32_t ReadDoubleBar(AbcLine const& line, int32_t i);      ///< "||", "|]" and "[|"
int32_t ReadSingleBar(AbcLine const& line, int32_t i);      ///< "|"
int32_t ReadBarSign(AbcLine const& line, int32_t i);        ///< whichever begins with the "|" here
/// ":|:", and a repeat sign that was split over two lines: the end and start of a repeat, adding lLength to i.
int32_t ReadSpelledRepeatEndStart(int32_t i, int32_t lLength);
} // namespace zarn
