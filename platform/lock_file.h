/// A file that one process holds, and that the system lets go when the process ends, however it ends.
#pragma once
#include <string>

namespace zarn
{
class LockFile
{
public:
    LockFile() = default;
    ~LockFile() { Release(); }
    LockFile(LockFile const&) = delete;
    LockFile& operator=(LockFile const&) = delete;

    /// Makes the file when it isn't there, and takes it. False while another process, or another LockFile, holds it, or
    /// when it can't be made. What was held before is let go first.
    [[nodiscard]] bool Take(std::string const& szPath);
    void Release(); ///< The file stays.
    [[nodiscard]] bool IsHeld() const { return fd >= 0; }

private:
    int fd = -1;
};
} // namespace zarn
