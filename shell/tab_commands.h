/// The commands of the tablature: shown or not, worked out again, its weights and its instrument, and a fret from the
/// menu that a click on a string opens.
#pragma once
#include "platform/types.h"

#include <cstdint>

namespace zarn
{
/// Shows the tablature with the cheapest fingering of the piece, or hides it; the piano makes room.
void OptimisedTablatureCommand();
/// The same without the search; the palette makes room.
void ShowTablatureCommand();
/// Works out the cheapest fingering of the piece.
void OptimiseTablatureCommand();
/// The dialog of the instrument. Whatever comes of it, the fingering is worked out again.
void TuningCommand();
/// Asks for the weight of a command, and whether the tablature is to be worked out with it.
void WeightCommand(int32_t lCommand);
/// Asks for the price of a bar that holds the strings of a mask, 0 to 63.
void BarWeightCommand(int32_t lMask);

/// Opens the menu of frets at a place on a string; the one that is chosen is entered there.
void ChooseFret(POINT place);
/// Enters a fret where the menu was opened last. Nothing while tablature is hidden, and before any menu.
void FretCommand(int32_t lFret);

/// While tablature shows: works out the fingering again, for an edit that moved all notes.
void Tablature_Rerun();

/// At start: the instrument and the weights from the settings, the weights in the menu too.
void LoadTablatureSettings();
} // namespace zarn
