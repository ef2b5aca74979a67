/// Writing the Score in hand into a file, by the file's ending.
#pragma once
#include "platform/desktop_module.h"

#include <cstdint>
#include <string>

namespace zarn
{
struct ExportFormat
{
    int32_t lWidth = 1200; ///< the drawing area in pixels: pictures are pages of this size
    int32_t lHeight = 800;
    int32_t lPage = 0;      ///< from 1; 0 is all pages
    int32_t lDpi = 96;      ///< of a .png
    std::string sTitle;     ///< of a .pdf
    int32_t lTune = -1;     ///< the X: number of an .abc; -1 for none
    bool bExchange = false; ///< of a .mid: notes at their written lengths, not as they are played
};

/// Where PDF and PNG documents come from: the desktop module, loaded when one is asked for. Null when it can't be had.
using DocumentMaker = DesktopHost* (*)();

/// Writes the Score to szPath as .zrn, .abc, .mid, .wav, .pdf, .svg or .png, or its tablature, which must be shown, as
/// .tab or .txt. A file that was there stays whole unless the new one is complete. False when it could not be done; the
/// user has been told. A .png of several pages has the further ones beside it, as name-2.png and so on.
[[nodiscard]] bool Export_Write(std::string const& szPath, ExportFormat const& format, DocumentMaker pMaker);
} // namespace zarn
