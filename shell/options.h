/// The options: flags that are on or off, each with a check mark in the menu.
#pragma once

namespace zarn
{
void ToggleKeepBars();       ///< Takes effect at the next adjust.
void ToggleShowInvisible();  ///< Repaints.
void ToggleBeamQuavers();    ///< Takes effect at the next adjust.
void ToggleArpeggioMarks();  ///< Mini adjust, repaint.
void ToggleRightJustified(); ///< Mini adjust, repaint.
void ToggleAdjustAlways();   ///< Full adjust and repaint when it comes on.
void ToggleChordsBelow();    ///< Stored; full adjust, repaint.
void ToggleCrlf();           ///< Stored.
void ToggleEditMode();       ///< A deleted symbol becomes the current one.
void ToggleClarinet();       ///< Either of these two turns the other off.
void ToggleGuitar();

/// Brings every check mark in line with its flag: at start, and whenever a score has come in.
void Options_ShowChecks();

/// The guard of every edit: in right-justified mode the user is asked to leave it, and whatever the answer the command
/// that asked is dropped. True when the command must stop.
[[nodiscard]] bool RefuseInRightJustified();
} // namespace zarn
