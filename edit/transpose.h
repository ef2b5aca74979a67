/// Moving written music by semitones: notes, harmonies and key signatures. Accidentals are made anew, not moved.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Moves a NOTE and puts its accidental ahead of it, needed or not, which it gives. Key and accidentals in force are
/// found by a walk back. There is no check of the range.
Element* TransposeNote(Element* pel, int32_t lSemitones);

/// Moves a KEYSIG; the key that it had becomes the one that it replaces. Above 6 sharps it wraps to flats; at the low
/// end there is no such wrap.
void TransposeKeySig(Element* pel, int32_t lSemitones);

/// Moves the root of a CHORD's name, written in its record; lA becomes the length. What no longer fits is cut. A name
/// that doesn't begin with A to G stays.
void TransposeChordName(Element* pel, int32_t lSemitones);

/// Transposes the marked section, from its end, or the end of the staff, back to its beginning; then sets the
/// accidentals in order. Without a mark it says so. The caller lays out.
void TransposeMark(int32_t lSemitones);

/// Transposes staffs 1 to 8, hidden ones too, likewise.
void TransposeAll(int32_t lSemitones);
} // namespace zarn
