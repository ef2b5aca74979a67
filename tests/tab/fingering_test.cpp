// The whole way from notes to strings, frets and fingers: stretches, bars, chords, failures, messages, the watch.
#include "tab/fingering.h"

#include "core/messages.h"
#include "platform/user.h"
#include "render/geometry.h"
#include "tab/chord_notes.h"
#include "tab/fingering_watch.h"
#include "tab/fingers_place.h"
#include "tab/plain_search.h"
#include "tab/tunes_by_chance.h"
#include "tab/weights.h"

#include <gmock/gmock.h>

namespace zarn
{
namespace
{
using test::AddChord;
using test::AddSign;
using test::Fingered;
using testing::ElementsAre;

class Fingering : public test::TabFixture
{
protected:
    /// Every serious message is heard, not only the first.
    Fingering()
    {
        process.user.pOnShown = [](Shown const&) { Serious_Rearm(); };
    }
    static Element* Finger(bool bVerbose = true, std::vector<ChordFingering>* pSteps = nullptr)
    {
        return Tab_DoFingering(StaffFirst(1), StaffLast(1), bVerbose, pSteps);
    }
    [[nodiscard]] std::vector<std::string> Messages() const { return process.user.Messages(); }
};
constexpr char const* sNotFingered = "0/-1/0";
constexpr char const* sNoneHere = "No fingerings possible.";
constexpr char const* sNoneAtAll = "No way to finger the entire piece!";

TEST_F(Fingering, AScaleIsPlayedInTheOpenPosition)
{
    for (int32_t lPitch : {52, 53, 55, 57, 59, 60, 62, 64, 65, 67, 69, 71, 72, 74, 76})
        AddChord({lPitch});
    EXPECT_EQ(Finger(), nullptr);
    EXPECT_EQ(Fingered(), "6/0/0 6/1/2 6/3/4 5/0/0 5/2/3 5/3/4 4/0/0 4/2/3 4/3/4 3/0/0 3/2/3 2/0/0 2/1/2 2/3/4 1/0/0");
}

TEST_F(Fingering, TellsThePriceOfEachStep)
{
    test::Tune({76, 71});
    AddChord({71});
    AddChord({81});
    std::vector<ChordFingering> aSteps;
    EXPECT_EQ(Finger(true, &aSteps), nullptr);
    EXPECT_EQ(Fingered(), "2/0/0 1/5/3");
    ASSERT_EQ(aSteps.size(), 2u);
    EXPECT_EQ(aSteps[0].pelFirst, StaffFirst(1));
    EXPECT_EQ(aSteps[0].lOwnCost, -1);
    EXPECT_EQ(aSteps[0].lStepCost, 0);
    EXPECT_EQ(aSteps[0].lTotalCost, -1);
    EXPECT_EQ(aSteps[1].lOwnCost, 96);
    EXPECT_EQ(aSteps[1].lStepCost, 77); // a finger added, 36 twelfths up the neck
    EXPECT_EQ(aSteps[1].lTotalCost, 172);
}

TEST_F(Fingering, OneChordIsPlayedAtItsSmallestOwnPrice)
{
    AddChord({71});
    EXPECT_EQ(Finger(), nullptr);
    EXPECT_EQ(Fingered(), "2/0/0");
}

TEST_F(Fingering, OfEqualPricesTheFirstWayWins)
{
    lFingersInUse = 0;
    aBarCost = {};
    AddChord({80});
    std::vector<ChordFingering> aSteps;
    EXPECT_EQ(Finger(true, &aSteps), nullptr);
    EXPECT_EQ(Fingered(), "1/4/1") << "string 1, a single finger 1, comes first";
    EXPECT_EQ(aSteps[0].lTotalCost, 0);
}

TEST_F(Fingering, AllWeightsZeroGiveTheFirstWayOfEachChord)
{
    for (FingeringWeight const& weight : Fingering_Weights())
        if (weight.plValue != &lMaxStretch)
            *weight.plValue = 0;
    for (int32_t lPitch : {77, 79, 78, 80})
        AddChord({lPitch});
    EXPECT_EQ(Finger(), nullptr);
    EXPECT_EQ(Fingered(), "1/1/1 1/3/1 1/2/1 1/4/1");
}

TEST_F(Fingering, AHeldCopyBeatsThePlainOne)
{
    test::Tune({60});
    lWristPosition = 0;
    for (int32_t lPitch : {62, 60, 62})
        AddChord({lPitch});
    std::vector<ChordFingering> aSteps;
    EXPECT_EQ(Finger(true, &aSteps), nullptr);
    ASSERT_EQ(aSteps.size(), 3u);
    EXPECT_EQ(Fingered(), "1/2/1 1/0/0 1/2/1");
    EXPECT_EQ(aSteps[2].lStepCost, 60) << "the finger stayed down: only the rise on one string costs";
}

TEST_F(Fingering, AChordThatCannotBePlayedEndsIt)
{
    Element* const pelFirst = AddChord({57});
    AddChord({40, 41});
    AddChord({60});
    Element* const pelBad = Next(pelFirst);
    EXPECT_EQ(Finger(), pelBad);
    EXPECT_EQ(pelBad->fOverBar, fUnplayable);
    EXPECT_THAT(Messages(), ElementsAre(sNoneHere, sNoneAtAll));
    Fingers const first = PrimeFingerings(std::vector{57}).front();
    EXPECT_EQ(pelFirst->lFret, first.aString[static_cast<size_t>(pelFirst->lString - 1)].bFret);
    EXPECT_EQ(Fingered().substr(Fingered().find(' ') + 1), "0/-1/0+0/-1/0 0/-1/0");
}

TEST_F(Fingering, BeforeAFailureEachChordGetsTheFirstWayNotTheCheapest)
{
    test::Tune({76, 71, 67});
    AddChord({76}); // open string 1 comes first, then fret 5 of string 2
    AddChord({74}); // fret 3 of string 2, fret 7 of string 3
    AddChord({30});
    lFingersInUse = -100; // so that stopped strings are cheaper
    EXPECT_NE(Finger(), nullptr);
    EXPECT_EQ(test::At(1, 1)->lString, 2);
    EXPECT_EQ(test::At(1, 1)->lFret, 3);
    EXPECT_EQ(test::At(1, 1)->lFinger, 1);
}

TEST_F(Fingering, SilentlyAFailureShowsOnlyAsAMark)
{
    Element* const pel = AddChord({20});
    EXPECT_EQ(Finger(false), pel);
    EXPECT_EQ(pel->fOverBar, fUnplayable);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Fingering, WithoutAFirstNoteItIsABug)
{
    EXPECT_EQ(Tab_DoFingering(nullptr, nullptr, true), nullptr);
    EXPECT_THAT(Messages(), ElementsAre("Bug!  Duff call to Tab_DoFingering."));
}

TEST_F(Fingering, AFirstElementThatIsNoNoteFails)
{
    Element* const pel = AddSign(BAR);
    AddChord({60});
    EXPECT_EQ(Finger(), pel);
    EXPECT_THAT(Messages(), ElementsAre("BuildPrimeFingerings called for non-note!", "!!No fingering list found!!"));
    EXPECT_EQ(pel->fOverBar, fUnplayable);
    EXPECT_EQ(Fingered(), sNotFingered);
}

TEST_F(Fingering, OnNoStringsEveryNoteIsOneTooMany)
{
    test::Tune({});
    AddChord({60});
    EXPECT_NE(Finger(), nullptr);
    EXPECT_THAT(Messages(), ElementsAre("You have a chord with more notes in it than there are strings!",
                                        "No notes in chord??", sNoneHere, sNoneAtAll));
}

TEST_F(Fingering, ARepeatedPitchTakesOneStringForBothNotes)
{
    AddChord({60, 60, 64});
    EXPECT_EQ(Finger(), nullptr);
    EXPECT_EQ(test::At(1, 0)->lString, test::At(1, 1)->lString);
    EXPECT_EQ(test::At(1, 0)->lFret, test::At(1, 1)->lFret);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Fingering, APathOfAMillionIsNone)
{
    lFingersInUse = 100000;
    AddChord({77});
    AddChord({78});
    std::vector<ChordFingering> aSteps;
    EXPECT_EQ(Finger(true, &aSteps), nullptr);
    EXPECT_EQ(Fingered(), "0/-1/0 0/-1/0") << "the notes keep what they had";
    EXPECT_TRUE(aSteps.empty());
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Fingering, APathThatReachesTheTopLaterIsNoneEither)
{
    lFingersInUse = 30000;
    lAvoidOpenStrings = 100000;
    for (int32_t n = 0; n < 5; ++n)
        AddChord({77 + n % 2});
    EXPECT_EQ(test::PlainDoFingering(StaffFirst(1), StaffLast(1), true, nullptr), nullptr);
    EXPECT_EQ(test::At(1, 0)->lString, 0);
    EXPECT_EQ(Finger(), nullptr);
    EXPECT_EQ(test::At(1, 0)->lString, 0);
}

TEST_F(Fingering, RestsAndBarsDoNotBreakTheChain)
{
    for (int32_t lPitch : {64, 69, 66})
        AddChord({lPitch});
    std::vector<ChordFingering> aSteps;
    Finger(true, &aSteps);
    List_Clear(aStaffList[1]);
    AddChord({64});
    AddSign(REST);
    AddChord({69});
    AddSign(BAR);
    AddChord({66});
    std::vector<ChordFingering> aParted;
    Finger(true, &aParted);
    ASSERT_EQ(aParted.size(), 3u);
    EXPECT_EQ(aParted[2].lTotalCost, aSteps[2].lTotalCost);
}

TEST_F(Fingering, AnArpeggioSectionIsOneChord)
{
    AddChord({60});
    AddSign(ARPEGSTART);
    for (int32_t lPitch : {60, 64, 67, 64, 60})
        AddChord({lPitch});
    AddSign(ARPEGEND);
    AddChord({64});
    std::vector<ChordFingering> aSteps;
    EXPECT_EQ(Finger(true, &aSteps), nullptr);
    EXPECT_EQ(aSteps.size(), 3u);
    EXPECT_EQ(test::At(1, 2)->lString, test::At(1, 6)->lString);
    EXPECT_TRUE(Messages().empty()) << "three pitches take three strings";
}

TEST_F(Fingering, AnArpeggioOnMorePitchesThanStringsIsReported)
{
    AddSign(ARPEGSTART);
    for (int32_t lPitch : {60, 64, 67, 72, 76, 79, 84})
        AddChord({lPitch});
    Tab_DoFingering(Next(StaffFirst(1)), StaffLast(1), false);
    EXPECT_EQ(Messages().front(), "You have a chord with more notes in it than there are strings!");
}

TEST_F(Fingering, AnArpeggioOfAHundredThousandNotesIsOneChord)
{
    AddSign(ARPEGSTART);
    for (int32_t n = 0; n < 100'000; ++n)
        AddChord({60 + n % 3 * 4});
    EXPECT_EQ(Tab_DoFingering(Next(StaffFirst(1)), StaffLast(1), true), nullptr);
    EXPECT_EQ(StaffLast(1)->lString, Next(StaffFirst(1))->lString);
}

TEST_F(Fingering, AnEndThatIsNoNoteEndsTheStretch)
{
    AddChord({64});
    Element* const pelEnd = AddSign(BAR);
    AddChord({66});
    EXPECT_EQ(Tab_DoFingering(StaffFirst(1), pelEnd, true), nullptr);
    EXPECT_EQ(Fingered(), "4/2/1 0/-1/0");
}

TEST_F(Fingering, AnEndInsideAChordEndsTheStretchWithTheChord)
{
    Element* const pelFirst = AddChord({64, 69});
    AddChord({66});
    EXPECT_EQ(Tab_DoFingering(pelFirst, pelFirst, true), nullptr);
    EXPECT_NE(Next(pelFirst)->lString, 0) << "the chord is played whole";
    EXPECT_EQ(StaffLast(1)->lString, 0);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(Fingering, AllShownStaffsAreFingeredFromTheirPitchOnPaper)
{
    test::Write(1, "clef:1 n2/48 n3/48");
    test::Write(2, "clef:1 n2/48");
    Tab_FingerStaffs();
    EXPECT_EQ(test::At(1, 1)->lPitch, 64);
    EXPECT_EQ(Tab_OpenPitch(test::At(1, 1)->lString, test::At(1, 1)->lFret), 64);
    EXPECT_EQ(test::At(2, 1)->lString, 0) << "staff 2 doesn't show";
    SetStaffCount(2);
    Tab_FingerStaffs();
    EXPECT_EQ(test::At(2, 1)->lString, 4);
}

TEST_F(Fingering, AStaffThatCannotBePlayedIsMarked)
{
    test::Write(1, "clef:1 n2/48 n-40/48");
    Tab_FingerStaffs();
    EXPECT_EQ(test::At(1, 2)->fOverBar, fUnplayable);
    EXPECT_THAT(Messages(), ElementsAre(sNoneHere, sNoneAtAll));
}

TEST_F(Fingering, ABarIsFingeredByItselfWhileTablatureShows)
{
    test::Write(1, "clef:1 n2/48 | n3/48 n4/48 | n5/48");
    RefreshBarFingering(test::At(1, 3));
    EXPECT_EQ(Fingered(), "0/-1/0 0/-1/0 0/-1/0 0/-1/0") << "tablature doesn't show";
    bTabShowing = true;
    RefreshBarFingering(test::At(1, 3));
    EXPECT_EQ(Fingered(), "0/-1/0 4/3/1 3/0/0 0/-1/0");
    RefreshBarFingering(test::At(1, 2));
    RefreshBarFingering(nullptr);
    EXPECT_EQ(test::At(1, 1)->lString, 0) << "a bar line has no notes of its own";
    bTabShowing = false;
}

TEST_F(Fingering, AChordAtHandIsFingeredByItself)
{
    AddChord({60});
    Element* const pel = AddChord({64, 69});
    AddChord({60});
    Tab_FingerChord(Next(pel));
    EXPECT_EQ(Fingered(), "0/-1/0 4/2/1+3/2/1 0/-1/0");
    Tab_FingerChord(AddSign(REST));
    EXPECT_THAT(Messages(), ElementsAre("Bug!  Duff call to Tab_DoFingering."));
}

TEST_F(Fingering, AChordAtHandThatCannotBePlayedIsMarkedInSilence)
{
    Element* const pel = AddChord({20, 21});
    AddChord({60});
    Tab_FingerChord(Next(pel));
    EXPECT_EQ(pel->fOverBar, fUnplayable);
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(Fingered(), "0/-1/0+0/-1/0 0/-1/0");
}

TEST_F(Fingering, AChordThatHasLostItsLastNoteEndsWithItsOwn)
{
    Element* const pel = AddChord({64});
    pel->lA |= fChordMore;
    AddSign(REST);
    AddChord({60});
    Tab_FingerChord(pel);
    EXPECT_EQ(Fingered(), "4/2/1 0/-1/0");
}

TEST_F(Fingering, AWalkOverTheStaffFingersEachChordAsByItself)
{
    for (uint32_t n = 0; n < 60; ++n)
    {
        test::Random random(n);
        test::WriteTune(random, {.lNotes = 12, .lChordPercent = 30, .lMostInChord = 3, .lSectionPercent = 25});
        std::string aFingered[2];
        for (bool bMissing : {false, true})
        {
            for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
                pel->lString = 0;
            for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
                if (pel->sort == NOTE && pel->lString == 0)
                    (bMissing ? Tab_FingerMissing : Tab_FingerChord)(pel);
            aFingered[bMissing] = Fingered();
        }
        ASSERT_EQ(aFingered[1], aFingered[0]) << n;
    }
}

TEST_F(Fingering, AWalkTriesAChordOnce)
{
    Element* const pelFirst = AddChord(std::vector<int32_t>(30'000, 20));
    Tab_FingerMissing(pelFirst);
    EXPECT_EQ(pelFirst->fOverBar, fUnplayable);
    pelFirst->fOverBar = 0;
    for (Element* pel = Next(pelFirst); pel; pel = Next(pel))
        Tab_FingerMissing(pel);
    EXPECT_EQ(pelFirst->fOverBar, 0);
    Element* const pelNext = AddChord({60});
    Tab_FingerMissing(pelNext);
    EXPECT_NE(pelNext->lString, 0);
}

TEST_F(Fingering, AFullRunOverwritesWhatANoteHad)
{
    Element* const pel = AddChord({64});
    pel->lString = 5;
    pel->lFret = 7;
    Finger();
    EXPECT_EQ(Fingered(), "4/2/1");
}

TEST_F(Fingering, ChordsAreChainedByTheirFlagsOutsideArpeggios)
{
    Element* const pel = AddChord({60, 64});
    EXPECT_EQ(Tab_NextChordNote(ChordPlace{pel, false}).pel, Next(pel));
    EXPECT_EQ(Tab_NextChordNote(ChordPlace{Next(pel), false}).pel, nullptr);
    Element* const pelLoose = AddChord({65});
    EXPECT_EQ(Tab_NextChordNote(ChordPlace{Next(pel), true}).pel, pelLoose);
    pel->lA |= fChordMore;
    Next(pel)->lA = fChordMore;
    EXPECT_EQ(Tab_NextChordNote(ChordPlace{Next(pel), false}).pel, nullptr) << "the next one begins something new";
    AddSign(ARPEGEND);
    AddChord({67});
    EXPECT_EQ(Tab_NextChordNote(ChordPlace{pelLoose, true}).pel, nullptr);
    EXPECT_EQ(Tab_NextChordNote(ChordPlace{Prev(StaffLast(1)), true}).pel, nullptr) << "no note";
}

/// A host whose clock goes on by itself.
class HurriedHost : public ScriptHost
{
public:
    uint32_t TickCount() override { return lNowMs += lMsPerLook; }
    uint32_t lMsPerLook = 40;
};

std::vector<std::pair<int32_t, int32_t>> aWatched;
int32_t lGoOnUpTo = 0;
bool bWaitPointerWatched = false;

class WatchedFingering : public Fingering
{
protected:
    WatchedFingering()
    {
        host.pUser = &hurried;
        hwndMain = CreateWindowExA("", nullptr);
        aWatched.clear();
        lGoOnUpTo = INT32_MAX;
        pFingeringWatch = [](int32_t lDone, int32_t lTotal)
        {
            aWatched.emplace_back(lDone, lTotal);
            bWaitPointerWatched = static_cast<HeadlessWindow*>(hwndMain)->bWaitPointer;
            return lDone < lGoOnUpTo;
        };
        for (int32_t n = 0; n < 60; ++n)
            AddChord({60 + n % 7});
    }
    ~WatchedFingering() override { pFingeringWatch = nullptr; }

    HurriedHost hurried;
};

TEST_F(WatchedFingering, IsToldFromTheSecondSecondOnTenTimesASecond)
{
    EXPECT_EQ(Finger(), nullptr);
    ASSERT_FALSE(aWatched.empty());
    EXPECT_EQ(aWatched[0], (std::pair{25, 60})) << "40 milliseconds a chord";
    ASSERT_GE(aWatched.size(), 2u);
    EXPECT_EQ(aWatched[1].first, 28) << "not before 100 milliseconds later";
    EXPECT_NE(StaffLast(1)->lString, 0);
}

TEST_F(WatchedFingering, ShowsTheWaitPointerUntilItEnds)
{
    Finger();
    EXPECT_TRUE(bWaitPointerWatched);
    EXPECT_FALSE(hurried.pWindow->bWaitPointer);
}

TEST_F(WatchedFingering, IsLeftAloneForASecond)
{
    hurried.lMsPerLook = 10;
    EXPECT_EQ(Finger(), nullptr);
    EXPECT_TRUE(aWatched.empty());
}

TEST_F(WatchedFingering, CalledOffLeavesEverythingAsItWas)
{
    StaffFirst(1)->lString = 5;
    StaffLast(1)->fOverBar = fOverruns;
    lGoOnUpTo = 30;
    std::vector<ChordFingering> aSteps;
    EXPECT_EQ(Finger(true, &aSteps), nullptr);
    EXPECT_TRUE(aSteps.empty());
    EXPECT_EQ(StaffFirst(1)->lString, 5);
    EXPECT_EQ(StaffLast(1)->fOverBar, fOverruns);
    for (Element const* pel = Next(StaffFirst(1)); pel; pel = Next(pel))
        EXPECT_EQ(pel->lString, 0);
}

TEST_F(WatchedFingering, CalledOffOnOneStaffLeavesTheStaffsBehind)
{
    List_Clear(aStaffList[1]);
    for (int32_t n = 0; n < 60; ++n)
        test::Write(1, "n2/48");
    test::Write(2, "n2/48");
    SetStaffCount(2);
    lGoOnUpTo = 30;
    Tab_FingerStaffs();
    EXPECT_EQ(StaffFirst(1)->lString, 0);
    EXPECT_EQ(StaffFirst(2)->lString, 0);
}
} // namespace
} // namespace zarn
