/// The Edit menu, and the commands that change the score as a whole.
#pragma once
#include <cstdint>

namespace zarn
{
void UndoCommand();
void CutCommand();
void CopyCommand();
void PasteCommand();
void DuplicateCommand(); ///< The marked section once more, at the pointer.
void MarkBeginCommand();
void MarkEndCommand();
void ClearMarkCommand();
void SlurMarkCommand();
void TransposeMarkCommand(int32_t lSemitones);
void TransposeAllCommand(int32_t lSemitones);
void InsertPointCommand(); ///< The insert point goes to the pointer.

/// Cut and Copy become possible, or grey.
void EnableCutAndCopy(bool bOn);
} // namespace zarn
