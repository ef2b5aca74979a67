// Settings, other programs, and the module as the program meets it.
#include "desktop/window_fixture.h"

namespace zarn
{
TEST(QtSettings, ASettingLivesOnInTheNextProgram)
{
    {
        QtSettings settings;
        EXPECT_EQ(settings.Write("Bar strings 1..2", -7), ERROR_SUCCESS);
        EXPECT_EQ(settings.Write("Max stretch", 175), ERROR_SUCCESS);
    }
    QtSettings settings;
    int32_t lValue = 0;
    EXPECT_EQ(settings.Read("Bar strings 1..2", &lValue), ERROR_SUCCESS);
    EXPECT_EQ(lValue, -7);
    EXPECT_EQ(settings.Read("Max stretch", &lValue), ERROR_SUCCESS);
    EXPECT_EQ(lValue, 175);
}

TEST(QtSettings, AMissingSettingLeavesTheValueAlone)
{
    QtSettings settings;
    int32_t lValue = 42;
    EXPECT_EQ(settings.Read("No such setting", &lValue), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(lValue, 42);
}

TEST(QtSettings, AValueThatIsNoNumberCountsAsMissing)
{
    QSettings file(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Zarn"), QStringLiteral("Zarn"));
    file.setValue(QStringLiteral("LineSpacing"), QStringLiteral("wide"));
    file.sync();
    QtSettings settings;
    int32_t lValue = 42;
    EXPECT_EQ(settings.Read("LineSpacing", &lValue), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(lValue, 42);
}

TEST(QtHost, AListingThatIsNotThereStartsNoEditor)
{
    QtHost desktop;
    EXPECT_FALSE(desktop.StartEditor("/nowhere/zarn.lst"));
}

TEST(QtHost, TheClockGoesForward)
{
    QtHost desktop;
    uint32_t const lBefore = desktop.TickCount();
    ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.TickCount() != lBefore; }));
}
} // namespace zarn
