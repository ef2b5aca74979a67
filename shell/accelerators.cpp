// The accelerator table.
#include "shell/accelerators.h"

#include "shell/command_numbers.h"

#include <cstring>
#include <string>

namespace zarn
{
namespace
{
struct Accelerator
{
    char const* sKey;
    bool bCtrl;
    bool bAlt;
    int32_t lCommand;
};
// SHIFT is left out: a letter means the same in both cases, and a sign already tells what SHIFT made of it. A digit
// with SHIFT is a rest, and no accelerator.
constexpr Accelerator aAccelerators[] = {
    {"n", true, false, COMMAND_NEW},
    {"o", true, false, COMMAND_OPEN},
    {"s", true, false, COMMAND_SAVE},
    {"p", true, false, COMMAND_PRINT},
    {"f4", false, true, COMMAND_EXIT},
    {"z", true, false, COMMAND_UNDO},
    {"x", true, false, COMMAND_CUT},
    {"c", true, false, COMMAND_COPY},
    {"v", true, false, COMMAND_PASTE},
    {"<", false, false, COMMAND_MARKBEGIN},
    {">", false, false, COMMAND_MARKEND},
    {"f4", false, false, COMMAND_CLEARMARK},
    {"1", false, false, COMMAND_NOTE},
    {"2", false, false, COMMAND_NOTE + 1},
    {"3", false, false, COMMAND_NOTE + 2},
    {"4", false, false, COMMAND_NOTE + 3},
    {"5", false, false, COMMAND_NOTE + 4},
    {"6", false, false, COMMAND_NOTE + 5},
    {"7", false, false, COMMAND_DEMISEMIQUAVER},
    {"8", false, false, COMMAND_GRACENOTE},
    {"{", false, false, COMMAND_REPEATSTART},
    {"}", false, false, COMMAND_REPEATEND},
    {"r", false, false, COMMAND_REPEATENDSTART},
    {"/", false, false, COMMAND_BAR},
    {"|", false, false, COMMAND_DOUBLEBAR},
    {"#", false, false, COMMAND_SHARP},
    {"3", true, false, COMMAND_SHARP}, // where # needs SHIFT, SHIFT+3 is a rest
    {"=", false, false, COMMAND_NATURAL},
    {"b", false, false, COMMAND_FLAT},
    {".", false, false, COMMAND_DOT},
    {";", false, false, COMMAND_TRIPLET},
    {",", false, false, COMMAND_STACCATO},
    {"~", false, false, COMMAND_ORNAMENT},
    {"space", false, false, COMMAND_SPACE},
    {"n", false, false, COMMAND_NEWLINE},
    {"enter", false, true, COMMAND_NEWLINE},
    {"enter", true, false, COMMAND_NEWLINE},
    {"v", false, false, COMMAND_INSERTPOINT},
    {"[", false, false, COMMAND_ARPEGGIOSTART},
    {"]", false, false, COMMAND_ARPEGGIOEND},
    {"w", false, false, COMMAND_WORD},
    {"h", false, false, COMMAND_HARMONY},
    {"l", false, false, COMMAND_LYRICS},
    {"u", false, false, COMMAND_UPBOW},
    {"d", false, false, COMMAND_DOWNBOW},
    {"t", false, false, COMMAND_TIE},
    {"a", false, false, COMMAND_FULLADJUST},
    {"p", false, false, COMMAND_PLAY},
    {"f", false, false, COMMAND_OPTIMISEDTABLATURE},
    {"s", false, false, COMMAND_SHOWTABLATURE},
    {"o", false, false, COMMAND_OPTIMISETABLATURE},
    {"+", false, false, COMMAND_STRETCHHORIZ},
    {"-", false, false, COMMAND_SQUEEZEHORIZ},
    {"+", false, true, COMMAND_STRETCHVERT},
    {"-", false, true, COMMAND_SQUEEZEVERT},
    {"f1", false, false, COMMAND_HELP},
    {"9", false, false, 183}, // these two do nothing: no command has these numbers
    {"tab", false, false, 154},
};

constexpr char const sPlainSigns[] = "`-=[]\\;',./";
constexpr char const sShiftedSigns[] = "~_+{}|:\"<>?";
static_assert(sizeof sPlainSigns == sizeof sShiftedSigns);

/// The name as the table has it: lower case, and a sign as it was typed.
std::string KeyName(Event const& key)
{
    std::string sName = key.sText;
    for (char& c : sName)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    if (sName.size() != 1 || !key.fShift)
        return sName;
    char const* const pSign = std::strchr(sPlainSigns, sName[0]);
    return pSign ? std::string(1, sShiftedSigns[pSign - sPlainSigns]) : sName;
}
} // namespace

int32_t Accelerator_Command(Event const& key)
{
    std::string const sName = KeyName(key);
    if (key.fShift && sName.size() == 1 && sName[0] >= '0' && sName[0] <= '9')
        return 0;
    for (Accelerator const& row : aAccelerators)
        if (sName == row.sKey && key.fCtrl == row.bCtrl && key.fAlt == row.bAlt)
            return row.lCommand;
    return 0;
}

std::string Accelerator_KeyText(int32_t lCommand)
{
    for (Accelerator const& row : aAccelerators)
    {
        if (row.lCommand != lCommand)
            continue;
        std::string sKey = row.sKey;
        if (sKey[0] >= 'a' && sKey[0] <= 'z')
            sKey[0] = static_cast<char>(sKey[0] - 'a' + 'A');
        return (row.bCtrl ? "Ctrl+" : "") + std::string(row.bAlt ? "Alt+" : "") + sKey;
    }
    return {};
}
} // namespace zarn
