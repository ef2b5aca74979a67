#include "core/settings.h"

#include "platform/host.h"
#include "platform/registry.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
/// A store that fails, as a read-only home does.
struct BrokenStore : SettingsStore
{
    int32_t Read(std::string_view, int32_t*) override { return ERROR_ACCESS_DENIED; }
    int32_t Write(std::string_view, int32_t) override { return ERROR_ACCESS_DENIED; }
    std::vector<std::string> ReadTexts(std::string_view) override { return {}; }
    int32_t WriteTexts(std::string_view, std::vector<std::string> const&) override { return ERROR_ACCESS_DENIED; }
};

struct Settings : testing::Test
{
    Settings() : previous(host) { host.pSettings = &store; }
    ~Settings() override { host = previous; }

    Host previous;
    MapStore store;
};
} // namespace

TEST_F(Settings, AreThirtyTwoBitNumbersByName)
{
    for (int32_t const lValue : {INT32_MIN, -1, 0, 7, INT32_MAX})
    {
        SaveSetting(lValue, "Left margin percent");
        int32_t lRead = 5;
        EXPECT_EQ(LoadSetting(&lRead, "Left margin percent"), ERROR_SUCCESS);
        EXPECT_EQ(lRead, lValue);
    }
    EXPECT_EQ(store.values.size(), 1u);
}

TEST_F(Settings, AMissingOneLeavesTheVariableAsItWas)
{
    int32_t lValue = 42;
    bool bValue = true;
    EXPECT_EQ(LoadSetting(&lValue, "Right margin percent"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(LoadSetting(&bValue, "Play guitar chords"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(lValue, 42);
    EXPECT_TRUE(bValue);
    EXPECT_TRUE(store.values.empty()) << "asking stores nothing";
}

TEST_F(Settings, AnOptionIsOnForAnyNumberButNought)
{
    bool bValue = false;
    SaveSetting(-3, "Play guitar chords");
    EXPECT_EQ(LoadSetting(&bValue, "Play guitar chords"), ERROR_SUCCESS);
    EXPECT_TRUE(bValue);
    SaveSetting(0, "Play guitar chords");
    EXPECT_EQ(LoadSetting(&bValue, "Play guitar chords"), ERROR_SUCCESS);
    EXPECT_FALSE(bValue);
}

TEST_F(Settings, AStoreThatFailsMeansTheDefault)
{
    BrokenStore broken;
    for (SettingsStore* const pStore : {static_cast<SettingsStore*>(&broken), static_cast<SettingsStore*>(nullptr)})
    {
        host.pSettings = pStore;
        SaveSetting(9, "LineSpacing");
        int32_t lValue = 150;
        EXPECT_EQ(LoadSetting(&lValue, "LineSpacing"), ERROR_ACCESS_DENIED);
        EXPECT_EQ(lValue, 150);
    }
}
} // namespace zarn
