// Respelling goes along a passage with what is in force, and gives what asking at each note gives.
#include "core/respell.h"

#include "core/text.h"
#include "support/random_score.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace zarn::test
{
namespace
{
class Respelling : public testing::Test
{
protected:
    ScriptedProcess process;
};

// ---- the plain way: each note and each accidental looks around for itself ----

void PlainRespell(Element* pelNote, int32_t lKey, int32_t lAccid)
{
    int32_t const lNewPitch = pelNote->lDiaPitch + lAccid;
    int32_t const lState = AccidStateAt(pelNote, lNewPitch);
    int32_t const lRestore = lState != 0 ? lState : KeyAccid(lKey, lNewPitch);
    pelNote->lPitch = MidiFromPitch(pelNote->lDiaPitch, lKey, lAccid, 0);
    pelNote->lDiaPitch = lNewPitch;
    if (pelNote->lPitch == MidiFromPitch(lNewPitch, lKey, lState, 0))
        return;
    int32_t const lOver = pelNote->lPitch - MidiFromPitch(lNewPitch, 0, 0, 0);
    AddAccidental(pelNote, lOver == 0 ? 2 : lOver == 1 || lOver == -1 ? lOver : 0, lNewPitch, true);
    if (lRestore != 0)
        AddAccidental(pelNote, lRestore, lNewPitch, false);
}

Element* PlainMatch(int32_t lKey, Element* pel)
{
    int32_t const lDirection = (lKey > 0) - (lKey < 0);
    for (; pel && pel->sort != KEYSIG; pel = Next(pel))
        if (pel->sort == NOTE && lDirection != 0 && AccidStateAt(pel, pel->lDiaPitch) == -lDirection)
            PlainRespell(pel, lKey, -lDirection);
    return pel;
}

void PlainMatchStaff(int32_t lStaff)
{
    int32_t lKey = 0;
    for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
    {
        pel = PlainMatch(lKey, pel);
        if (!pel)
            return;
        lKey = pel->lA;
    }
}

Element* PlainKeep(int32_t lNewKey, int32_t lOldKey, Element* pel)
{
    Element* pelFirst = pel;
    while (pel && pel->sort != KEYSIG)
    {
        Element* const pelNext = Next(pel);
        if (Sort_IsAccidental(pel->sort) && !AccidNeeded(pel))
        {
            pelFirst = pel == pelFirst ? pelNext : pelFirst;
            Element_Remove(pel);
        }
        else if (pel->sort == NOTE && AccidStateAt(pel, pel->lDiaPitch) == 0 &&
                 KeyAccid(lNewKey, pel->lDiaPitch) != KeyAccid(lOldKey, pel->lDiaPitch))
        {
            AddAccidental(pel, KeyAccid(lOldKey, pel->lDiaPitch), pel->lDiaPitch, true);
            pelFirst = pel == pelFirst ? Prev(pel) : pelFirst;
        }
        pel = pelNext;
    }
    return pelFirst;
}

// ---- scores ----

/// Bars are rare, so that accidentals reach far; some elements claim another staff, as a damaged file's do.
void WriteScore(uint32_t lSeed)
{
    std::mt19937 random(lSeed);
    Score_EmptyStaffs();
    WriteRandomStaff(random, 1, 120);
    for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
    {
        if (random() % 4 == 0)
            pel->sort = static_cast<Sort>(SHARP + random() % 3);
        if (pel->sort == BAR && random() % 2 == 0)
            pel->sort = SPACE;
        if (random() % 12 == 0)
            pel->lStaff = static_cast<int32_t>(random() % 3);
    }
}

std::string Told()
{
    std::string s;
    for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
        s += Format("%d:%d:%d:%d:%d ", pel->sort, pel->lStaff, pel->lDiaPitch, pel->lPitch, pel->lA);
    return s;
}

int32_t IndexOf(Element const* pel)
{
    int32_t l = 0;
    for (; pel; pel = Prev(pel))
        ++l;
    return l;
}

/// Runs a way of doing it from the element numbered lFrom of a fresh score: the staff after it, and the place given.
template <typename Way>
std::string After(uint32_t lSeed, int32_t lFrom, Way const& way)
{
    WriteScore(lSeed);
    Element* pel = StaffFirst(1);
    for (int32_t l = 0; l < lFrom && pel; ++l)
        pel = Next(pel);
    int32_t const lGiven = IndexOf(way(pel));
    return Told() + Format("-> %d", lGiven);
}
} // namespace

TEST_F(Respelling, AKeyFromAnyPlaceGivesWhatLookingBackAtEachNoteGives)
{
    int32_t cChanged = 0;
    for (uint32_t lSeed = 1; lSeed <= 300; ++lSeed)
    {
        auto const lKey = static_cast<int32_t>(lSeed % 15) - 7;
        auto const lFrom = static_cast<int32_t>(lSeed * 7 % 90);
        std::string const sPlain = After(lSeed, lFrom, [&](Element* pel) { return PlainMatch(lKey, pel); });
        ASSERT_EQ(After(lSeed, lFrom, [&](Element* pel) { return MakeAccidentalsMatchKeySig(lKey, pel); }), sPlain)
            << "seed " << lSeed;
        cChanged += sPlain != After(lSeed, lFrom, [&](Element* pel) { return PlainMatch(0, pel); });
    }
    EXPECT_GT(cChanged, 100) << "the scores had something to respell";
}

TEST_F(Respelling, AWholeStaffGivesWhatLookingBackAtEachNoteGives)
{
    for (uint32_t lSeed = 1; lSeed <= 300; ++lSeed)
    {
        WriteScore(lSeed);
        PlainMatchStaff(1);
        std::string const sPlain = Told();
        WriteScore(lSeed);
        MakeStaffMatchKeySigs(1);
        ASSERT_EQ(Told(), sPlain) << "seed " << lSeed;
    }
}

TEST_F(Respelling, KeptPitchesAreThoseOfLookingAroundAtEachSign)
{
    for (uint32_t lSeed = 1; lSeed <= 300; ++lSeed)
    {
        auto const lNew = static_cast<int32_t>(lSeed % 15) - 7;
        auto const lOld = static_cast<int32_t>(lSeed / 15 % 15) - 7;
        auto const lFrom = static_cast<int32_t>(lSeed * 7 % 90);
        std::string const sPlain = After(lSeed, lFrom, [&](Element* pel) { return PlainKeep(lNew, lOld, pel); });
        ASSERT_EQ(After(lSeed, lFrom, [&](Element* pel) { return KeepPitchesOverKeyChange(lNew, lOld, pel); }), sPlain)
            << "seed " << lSeed;
    }
}

TEST_F(Respelling, AStaffWithoutBarsIsWalkedOnce)
{
    // At one look around for each of these, the walks would come to 10^11 steps.
    constexpr int32_t cPairs = 200'000;
    constexpr int32_t lPositions = 60'000;
    for (int32_t n = 0; n < cPairs; ++n)
    {
        Element el;
        el.lDiaPitch = n % lPositions - lPositions / 2;
        el.sort = FLAT;
        List_AddLast(aStaffList[1], &el, el.storage);
        el.lDiaPitch = (n + lPositions / 2) % lPositions - lPositions / 2;
        el.sort = NOTE;
        List_AddLast(aStaffList[1], &el, el.storage);
    }
    MakeStaffMatchKeySigs(1);
    EXPECT_EQ(MakeAccidentalsMatchKeySig(-1, StaffFirst(1)), nullptr);
    EXPECT_EQ(KeepPitchesOverKeyChange(0, 0, StaffFirst(1)), StaffFirst(1));
}
} // namespace zarn::test
