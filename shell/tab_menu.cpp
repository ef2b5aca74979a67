// The weights of the fingering, each with its value in brackets. What is stored replaces the text at start.
#include "shell/menu_parts.h"

#include "core/text.h"
#include "tab/weights.h"

#include <deque>

namespace zarn
{
std::string WeightMenuText(FingeringWeight const& weight, int32_t lValue) { return Format(weight.szMenuText, lValue); }

/// A label lives as long as the menu that it stands in: as long as the program.
static MenuItem WeightItem(FingeringWeight const& weight)
{
    static std::deque<std::string> aLabels;
    aLabels.push_back(WeightMenuText(weight, weight.lInitial));
    return {weight.lCommand, aLabels.back().c_str()};
}

std::vector<MenuItem> WeightsMenu()
{
    std::vector<MenuItem> aItems;
    for (FingeringWeight const& weight : Fingering_Weights())
        aItems.push_back(WeightItem(weight));
    aItems.push_back({});
    for (FingeringWeight const& weight : Fingering_BarWeights())
        aItems.push_back(WeightItem(weight));
    return aItems;
}
} // namespace zarn
