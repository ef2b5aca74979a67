// Toggles. Durations go by whole ticks: at the shortest values a second toggle doesn't bring back the first form.
#include "edit/toggles.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/modifiers.h"
#include "layout/adjust.h"
#include "render/nearest.h"
#include "render/symbols.h"

namespace zarn
{
namespace
{
int32_t Longer(int32_t lDuration) { return Clamp32(int64_t{lDuration} * 3 / 2); }

int32_t Shorter(int32_t lDuration) { return Clamp32(int64_t{lDuration} * 2 / 3); }

int32_t DotToggled(int32_t lDuration) { return IsDotted(lDuration) ? Shorter(lDuration) : Longer(lDuration); }

int32_t TripletToggled(int32_t lDuration) { return IsTriplet(lDuration) ? Longer(lDuration) : Shorter(lDuration); }

bool IsNoteOrRest(Element const* pel) { return pel->sort == NOTE || pel->sort == REST; }

/// The chord of a note; a rest by itself. Null for anything else.
struct Toggled
{
    Element* pelFirst = nullptr;
    Element* pelLast = nullptr;
};

Toggled ChordOrRest(Element* pel)
{
    if (pel->sort == REST)
        return {pel, pel};
    if (pel->sort != NOTE)
        return {};
    return {ChordFirst(pel), ChordLast(pel)};
}

template <typename Change>
int32_t ForEach(Toggled const& toggled, Change change)
{
    if (!toggled.pelFirst || !toggled.pelLast)
        return 0;
    for (Element* pel = toggled.pelFirst; pel; pel = Next(pel))
    {
        if (IsNoteOrRest(pel))
            change(*pel);
        if (pel == toggled.pelLast)
            break;
    }
    return toggled.pelFirst != toggled.pelLast;
}

int32_t ToggleFlag(Element* pel, int32_t lFlag)
{
    if (!pel || pel->sort != NOTE)
        return 0;
    return ForEach(ChordOrRest(pel), [lFlag](Element& note) { note.lA ^= lFlag; });
}

void Edited()
{
    bScoreDirty = true;
    bTimesValid = false;
}
} // namespace

int32_t ToggleDot(Element* pel)
{
    Edited();
    if (!pel)
    {
        Serious("Bug: ToggleDot called for null element");
        return 0;
    }
    return ForEach(ChordOrRest(pel), [](Element& el) { el.lDuration = DotToggled(el.lDuration); });
}

int32_t ToggleTriplet(Element* pel)
{
    if (!pel)
        return 0;
    return ForEach(ChordOrRest(pel), [](Element& el) { el.lDuration = TripletToggled(el.lDuration); });
}

int32_t ToggleStaccato(Element* pel) { return ToggleFlag(pel, fStaccato); }

int32_t ToggleOrnament(Element* pel) { return ToggleFlag(pel, fOrnament); }

// The current symbol is in no list: it has no chord to walk.

void ToggleCurrentDot()
{
    if (!IsNoteOrRest(&elCurrent))
        return;
    Edited();
    elCurrent.lDuration = DotToggled(elCurrent.lDuration);
}

void ToggleCurrentTriplet()
{
    if (IsNoteOrRest(&elCurrent))
        elCurrent.lDuration = TripletToggled(elCurrent.lDuration);
}

void ToggleCurrentStaccato()
{
    if (elCurrent.sort == NOTE)
        elCurrent.lA ^= fStaccato;
}

void ToggleCurrentOrnament()
{
    if (elCurrent.sort == NOTE)
        elCurrent.lA ^= fOrnament;
}

/// The note or rest nearest to a place; null after a message.
static Element* NoteOrRestAt(int32_t x, int32_t y, char const* sWrongSort)
{
    Element* const pel = NearestElement(x, y);
    if (pel && IsNoteOrRest(pel))
        return pel;
    Serious(pel ? sWrongSort : "Nothing near cursor");
    return nullptr;
}

/// What was added to one note alone can be drawn over it.
static void DrawOrRepaint(HDC hdc, HWND hwnd, Element* pel, bool bOnlyMore)
{
    if (bOnlyMore && hdc)
        DrawSymbol(hdc, hwnd, pel, ClefAt(pel), false);
    else
        InvalidateRect(hwnd);
}

void ToggleDotAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y)
{
    Element* const pel = NoteOrRestAt(x, y, "Nothing dotted or dottable near cursor");
    if (!pel)
        return;
    bool const bChord = ToggleDot(pel) != 0;
    DrawOrRepaint(hdc, hwnd, pel, !bChord && IsDotted(pel->lDuration));
    if (bAutoLayout)
    {
        FullAdjust();
        InvalidateRect(hwnd);
    }
}

void ToggleTripletAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y)
{
    Element* const pel = NoteOrRestAt(x, y, "Nothing triplety or tripletable near cursor");
    if (!pel)
        return;
    Edited();
    bool const bChord = ToggleTriplet(pel) != 0;
    bool const bBeamed = pel->beam != BEAM_NONE;
    if (bBeamed)
        UnbeamSet(pel);
    DrawOrRepaint(hdc, hwnd, pel, !bChord && !bBeamed && IsTriplet(pel->lDuration));
}

static void ToggleFlagAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y, int32_t lFlag, char const* sWrongSort)
{
    Element* const pel = NoteOrRestAt(x, y, sWrongSort);
    if (!pel)
        return;
    if (pel->sort == NOTE)
        Edited(); // a rest takes no such mark
    bool const bChord = ToggleFlag(pel, lFlag) != 0;
    DrawOrRepaint(hdc, hwnd, pel, !bChord && pel->sort == NOTE && (pel->lA & lFlag));
}

void ToggleStaccatoAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y)
{
    ToggleFlagAtMouse(hdc, hwnd, x, y, fStaccato, "Nothing staccato or staccatoable near cursor");
}

void ToggleOrnamentAtMouse(HDC hdc, HWND hwnd, int32_t x, int32_t y)
{
    ToggleFlagAtMouse(hdc, hwnd, x, y, fOrnament, "Nothing ornamented or ornamentable near cursor");
}
} // namespace zarn
