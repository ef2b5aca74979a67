// What the status bar says. A bar and a beat are those of the element at or ahead of the pointer.
#include "shell/status.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "render/geometry.h"
#include "shell/modes.h"

namespace zarn
{
static char const* LengthName(int32_t lBase)
{
    switch (lBase)
    {
    case 384:
        return "brieve";
    case 192:
        return "semibreve";
    case 96:
        return "minim";
    case 48:
        return "crotchet";
    case 24:
        return "quaver";
    case 12:
        return "semiquaver";
    case 6:
        return "demisemiquaver";
    case 0:
        return "grace note";
    default:
        return "note";
    }
}

/// The length without its dot or triplet.
static int32_t PlainLength(int32_t lDuration)
{
    return IsDotted(lDuration) ? lDuration / 3 * 2 : IsTriplet(lDuration) ? lDuration / 2 * 3 : lDuration;
}

static std::string LengthText()
{
    std::string sText = LengthName(PlainLength(elCurrent.lDuration));
    if (elCurrent.sort == REST)
        sText += " rest";
    if (IsDotted(elCurrent.lDuration))
        sText += ", dotted";
    if (IsTriplet(elCurrent.lDuration))
        sText += ", triplet";
    if (elCurrent.sort == NOTE && (elCurrent.lA & fStaccato))
        sText += ", staccato";
    if (elCurrent.sort == NOTE && (elCurrent.lA & fOrnament))
        sText += ", ornament";
    return sText;
}

static std::string SymbolText()
{
    static constexpr char const* aNames[] = {"no symbol",
                                             "note",
                                             "bar",
                                             "double bar",
                                             "clef",
                                             "key signature",
                                             "rest",
                                             "new line",
                                             "sharp",
                                             "flat",
                                             "natural",
                                             "time signature",
                                             "space",
                                             "harmony",
                                             "lyrics",
                                             "repeat start",
                                             "repeat end",
                                             "repeat end and start",
                                             "tie",
                                             "instrument",
                                             "tempo",
                                             "transposition",
                                             "symbol",
                                             "volume",
                                             "first time bar",
                                             "begin of the mark",
                                             "end of the mark",
                                             "ABC text",
                                             "title",
                                             "arpeggio start",
                                             "arpeggio end",
                                             "text",
                                             "annotation",
                                             "slur",
                                             "bowing"};
    static_assert(std::size(aNames) == lHighestSort + 1);
    if (elCurrent.sort == NOTE || elCurrent.sort == REST)
        return LengthText();
    if (elCurrent.sort < 0 || elCurrent.sort > lHighestSort)
        return aNames[0];
    if (Sort_BearsText(elCurrent.sort) && !Element_Text(&elCurrent).empty())
        return Format("%s \"%s\"", aNames[elCurrent.sort], std::string(Element_Text(&elCurrent)).c_str());
    return aNames[elCurrent.sort];
}

namespace
{
struct MusicPlace
{
    int32_t lStaff = 0; ///< 0: on no staff that shows
    int32_t lBar = 1;
    int32_t lBeat = 1;
};

/// Counts bars and beats up to a column.
MusicPlace PlaceOf(POINT pointer)
{
    MusicPlace place;
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    Draw_Straighten(pointer.x, pointer.y, &lStrX, &lDiaPitch, &place.lStaff, 1);
    if (!IsVisible(place.lStaff))
        return {};
    int64_t lBeatTicks = 48;
    int64_t lTicks = 0;
    bool bChord = false;
    for (Element const* pel = StaffFirst(place.lStaff); pel && pel->lStrX <= lStrX; pel = Next(pel))
    {
        if (Sort_IsBarLike(pel->sort) && lTicks > 0)
        {
            ++place.lBar;
            lTicks = 0;
        }
        else if (pel->sort == TIMESIG && pel->lB > 0)
            lBeatTicks = 192 / pel->lB > 0 ? 192 / pel->lB : 1;
        else if ((pel->sort == NOTE && !bChord) || pel->sort == REST)
        {
            place.lBeat = Clamp32(lTicks / lBeatTicks + 1);
            lTicks += pel->lDuration;
        }
        if (pel->sort == NOTE)
            bChord = (pel->lA & fChordMore) != 0;
    }
    if (lTicks == 0)
        place.lBeat = 1;
    return place;
}
} // namespace

std::string Status_Text()
{
    MusicPlace const place = PlaceOf(GetCursorPos(hwndMain));
    std::string sText = Format("%s  |  %s", fMouseMode ? "Mouse mode" : "Keyboard mode", SymbolText().c_str());
    if (place.lStaff != 0)
        sText += Format("  |  staff %d, bar %d, beat %d", place.lStaff, place.lBar, place.lBeat);
    return sText;
}

void Status_Show()
{
    static std::string sShown;
    static HWND hwndShown = nullptr;
    std::string sText = Status_Text();
    if (sText == sShown && hwndShown == hwndMain)
        return;
    sShown = std::move(sText);
    hwndShown = hwndMain;
    SetStatusText(hwndMain, sShown);
}
} // namespace zarn
