/// Loading the program's modules: one brings windows, documents and the user's settings, the other sound.
#pragma once
#include "platform/desktop_module.h"
#include "platform/sound_module.h"

#include <filesystem>
#include <string>

namespace zarn
{
/// The folder that the running program lies in; empty when the system doesn't tell.
[[nodiscard]] std::filesystem::path ExecutableFolder();

/// Loads the desktop module, which lies in the program's folder or in ../lib/zarn beside it, and makes its host; the
/// module stays loaded to the end. Null when that can't be, and sError is a sentence for the user. The other arguments
/// are those of zarn_desktop_host.
[[nodiscard]] DesktopHost* LoadDesktop(std::filesystem::path const& folder, int argc, char** argv, bool fWindow,
                                       std::string& sError);

/// The same for the sound module.
[[nodiscard]] SoundModule* LoadSound(std::filesystem::path const& folder, SoundSetup const& setup, std::string& sError);
} // namespace zarn
