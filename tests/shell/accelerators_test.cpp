#include "shell/accelerators.h"

#include "shell/command_numbers.h"

#include <gtest/gtest.h>

namespace zarn
{
TEST(Accelerators, EachKeyStandsForItsCommand)
{
    struct
    {
        char const* sKey;
        bool bShift, bCtrl, bAlt;
        int32_t lCommand;
    } const aCase[] = {
        {"n", false, true, false, COMMAND_NEW},          {"N", true, true, false, COMMAND_NEW},
        {"o", false, true, false, COMMAND_OPEN},         {"s", false, true, false, COMMAND_SAVE},
        {"a", false, false, false, COMMAND_FULLADJUST},  {"a", true, false, false, COMMAND_FULLADJUST},
        {"A", true, false, false, COMMAND_FULLADJUST},   {"+", false, false, false, COMMAND_STRETCHHORIZ},
        {"+", true, false, false, COMMAND_STRETCHHORIZ}, {"=", true, false, false, COMMAND_STRETCHHORIZ},
        {"=", true, false, true, COMMAND_STRETCHVERT},   {"-", false, false, false, COMMAND_SQUEEZEHORIZ},
        {"+", false, false, true, COMMAND_STRETCHVERT},  {"-", false, false, true, COMMAND_SQUEEZEVERT},
        {"f1", false, false, false, COMMAND_HELP},       {"f4", false, false, true, COMMAND_EXIT}};
    for (auto const& c : aCase)
    {
        Event key;
        key.kind = EventKind::KEY;
        key.fShift = c.bShift;
        key.fCtrl = c.bCtrl;
        key.fAlt = c.bAlt;
        key.sText = c.sKey;
        EXPECT_EQ(Accelerator_Command(key), c.lCommand) << c.sKey;
    }
}

TEST(Accelerators, OtherKeysStandForNothing)
{
    struct
    {
        char const* sKey;
        bool bShift, bCtrl, bAlt;
    } const aCase[] = {{"n", false, false, false},    {"a", false, true, false}, {"a", false, false, true},
                       {"=", false, false, false},    {"-", true, false, false}, {"f4", false, false, false},
                       {"left", false, false, false}, {"", false, false, false}, {"\xC3\xA4", true, false, false}};
    for (auto const& c : aCase)
    {
        Event key;
        key.kind = EventKind::KEY;
        key.fShift = c.bShift;
        key.fCtrl = c.bCtrl;
        key.fAlt = c.bAlt;
        key.sText = c.sKey;
        EXPECT_EQ(Accelerator_Command(key), 0) << c.sKey;
    }
}
} // namespace zarn
