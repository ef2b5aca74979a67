/// The journal: all that came from outside, as text, one event a line.
///
///     size W H                        move X Y          answer yes|no|cancel|ok|first|second
///     open PATH                       left down X Y     answer text TEXT...
///     command N                       left up X Y       answer number N
///     key NAME [shift] [ctrl] [alt]   right down X Y    answer row N
///     palette X Y                     right up X Y      answer form NAME=VALUE ... ok
///     piano X Y                       tick MS           expect TEXT...
///     scroll lineup|linedown|pageup|pagedown|stretch|squeeze|thumb N
///     midi STATUS DATA1 DATA2
///     close
///
/// UTF-8; words are parted by blanks; a line whose first sign is # is a comment. A path or text is the rest of the line
/// behind one blank, as it stands, with its line breaks and ambiguous backslashes written out (Text_Escape). An answer
/// stands ahead of the event that asks for it. Time is told only ahead of a message from the MIDI input.
#pragma once
#include "platform/answer.h"
#include "platform/event.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn
{
struct JournalLine
{
    enum Kind
    {
        NOTHING, ///< an empty line or a comment
        EVENT,
        ANSWER,
        EXPECT ///< the last message shown holds sExpected
    } kind = NOTHING;
    Event event = {};
    Answer answer = {};
    std::string sExpected = {};
    friend bool operator==(JournalLine const&, JournalLine const&) = default;
};

/// Nothing when the line can't be read.
[[nodiscard]] std::optional<JournalLine> Journal_ParseLine(std::string_view sLine);
/// A whole journal, without its comments. A line that can't be read is told in aComplaints with its number.
[[nodiscard]] std::vector<JournalLine> Journal_Parse(std::string_view sJournal, std::vector<std::string>& aComplaints);
/// The line, without a line break.
[[nodiscard]] std::string Event_Format(Event const& event);
[[nodiscard]] std::string Journal_Format(JournalLine const& line);
} // namespace zarn
