/// Setting the current symbol: elCurrent is made anew from the defaults each time.
#pragma once
#include "core/score.h"

#include <string_view>

namespace zarn
{
/// Any sort, with its lA and lB. A NEWLINE drops what a mark sign has saved.
void CurrentSymbol_Set(int32_t sort, int32_t lA = 0, int32_t lB = 0);
/// A NOTE of volume 64 and a REST, of lDuration ticks. A duration above 192 gets a message and stands.
void CurrentSymbol_SetNote(int32_t lDuration);
void CurrentSymbol_SetRest(int32_t lDuration);
/// The length alone, with the same message; any other symbol than a NOTE or a REST becomes a NOTE.
void CurrentSymbol_SetDuration(int32_t lDuration);

/// The kinds of text that a user writes; the values are those of the Text menu.
enum WritingType : int32_t
{
    WRITE_TITLE = 0,
    WRITE_LYRIC = 1,
    WRITE_HARMONY = 2,
    WRITE_TEXT = 3,
    WRITE_ANNOTATION = 4
};

/// A text of that type with the type's first words, such as "Am7". Any other type gets a message, and a symbol without
/// a sort.
void CurrentSymbol_SetWriting(int32_t lType);
/// The title of the dialog that asks for such a text; of another type, one that says so.
[[nodiscard]] char const* Writing_Title(int32_t lType);
/// The text of the current symbol, cut at 1000 bytes: its length goes into lA, and is added to storage, which never
/// comes to more than elCurrent has room for. Behind CurrentSymbol_SetWriting, that is.
void CurrentSymbol_SetText(std::string_view sText);
} // namespace zarn
