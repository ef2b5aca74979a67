/// A box that nobody sees: its texts, and its buttons for a test to press.
#pragma once
#include "platform/user.h"

#include <functional>
#include <utility>

namespace zarn
{
class HeadlessDialog : public Dialog
{
public:
    HeadlessDialog(Form form, std::function<void(int32_t lCommand)> onCommand, HeadlessDialog** ppOpen)
        : form(std::move(form)), onCommand(std::move(onCommand)), ppOpen(ppOpen)
    {
        *ppOpen = this;
    }
    ~HeadlessDialog() override { *ppOpen = nullptr; }
    void SetText(int32_t lId, std::string_view sText) override
    {
        if (FormControl* const pControl = form.Find(lId))
            pControl->sLabel = sText;
    }
    void Press(int32_t lCommand) { onCommand(lCommand); }

    Form form;

private:
    std::function<void(int32_t lCommand)> onCommand;
    HeadlessDialog** ppOpen;
};
} // namespace zarn
