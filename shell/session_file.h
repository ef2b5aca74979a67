/// What a safety copy belongs to: the names of the files in hand, as a small text beside it.
#pragma once
#include "shell/file_on_disk.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn
{
struct SessionNames
{
    std::string szFile; ///< whole paths; empty for a new tune
    bool bNative = false;
    std::string szAbc;
    std::string szTune;
    int32_t lTune = -1;
    std::optional<int32_t> lPlace = {};
    KnownFile known = {};
};

[[nodiscard]] SessionNames SessionNames_InHand();
void SessionNames_Take(SessionNames const& names); ///< They become the names in hand.

/// A line each: a word, "=" and a value in which line ends and "%" are written %0A, %0D and %25.
[[nodiscard]] std::string SessionNames_Write(SessionNames const& names);
/// Reads any text: what isn't understood is passed over.
[[nodiscard]] SessionNames SessionNames_Read(std::string_view sText);
} // namespace zarn
