/// The fingering of the Score as a list, with its prices.
#pragma once

namespace zarn
{
/// Works out the cheapest fingering of each staff that shows and prints it on standard output, one chord a line, parted
/// by tabs: the bar, the notes as they sound, string/fret/finger of each, and three prices: of the chord by itself, of
/// the step to it, and of all so far. Of several staffs each has a line ahead that names it. False when a staff can't
/// be played to its end; the user has been told.
[[nodiscard]] bool FingeringList_Print();
} // namespace zarn
