/// Drawing without a window: what a score comes to, as a list of drawing calls.
#pragma once
#include "core/element.h"
#include "support/scripted_process.h"

#include <string>
#include <string_view>

namespace zarn::test
{
/// A process whose drawing area is 1200 by 800 pixels.
class DrawingProcess : public ScriptedProcess
{
public:
    DrawingProcess();
    ~DrawingProcess();
};

/// Folds the staffs as they stand and draws them, a line for each drawing call.
std::string Drawn();
/// The same as on paper of that size, hair lines as on the screen.
std::string DrawnPage();
/// One symbol by itself.
std::string DrawnSymbol(Element* pel, int32_t lClef, bool bCursor);

/// How many lines begin with a word.
int32_t Count(std::string_view sLines, std::string_view sWord);

/// Compares with tests/golden/NAME.txt; writes it instead when ZARN_WRITE_GOLDENS is set.
void ExpectGolden(std::string const& sName, std::string const& sActual);
} // namespace zarn::test
