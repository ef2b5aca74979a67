// Formatting and the trace channel.
#include "core/text.h"

#include <cstdarg>
#include <cstdio>

namespace zarn
{
std::string Format(char const* sFormat, ...)
{
    va_list args;
    va_start(args, sFormat);
    va_list argsAgain;
    va_copy(argsAgain, args);
    int const cch = std::vsnprintf(nullptr, 0, sFormat, args);
    va_end(args);
    std::string s(cch > 0 ? static_cast<size_t>(cch) : 0, '\0');
    if (cch > 0)
        std::vsnprintf(s.data(), s.size() + 1, sFormat, argsAgain);
    va_end(argsAgain);
    return s;
}

void DebugLog(std::string_view sText)
{
    if (pDebugLogSink)
        pDebugLogSink(sText);
}
} // namespace zarn
