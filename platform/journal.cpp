// One table tells how each event reads; keys, scrolling and paths have words of their own.
#include "platform/journal.h"

#include "platform/decimal.h"
#include "platform/utf8.h"

#include <algorithm>
#include <iterator>

namespace zarn
{
namespace
{
/// An event that is its name and some numbers: one is lNumber, two are x and y, three lNumber, x and y.
struct EventForm
{
    std::string_view sName;
    EventKind kind;
    int32_t cNumbers;
    int32_t lLeast; ///< of its numbers
    int32_t lMost;
};
constexpr EventForm aForms[] = {
    {"size", EventKind::SIZE, 2, 1, INT32_MAX},
    {"command", EventKind::COMMAND, 1, 0, INT32_MAX},
    {"move", EventKind::MOVE, 2, INT32_MIN, INT32_MAX},
    {"left down", EventKind::LEFTDOWN, 2, INT32_MIN, INT32_MAX},
    {"left up", EventKind::LEFTUP, 2, INT32_MIN, INT32_MAX},
    {"right down", EventKind::RIGHTDOWN, 2, INT32_MIN, INT32_MAX},
    {"right up", EventKind::RIGHTUP, 2, INT32_MIN, INT32_MAX},
    {"palette", EventKind::PALETTE, 2, INT32_MIN, INT32_MAX},
    {"piano", EventKind::PIANO, 2, INT32_MIN, INT32_MAX},
    {"tick", EventKind::TICK, 1, 0, INT32_MAX},
    {"midi", EventKind::MIDI, 3, 0, 255},
    {"close", EventKind::CLOSE, 0, 0, 0},
};

constexpr std::string_view aScrolls[] = {"lineup", "linedown", "pageup", "pagedown", "thumb", "stretch", "squeeze"};
static_assert(std::size(aScrolls) == static_cast<size_t>(ScrollAction::SQUEEZE) + 1);

constexpr std::string_view aKeys[] = {
    "left", "right", "up", "down", "home", "end", "pageup", "pagedown", "enter", "esc", "space", "backspace", "delete",
    "tab",  "f1",    "f2", "f3",   "f4",   "f5",  "f6",     "f7",       "f8",    "f9",  "f10",   "f11",       "f12"};

using Words = std::vector<std::string_view>;

Words Split(std::string_view sLine)
{
    Words aWords;
    for (size_t l = 0; l < sLine.size();)
    {
        size_t const lEnd = std::min(sLine.find_first_of(" \t", l), sLine.size());
        if (lEnd > l)
            aWords.push_back(sLine.substr(l, lEnd - l));
        l = lEnd + 1;
    }
    return aWords;
}

/// A known name, a digit, a small letter, or one sign.
bool IsKeyName(std::string_view sName)
{
    size_t lAt = 0;
    int32_t const lSign = Utf8_Next(sName, lAt);
    bool const bOneSign = lSign > ' ' && lAt == sName.size() && !IsControlCharacter(lSign);
    bool const bCapital = lSign >= 'A' && lSign <= 'Z'; // that is a letter with shift
    return (bOneSign && !bCapital) || std::find(std::begin(aKeys), std::end(aKeys), sName) != std::end(aKeys);
}

std::optional<Event> ParseKey(Words const& aWords)
{
    if (aWords.size() < 2 || !IsKeyName(aWords[1]))
        return std::nullopt;
    Event event{.kind = EventKind::KEY, .sText = std::string(aWords[1])};
    for (size_t l = 2; l < aWords.size(); ++l)
    {
        bool* const pFlag = aWords[l] == "shift"  ? &event.fShift
                            : aWords[l] == "ctrl" ? &event.fCtrl
                            : aWords[l] == "alt"  ? &event.fAlt
                                                  : nullptr;
        if (!pFlag)
            return std::nullopt;
        *pFlag = true;
    }
    return event;
}

std::optional<Event> ParseScroll(Words const& aWords)
{
    if (aWords.size() < 2)
        return std::nullopt;
    auto const found = std::find(std::begin(aScrolls), std::end(aScrolls), aWords[1]);
    Event event{.kind = EventKind::SCROLL, .lNumber = static_cast<int32_t>(found - std::begin(aScrolls))};
    if (found == std::end(aScrolls))
        return std::nullopt;
    if (event.lNumber != static_cast<int32_t>(ScrollAction::THUMB))
        return aWords.size() == 2 ? std::optional(event) : std::nullopt;
    return aWords.size() == 3 && ParseDecimal(aWords[2], event.x) ? std::optional(event) : std::nullopt;
}

std::optional<Event> ParseNumbers(EventForm const& form, Words const& aWords, size_t lFirst)
{
    Event event{.kind = form.kind};
    int32_t* const aNumbers[][3] = {{}, {&event.lNumber}, {&event.x, &event.y}, {&event.lNumber, &event.x, &event.y}};
    if (aWords.size() != lFirst + static_cast<size_t>(form.cNumbers))
        return std::nullopt;
    for (int32_t l = 0; l < form.cNumbers; ++l)
    {
        int32_t& lNumber = *aNumbers[form.cNumbers][l];
        if (!ParseDecimal(aWords[lFirst + static_cast<size_t>(l)], lNumber) || lNumber < form.lLeast ||
            lNumber > form.lMost)
            return std::nullopt;
    }
    return event;
}

std::optional<Event> ParseEvent(Words const& aWords, std::string_view sRest)
{
    if (aWords[0] == "open")
        return sRest.empty() ? std::nullopt
                             : std::optional(Event{.kind = EventKind::OPEN, .sText = Text_Unescape(sRest)});
    if (aWords[0] == "key")
        return ParseKey(aWords);
    if (aWords[0] == "scroll")
        return ParseScroll(aWords);
    for (EventForm const& form : aForms)
    {
        size_t const lBlank = form.sName.find(' ');
        if (aWords[0] != form.sName.substr(0, lBlank))
            continue;
        if (lBlank == form.sName.npos)
            return ParseNumbers(form, aWords, 1);
        if (aWords.size() > 1 && aWords[1] == form.sName.substr(lBlank + 1))
            return ParseNumbers(form, aWords, 2);
    }
    return std::nullopt;
}
} // namespace

std::optional<JournalLine> Journal_ParseLine(std::string_view sLine)
{
    sLine.remove_prefix(std::min(sLine.find_first_not_of(" \t"), sLine.size()));
    Words const aWords = Split(sLine);
    if (aWords.empty() || sLine.front() == '#')
        return JournalLine{};
    // A text keeps every blank but the one that parts it from its word.
    std::string_view const sRest = sLine.substr(std::min(aWords[0].size() + 1, sLine.size()));
    JournalLine line;
    if (aWords[0] == "expect")
    {
        line.kind = JournalLine::EXPECT;
        line.sExpected = Text_Unescape(sRest);
        return line;
    }
    if (aWords[0] == "answer")
    {
        std::optional<Answer> answer = Answer_Parse(sRest.substr(std::min(sRest.find_first_not_of(' '), sRest.size())));
        line.kind = JournalLine::ANSWER;
        line.answer = answer.value_or(Answer{});
        return answer ? std::optional(line) : std::nullopt;
    }
    std::optional<Event> event = ParseEvent(aWords, sRest);
    line.kind = JournalLine::EVENT;
    line.event = event.value_or(Event{});
    return event ? std::optional(line) : std::nullopt;
}

std::vector<JournalLine> Journal_Parse(std::string_view sJournal, std::vector<std::string>& aComplaints)
{
    std::vector<JournalLine> aLines;
    int64_t lLine = 0;
    while (!sJournal.empty())
    {
        ++lLine;
        size_t const lEnd = std::min(sJournal.find('\n'), sJournal.size());
        std::string_view sLine = sJournal.substr(0, lEnd);
        if (sLine.ends_with('\r'))
            sLine.remove_suffix(1);
        sJournal.remove_prefix(std::min(lEnd + 1, sJournal.size()));
        std::optional<JournalLine> line = Journal_ParseLine(sLine);
        if (!line)
            aComplaints.push_back("Line " + std::to_string(lLine) +
                                  " of the journal can't be read: " + Text_OneLine(sLine));
        else if (line->kind != JournalLine::NOTHING)
            aLines.push_back(std::move(*line));
    }
    return aLines;
}

std::string Event_Format(Event const& event)
{
    switch (event.kind)
    {
    case EventKind::OPEN:
        return "open " + Text_Escape(event.sText);
    case EventKind::KEY:
        return "key " + event.sText + (event.fShift ? " shift" : "") + (event.fCtrl ? " ctrl" : "") +
               (event.fAlt ? " alt" : "");
    case EventKind::SCROLL:
    {
        size_t const lAction = static_cast<size_t>(event.lNumber);
        std::string const sAction(lAction < std::size(aScrolls) ? aScrolls[lAction] : aScrolls[0]);
        bool const bThumb = event.lNumber == static_cast<int32_t>(ScrollAction::THUMB);
        return "scroll " + sAction + (bThumb ? ' ' + std::to_string(event.x) : std::string());
    }
    default:
        break;
    }
    auto const form = std::find_if(std::begin(aForms), std::end(aForms),
                                   [&](EventForm const& known) { return known.kind == event.kind; });
    std::string s(form->sName);
    if (form->cNumbers == 1 || form->cNumbers == 3)
        s += ' ' + std::to_string(event.lNumber);
    if (form->cNumbers >= 2)
        s += ' ' + std::to_string(event.x) + ' ' + std::to_string(event.y);
    return s;
}

std::string Journal_Format(JournalLine const& line)
{
    switch (line.kind)
    {
    case JournalLine::EVENT:
        return Event_Format(line.event);
    case JournalLine::ANSWER:
        return "answer " + Answer_Format(line.answer);
    case JournalLine::EXPECT:
        return "expect " + Text_Escape(line.sExpected);
    case JournalLine::NOTHING:
        break;
    }
    return {};
}
} // namespace zarn
