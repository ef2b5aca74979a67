/// Writing a journal while the program runs.
#pragma once
#include "platform/answer.h"
#include "platform/event.h"

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace zarn
{
/// Each event is on its way to the disk before the program handles it, so that a crash leaves its cause behind. An
/// answer given while an event is handled is put ahead of that event's line. Main thread.
class JournalWriter
{
public:
    /// False when the file can't be made. What it held before is gone.
    [[nodiscard]] bool Open(std::string_view szPath);
    /// Around the handling of each event. One that comes while another is handled is written behind it.
    void BeginEvent(Event const& event);
    void EndEvent() { --lDepth; }
    void WriteAnswer(Answer const& answer);
    [[nodiscard]] bool HasFailed() const { return !file; } ///< a write failed: the journal isn't whole

private:
    void WriteTail(std::string const& sAhead);

    std::fstream file;
    int32_t lDepth = 0;
    std::streamoff lTail = 0; ///< where the event being handled stands in the file
    std::string sTail;        ///< its line, and those of events that came meanwhile
};
} // namespace zarn
