/// The main menu: its table, and what the program changes in it while it runs.
#pragma once
#include "platform/user.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace zarn
{
/// The table, from which the host makes the real menu. Process-wide, never changed.
[[nodiscard]] std::vector<MenuItem> const& MainMenu();

/// Gives the main window its menu; the items that start grey are grey again.
void Menu_Attach();
void Menu_Check(int32_t lCommand, bool bOn);
void Menu_Enable(int32_t lCommand, bool bOn);
/// A grey command can be reached neither by its menu item nor by its key.
[[nodiscard]] bool Menu_IsGrey(int32_t lCommand);
/// Replaces an item's text.
void SetMenuText(int32_t lCommand, std::string_view sText);
} // namespace zarn
