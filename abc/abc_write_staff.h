/// One staff as ABC text, and the pieces that all ABC text is made of.
#pragma once
#include "core/list.h"
#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
/// Writes a staff's elements, one piece of text each; what the text can't hold sets bScoreDirty. Write errors show at
/// the file's next write.
/// @param lKey                    sharps above 0; in force at the staff's start, like the meter: what agrees isn't
///                                written again
/// @return                        whether the text ended at the start of a line
bool AbcWriteStaff(HFILE hFile, List list, int32_t lKey, int32_t lMeterNum, int32_t lMeterDen);

[[nodiscard]] std::string_view AbcLineEnd(); ///< as bUseCrlf has it
/// The text with each line end, CRLF, CR or LF, as one blank: a line of ABC holds none.
[[nodiscard]] std::string AbcOneLine(std::string_view sText);
/// false when it isn't all written.
bool AbcPut(HFILE hFile, std::string_view sText);
} // namespace zarn
