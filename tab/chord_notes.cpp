// The walks over the notes of a chord, with the arpeggio sections carried along.
#include "tab/chord_notes.h"

#include "render/reach.h"

namespace zarn
{
namespace
{
/// One element on; the section that the walk is in then.
void Step(ChordPlace& place)
{
    place.pel = Next(place.pel);
    if (!place.pel)
        return;
    if (place.pel->sort == ARPEGSTART)
        place.bInArpeggio = true;
    else if (place.pel->sort == ARPEGEND)
        place.bInArpeggio = false;
}
} // namespace

bool Tab_InArpeggio(Element const* pelNote)
{
    Element const* pel = pelNote;
    for (int32_t lWalked = 0; pel && lWalked < lLongestReach; pel = Prev(pel), ++lWalked)
    {
        if (pel->sort == ARPEGSTART)
            return true;
        if (pel->sort == ARPEGEND)
            return false;
    }
    return false;
}

ChordPlace Tab_NextChordNote(ChordPlace note)
{
    if (!note.pel || note.pel->sort != NOTE)
        return {};
    bool const bInArpeggio = note.bInArpeggio;
    if (!bInArpeggio && (note.pel->lA & fChordMore) == 0)
        return {};
    do
        Step(note);
    while (note.pel && note.pel->sort != NOTE && note.pel->sort != ARPEGEND);
    if (!note.pel || note.pel->sort == ARPEGEND)
        return {};
    bool const bBegins = (note.pel->lA & fChordBefore) == 0;
    return bBegins && !bInArpeggio ? ChordPlace{} : note;
}

Element* Tab_NextChordNote(Element* pelNote) { return Tab_NextChordNote({pelNote, Tab_InArpeggio(pelNote)}).pel; }

ChordPlace Tab_NextNote(ChordPlace place, Element const* pelStop)
{
    do
        Step(place);
    while (place.pel && place.pel != pelStop && place.pel->sort != NOTE);
    return place.pel && place.pel->sort == NOTE ? place : ChordPlace{};
}
} // namespace zarn
