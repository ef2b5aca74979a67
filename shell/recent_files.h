/// The files that were in hand last, and the folder of the last one: remembered from one start to the next.
#pragma once
#include <cstdint>
#include <string>

namespace zarn
{
/// The file was opened or saved: it heads the list of the File menu, and its folder is where file dialogs start.
void Recent_Add(std::string const& szName);
/// The file can't be opened: it leaves the list.
void Recent_Forget(std::string const& szName);
void Recent_ShowMenu(); ///< Brings the menu in line with what is stored: at start.
/// The path that the menu shows under that number, 1 for the last file; empty where it shows none.
[[nodiscard]] std::string Recent_At(int32_t lNumber);
[[nodiscard]] std::string Recent_Folder(); ///< where file dialogs start; empty at first
} // namespace zarn
