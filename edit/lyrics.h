/// The words under the notes, edited as one text.
///
/// The user doesn't place syllables one by one: a whole verse is one text in which blanks, hyphens and a few other
/// marks tell the syllables apart, and each becomes a LYRICS element ahead of its note.
///
///   blank         behind a word: ends it, and stays in its element
///   -             behind a word: ends the syllable, and stays in its element
///   +             a note with no syllable
///   _             a syllable of its own
///   ~             a blank inside one syllable
#pragma once
#include "core/score.h"
#include "platform/user.h"

#include <string>
#include <string_view>

namespace zarn
{
/// Where editing starts from a place in device pixels: from there on the first NOTE, or the first element whose chord
/// bits in lA are neither 12 nor 8; null when there is none.
[[nodiscard]] Element* FirstLyricPlace(int32_t x, int32_t y);

/// Appends the lyrics from pelFrom, which may be null, to the end of its staff; then takes what is left of marks and
/// blanks at the end away. The note directly behind a syllable counts as its own, and so does the first note of all
/// when no syllable stands ahead of it: neither gets a '+'.
void Lyrics_Collect(std::string& sOut, Element* pelFrom);

/// Deals the text out over the notes from pelFrom on, in place of the lyrics that stand there; a null pelFrom does
/// nothing. A word that no note is left for goes behind the last one, and what is left then into one element. The
/// insert point ends behind what was added last. The caller lays out and repaints. hdc and hwnd may be null.
void PutLyrics(HDC hdc, HWND hwnd, std::string_view sText, Element* pelFrom);

/// The command: collects from the place, asks, deals out whatever the answer was, lays out and has the window
/// repainted. Without a place it says what is missing.
void Lyrics_Edit(HWND hwnd, HDC hdc, int32_t x, int32_t y);

/// The same from a LYRICS element on, for its pop-up; the dialog takes 1000 bytes.
void Lyrics_EditFrom(HWND hwnd, HDC hdc, Element* pelFrom);
} // namespace zarn
