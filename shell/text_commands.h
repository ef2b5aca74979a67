/// Titles, words, harmonies and other texts; the words of a verse; and the pop-up menu of a syllable.
#pragma once
#include <cstdint>

namespace zarn
{
/// Asks for a text of a type (WritingType): in keyboard mode it goes in at the pointer, and in both modes it becomes
/// the current symbol.
void EnterText(int32_t lType);
/// The verse from the pointer on, in keyboard mode.
void LyricsCommand();

/// On pelPopup, which they let go of.
void EditItemCommand();
void EditLyricsCommand();
void DeleteItemCommand();
} // namespace zarn
