// Files on the POSIX calls: buffered, and replaced in one step.
//
// A new file grows under a name of its own beside its target, so that the step that puts it in place is one rename
// within one folder, which a loss of power can't cut in two. What was there keeps its permissions. A target that isn't
// a plain file (a terminal, /dev/null) is written as it stands, since nothing could take its place.
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zarn
{
/// What stands behind a handle. Each operation fails where the kind of file has no such thing.
class File
{
public:
    virtual ~File() = default;
    virtual int32_t Read(void*, int32_t) { return -1; }
    virtual std::string_view Ahead() { return {}; }
    virtual void PassOver(size_t) {}
    virtual int32_t Write(void const*, int32_t) { return -1; }
    virtual int64_t Place() const = 0;
    virtual int64_t Size() = 0;
    virtual bool GoTo(int64_t lPlace) = 0;
    virtual bool Close() { return true; }
};

namespace
{
constexpr size_t cbBuffer = 64 * 1024;

/// How many of cb bytes the disk still takes; counts them as taken.
int32_t TakeDisk(int32_t cb)
{
    if (cbDiskLeft < 0)
        return cb;
    auto const cbTaken = static_cast<int32_t>(std::min<int64_t>(cb, cbDiskLeft));
    cbDiskLeft -= cbTaken;
    return cbTaken;
}

/// Writes all of it, however often the system stops half-way.
bool WriteAll(int fd, char const* pBytes, size_t cb)
{
    while (cb > 0)
    {
        ssize_t const cbOut = ::write(fd, pBytes, cb);
        if (cbOut < 0 && errno == EINTR)
            continue;
        if (cbOut <= 0)
            return false;
        pBytes += cbOut;
        cb -= static_cast<size_t>(cbOut);
    }
    return true;
}

class DiskReader final : public File
{
public:
    DiskReader(int fdOpen, int64_t cbFile) : fd(fdOpen), cbSize(cbFile) {}
    ~DiskReader() override { ::close(fd); }
    DiskReader(DiskReader const&) = delete;
    DiskReader& operator=(DiskReader const&) = delete;

    int32_t Read(void* pBytes, int32_t cb) override
    {
        auto* pTo = static_cast<char*>(pBytes);
        int32_t cbDone = 0;
        while (cbDone < cb)
        {
            if (iNext == cbHeld && !Fill())
                return cbDone > 0 ? cbDone : -1;
            if (cbHeld == 0)
                break;
            size_t const cbNow = std::min(cbHeld - iNext, static_cast<size_t>(cb - cbDone));
            std::memcpy(pTo + cbDone, aBuffer.data() + iNext, cbNow);
            iNext += cbNow;
            cbDone += static_cast<int32_t>(cbNow);
        }
        return cbDone;
    }

    std::string_view Ahead() override
    {
        if (iNext == cbHeld && !Fill())
            return {};
        return {aBuffer.data() + iNext, cbHeld - iNext};
    }
    void PassOver(size_t cb) override { iNext += std::min(cb, cbHeld - iNext); }

    int64_t Place() const override { return lBufferPlace + static_cast<int64_t>(iNext); }
    int64_t Size() override { return cbSize; }

    bool GoTo(int64_t lPlace) override
    {
        if (::lseek(fd, lPlace, SEEK_SET) != lPlace)
            return false;
        lBufferPlace = lPlace;
        iNext = cbHeld = 0;
        return true;
    }

private:
    /// The next piece of the file; nothing held at its end. False when the disk failed.
    bool Fill()
    {
        lBufferPlace += static_cast<int64_t>(cbHeld);
        iNext = cbHeld = 0;
        ssize_t cbIn = 0;
        do
            cbIn = ::read(fd, aBuffer.data(), aBuffer.size());
        while (cbIn < 0 && errno == EINTR);
        if (cbIn < 0)
            return false;
        cbHeld = static_cast<size_t>(cbIn);
        return true;
    }

    int fd;
    int64_t cbSize;
    int64_t lBufferPlace = 0; ///< where in the file the buffer begins
    size_t iNext = 0;         ///< what is read next, in the buffer
    size_t cbHeld = 0;
    std::array<char, cbBuffer> aBuffer;
};

class DiskWriter final : public File
{
public:
    /// sTempFile is renamed to sFinal at the end; empty when fd is the target itself.
    DiskWriter(int fdOpen, std::string sTempFile, std::string sFinal)
        : fd(fdOpen), sTemp(std::move(sTempFile)), sTarget(std::move(sFinal))
    {
    }
    ~DiskWriter() override
    {
        if (fd >= 0)
            ::close(fd);
        if (!sTemp.empty())
            ::unlink(sTemp.c_str());
    }
    DiskWriter(DiskWriter const&) = delete;
    DiskWriter& operator=(DiskWriter const&) = delete;

    int32_t Write(void const* pBytes, int32_t cb) override
    {
        if (bFailed)
            return -1;
        int32_t const cbTaken = TakeDisk(cb);
        if (cbHeld + static_cast<size_t>(cbTaken) > aBuffer.size() && !Flush())
            return -1;
        if (static_cast<size_t>(cbTaken) > aBuffer.size())
            bFailed = !WriteAll(fd, static_cast<char const*>(pBytes), static_cast<size_t>(cbTaken));
        else
        {
            std::memcpy(aBuffer.data() + cbHeld, pBytes, static_cast<size_t>(cbTaken));
            cbHeld += static_cast<size_t>(cbTaken);
        }
        if (bFailed)
            return -1;
        lPlace += cbTaken;
        cbEnd = std::max(cbEnd, lPlace);
        bFailed = cbTaken < cb;
        return cbTaken;
    }

    int64_t Place() const override { return lPlace; }
    int64_t Size() override { return cbEnd; }

    bool GoTo(int64_t lNewPlace) override
    {
        if (!Flush() || ::lseek(fd, lNewPlace, SEEK_SET) != lNewPlace)
            return false;
        lPlace = lNewPlace;
        return true;
    }

    bool Close() override
    {
        if (!Flush())
            return false;
        if (sTemp.empty())
            return true;
        bool const bOnDisk = ::fsync(fd) == 0;
        bool const bClosed = ::close(fd) == 0;
        fd = -1;
        if (!bOnDisk || !bClosed || ::rename(sTemp.c_str(), sTarget.c_str()) != 0)
            return false;
        sTemp.clear();
        FlushFolder();
        return true;
    }

private:
    bool Flush()
    {
        if (!bFailed)
            bFailed = !WriteAll(fd, aBuffer.data(), cbHeld);
        cbHeld = 0;
        return !bFailed;
    }

    /// Brings the new name to the disk. Some file systems can't; the file itself is whole either way.
    void FlushFolder() const
    {
        size_t const lSlash = sTarget.rfind('/');
        std::string const sFolder = lSlash == sTarget.npos ? "." : sTarget.substr(0, lSlash + 1);
        int const fdFolder = ::open(sFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fdFolder < 0)
            return;
        (void)::fsync(fdFolder);
        ::close(fdFolder);
    }

    int fd;
    std::string sTemp;
    std::string sTarget;
    bool bFailed = false;
    int64_t lPlace = 0;
    int64_t cbEnd = 0;
    size_t cbHeld = 0;
    std::array<char, cbBuffer> aBuffer;
};

class BytesReader final : public File
{
public:
    explicit BytesReader(std::string_view s) : sBytes(s) {}
    int32_t Read(void* pBytes, int32_t cb) override
    {
        if (lPlace >= Size())
            return 0;
        auto const cbNow = static_cast<int32_t>(std::min<int64_t>(cb, Size() - lPlace));
        std::memcpy(pBytes, sBytes.data() + lPlace, static_cast<size_t>(cbNow));
        lPlace += cbNow;
        return cbNow;
    }
    std::string_view Ahead() override
    {
        return sBytes.substr(static_cast<size_t>(std::clamp<int64_t>(lPlace, 0, Size())));
    }
    void PassOver(size_t cb) override { lPlace += static_cast<int64_t>(cb); }
    int64_t Place() const override { return lPlace; }
    int64_t Size() override { return static_cast<int64_t>(sBytes.size()); }
    bool GoTo(int64_t lNewPlace) override
    {
        lPlace = lNewPlace;
        return true;
    }

private:
    std::string_view sBytes;
    int64_t lPlace = 0;
};

class StringWriter final : public File
{
public:
    explicit StringWriter(std::string* ps) : psBytes(ps) {}
    int32_t Write(void const* pBytes, int32_t cb) override
    {
        if (bFailed)
            return -1;
        int32_t const cbTaken = TakeDisk(cb);
        auto const lFrom = static_cast<size_t>(lPlace);
        if (psBytes->size() < lFrom + static_cast<size_t>(cbTaken))
            psBytes->resize(lFrom + static_cast<size_t>(cbTaken));
        std::memcpy(psBytes->data() + lFrom, pBytes, static_cast<size_t>(cbTaken));
        lPlace += cbTaken;
        bFailed = cbTaken < cb;
        return cbTaken;
    }
    int64_t Place() const override { return lPlace; }
    int64_t Size() override { return static_cast<int64_t>(psBytes->size()); }
    bool GoTo(int64_t lNewPlace) override
    {
        lPlace = lNewPlace;
        return true;
    }
    bool Close() override { return !bFailed; }

private:
    std::string* psBytes;
    int64_t lPlace = 0;
    bool bFailed = false;
};

/// The permissions that a new file gets by the user's mask.
mode_t NewFileMode()
{
    mode_t const lMask = ::umask(0);
    ::umask(lMask);
    return 0666 & ~lMask;
}

/// Where a path leads once the links at its end are followed, also when nothing is there yet; empty when they go round
/// for ever.
std::string FollowLinks(std::string sPath)
{
    constexpr int cMostLinks = 40; // as the system itself
    for (int i = 0; i < cMostLinks; ++i)
    {
        std::array<char, PATH_MAX> aLink;
        ssize_t const cb = ::readlink(sPath.c_str(), aLink.data(), aLink.size());
        if (cb <= 0)
            return sPath;
        std::string const sLink(aLink.data(), static_cast<size_t>(cb));
        sPath = sLink[0] == '/' ? sLink : sPath.substr(0, sPath.rfind('/') + 1) + sLink;
    }
    return {};
}

/// What stood there hands its owner and permissions on, as far as the user may do so. The owner first: a change of
/// owner takes permissions away.
void TakeAfter(int fd, struct stat const& about)
{
    if ((about.st_uid != ::geteuid() || about.st_gid != ::getegid()) && ::fchown(fd, about.st_uid, about.st_gid) != 0)
        (void)!::fchown(fd, static_cast<uid_t>(-1), about.st_gid);
    (void)::fchmod(fd, about.st_mode & 07777);
}
} // namespace

HFILE _lopen(std::string_view szPath)
{
    // Without O_NONBLOCK a pipe that nobody writes would hold the program here.
    int const fd = ::open(std::string(szPath).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return nullptr;
    struct stat about = {};
    if (::fstat(fd, &about) != 0 || !S_ISREG(about.st_mode))
    {
        ::close(fd);
        return nullptr;
    }
    return new DiskReader(fd, about.st_size);
}

HFILE _lcreat(std::string_view szPath)
{
    std::string const sPath(szPath);
    struct stat about = {};
    bool const bThere = ::stat(sPath.c_str(), &about) == 0;
    if (bThere && (S_ISDIR(about.st_mode) || ::access(sPath.c_str(), W_OK) != 0))
        return nullptr;
    if (bThere && !S_ISREG(about.st_mode))
    {
        int const fd = ::open(sPath.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
        return fd < 0 ? nullptr : new DiskWriter(fd, {}, {});
    }
    std::string const sTarget = FollowLinks(sPath);
    size_t const lName = sTarget.rfind('/') + 1; // 0 when there is no folder
    if (lName == sTarget.size())
        return nullptr;
    std::string sTemp = sTarget.substr(0, lName) + ".zarn-XXXXXX";
    int const fd = ::mkostemp(sTemp.data(), O_CLOEXEC);
    if (fd < 0)
        return nullptr;
    if (bThere)
        TakeAfter(fd, about);
    else
        (void)::fchmod(fd, NewFileMode());
    return new DiskWriter(fd, std::move(sTemp), sTarget);
}

int32_t _lread(HFILE hFile, void* pBytes, int32_t cb) { return hFile && cb >= 0 ? hFile->Read(pBytes, cb) : -1; }

std::string_view File_Ahead(HFILE hFile) { return hFile ? hFile->Ahead() : std::string_view(); }

void File_PassOver(HFILE hFile, size_t cb)
{
    if (hFile)
        hFile->PassOver(cb);
}

int32_t _lwrite(HFILE hFile, void const* pBytes, int32_t cb)
{
    if (!hFile || cb < 0)
        return -1;
    return cb == 0 ? 0 : hFile->Write(pBytes, cb);
}

int32_t _llseek(HFILE hFile, int32_t lOffset, int32_t lFrom)
{
    if (!hFile || lFrom < FILE_BEGIN || lFrom > FILE_END)
        return -1;
    int64_t const lBase = lFrom == FILE_BEGIN ? 0 : lFrom == FILE_CURRENT ? hFile->Place() : hFile->Size();
    int64_t const lPlace = lBase + lOffset;
    if (lPlace < 0 || lPlace > std::numeric_limits<int32_t>::max())
        return -1;
    if (lPlace != hFile->Place() && !hFile->GoTo(lPlace))
        return -1;
    return static_cast<int32_t>(lPlace);
}

bool _lclose(HFILE hFile)
{
    std::unique_ptr<File> const pFile(hFile);
    return pFile && pFile->Close();
}

void File_GiveUp(HFILE hFile) { delete hFile; }

FileWritten File_WriteWhole(std::string_view szPath, std::string_view sBytes)
{
    HFILE const hFile = _lcreat(szPath);
    if (!hFile)
        return FileWritten::NOT_OPENED;
    bool bGood = true;
    while (bGood && !sBytes.empty())
    {
        constexpr size_t cbMost = 1 << 24;
        auto const cb = static_cast<int32_t>(std::min(sBytes.size(), cbMost));
        bGood = _lwrite(hFile, sBytes.data(), cb) == cb;
        sBytes.remove_prefix(static_cast<size_t>(cb));
    }
    return _lclose(hFile) && bGood ? FileWritten::WHOLE : FileWritten::FAILED;
}

std::optional<FileStamp> File_StampOf(std::string const& szPath)
{
    struct stat about = {};
    if (::stat(szPath.c_str(), &about) != 0 || !S_ISREG(about.st_mode))
        return std::nullopt;
    return FileStamp{about.st_mtim.tv_sec, about.st_mtim.tv_nsec, about.st_size};
}

bool DeleteFileA(std::string_view szPath) { return ::unlink(std::string(szPath).c_str()) == 0; }

bool MoveFileA(std::string_view szFrom, std::string_view szTo)
{
    std::string const sFrom(szFrom);
    std::string const sTo(szTo);
    // A second name, then the first one away: unlike a rename this never takes the place of a file that is there.
    if (::link(sFrom.c_str(), sTo.c_str()) == 0)
        return ::unlink(sFrom.c_str()) == 0;
    if (errno != EPERM && errno != ENOTSUP && errno != ENOSYS)
        return false;
    struct stat about = {};
    return ::lstat(sTo.c_str(), &about) != 0 && ::rename(sFrom.c_str(), sTo.c_str()) == 0;
}

std::string GetTempFileNameA(std::string_view szDirectory, std::string_view szPrefix)
{
    std::string sPath = szDirectory.empty() ? "." : std::string(szDirectory);
    if (sPath.back() != '/')
        sPath += '/';
    sPath += std::string(szPrefix) + "XXXXXX";
    int const fd = ::mkostemp(sPath.data(), O_CLOEXEC);
    if (fd < 0)
        return {};
    ::close(fd);
    return sPath;
}

HFILE File_FromBytes(std::string_view sBytes) { return new BytesReader(sBytes); }

HFILE File_IntoString(std::string* psBytes)
{
    psBytes->clear();
    return new StringWriter(psBytes);
}
} // namespace zarn
