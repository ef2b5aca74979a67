/// What sounds together for the hand: the notes of a chord, or all notes of an arpeggio section, which ring on.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Walking back from the note, ARPEGSTART is met before any ARPEGEND. A section reaches no further than lLongestReach:
/// drawing asks for every note that has no fingering.
[[nodiscard]] bool Tab_InArpeggio(Element const* pelNote);

/// A place among the notes of a staff that knows whether it stands in an arpeggio section, so that a walk over the
/// staff never has to look back.
struct ChordPlace
{
    Element* pel = nullptr;
    bool bInArpeggio = false;
};

/// The next note that sounds together with this one, null when there is none: the place, and with it what the walk to
/// the note there has passed.
[[nodiscard]] ChordPlace Tab_NextChordNote(ChordPlace note);
[[nodiscard]] Element* Tab_NextChordNote(Element* pelNote); ///< The same from anywhere.

/// The next NOTE behind a place; its pel is null when there is none before the end, or before pelStop, unless pelStop
/// is a NOTE itself.
[[nodiscard]] ChordPlace Tab_NextNote(ChordPlace place, Element const* pelStop);
} // namespace zarn
