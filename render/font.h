/// The score's text font.
#pragma once
#include "platform/gdi.h"

namespace zarn
{
inline int32_t lFontScale = -1; ///< per cent of the grid's units; -1 until a setting or a command gives one

/// Makes the font when there is none, from the setting where there is one. False when the platform has none to give.
bool Font_Make();
/// The same, and selects it.
void Font_Select(HDC hdc);
/// Forgets the font, so that the next Font_Select makes one for the units now in force.
void Font_Renew();

/// While pages are drawn the font for their units stands in the place of the screen's, which is put aside.
void Font_BeginPrint();
void Font_EndPrint();
/// Frees the fonts. At exit.
void Font_Free();
} // namespace zarn
