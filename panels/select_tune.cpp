// The SelectTune dialog.
#include "panels/select_tune.h"

#include <utility>

namespace zarn
{
static constexpr int32_t lSelectTuneForm = 7040;
static constexpr int32_t lTuneLabel = 7041;
static constexpr int32_t lTuneList = 7042;

static Form SelectTuneForm(std::vector<std::string> aRows)
{
    FormControl list{FormControl::LIST, lTuneList, ""};
    list.lValue = aRows.empty() ? -1 : 0;
    list.aRows = std::move(aRows);
    return {lSelectTuneForm,
            "SelectTune",
            "row",
            {{FormControl::STATIC, lTuneLabel, "&Select tune:"},
             std::move(list),
             {FormControl::DEFAULT_BUTTON, IDOK, "OK"},
             {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
}

bool SelectTune(HWND hwnd, std::vector<std::string> aRows, std::string* psRow)
{
    Form form = SelectTuneForm(std::move(aRows));
    if (DialogBoxParamA(hwnd, form) != IDOK)
        return false;
    FormControl const* const pList = form.Find(lTuneList);
    if (pList->lValue >= 0 && pList->lValue < static_cast<int32_t>(pList->aRows.size()))
        *psRow = pList->aRows[static_cast<size_t>(pList->lValue)];
    return true;
}
} // namespace zarn
