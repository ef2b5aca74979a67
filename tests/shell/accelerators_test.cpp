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
    } const aCase[] = {{"n", false, true, false, COMMAND_NEW},
                       {"N", true, true, false, COMMAND_NEW},
                       {"o", false, true, false, COMMAND_OPEN},
                       {"s", false, true, false, COMMAND_SAVE},
                       {"p", false, true, false, COMMAND_PRINT},
                       {"a", false, false, false, COMMAND_FULLADJUST},
                       {"p", false, false, false, COMMAND_PLAY},
                       {"P", true, false, false, COMMAND_PLAY},
                       {"f", false, false, false, COMMAND_OPTIMISEDTABLATURE},
                       {"s", false, false, false, COMMAND_SHOWTABLATURE},
                       {"S", true, false, false, COMMAND_SHOWTABLATURE},
                       {"o", false, false, false, COMMAND_OPTIMISETABLATURE},
                       {"a", true, false, false, COMMAND_FULLADJUST},
                       {"A", true, false, false, COMMAND_FULLADJUST},
                       {"+", false, false, false, COMMAND_STRETCHHORIZ},
                       {"+", true, false, false, COMMAND_STRETCHHORIZ},
                       {"=", true, false, false, COMMAND_STRETCHHORIZ},
                       {"=", true, false, true, COMMAND_STRETCHVERT},
                       {"-", false, false, false, COMMAND_SQUEEZEHORIZ},
                       {"+", false, false, true, COMMAND_STRETCHVERT},
                       {"-", false, false, true, COMMAND_SQUEEZEVERT},
                       {"f1", false, false, false, COMMAND_HELP},
                       {"f4", false, false, true, COMMAND_EXIT},
                       {"z", false, true, false, COMMAND_UNDO},
                       {"x", false, true, false, COMMAND_CUT},
                       {"c", false, true, false, COMMAND_COPY},
                       {"v", false, true, false, COMMAND_PASTE},
                       {",", true, false, false, COMMAND_MARKBEGIN},
                       {".", true, false, false, COMMAND_MARKEND},
                       {"<", false, false, false, COMMAND_MARKBEGIN},
                       {">", false, false, false, COMMAND_MARKEND},
                       {"f4", false, false, false, COMMAND_CLEARMARK},
                       {"1", false, false, false, COMMAND_NOTE},
                       {"4", false, false, false, COMMAND_NOTE + 3},
                       {"7", false, false, false, COMMAND_DEMISEMIQUAVER},
                       {"8", false, false, false, COMMAND_GRACENOTE},
                       {"[", true, false, false, COMMAND_REPEATSTART},
                       {"]", true, false, false, COMMAND_REPEATEND},
                       {"r", true, false, false, COMMAND_REPEATENDSTART},
                       {"/", false, false, false, COMMAND_BAR},
                       {"\\", true, false, false, COMMAND_DOUBLEBAR},
                       {"#", false, false, false, COMMAND_SHARP},
                       {"3", false, true, false, COMMAND_SHARP},
                       {"=", false, false, false, COMMAND_NATURAL},
                       {"b", false, false, false, COMMAND_FLAT},
                       {".", false, false, false, COMMAND_DOT},
                       {";", false, false, false, COMMAND_TRIPLET},
                       {",", false, false, false, COMMAND_STACCATO},
                       {"`", true, false, false, COMMAND_ORNAMENT},
                       {"space", false, false, false, COMMAND_SPACE},
                       {"n", false, false, false, COMMAND_NEWLINE},
                       {"enter", false, false, true, COMMAND_NEWLINE},
                       {"enter", false, true, false, COMMAND_NEWLINE},
                       {"v", false, false, false, COMMAND_INSERTPOINT},
                       {"[", false, false, false, COMMAND_ARPEGGIOSTART},
                       {"]", false, false, false, COMMAND_ARPEGGIOEND},
                       {"u", false, false, false, COMMAND_UPBOW},
                       {"w", false, false, false, COMMAND_WORD},
                       {"H", true, false, false, COMMAND_HARMONY},
                       {"l", false, false, false, COMMAND_LYRICS},
                       {"d", false, false, false, COMMAND_DOWNBOW},
                       {"t", false, false, false, COMMAND_TIE},
                       {"9", false, false, false, 183},
                       {"tab", false, false, false, 154}};
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
    } const aCase[] = {{"q", false, false, false},    {"a", false, true, false}, {"a", false, false, true},
                       {"3", true, false, false},     {"-", true, false, false}, {"9", true, false, false},
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
