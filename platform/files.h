/// Files, with safe replacement.
///
/// A file made by _lcreat is written beside its target and put in its place by _lclose, after it has reached the disk:
/// either the old or the new content is there, whole, whenever the power goes. If a write failed, closing keeps the old
/// file. Paths are UTF-8. Main thread.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn
{
class File;
using HFILE = File*; ///< null is HFILE_ERROR

constexpr int32_t FILE_BEGIN = 0;
constexpr int32_t FILE_CURRENT = 1;
constexpr int32_t FILE_END = 2;

/// To read; null when it can't be read, or is no plain file (a folder, a pipe).
[[nodiscard]] HFILE _lopen(std::string_view szPath);
/// To write, and to seek in; null when it can't be replaced, or is a folder. A link stays and leads to the new file,
/// which has the permissions of the one it replaces, and its owner where the user may hand it on.
/// What can't be replaced, such as a terminal or /dev/null, is written as it stands.
[[nodiscard]] HFILE _lcreat(std::string_view szPath);
/// Up to cb bytes; gives how many came, 0 at the end, -1 on failure or for a negative cb. Reads are buffered.
int32_t _lread(HFILE hFile, void* pBytes, int32_t cb);
/// The bytes that come next in a file that is read, as many as are at hand: none at its end, or on failure. They stay
/// where they are until the next call with this handle.
[[nodiscard]] std::string_view File_Ahead(HFILE hFile);
/// Goes on behind cb bytes that File_Ahead has given.
void File_PassOver(HFILE hFile, size_t cb);
/// Gives how many went out; -1 on failure or for a negative cb. Writes are buffered, so the disk may fail later.
int32_t _lwrite(HFILE hFile, void const* pBytes, int32_t cb);
int32_t _llseek(HFILE hFile, int32_t lOffset, int32_t lFrom); ///< the new place, or -1
/// false when the file made by _lcreat could not be put in place; the old one is whole then. The handle is gone.
bool _lclose(HFILE hFile);
/// Gives a file made by _lcreat up: what stood in its place stays as it was. The handle is gone; null does nothing.
void File_GiveUp(HFILE hFile);
enum class FileWritten
{
    WHOLE,
    NOT_OPENED, ///< it can't be written there
    FAILED,     ///< what stood there before is unchanged
};
/// Makes a file of these bytes.
[[nodiscard]] FileWritten File_WriteWhole(std::string_view szPath, std::string_view sBytes);
/// What changes with a file's content: when it was written, and how long it is.
struct FileStamp
{
    int64_t lSeconds = 0;
    int64_t lNanoseconds = 0;
    int64_t cbSize = 0;
    friend bool operator==(FileStamp const&, FileStamp const&) = default;
};
[[nodiscard]] std::optional<FileStamp> File_StampOf(std::string const& szPath); ///< nothing where no plain file is
bool DeleteFileA(std::string_view szPath);
bool MoveFileA(std::string_view szFrom, std::string_view szTo); ///< false when the target is there
/// Makes an empty file with a name that begins with the prefix; empty when it can't be made. szDirectory empty: here.
[[nodiscard]] std::string GetTempFileNameA(std::string_view szDirectory, std::string_view szPrefix);

/// A file that is read from bytes in memory, for tests and fuzzers; the bytes must outlive it.
[[nodiscard]] HFILE File_FromBytes(std::string_view sBytes);
/// A file that is written into a string, for tests; the string must outlive it.
[[nodiscard]] HFILE File_IntoString(std::string* psBytes);
/// How many more bytes the disk takes; -1 for no limit. Tests only.
inline int64_t cbDiskLeft = -1;
} // namespace zarn
