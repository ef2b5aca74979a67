/// What the palette and the piano share: which of them shows, and the size of the one that was painted or hit last.
#pragma once
#include <cstdint>

namespace zarn
{
/// Written by the shell, main thread; the palette shows as soon as it is made.
inline bool bPaletteShowing = false;
inline bool bPianoShowing = false;

/// Pixels of the panel at work; each takes its own before it paints or hits.
inline int32_t lPanelWidth = 0;
inline int32_t lPanelHeight = 0;
} // namespace zarn
