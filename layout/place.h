/// Cross-staff placement: the column of every element of every visible staff on one shared axis.
#pragma once
#include "core/score.h"

namespace zarn
{
/// Places all visible staffs, ending with ReGrid.
void Place();
/// Folds lStrX and lDiaPitch of every element of every visible staff into lX and lY, under the clef in force.
void ReGrid();
} // namespace zarn
