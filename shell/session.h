/// Safety copies of unsaved work: made every two minutes, gone when the work is saved or given up, and offered at the
/// next start when the program came to a bad end.
///
/// They lie in the folder that the host names. Without one there are none, and nothing here does anything but
/// Unsaved_Show.
#pragma once

namespace zarn
{
void Session_Begin(); ///< Takes a place in the folder, and starts the timer.
void Session_End();   ///< An orderly end: the copy goes.

/// Copies the score, when it is unsaved and has changed since the last copy. The score itself stays as it is. The user
/// is told once when it fails.
void Session_Copy();

/// Asks about the work of each session that ended badly, the latest first, until one is brought back: it becomes the
/// score in hand, unsaved, under its old name. Copies of programs that still run are passed over. True when one came
/// back.
[[nodiscard]] bool Session_OfferLost();

/// After whatever may have changed the score: the mark of unsaved work, and no copy of what is saved.
void Unsaved_Show();
} // namespace zarn
