/// The file dialogs. Main thread.
#pragma once
#include "platform/user.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zarn
{
struct FileFilter
{
    char const* sLabel;    ///< "ABC files"
    char const* sPatterns; ///< "*.abc;*.ABC"
};

struct FileDialog
{
    char const* sTitle = "";
    char const* sDefaultExtension = ".zrn";
    std::vector<FileFilter> aFilters = {};
    int32_t lFilter = 1;       ///< in and out, from 1
    std::string szFile = {};   ///< in and out
    std::string szFolder = {}; ///< where it starts while szFile is empty; empty: in the current folder
};

[[nodiscard]] bool GetOpenFileNameA(HWND hwnd, FileDialog& dialog); ///< false when the user cancelled
/// The same; a name that comes back without an extension gets the default one.
[[nodiscard]] bool GetSaveFileNameA(HWND hwnd, FileDialog& dialog);
} // namespace zarn
