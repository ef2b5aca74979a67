/// The commands that choose a symbol. Each makes elCurrent anew and commits it (CommitSymbol).
#pragma once
#include <cstdint>

namespace zarn
{
/// A length in ticks. Nothing while a fret is being typed; with the pointer on the tablature it is only chosen.
void NoteCommand(int32_t lDuration);
void RestCommand(int32_t lDuration);
void SpaceCommand(); ///< On the tablature a fret begins instead.
/// Any sort with its lA and lB.
void SymbolCommand(int32_t sort, int32_t lA = 0, int32_t lB = 0);

void VolumeCommand(int32_t lStep); ///< 0 (ppp) to 8 (fff)
void KeyKeepingTextCommand(int32_t lKey);
void KeyKeepingPitchCommand(int32_t lKey);
void InstrumentNumberCommand(); ///< asks for the number
void TimeSignatureCommand();    ///< asks for it

/// On the current symbol; in keyboard mode on the note at the pointer, too.
void DotCommand();
void TripletCommand();
void StaccatoCommand();
void OrnamentCommand();
} // namespace zarn
