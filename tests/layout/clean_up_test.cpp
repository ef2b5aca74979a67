#include "layout/clean_up.h"

#include "core/pitch.h"
#include "layout/adjust.h"
#include "support/layout_fixture.h"
#include "support/random_score.h"
#include "support/score_text.h"

#include <cstdlib>
#include <cstring>

namespace zarn
{
namespace
{
using test::Read;
using test::Write;

class CleanUp : public test::LayoutFixture
{
protected:
    static std::string Cleaned(std::string_view sScore)
    {
        Score_EmptyStaffs();
        Write(1, sScore);
        RemoveSpuriousAccidentals();
        return Read(1);
    }
};

TEST_F(CleanUp, RepeatsOfClefAndKeyGoAndTheOpeningTrebleClefToo)
{
    Write(1, "clef:1 key:0 n0/48 key:2 | key:2 clef:3 clef:3 sp key:0 n0/48")->fOverBar = 3;
    test::At(1, 2)->fOverBar = 3;
    RemoveRedundant(aStaffList[1]);
    EXPECT_EQ(Read(1), "n0/48 key:2 | clef:3 sp key:0 n0/48");
    EXPECT_EQ(test::At(1, 0)->fOverBar, 2);
}

TEST_F(CleanUp, KeysCountByTheStaffThatTheyName)
{
    Write(1, "key:2 key:2 key:2");
    test::At(1, 1)->lStaff = 3;
    RemoveRedundant(aStaffList[1]);
    EXPECT_EQ(Read(1), "key:2 key:2");
}

TEST_F(CleanUp, NewlinesGoFromHiddenStaffsToo)
{
    Write(1, "nl nl n0/48 nl");
    Write(8, "nl clef:1 nl n0/48");
    pelInsertPoint = StaffFirst(8);
    RemoveAllNewlines();
    EXPECT_EQ(Read(1), "n0/48");
    EXPECT_EQ(Read(8), "clef:1 n0/48");
    EXPECT_EQ(pelInsertPoint, nullptr);
}

TEST_F(CleanUp, AnAccidentalWithoutANoteInItsBarGoes)
{
    EXPECT_EQ(Cleaned("#0 | n0/48 #1 #1 n1/48 b3 n4/48"), "| n0/48 #1 n1/48 n4/48");
    EXPECT_EQ(Cleaned("#0 || n0/48"), "#0 || n0/48"); // a double bar doesn't end what an accidental says
}

TEST_F(CleanUp, AnAccidentalThatStandsInTheBarIsNotSaidAgain)
{
    EXPECT_EQ(Cleaned("#0 n0/48 #0 n0/48 | #0 n0/48"), "#0 n0/48 n0/48 | #0 n0/48");
    EXPECT_EQ(Cleaned("#0 n0/48 || #0 n0/48 :| #0 n0/48"), "#0 n0/48 || n0/48 :| n0/48");
    EXPECT_EQ(Cleaned("#0 n0/48 =0 n0/48 #0 n0/48"), "#0 n0/48 =0 n0/48 #0 n0/48");
}

TEST_F(CleanUp, ASharpThatTheKeyGivesGoes)
{
    EXPECT_EQ(Cleaned("key:1 #3 n3/48 #0 n0/48"), "key:1 n3/48 #0 n0/48");
    EXPECT_EQ(Cleaned("key:-1 #3 n3/48"), "key:-1 #3 n3/48");
    EXPECT_EQ(Cleaned("key:1 #-4 n-4/48"), "key:1 n-4/48");
}

TEST_F(CleanUp, AClefAloneForgetsTheKey)
{
    EXPECT_EQ(Cleaned("key:1 clef:1 #3 n3/48"), "key:1 clef:1 #3 n3/48");
    EXPECT_EQ(Cleaned("clef:1 key:1 #3 n3/48"), "clef:1 key:1 n3/48");
}

TEST_F(CleanUp, AFlatFromMiddleCUpThatTheKeyGivesGoes)
{
    EXPECT_EQ(Cleaned("key:-1 b6 n6/48 b2 n2/48"), "key:-1 n6/48 b2 n2/48");
    EXPECT_EQ(Cleaned("key:1 b6 n6/48"), "key:1 b6 n6/48");
    EXPECT_EQ(Cleaned("key:0 b6 n6/48"), "key:0 b6 n6/48");
}

TEST_F(CleanUp, AFlatBelowMiddleCIsAskedTheOtherWayRound)
{
    EXPECT_EQ(Cleaned("key:-1 b-1 n-1/48"), "key:-1 b-1 n-1/48");
    EXPECT_EQ(Cleaned("key:1 b-1 n-1/48 b-3 n-3/48"), "key:1 n-1/48 n-3/48");
    EXPECT_EQ(Cleaned("key:0 b-1 n-1/48"), "key:0 b-1 n-1/48");
    // In G major the effective mask is 127, in C sharp 8: the fourth step alone.
    EXPECT_EQ(Cleaned("key:7 b-1 n-1/48 b-4 n-4/48"), "key:7 b-1 n-1/48 n-4/48");
    EXPECT_EQ(Cleaned("key:1 =-1 n-1/48 b-1 n-1/48"), "key:1 n-1/48 n-1/48");
    EXPECT_EQ(Cleaned("key:1 #-1 n-1/48 b-1 n-1/48"), "key:1 #-1 n-1/48 b-1 n-1/48");
}

TEST_F(CleanUp, ANaturalIsKeptWhereTheKeyOrTheBarAlters)
{
    EXPECT_EQ(Cleaned("key:0 =0 n0/48"), "key:0 n0/48");
    EXPECT_EQ(Cleaned("key:1 =0 n0/48 =3 n3/48"), "key:1 n0/48 =3 n3/48");
    EXPECT_EQ(Cleaned("key:-1 =0 n0/48 =6 n6/48"), "key:-1 n0/48 =6 n6/48");
    EXPECT_EQ(Cleaned("key:1 b0 n0/48 =0 n0/48"), "key:1 b0 n0/48 =0 n0/48");
}

TEST_F(CleanUp, AHiddenStaffKeepsItsAccidentals)
{
    Write(2, "=0 n0/48");
    RemoveSpuriousAccidentals();
    EXPECT_EQ(Read(2), "=0 n0/48");
}

/// The plain rule: one accidental at a time, each asked with AccidNeeded.
std::vector<bool> KeptByThePlainRule(List list)
{
    std::vector<bool> abKept;
    uint32_t aSets[2][3] = {}; // sharps, flats, naturals
    int32_t lKey = 0;
    for (Element const* pel = List_FirstAs<Element>(list); pel; pel = Next(pel))
    {
        if (pel->sort == BAR)
            std::memset(aSets, 0, sizeof aSets);
        if (pel->sort == CLEF)
            lKey = 0;
        if (pel->sort == KEYSIG)
            lKey = pel->lA;
        if (!Sort_IsAccidental(pel->sort))
            continue;
        bool const bBelow = pel->lDiaPitch < 0;
        auto& aSet = aSets[bBelow];
        uint32_t const lBit = 1U << (std::abs(pel->lDiaPitch) % 32);
        int32_t const lStep = 1 << ((pel->lDiaPitch + 700) % 7);
        bool const bSharp = (aSet[0] & lBit) != 0;
        bool const bFlat = (aSet[1] & lBit) != 0;
        bool const bNatural = (aSet[2] & lBit) != 0;
        bool bKeep = AccidNeeded(pel) != 0;
        if (pel->sort == SHARP)
            bKeep = bKeep && !bSharp && (bFlat || bNatural || lKey < 0 || !(SharpMask(lKey) & lStep));
        else if (pel->sort == FLAT && !bBelow)
            bKeep = bKeep && !bFlat && (bSharp || bNatural || lKey >= 0 || !(FlatMask(lKey) & lStep));
        else if (pel->sort == FLAT)
            bKeep = bKeep && !bFlat && (bSharp || bNatural || lKey < 0 || !(FlatMaskReadBackward(lKey) & lStep));
        else
            bKeep = bKeep && (bFlat || bSharp || (lKey > 0 && (SharpMask(lKey) & lStep)) ||
                              (lKey < 0 && (FlatMask(lKey) & lStep)));
        abKept.push_back(bKeep);
        if (!bKeep)
            continue;
        for (uint32_t& lSet : aSet)
            lSet &= ~lBit;
        aSet[pel->sort - SHARP] |= lBit;
    }
    return abKept;
}

TEST_F(CleanUp, OneWalkFromTheEndSaysWhatThePlainRuleSays)
{
    std::mt19937 random(3);
    for (int n = 0; n < 300; ++n)
    {
        Score_EmptyStaffs();
        test::WriteRandomStaff(random, 1, 60);
        // Close together, so that accidentals meet notes.
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
        {
            pel->lDiaPitch = pel->lDiaPitch % 3;
            if (pel->sort == REST || pel->sort == LYRICS)
                pel->sort = SHARP + static_cast<int32_t>(random() % 3);
        }
        std::vector<bool> const abKept = KeptByThePlainRule(aStaffList[1]);
        std::vector<Element*> aKept;
        size_t nAccid = 0;
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            if (!Sort_IsAccidental(pel->sort) || abKept[nAccid++])
                aKept.push_back(pel);
        RemoveSpuriousAccidentals();
        std::vector<Element*> aIs;
        for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
            aIs.push_back(pel);
        ASSERT_EQ(aIs, aKept) << n;
    }
}

TEST_F(CleanUp, AHundredThousandAccidentalsWithoutABarCostOneWalk)
{
    for (int n = 0; n < 100000; ++n)
        Write(1, "#0")->lDiaPitch = n;
    RemoveSpuriousAccidentals();
    EXPECT_EQ(Read(1), "");
}
} // namespace
} // namespace zarn
