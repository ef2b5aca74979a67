/// The program itself, run as a user runs it, in a folder of the test's own.
#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace zarn
{
namespace fs = std::filesystem;

inline std::string Contents(fs::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    std::stringstream s;
    s << file.rdbuf();
    return s.str();
}

inline void Write(fs::path const& path, std::string const& s) { std::ofstream(path, std::ios::binary) << s; }

class CommandLine : public testing::Test
{
protected:
    CommandLine()
        : folder(fs::temp_directory_path() /
                 ("zarn-cl-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + "-" +
                  std::to_string(::getpid())))
    {
        fs::create_directories(folder);
        Write(folder / "book.abc", "X:1\nT:First\nK:C\nCDEF|GABc|\n\n\nX:7\nT:Second/one\nK:G\nGABc|d4|\n");
        Write(folder / "bad.abc", "X:1\nT:Bad\nK:C\nC?D sE|\n");
    }
    ~CommandLine() override { fs::remove_all(folder); }

    /// Runs zarn in the folder with these words; the exit status.
    int Run(std::string const& sWords)
    {
        std::string const sCommand = "cd '" + folder.string() + "' && '" ZARN_PROGRAM "' " + sWords + " >out 2>err";
        int const lStatus = std::system(sCommand.c_str());
        sOut = Contents(folder / "out");
        sErr = Contents(folder / "err");
        return WIFEXITED(lStatus) ? WEXITSTATUS(lStatus) : -1;
    }
    std::string File(char const* sName) { return Contents(folder / sName); }
    bool Has(char const* sName) { return fs::exists(folder / sName); }

    fs::path folder;
    std::string sOut;
    std::string sErr;
};
} // namespace zarn
