#include "layout/adjust.h"

#include "layout/plain_layout.h"
#include "render/ruled_lines.h"
#include "support/layout_fixture.h"
#include "support/random_score.h"
#include "support/score_text.h"

#include <algorithm>

namespace zarn
{
namespace
{
class Adjust : public test::LayoutFixture
{
protected:
    /// Fills one to four staffs by chance; now and then a narrow line, no bars kept together, no beams.
    void WriteByChance(uint32_t lSeed)
    {
        Score_EmptyStaffs();
        std::mt19937 random(lSeed);
        int32_t const lStaffs = 1 + static_cast<int32_t>(random() % 4);
        SetStaffCount(lStaffs);
        static constexpr int32_t aCols[] = {150, 150, 60, 25, 7, 1};
        lColsPerLine = aCols[random() % std::size(aCols)];
        SetUnits();
        bKeepBarsTogether = random() % 4 != 0;
        bBeamQuavers = random() % 8 != 0;
        afPlay[2] = random() % 5 != 0;
        for (int32_t lStaff = 1; lStaff <= lStaffs; ++lStaff)
            test::WriteRandomStaff(random, lStaff, static_cast<int32_t>(random() % 120));
        if (lStaffs > 2 && random() % 3 == 0)
            ToggleStaff(2);
    }
    static std::string All()
    {
        std::string s;
        for (int32_t lStaff = 0; lStaff <= lHighestStaff; ++lStaff)
            s += test::Told(lStaff) + "-\n";
        return s;
    }
    /// The first line in which the two differ, as both tell it; empty when they agree.
    static std::string Difference(std::string const& sIs, std::string const& sShould)
    {
        size_t const n = static_cast<size_t>(
            std::mismatch(sIs.begin(), sIs.end(), sShould.begin(), sShould.end()).first - sIs.begin());
        if (n == sIs.size() && n == sShould.size())
            return "";
        size_t const nLine = n == 0 ? 0 : sIs.rfind('\n', n - 1) + 1;
        auto const Line = [nLine](std::string const& s) { return s.substr(nLine, s.find('\n', nLine) - nLine); };
        return "is " + Line(sIs) + ", should be " + Line(sShould);
    }
    static std::string All(test::PlainLayout const& plain)
    {
        std::string s;
        for (int32_t lStaff = 0; lStaff <= lHighestStaff; ++lStaff)
            s += plain.Told(lStaff) + "-\n";
        return s;
    }
};

TEST_F(Adjust, FullAdjustIsWhatThePlainRulesGive)
{
    for (uint32_t lSeed = 0; lSeed < 500; ++lSeed)
    {
        WriteByChance(lSeed);
        test::PlainLayout plain;
        plain.FullAdjust();
        FullAdjust();
        ASSERT_EQ(Difference(All(), All(plain)), "") << "score " << lSeed;
    }
}

TEST_F(Adjust, MiniAdjustIsWhatThePlainRulesGive)
{
    for (uint32_t lSeed = 0; lSeed < 500; ++lSeed)
    {
        WriteByChance(lSeed);
        test::PlainLayout plain;
        plain.MiniAdjust();
        MiniAdjust();
        ASSERT_EQ(Difference(All(), All(plain)), "") << "score " << lSeed;
    }
}

// What the first run adds makes a later clef or key a repeat, which the second run drops.
TEST_F(Adjust, FullAdjustChangesNothingFromTheThirdRunOn)
{
    for (uint32_t lSeed = 0; lSeed < 200; ++lSeed)
    {
        WriteByChance(lSeed);
        FullAdjust();
        FullAdjust();
        std::string const sBefore = All();
        FullAdjust();
        ASSERT_EQ(Difference(All(), sBefore), "") << "score " << lSeed;
    }
}

TEST_F(Adjust, ASecondMiniAdjustChangesNothing)
{
    for (uint32_t lSeed = 0; lSeed < 200; ++lSeed)
    {
        WriteByChance(lSeed);
        MiniAdjust();
        std::string const sBefore = All();
        MiniAdjust();
        ASSERT_EQ(Difference(All(), sBefore), "") << "score " << lSeed;
    }
}

// The exceptions: a restarted line's clef and key that stand ahead of their NEWLINE, and words, whose column the word
// before them sets.
TEST_F(Adjust, ColumnsNeverFallAlongAStaff)
{
    for (uint32_t lSeed = 0; lSeed < 200; ++lSeed)
    {
        WriteByChance(lSeed);
        FullAdjust();
        for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        {
            if (!IsVisible(lStaff))
                continue;
            int32_t lStrX = 0;
            for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            {
                bool const bRestart = pel->sort == CLEF || pel->sort == KEYSIG;
                if (bRestart || pel->sort == LYRICS || pel->sort == CHORD)
                    continue;
                ASSERT_GE(pel->lStrX, lStrX) << "score " << lSeed;
                lStrX = pel->lStrX;
            }
        }
    }
}

TEST_F(Adjust, AnyFieldsAtAllAreLaidOutWithoutHarm)
{
    for (uint32_t lSeed = 0; lSeed < 150; ++lSeed)
    {
        Score_EmptyStaffs();
        std::mt19937 random(lSeed);
        SetStaffCount(1 + static_cast<int32_t>(random() % 8));
        static constexpr int32_t aCols[] = {150, 1, 10000, 7};
        lColsPerLine = aCols[random() % std::size(aCols)];
        SetUnits();
        bKeepBarsTogether = random() % 2 != 0;
        int32_t lCount = 0;
        for (int32_t lStaff = 1; lStaff <= lStaffCount; ++lStaff)
        {
            lCount += 150;
            test::WriteHostileStaff(random, lStaff, 150);
        }
        for (int n = 0; n < 2; ++n)
        {
            FullAdjust();
            MiniAdjust();
        }
        int32_t lNow = 0;
        for (List const list : aStaffList)
            lNow += List_Card(list);
        ASSERT_LT(lNow, lCount * 20) << "score " << lSeed;
    }
}

TEST_F(Adjust, EightStaffsOfNewlinesEnd)
{
    for (int32_t lCols : {1, 150, 10000})
    {
        Score_EmptyStaffs();
        SetStaffCount(8);
        lColsPerLine = lCols;
        for (int32_t lStaff = 1; lStaff <= 8; ++lStaff)
            for (int n = 0; n < 2000; ++n)
                test::Write(lStaff, "nl");
        MiniAdjust();
        EXPECT_LE(List_Card(aStaffList[1]), 3 * 2000 + 1);
        FullAdjust();
        EXPECT_EQ(test::Read(8), "clef:1 nl");
    }
}

TEST_F(Adjust, AnEmptyScoreStaysEmpty)
{
    FullAdjust();
    MiniAdjust();
    EXPECT_EQ(test::Read(1), "");
}

TEST_F(Adjust, FullAdjustForgetsTheHighlightAndWhatWasRuled)
{
    test::Write(1, "n0/48");
    pelHighlight = StaffFirst(1);
    bTimesValid = false;
    lFirstLineRuled = 3;
    lLastLineRuled = 9;
    FullAdjust();
    EXPECT_EQ(pelHighlight, nullptr);
    EXPECT_TRUE(bTimesValid);
    EXPECT_EQ(lFirstLineRuled, 1);
    EXPECT_EQ(lLastLineRuled, 0);
}

TEST_F(Adjust, ASpaceAndABarInMidBarOutliveMiniAdjustOnly)
{
    test::Write(1, "clef:1 n0/48 n0/48 n0/48 n0/48 | n0/48 | sp n0/48");
    MiniAdjust();
    EXPECT_EQ(test::Read(1), "clef:1 n0/48 n0/48 n0/48 n0/48 | n0/48 | sp n0/48");
    FullAdjust();
    EXPECT_EQ(test::Read(1), "clef:1 n0/48 n0/48 n0/48 n0/48 | n0/48 n0/48");
}

TEST_F(Adjust, AHiddenStaffIsNotTouched)
{
    SetStaffCount(2);
    test::Write(1, "n0/48");
    test::Write(2, "x:77 n0/48 sp");
    ToggleStaff(2);
    FullAdjust();
    EXPECT_EQ(test::Read(2), "n0/48 sp");
    EXPECT_EQ(test::At(2, 0)->lStrX, 77);
}

TEST_F(Adjust, BeamsAreSetAheadOfPlacingBecauseWidthsDependOnThem)
{
    test::Write(1, "n0/24 n0/24 n0/24");
    FullAdjust();
    // Beamed from the second on: the last of the set has room for a flag, the others haven't.
    EXPECT_EQ(test::Column(1, &Element::beam), "0 1 3 2");
    EXPECT_EQ(test::Column(1, &Element::lWidth), "6 2 2 3");
}
} // namespace
} // namespace zarn
