// Locks on the open file, not on the process: two holders in one process exclude each other too.
#include "platform/lock_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zarn
{
/// The path still leads to the open file.
static bool StandsThere(int fd, std::string const& szPath)
{
    struct stat held = {};
    struct stat there = {};
    return ::fstat(fd, &held) == 0 && ::stat(szPath.c_str(), &there) == 0 && held.st_ino == there.st_ino &&
           held.st_dev == there.st_dev;
}

bool LockFile::Take(std::string const& szPath)
{
    constexpr int cTries = 3; // who held it may have removed it just now
    for (int i = 0; i < cTries; ++i)
    {
        Release();
        fd = ::open(szPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (fd < 0 || ::flock(fd, LOCK_EX | LOCK_NB) != 0)
            break;
        if (StandsThere(fd, szPath))
            return true;
    }
    Release();
    return false;
}

void LockFile::Release()
{
    if (fd >= 0)
        ::close(fd);
    fd = -1;
}
} // namespace zarn
