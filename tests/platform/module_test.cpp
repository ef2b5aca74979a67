#include "platform/module.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace zarn;
namespace fs = std::filesystem;

namespace
{
class ModuleFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        testing::TestInfo const& info = *testing::UnitTest::GetInstance()->current_test_info();
        top = fs::temp_directory_path() / (std::string("zarn-module-") + info.name());
        fs::remove_all(top);
        fs::create_directories(top / "bin");
        fs::create_directories(top / "lib" / "zarn");
    }
    void TearDown() override { fs::remove_all(top); }

    fs::path top;
    std::string sError;
};
} // namespace

TEST_F(ModuleFolder, AMissingModuleIsToldWithWhereItWasSought)
{
    EXPECT_EQ(LoadDesktop(top / "bin", 0, nullptr, true, sError), nullptr);
    EXPECT_NE(sError.find("The desktop part of Zarn is missing"), std::string::npos) << sError;
    EXPECT_NE(sError.find((top / "bin").string()), std::string::npos) << sError;
}

TEST_F(ModuleFolder, AFileThatIsNoModuleIsToldWithTheReason)
{
    for (fs::path const& folder : {top / "lib" / "zarn", top / "bin"})
    {
        std::ofstream(folder / "libzarn_desktop.so") << "not a module";
        sError.clear();
        EXPECT_EQ(LoadDesktop(top / "bin", 0, nullptr, true, sError), nullptr);
        EXPECT_NE(sError.find("can't be loaded"), std::string::npos) << sError;
    }
}

TEST_F(ModuleFolder, WithoutTheSoundModuleThereIsASentence)
{
    EXPECT_EQ(LoadSound(top / "bin", {}, sError), nullptr);
    EXPECT_NE(sError.find("The sound part of Zarn is missing"), std::string::npos) << sError;
    std::ofstream(top / "lib" / "zarn" / "libzarn_sound.so") << "not a module";
    EXPECT_EQ(LoadSound(top / "bin", {}, sError), nullptr);
    EXPECT_NE(sError.find("The sound part of Zarn can't be loaded"), std::string::npos) << sError;
}

TEST(Module, TheProgramKnowsWhereItLies) { EXPECT_TRUE(fs::is_directory(ExecutableFolder())); }
