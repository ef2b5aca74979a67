// The journal's file only grows: an answer ahead of an event rewrites the event's line behind it.
#include "platform/journal_writer.h"

#include "platform/journal.h"

#include <filesystem>

namespace zarn
{
bool JournalWriter::Open(std::string_view szPath)
{
    std::u8string const szUtf8(szPath.begin(), szPath.end());
    file.open(std::filesystem::path(szUtf8), std::ios::in | std::ios::out | std::ios::binary | std::ios::trunc);
    return file.is_open();
}

void JournalWriter::BeginEvent(Event const& event)
{
    std::string const sLine = Event_Format(event) + '\n';
    if (lDepth++ == 0)
    {
        lTail += static_cast<std::streamoff>(sTail.size());
        sTail = sLine;
    }
    else
        sTail += sLine;
    WriteTail({});
}

void JournalWriter::WriteAnswer(Answer const& answer)
{
    std::string const sLine = "answer " + Answer_Format(answer) + '\n';
    WriteTail(sLine);
    lTail += static_cast<std::streamoff>(sLine.size());
}

void JournalWriter::WriteTail(std::string const& sAhead)
{
    std::string const sBytes = sAhead + sTail;
    file.seekp(lTail);
    file.write(sBytes.data(), static_cast<std::streamsize>(sBytes.size()));
    file.flush();
}
} // namespace zarn
