/// What the program does without a window.
#pragma once
#include "app/export.h"
#include "app/options.h"

namespace zarn
{
/// Exit statuses of the program.
constexpr int32_t lStatusGood = 0;
constexpr int32_t lStatusFailed = 1;
constexpr int32_t lStatusWrongWords = 2;

/// Each gives the exit status; the user has been told what went wrong.
[[nodiscard]] int32_t Task_Export(Options const& options, DocumentMaker pMaker);
[[nodiscard]] int32_t Task_Check(Options const& options);
[[nodiscard]] int32_t Task_Dump(Options const& options);
[[nodiscard]] int32_t Task_List(Options const& options);
[[nodiscard]] int32_t Task_Fingering(Options const& options);
[[nodiscard]] int32_t Task_Play(Options const& options);
[[nodiscard]] int32_t Task_Replay(Options const& options, DocumentMaker pMaker);
} // namespace zarn
