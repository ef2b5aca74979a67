/// Writing the Score as one tune of ABC text, in the forms that the reader takes back as the same symbols. Main thread.
#pragma once
#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zarn
{
inline bool bUseCrlf = true; ///< option: lines end in CRLF, else in LF
constexpr std::string_view szCrlfSetting = "Use CRLF for ABC";

/// The whole tune: number and title, what the reader keeps on staff 0, then each shown staff with a header of its own.
/// An empty title stands for the score's own. The user is told of hidden staffs and of what staff 0 can't save.
/// bScoreDirty becomes whether the text lacks something that the score holds. False when the first write fails, else
/// whether the last one succeeded.
[[nodiscard]] bool AbcWriteTune(HFILE hFile, std::string_view sTitle, int32_t lNumber);

/// The text of the last TITLE on any of the nine staffs; *psTitle stays as it was when there is none.
void Score_FindTitle(std::string* psTitle);
} // namespace zarn
