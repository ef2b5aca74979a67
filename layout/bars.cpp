// Bar lines from durations: strip them, and derive them anew.
//
// Each pass is one walk of the staff. Counts are kept in 64 bits, because durations come from files.
#include "layout/bars.h"

#include "core/messages.h"
#include "core/text.h"
#include "layout/element_width.h"

#include <algorithm>

namespace zarn
{
constexpr int32_t lTicksPerSemibreve = 192;

int32_t BarLength(Element const* pelTimeSig, int32_t lInForce)
{
    if (pelTimeSig->lB == 0)
        return lInForce;
    int64_t const lLength = int64_t{pelTimeSig->lA} * lTicksPerSemibreve / pelTimeSig->lB;
    return lLength > 0 ? Clamp32(lLength) : lInForce;
}

/// What RemoveBars knows at a place.
namespace
{
struct Strip
{
    int64_t lCount = 0; ///< ticks since the last reset
    int32_t lBarLength = lDefaultBarLength;
    bool bBarDone = false; ///< the count has once reached the bar length, or a first short bar was kept
    bool bFresh = true;    ///< nothing but deleted elements since the start, or since the last NEWLINE
    int32_t lLastClef = 0;
    int32_t lLastKey = 0;
};
} // namespace

static bool EndsPickup(Strip const& strip, Element const* pelNext)
{
    if (strip.lCount <= 0 || strip.lCount >= strip.lBarLength || strip.bBarDone)
        return false;
    return !pelNext || (pelNext->sort != DOUBLEBAR && pelNext->sort != BAR && pelNext->sort != REPEATSTART);
}

/// Takes note of one element; true when it goes.
static bool StripStep(Strip& strip, Element const* pel, Element const* pelNext)
{
    switch (pel->sort)
    {
    case NOTE:
        if ((pel->lA & fChordMore) == 0)
            strip.lCount += pel->lDuration;
        break;
    case REST:
        strip.lCount += pel->lDuration;
        break;
    case BAR:
        // The count runs on whether the bar stays or goes, so only one short bar is kept until a DOUBLEBAR.
        if (!EndsPickup(strip, pelNext))
            return true;
        strip.bBarDone = true;
        break;
    case DOUBLEBAR:
        strip.lCount = 0;
        strip.bBarDone = false;
        break;
    case CLEF:
        if (pel->lA == strip.lLastClef)
            return true;
        strip.lLastClef = pel->lA;
        break;
    case KEYSIG:
        if (pel->lA == strip.lLastKey)
            return true;
        strip.lLastKey = pel->lA;
        break;
    case NEWLINE:
        if (strip.bFresh)
            return true;
        strip.bFresh = true;
        return false;
    case TIMESIG:
        strip.lBarLength = BarLength(pel, strip.lBarLength);
        break;
    case SPACE:
        return true;
    case REPEATSTART:
        strip.lCount = 0;
        break;
    default:
        break;
    }
    strip.bFresh = false;
    return false;
}

void RemoveBars(Element* pelFirst, int32_t lBarLength)
{
    Strip strip;
    strip.lBarLength = lBarLength;
    Element* pelNext = nullptr;
    for (Element* pel = pelFirst; pel; pel = pelNext)
    {
        pelNext = Next(pel);
        pel->fOverBar = 0;
        if (strip.lCount >= strip.lBarLength)
            strip.bBarDone = true;
        if (StripStep(strip, pel, pelNext))
            Element_Remove(pel);
    }
}

/// The first element from pel on that is bar-like or sounds, on the given staff.
static Element const* NextDecisive(Element const* pel, int32_t lStaff)
{
    for (; pel; pel = Next(pel))
        if (pel->lStaff == lStaff && (Sort_IsBarLike(pel->sort) || pel->sort == NOTE || pel->sort == REST))
            return pel;
    return nullptr;
}

bool BarAhead(Element const* pel)
{
    Element const* const pelDecisive = pel ? NextDecisive(Next(pel), pel->lStaff) : nullptr;
    return pelDecisive && Sort_IsBarLike(pelDecisive->sort);
}

namespace
{
/// BarAhead for a walk along a staff: what was found stays right until the walk has passed it, so that a long run of
/// symbols that neither sound nor end a bar is looked through once, not once for each of them.
class BarFinder
{
public:
    bool Ahead(Element const* pel)
    {
        if (pel->lStaff < 0 || pel->lStaff >= lStaffLists)
            return BarAhead(pel);
        Found& found = aFound[pel->lStaff];
        if (!found.bKnown)
            found = {NextDecisive(Next(pel), pel->lStaff), true};
        return found.pel && Sort_IsBarLike(found.pel->sort);
    }
    /// To be called for each element before it is asked about.
    void Pass(Element const* pel)
    {
        if (pel->lStaff >= 0 && pel->lStaff < lStaffLists && aFound[pel->lStaff].pel == pel)
            aFound[pel->lStaff].bKnown = false;
    }

private:
    struct Found
    {
        Element const* pel = nullptr;
        bool bKnown = false;
    };
    Found aFound[lStaffLists];
};

/// What InsertBars knows at a place.
struct Cut
{
    int64_t lCount = 0;
    int32_t lBarLength = lDefaultBarLength;
    bool bBarSeen = false;          ///< since the start of the staff or the last DOUBLEBAR
    int64_t lRepeatFirstCount = -1; ///< the count saved at a REPEATFIRST
    Element elBar;                  ///< the template of each bar
    BarFinder finder;
};
} // namespace

static void PassClef(Cut& cut, int32_t lClef)
{
    // A tenor staff's bar lines stand two rows above its bottom line, as they always have.
    switch (lClef)
    {
    case 1:
        cut.elBar.lDiaPitch = 2;
        break;
    case 2:
    case 4:
        cut.elBar.lDiaPitch = -4;
        break;
    case 3:
        cut.elBar.lDiaPitch = -10;
        break;
    default:
        break;
    }
}

static void OpenFirstTimeBar(Cut& cut)
{
    if (cut.lRepeatFirstCount != -1)
        Serious("Cannot handle repeat-first nested within repeat-first.  (non-recursive algorithm).  Bar lines may be "
                "wrong.");
    else
        cut.lRepeatFirstCount = cut.lCount;
}

/// Counts an element that sounds, or one that takes no time; gives the bar that it completes, or the element itself.
static Element* CountAndCut(Cut& cut, Element* pel)
{
    if (pel->lDuration != 0 && pel->sort != NOTE && pel->sort != REST)
        Serious(Format("Music InsertBars sort %s with duration %d", Sort_Name(pel->sort, pel->lA), pel->lDuration));
    if (pel->sort != NOTE || (pel->lA & fChordMore) == 0)
        cut.lCount += pel->lDuration;
    if (cut.lCount < cut.lBarLength)
        return pel;
    if (cut.finder.Ahead(pel))
    {
        cut.bBarSeen = true;
        cut.lCount = 0;
        return pel;
    }
    if (cut.lCount > cut.lBarLength)
        pel->fOverBar |= fOverruns;
    cut.elBar.lStaff = pel->lStaff;
    if (cut.elBar.lDuration != 0)
        Serious("Bar duration trap 2 ");
    List_AddAfter(aStaffList[std::clamp(pel->lStaff, 0, lHighestStaff)], pel, &cut.elBar, cut.elBar.storage);
    cut.lCount = 0;
    cut.bBarSeen = true;
    Element* const pelBar = Next(pel);
    return pelBar ? pelBar : pel; // memory has run out: the walk ends at the note
}

static Element* CutStep(Cut& cut, Element* pel)
{
    switch (pel->sort)
    {
    case BAR:
        if (cut.lCount < cut.lBarLength && !cut.bBarSeen)
        {
            cut.bBarSeen = true;
            cut.lCount = 0;
        }
        else
            Serious("Music InsertBars spurious bar line");
        return pel;
    case DOUBLEBAR:
        cut.lCount = 0;
        cut.bBarSeen = false;
        return pel;
    case CLEF:
        PassClef(cut, pel->lA);
        return pel;
    case TIMESIG:
        cut.lBarLength = BarLength(pel, cut.lBarLength);
        return pel;
    case REPEATSTART:
        if (cut.lCount > 0 && cut.lCount < cut.lBarLength && !cut.bBarSeen)
            cut.lCount = 0;
        return pel;
    case REPEATEND:
        if (cut.lRepeatFirstCount != -1)
        {
            cut.lCount = cut.lRepeatFirstCount;
            cut.lRepeatFirstCount = -1;
        }
        return pel;
    case REPEATFIRST:
        OpenFirstTimeBar(cut);
        return pel;
    default:
        return CountAndCut(cut, pel);
    }
}

void InsertBars(Element* pelFirst, int32_t lBarLength)
{
    Cut cut;
    cut.lBarLength = lBarLength;
    cut.elBar.sort = BAR;
    cut.elBar.lWidth = Element_Width(&cut.elBar);
    if (cut.elBar.lDuration != 0)
        Serious("Bar duration trap 1 ");
    int32_t lIndex = 0;
    for (Element* pel = pelFirst; pel; pel = Next(pel))
    {
        ++lIndex;
        cut.finder.Pass(pel);
        pel = CutStep(cut, pel);
        if (pel->sort == BAR && cut.lCount != 0)
            Serious(Format("Music InsertBars:!! sort %s with duration %d index %d", Sort_Name(pel->sort, pel->lA),
                           pel->lDuration, lIndex));
    }
}
} // namespace zarn
