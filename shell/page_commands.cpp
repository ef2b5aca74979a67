// Commands on the page. The arithmetic is the layout's; here stand the labels, and what follows each.
#include "shell/page_commands.h"

#include "core/messages.h"
#include "core/settings.h"
#include "core/text.h"
#include "layout/adjust.h"
#include "layout/clean_up.h"
#include "layout/spacing.h"
#include "platform/registry.h"
#include "render/font.h"
#include "render/geometry.h"
#include "shell/command_numbers.h"
#include "shell/menu.h"
#include "shell/number_prompt.h"

namespace zarn
{
namespace
{
/// A number of the page that the user sets and the settings keep.
struct PageSetting
{
    int32_t lCommand;
    char const* sLabel;
    int32_t lAtStart; ///< when none is stored
    int32_t lOffered; ///< by the prompt, when none is stored
};
constexpr PageSetting legersAbove{COMMAND_LEGERSABOVE, "Leger notes above staff...", 8, 8};
constexpr PageSetting legersBelow{COMMAND_LEGERSBELOW, "Leger notes below staff...", 8, 8};
constexpr PageSetting systemGap{COMMAND_SYSTEMGAP, "Extra between systems...", 0, 5};
constexpr PageSetting leftMargin{COMMAND_LEFTMARGIN, "Left margin percent...", 0, 0};
constexpr PageSetting rightMargin{COMMAND_RIGHTMARGIN, "Right margin percent...", 0, 0};
constexpr PageSetting topMargin{COMMAND_TOPMARGIN, "Top margin percent...", 0, 0};
constexpr PageSetting bottomMargin{COMMAND_BOTTOMMARGIN, "Bottom margin percent...", 0, 0};
constexpr int32_t lFontScaleOffered = 100; ///< per cent

int32_t Ask(PageSetting const& setting)
{
    return NumberPrompt(hwndMain, setting.sLabel, setting.lCommand, setting.lOffered);
}

int32_t AtStart(PageSetting const& setting)
{
    return NumberPromptInit(setting.sLabel, setting.lCommand, setting.lAtStart);
}

void Repaint() { InvalidateRect(hwndMain); }

/// The text font follows the units that a spacing command has set.
void RenewFontAndRepaint()
{
    Font_Renew();
    Repaint();
}

void AskMargin(PageSetting const& setting, void (*pSet)(int32_t lPerCent))
{
    pSet(Ask(setting));
    SetWindowUnits(GetClientRect(hwndMain));
    Font_Renew();
    MiniAdjustCommand();
}
} // namespace

void FullAdjustCommand()
{
    FullAdjust();
    Repaint();
}

void MiniAdjustCommand()
{
    MiniAdjust();
    Repaint();
}

void RemoveSpuriousCommand()
{
    RemoveSpuriousAccidentals();
    MiniAdjustCommand();
}

void RemoveNewlinesCommand()
{
    RemoveAllNewlines();
    MiniAdjustCommand();
}

void StretchHorizCommand()
{
    Stretch_Horiz();
    RenewFontAndRepaint();
}

void SqueezeHorizCommand()
{
    Squeeze_Horiz();
    RenewFontAndRepaint();
}

void StretchVertCommand()
{
    Stretch_Vert();
    RenewFontAndRepaint();
}

void SqueezeVertCommand()
{
    Squeeze_Vert();
    RenewFontAndRepaint();
}

void ResetSpacingCommand()
{
    Spacing_Reset();
    RenewFontAndRepaint();
}

void StoreSpacing() { Spacing_SaveAsDefault(); }

void AskLegersAbove()
{
    Legers_SetAbove(Ask(legersAbove));
    Repaint();
}

void AskLegersBelow()
{
    Legers_SetBelow(Ask(legersBelow));
    Repaint();
}

void AskSystemGap()
{
    Systems_SetGap(Ask(systemGap));
    Repaint();
}

void AskLeftMargin() { AskMargin(leftMargin, Margin_SetLeft); }

void AskRightMargin() { AskMargin(rightMargin, Margin_SetRight); }

void AskTopMargin() { AskMargin(topMargin, Margin_SetTop); }

void AskBottomMargin() { AskMargin(bottomMargin, Margin_SetBottom); }

void AskFontScale()
{
    lFontScale = NumberPrompt(hwndMain, "Font size scaling factor...", COMMAND_FONTSCALE, lFontScaleOffered);
    Font_Renew();
    if (!Font_Make())
        Serious("Could not get font.  Tell Odrian");
    MiniAdjustCommand();
}

void LoadPageSettings()
{
    lMarginLeft = AtStart(leftMargin);
    lMarginRight = AtStart(rightMargin);
    lMarginTop = AtStart(topMargin);
    lMarginBottom = AtStart(bottomMargin);
    Legers_SetAbove(AtStart(legersAbove));
    Legers_SetBelow(AtStart(legersBelow));
    Systems_SetGap(AtStart(systemGap));
    int32_t lStored = 0;
    if (LoadSetting(&lStored, "Font size scaling factor") == ERROR_SUCCESS)
        SetMenuText(COMMAND_FONTSCALE, Format("Font size scaling factor (%d%%)... ", lStored));
}
} // namespace zarn
