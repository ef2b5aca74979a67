// Every question's answer is written in the form in which a replay will take it.
#include "platform/journal_host.h"

namespace zarn
{
void JournalHost::Receive(Event const& event)
{
    if (event.kind == EventKind::MIDI)
        WriteTick();
    journal.BeginEvent(event);
    program.Receive(event);
    journal.EndEvent();
}

/// The time that has passed: a take is followed by its times.
void JournalHost::WriteTick()
{
    uint32_t const lNowMs = real.TickCount();
    journal.BeginEvent({.kind = EventKind::TICK, .lNumber = static_cast<int32_t>((lNowMs - lToldMs) & INT32_MAX)});
    journal.EndEvent();
    lToldMs = lNowMs;
}

int32_t JournalHost::MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags)
{
    int32_t const lId = real.MessageBox(sText, sCaption, lFlags);
    if ((lFlags & MB_BUTTONS) != MB_OK)
        journal.WriteAnswer(Box_Answer(lId));
    return lId;
}

int32_t JournalHost::RunForm(Form& form)
{
    int32_t const lButton = real.RunForm(form);
    if (lButton != 0)
        journal.WriteAnswer(Form_Answer(form, lButton));
    return lButton;
}

int32_t JournalHost::PopupMenu(std::vector<MenuItem> const& aMenu, POINT place)
{
    int32_t const lCommand = real.PopupMenu(aMenu, place);
    journal.WriteAnswer(lCommand ? Answer{.kind = Answer::NUMBER, .lNumber = lCommand}
                                 : Answer{.kind = Answer::CANCEL});
    return lCommand;
}

int32_t JournalHost::ShowPages(PageSource& pages)
{
    int32_t const lButton = real.ShowPages(pages);
    journal.WriteAnswer(Box_Answer(lButton));
    return lButton;
}

bool JournalHost::AskOpenName(FileDialog& dialog)
{
    int32_t const lFilter = dialog.lFilter;
    return WriteName(dialog, lFilter, real.AskOpenName(dialog));
}

bool JournalHost::AskSaveName(FileDialog& dialog)
{
    int32_t const lFilter = dialog.lFilter;
    return WriteName(dialog, lFilter, real.AskSaveName(dialog));
}

bool JournalHost::WriteName(FileDialog const& dialog, int32_t lFilterBefore, bool bGiven)
{
    if (!bGiven)
    {
        journal.WriteAnswer({.kind = Answer::CANCEL});
        return false;
    }
    if (dialog.lFilter != lFilterBefore)
        journal.WriteAnswer({.kind = Answer::ROW, .lNumber = dialog.lFilter - 1});
    journal.WriteAnswer({.kind = Answer::TEXT, .sText = dialog.szFile});
    return true;
}
} // namespace zarn
