// The widths of the symbols: fixed by sort, but for notes, keys, texts and whatever fills up its line.
#include "layout/element_width.h"

#include "core/score.h"
#include "core/text.h"
#include "platform/font_metrics.h"
#include "render/geometry.h"

#include <algorithm>
#include <cstdlib>

namespace zarn
{
constexpr int32_t lTextWidening = 130; ///< per cent of the measured width

int32_t TextColumns(std::string_view sText)
{
    int64_t const lPixels = MulDiv(LayoutTextPixels(sText), lTextWidening, 100);
    return Clamp32((xunit + lPixels - 1) / xunit + 1);
}

static int32_t NoteWidth(Element const* pel)
{
    int32_t const lBase = BaseDuration(pel->lDuration);
    int32_t lWidth = lBase < 25 ? 2 : lBase <= 48 ? 3 : lBase <= 96 ? 4 : 5;
    if (IsDotted(pel->lDuration))
        lWidth += 2;
    else if ((pel->beam == BEAM_NONE || pel->beam == BEAM_LAST) && pel->up)
        lWidth += 1; // room for the flag
    if (bTabShowing)
        lWidth = std::max(lWidth, TextColumns(Format("%d", pel->lFret)));
    return lWidth;
}

/// The new signs, and the naturals of the old ones. It isn't symmetric: two sharps to three take 7, three to two 5.
static int32_t KeyWidth(int64_t lKey, int64_t lOldKey)
{
    int64_t const lSigns = std::abs(lKey);
    int64_t const lOldSigns = std::abs(lOldKey);
    bool const bOpposite = (lKey >= 0 && lOldKey < 0) || (lKey <= 0 && lOldKey > 0);
    if (bOpposite)
        return Clamp32(lSigns + lOldSigns + 3);
    bool const bMoreSigns = lOldKey != 0 && lSigns > lOldSigns;
    return Clamp32(lSigns + 3 + (bMoreSigns ? lSigns - lOldSigns : 0));
}

int32_t Element_Width(Element const* pel)
{
    switch (pel->sort)
    {
    case NOTE:
        return NoteWidth(pel);
    case BAR:
    case DOUBLEBAR:
        return 3;
    case CLEF:
        return 6;
    case KEYSIG:
        return KeyWidth(pel->lA, pel->lB);
    case REST:
        return pel->lDuration < 25 ? 2 : pel->lDuration < 49 ? 3 : pel->lDuration <= 96 ? 4 : 5;
    case NEWLINE:
        return Clamp32(int64_t{NextLine(pel->lStrX)} - pel->lStrX);
    case SHARP:
    case FLAT:
    case NATURAL:
    case ARPEGSTART:
    case ARPEGEND:
        return 2;
    case TIMESIG:
    case REPEATSTART:
    case REPEATEND:
        return 4;
    case SPACE:
    case TIE:
    case REPEATFIRST:
        return 1;
    case CHORD:
    case LYRICS:
    case TEXT:
        return TextColumns(Element_Text(pel));
    case INSTRUMENT:
    case TEMPO:
    case TRANSPOSE:
        return bPrinting && !bShowLayout ? 0 : 5;
    case TITLE:
    case ANNOT:
    case SLUR:
    case BOWING:
        return 0;
    default:
        return 5;
    }
}
} // namespace zarn
