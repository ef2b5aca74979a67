/// The mouse over the score.
#pragma once
#include "platform/user.h"

namespace zarn
{
void Mouse_Begin();            ///< At the start of the program: no button is down.
void Mouse_Moved(POINT place); ///< client pixels, in all of them
void Mouse_LeftDown(POINT place);
void Mouse_LeftUp(POINT place);
void Mouse_RightDown(POINT place);
void Mouse_RightUp(POINT place);
} // namespace zarn
