// The dialog of a new tune.
#include "panels/new_tune.h"

#include "panels/hints.h"
#include "platform/process.h"

#include <iterator>

namespace zarn
{
namespace
{
struct Time
{
    char const* szRow;
    int32_t lNumerator;
    int32_t lDenominator;
};
constexpr Time aTime[] = {{"2/4 ", 2, 4}, {"3/4 ", 3, 4}, {"4/4 ", 4, 4},  {"6/4 ", 6, 4},
                          {"6/8 ", 6, 8}, {"9/8 ", 9, 8}, {"12/8", 12, 8}, {"1/2 ", 1, 2},
                          {"2/2 ", 2, 2}, {"3/2 ", 3, 2}, {"4/2 ", 4, 2}};
constexpr int32_t lCommonTime = 2; ///< the row of 4/4
constexpr int32_t lOpenKey = 6;    ///< the row of C

FormControl Choice(int32_t lId, char const* szLabel, char const* szName, std::vector<std::string> aRows, int32_t lRow)
{
    FormControl combo{FormControl::COMBO, lId, szLabel};
    combo.aRows = std::move(aRows);
    combo.lValue = lRow;
    combo.sName = szName;
    return combo;
}

std::vector<std::string> TimeRows()
{
    std::vector<std::string> aRows;
    for (Time const& time : aTime)
        aRows.emplace_back(time.szRow);
    return aRows;
}

Time TimeOfRow(int32_t lRow)
{
    bool const bThere = lRow >= 0 && lRow < static_cast<int32_t>(std::size(aTime));
    return aTime[bThere ? lRow : lCommonTime];
}
} // namespace

Form NewTuneForm()
{
    FormControl tablature{FormControl::CHECK, lNewTuneTablature, "Tablature"};
    tablature.sName = "tablature";
    return {lNewTuneForm,
            "New tune - select clef, key signature and time signature ",
            "form",
            {Choice(lNewTuneClef, "Clef", "clef", {"Treble clef", "Alto clef", "Bass clef", "Tenor clef"}, 0),
             Choice(lNewTuneKey, "Key signature", "key",
                    {"Gb (6 flats) ", "Db (5 flats) ", "Ab (4 flats) ", "Eb (3 flats) ", "Bb (2 flats) ",
                     "F  (1 flat)  ", "C  (open)    ", "G  (1 sharp) ", "D  (2 sharps)", "A  (3 sharps)",
                     "E  (4 sharps)", "B  (5 sharps)", "F# (6 sharps)"},
                    lOpenKey),
             Choice(lNewTuneTime, "Time signature", "time", TimeRows(), lCommonTime),
             {FormControl::STATIC, lNewTuneHint, std::string(HintAt(GetTickCount()))},
             std::move(tablature),
             {FormControl::DEFAULT_BUTTON, IDOK, "OK"},
             {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
}

int32_t NewTuneDialog(HWND hwnd, int32_t* plClef, int32_t* plKey, int32_t* plNumerator, int32_t* plDenominator,
                      bool* pbTablature)
{
    Form form = NewTuneForm();
    if (DialogBoxParamA(hwnd, form) != IDOK)
        return 0;
    Time const time = TimeOfRow(form.Find(lNewTuneTime)->lValue);
    *plClef = form.Find(lNewTuneClef)->lValue + 1;
    *plKey = form.Find(lNewTuneKey)->lValue - lOpenKey;
    *plNumerator = time.lNumerator;
    *plDenominator = time.lDenominator;
    *pbTablature = form.Find(lNewTuneTablature)->lValue != 0;
    return 1;
}
} // namespace zarn
