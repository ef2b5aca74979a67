// A save that is killed: the program is stopped at each of its system calls from the moment at which the new file
// begins, and killed there. Whoever looks afterwards finds the old file or the new one, whole.
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace zarn
{
namespace
{
namespace fs = std::filesystem;

enum class End
{
    KILLED,
    BY_ITSELF,
    NOT_ALLOWED ///< this machine lets nobody watch
};

/// The child: waits to be watched, then becomes the program.
[[noreturn]] void BecomeProgram(std::vector<std::string> const& aWords)
{
    constexpr int lNotAllowed = 77;
    ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // its search for leaks can't be watched
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        ::_exit(lNotAllowed);
    std::vector<char*> argv;
    for (std::string const& sWord : aWords)
        argv.push_back(const_cast<char*>(sWord.c_str()));
    argv.push_back(nullptr);
    ::execv(argv[0], argv.data());
    ::_exit(lNotAllowed);
}

/// The call at whose beginning the process stands makes a file that wasn't there.
bool BeginsNewFile(pid_t lProcess)
{
    __ptrace_syscall_info info = {};
    if (::ptrace(static_cast<__ptrace_request>(PTRACE_GET_SYSCALL_INFO), lProcess, sizeof info, &info) <= 0 ||
        info.op != PTRACE_SYSCALL_INFO_ENTRY)
        return false;
    return info.entry.nr == SYS_openat && (info.entry.args[2] & O_EXCL) != 0;
}

/// Runs the program and kills it at the beginning or end of a system call, the cCalls-th since the new file began.
End RunAndKill(std::vector<std::string> const& aWords, int cCalls)
{
    pid_t const lProcess = ::fork();
    if (lProcess == 0)
        BecomeProgram(aWords);
    int lStatus = 0;
    ::waitpid(lProcess, &lStatus, 0);
    if (!WIFSTOPPED(lStatus))
        return End::NOT_ALLOWED;
    ::ptrace(PTRACE_SETOPTIONS, lProcess, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (int lSignal = 0, cSeen = -1;;)
    {
        ::ptrace(PTRACE_SYSCALL, lProcess, nullptr, lSignal);
        ::waitpid(lProcess, &lStatus, 0);
        if (!WIFSTOPPED(lStatus))
        {
            EXPECT_EQ(lStatus, 0);
            return End::BY_ITSELF;
        }
        constexpr int lSystemCall = SIGTRAP | 0x80;
        lSignal = WSTOPSIG(lStatus) == lSystemCall ? 0 : WSTOPSIG(lStatus);
        if (lSignal != 0 || (cSeen < 0 && !BeginsNewFile(lProcess)) || ++cSeen < cCalls)
            continue;
        ::kill(lProcess, SIGKILL);
        ::waitpid(lProcess, &lStatus, 0);
        return End::KILLED;
    }
}

std::string Contents(fs::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Put(fs::path const& path, std::string const& s) { std::ofstream(path, std::ios::binary) << s; }

std::string Tune(int lNumber, int cBars)
{
    std::string s = "X:" + std::to_string(lNumber) + "\nT:Scale\nL:1/4\nK:C\n";
    for (int i = 0; i < cBars; ++i)
        s += "CDEF|\n";
    return s + '\n';
}

/// Of a million bytes, so that it takes many writes.
std::string Collection()
{
    std::string s;
    for (int lTune = 1; s.size() < 1000000; ++lTune)
        s += Tune(lTune, 40);
    return s;
}

struct KilledSave : testing::TestWithParam<char const*>
{
    KilledSave() : folder(fs::temp_directory_path() / ("zarn-killed-" + std::to_string(::getpid())))
    {
        fs::create_directories(folder);
    }
    ~KilledSave() override { fs::remove_all(folder); }
    fs::path folder;
};
} // namespace

TEST_P(KilledSave, LeavesTheOldFileOrTheNewOne)
{
    std::string const sForm = GetParam();
    fs::path const out = folder / ("out." + sForm);
    fs::path const in = folder / "in.zrn";
    Put(folder / "in.abc", Tune(7, 1000));
    std::string const sProgram = ZARN_PROGRAM;
    ASSERT_EQ(std::system((sProgram + " -q -o " + in.string() + ' ' + (folder / "in.abc").string()).c_str()), 0);
    std::string const sOld = sForm == "abc" ? Collection() : std::string(100000, 'o');
    std::vector<std::string> aWords{sProgram, "-q", "-o", out.string()};
    if (sForm == "abc")
        aWords.insert(aWords.end(), {"--tune", "9"});
    aWords.push_back(in.string());

    std::vector<std::string> aFound;
    for (int cCalls = 0;; ++cCalls)
    {
        Put(out, sOld);
        End const end = RunAndKill(aWords, cCalls);
        if (end == End::NOT_ALLOWED)
            GTEST_SKIP() << "no process can be watched here";
        aFound.push_back(Contents(out));
        if (end == End::BY_ITSELF)
            break;
        for (fs::directory_entry const& entry : fs::directory_iterator(folder))
            if (entry.path().filename().string().starts_with(".zarn-"))
                fs::remove(entry.path()); // what only a killed program leaves
    }
    std::string const& sNew = aFound.back();
    ASSERT_NE(sNew, sOld);
    size_t cOld = 0;
    size_t cNew = 0;
    for (std::string const& s : aFound)
    {
        cOld += s == sOld;
        cNew += s == sNew;
    }
    EXPECT_EQ(cOld + cNew, aFound.size()) << "some were neither";
    EXPECT_GT(cOld, 10u);
    EXPECT_GT(cNew, 5u) << "killed behind the change too";
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator{}), 3)
        << "nothing is left beside it";
    RecordProperty("kills", static_cast<int>(aFound.size() - 1));
}

INSTANTIATE_TEST_SUITE_P(EachForm, KilledSave, testing::Values("zrn", "abc", "mid"));
} // namespace zarn
