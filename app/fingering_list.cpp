// One line a chord, in the order of the staff.
#include "app/fingering_list.h"

#include "core/score.h"
#include "core/text.h"
#include "midi/refresh_pitches.h"
#include "render/geometry.h"
#include "shell/watched_fingering.h"
#include "tab/chord_notes.h"
#include "tab/fingering.h"

#include <cstdio>
#include <string>
#include <vector>

namespace zarn
{
/// 60 is C4.
static std::string NoteName(int32_t lPitch)
{
    static constexpr char const* aName[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    constexpr int32_t lOctave = 12;
    int32_t const lStep = (lPitch % lOctave + lOctave) % lOctave;
    return Format("%s%d", aName[lStep], (lPitch - lStep) / lOctave - 1);
}

static void PrintChord(int32_t lBar, ChordFingering const& chord, bool bInArpeggio)
{
    std::string sNotes;
    std::string sFingers;
    for (ChordPlace place{chord.pelFirst, bInArpeggio}; place.pel; place = Tab_NextChordNote(place))
    {
        char const* const szBlank = sNotes.empty() ? "" : " ";
        sNotes += szBlank + NoteName(place.pel->lPitch);
        sFingers += szBlank + Format("%d/%d/%d", place.pel->lString, place.pel->lFret, place.pel->lFinger);
    }
    std::printf("%d\t%s\t%s\t%d\t%d\t%d\n", lBar, sNotes.c_str(), sFingers.c_str(), chord.lOwnCost, chord.lStepCost,
                chord.lTotalCost);
}

/// Bars count from 1; one that holds nothing isn't a bar.
static void PrintStaff(int32_t lStaff, std::vector<ChordFingering> const& aSteps)
{
    int32_t lBar = 1;
    bool bMusic = false;
    bool bInArpeggio = false;
    auto itStep = aSteps.begin();
    for (Element const* pel = StaffFirst(lStaff); pel && itStep != aSteps.end(); pel = Next(pel))
    {
        if (Sort_IsBarLike(pel->sort))
        {
            lBar += bMusic;
            bMusic = false;
        }
        bMusic = bMusic || pel->sort == NOTE || pel->sort == REST;
        if (pel->sort == ARPEGSTART || pel->sort == ARPEGEND)
            bInArpeggio = pel->sort == ARPEGSTART;
        if (pel == itStep->pelFirst)
            PrintChord(lBar, *itStep++, bInArpeggio);
    }
}

bool FingeringList_Print()
{
    RefreshPitches(lHighestStaff);
    bool bGood = true;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        Element* const pelFirst = IsVisible(lStaff) ? NextNote(StaffFirst(lStaff)) : nullptr;
        if (!pelFirst)
            continue;
        std::vector<ChordFingering> aSteps;
        {
            WatchedFingering const watched;
            bGood = !Tab_DoFingering(pelFirst, StaffLast(lStaff), true, &aSteps) && bGood;
        }
        if (VisibleCount() > 1)
            std::printf("staff %d\n", lStaff);
        PrintStaff(lStaff, aSteps);
    }
    return bGood;
}
} // namespace zarn
