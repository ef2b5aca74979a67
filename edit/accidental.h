/// An accidental at a place of its own.
#pragma once
#include "core/score.h"
#include "platform/user.h"

namespace zarn
{
/// Makes an accidental from a blank record (1 sharp, -1 flat, anything else natural), links it behind pelAfter, or at
/// the head of the staff for null, and draws it unless hdc is null. lClef is the clef in force there, 1 to 4. Gives the
/// new element; null when memory has run out.
Element* AddAccidentalAt(HDC hdc, HWND hwnd, int32_t lStrX, int32_t lDiaPitch, int32_t lStaff, Element* pelAfter,
                         int32_t lAccid, int32_t lClef);
} // namespace zarn
