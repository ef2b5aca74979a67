/// Whether the file in hand is still on the disk as the program left it.
#pragma once
#include "platform/files.h"

#include <optional>
#include <string>

namespace zarn
{
/// The file as the program last read or wrote it; an empty name when it did neither. Written by the functions below,
/// and when a lost session is brought back.
struct KnownFile
{
    std::string szName;
    std::optional<FileStamp> stamp;
};
inline KnownFile knownFile;

/// It was read, or written, and stands so on the disk.
void FileOnDisk_Note(std::string const& szName);
/// The same, when it stood so before it was read.
void FileOnDisk_Note(std::string const& szName, std::optional<FileStamp> const& stamp);
/// Before a file is replaced under its own name: when somebody else has changed it meanwhile, the user is asked. False
/// when it must stay as it is.
[[nodiscard]] bool FileOnDisk_MayReplace(std::string const& szName);
} // namespace zarn
