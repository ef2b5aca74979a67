/// Persistent settings: 32-bit numbers by name.
///
/// A missing setting is no error: the variable keeps what it had, its default. Commands that change a setting write it
/// at once, so a crash loses nothing. Main thread.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zarn
{
/// Writes the setting; a failure is ignored.
void SaveSetting(int32_t lValue, std::string_view szName);

/// Reads the setting into *plValue. 0 when it was there; the platform's error otherwise, and *plValue is left alone.
int32_t LoadSetting(int32_t* plValue, std::string_view szName);

/// The same for an option that is on or off.
int32_t LoadSetting(bool* pbValue, std::string_view szName);

/// What the program remembers in words, such as the files that were open last, under names apart from the settings'.
/// A failure is ignored.
void SaveTexts(std::vector<std::string> const& aTexts, std::string_view szName);
[[nodiscard]] std::vector<std::string> LoadTexts(std::string_view szName); ///< empty when there is none
} // namespace zarn
