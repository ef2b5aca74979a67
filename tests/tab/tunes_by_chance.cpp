// Chance with a seed: the same tunes on every machine.
#include "tab/tunes_by_chance.h"

#include "core/messages.h"
#include "core/text.h"
#include "tab/fingering.h"
#include "tab/plain_search.h"
#include "tab/weights.h"

#include <algorithm>

namespace zarn::test
{
static int32_t Upto(Random& random, int32_t lMost)
{
    return static_cast<int32_t>(random() % (static_cast<uint32_t>(lMost) + 1));
}

static bool Percent(Random& random, int32_t l) { return Upto(random, 99) < l; }

void WriteTune(Random& random, TuneShape const& shape)
{
    List_Clear(aStaffList[1]);
    constexpr int32_t aSign[] = {REST, BAR, TEXT, SPACE};
    int32_t lPitch = shape.lLowest + Upto(random, shape.lHighest - shape.lLowest);
    for (int32_t n = 0; n < shape.lNotes; ++n)
    {
        if (Percent(random, shape.lRestPercent))
            AddSign(aSign[Upto(random, 3)]);
        if (Percent(random, shape.lSectionPercent))
            AddSign(Percent(random, 50) ? ARPEGSTART : ARPEGEND);
        std::vector<int32_t> aPitches;
        int32_t const cNotes = Percent(random, shape.lChordPercent) ? 2 + Upto(random, shape.lMostInChord - 2) : 1;
        for (int32_t i = 0; i < cNotes; ++i)
        {
            if (!Percent(random, shape.lRepeatPercent))
                lPitch = std::clamp(lPitch + Upto(random, 14) - 7, shape.lLowest, shape.lHighest);
            aPitches.push_back(lPitch);
        }
        AddChord(aPitches);
    }
}

void TuneByChance(Random& random)
{
    switch (Upto(random, 11))
    {
    case 0:
        return Tune({76, 69, 62, 55}); // mandolin
    case 1:
        return Tune({74, 71, 67, 62, 67 + 12}); // banjo: the fifth string is the highest
    case 2:
        return Tune({69, 64, 60, 67}); // ukulele: the fourth string is not the lowest
    case 3:
        return Tune({55, 50, 45, 40}); // bass
    case 4:
        return Tune({76, 71, 67, 62, 57, 52, 47});
    case 5:
        return Tune({76, 71, 67, 62, 57, 52, 47, 42});
    case 6:
        return Tune({76, 71, 67, 62, 57, 52, 47, 42, 37});
    case 7:
    {
        lStrings = Upto(random, 9);
        for (int32_t& lPitch : aOpenPitch)
            lPitch = 45 + Upto(random, 35);
        return;
    }
    default:
        return Tune({76, 71, 67, 62, 57, 52});
    }
}

void SetWeights(int32_t nSet)
{
    if (nSet >= 1)
        lWristPosition = 0;
    if (nSet == 2)
        lAvoidOpenStrings = 200;
    if (nSet == 3)
        for (FingeringWeight const& weight : Fingering_Weights())
            if (weight.plValue != &lMaxStretch)
                *weight.plValue = 0;
    if (nSet == 4)
    {
        lFingerMovement = 40;
        lWristPosition = 2;
        lAvoidOpenStrings = 60;
        lWristMovement = 30;
    }
}

void WeightsByChance(Random& random, int32_t lMost)
{
    auto const any = [&]
    { return static_cast<int32_t>(static_cast<int64_t>(random()) % (2 * int64_t{lMost} + 1) - lMost); };
    for (FingeringWeight const& weight : Fingering_Weights())
        if (weight.plValue != &lMaxStretch && Percent(random, 70))
            *weight.plValue = any();
    for (int32_t& lCost : aBarCost)
        if (Percent(random, 20))
            lCost = any();
    if (Percent(random, 30))
        lMaxStretch = 100 + Upto(random, 200);
}

namespace
{
struct Result
{
    std::vector<std::string> aNotes;
    std::vector<std::string> aPrices;
    std::vector<std::string> aMessages;
    Element* pelFailed = nullptr;
};

template <typename Search>
Result Run(ScriptHost& user, Search search, Element* pelFirst, Element* pelLast, bool bVerbose)
{
    for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
    {
        pel->lString = -7;
        pel->lFret = pel->lFinger = -1;
        pel->fOverBar = 0;
    }
    Serious_Rearm();
    user.pOnShown = [](Shown const&) { Serious_Rearm(); }; // every message counts, not only the first
    user.shown.clear();
    Result result;
    std::vector<ChordFingering> aSteps;
    result.pelFailed = search(pelFirst, pelLast, bVerbose, &aSteps);
    result.aMessages = user.Messages();
    for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
        result.aNotes.push_back(Format("%d/%d/%d%s%s", pel->lString, pel->lFret, pel->lFinger, pel->fOverBar ? "!" : "",
                                       pel->listFingers ? " list" : ""));
    for (ChordFingering const& step : aSteps)
        result.aPrices.push_back(
            Format("%d+%d=%d of %d", step.lOwnCost, step.lStepCost, step.lTotalCost, step.pelFirst->lPitch));
    return result;
}

std::string FirstDifference(char const* sWhat, std::vector<std::string> const& a, std::vector<std::string> const& b)
{
    for (size_t n = 0; n < std::max(a.size(), b.size()); ++n)
    {
        std::string const sPlain = n < a.size() ? a[n] : "nothing";
        std::string const sFast = n < b.size() ? b[n] : "nothing";
        if (sPlain != sFast)
            return Format("%s %zu of %zu: plain %s, fast %s", sWhat, n, a.size(), sPlain.c_str(), sFast.c_str());
    }
    return {};
}
} // namespace

std::string Difference(ScriptHost& user, Element* pelFirst, Element* pelLast, bool bVerbose)
{
    Result const plain = Run(user, PlainDoFingering, pelFirst, pelLast, bVerbose);
    Result const fast = Run(user, Tab_DoFingering, pelFirst, pelLast, bVerbose);
    std::string s = FirstDifference("element", plain.aNotes, fast.aNotes);
    if (s.empty())
        s = FirstDifference("chord", plain.aPrices, fast.aPrices);
    if (s.empty())
        s = FirstDifference("message", plain.aMessages, fast.aMessages);
    if (s.empty() && plain.pelFailed != fast.pelFailed)
        s = "another failing note";
    return s;
}
} // namespace zarn::test
