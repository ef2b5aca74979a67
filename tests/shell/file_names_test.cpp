#include "shell/file_names.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace zarn
{
TEST(FileNames, TheExtensionTellsTheTypeInUpperAndLowerCase)
{
    struct
    {
        char const* szName;
        FileType type;
    } const aCase[] = {{"tune.zrn", FileType::NATIVE},           {"TUNE.ZRN", FileType::NATIVE},
                       {"songs/tune.Abc", FileType::ABC},        {"tune.mid", FileType::MIDI_PERFORMANCE},
                       {"tune.txt", FileType::ASCII_TAB},        {"tune.TAB", FileType::ASCII_TAB},
                       {"tune.abc.zrn", FileType::NATIVE},       {"tune", FileType::UNKNOWN},
                       {"tune.midi", FileType::UNKNOWN},         {"", FileType::UNKNOWN},
                       {"songs.abc/tune", FileType::UNKNOWN},    {".", FileType::UNKNOWN},
                       {"songs.abc\\tune.zrn", FileType::NATIVE}};
    for (auto const& c : aCase)
        EXPECT_EQ(FileTypeOf(c.szName), c.type) << c.szName;
}

TEST(FileNames, TheShortNameIsWhatStandsBehindTheFolders)
{
    EXPECT_EQ(ShortName("/home/me/songs/tune.abc"), "tune.abc");
    EXPECT_EQ(ShortName("tune.abc"), "tune.abc");
    EXPECT_EQ(ShortName("songs/"), "");
}

TEST(FileNames, AWholePathKeepsWhatALinkMayTurn)
{
    EXPECT_EQ(WholePath(""), "");
    EXPECT_EQ(WholePath("/a/./b//c.abc"), "/a/b/c.abc");
    EXPECT_EQ(WholePath("/link/../c.abc"), "/link/../c.abc");
    EXPECT_EQ(WholePath("c.abc"), (std::filesystem::current_path() / "c.abc").string());
}
} // namespace zarn
