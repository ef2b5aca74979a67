/// Notes and their parts. (x, y) is the middle of the head; each reports 0 when it is off the page and drew nothing.
#pragma once
#include "platform/gdi.h"

#include <cstdint>

namespace zarn
{
/// What a note looks like.
struct NoteLook
{
    bool bUp = true;
    int32_t lBeam = 0;
    int32_t lDuration = 0; ///< ticks, as it stands: dotted ones are handed in dotted
    bool bFlagged = true;  ///< it is the note of its chord that carries the flags
    bool bMarked = true;   ///< it is the note of its chord that carries the marks
    bool bDotted = false;
    bool bStaccato = false;
    bool bOrnament = false;
};
int32_t DrawNote(HDC hdc, int32_t x, int32_t y, NoteLook const& look);

int32_t NoteHead(HDC hdc, int32_t x, int32_t y, bool bSolid);
int32_t Stem(HDC hdc, int32_t x, int32_t y, bool bUp);
/// The far end of that stem.
[[nodiscard]] POINT StemEnd(int32_t x, int32_t y, bool bUp);
int32_t NoteDot(HDC hdc, int32_t x, int32_t y);
/// A figure 3.
int32_t TripletMark(HDC hdc, int32_t x, int32_t y);
} // namespace zarn
