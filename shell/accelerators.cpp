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
// SHIFT is left out: a letter means the same in both cases, and a sign already tells what SHIFT made of it.
constexpr Accelerator aAccelerators[] = {
    {"n", true, false, COMMAND_NEW},           {"o", true, false, COMMAND_OPEN},
    {"s", true, false, COMMAND_SAVE},          {"f4", false, true, COMMAND_EXIT},
    {"a", false, false, COMMAND_FULLADJUST},   {"+", false, false, COMMAND_STRETCHHORIZ},
    {"-", false, false, COMMAND_SQUEEZEHORIZ}, {"+", false, true, COMMAND_STRETCHVERT},
    {"-", false, true, COMMAND_SQUEEZEVERT},   {"f1", false, false, COMMAND_HELP},
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
    for (Accelerator const& row : aAccelerators)
        if (sName == row.sKey && key.fCtrl == row.bCtrl && key.fAlt == row.bAlt)
            return row.lCommand;
    return 0;
}
} // namespace zarn
