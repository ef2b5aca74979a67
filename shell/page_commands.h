/// The commands that change how the score lies on the page: adjusts, clean-ups, spacing, margins and the font.
#pragma once

namespace zarn
{
void FullAdjustCommand();
void MiniAdjustCommand();
void RemoveSpuriousCommand();
void RemoveNewlinesCommand();

void StretchHorizCommand();
void SqueezeHorizCommand();
void StretchVertCommand();
void SqueezeVertCommand();
void ResetSpacingCommand();
void StoreSpacing();

void AskLegersAbove();
void AskLegersBelow();
void AskSystemGap();
void AskLeftMargin();
void AskRightMargin();
void AskTopMargin();
void AskBottomMargin();
void AskFontScale();

/// At the making of the main window: the stored margins, leger rows and gap, or their defaults, and the menu texts.
void LoadPageSettings();
} // namespace zarn
