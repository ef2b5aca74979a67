/// The tunes that a conversion is about.
#pragma once
#include "app/options.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zarn
{
struct Tune
{
    int32_t lNumber = -1; ///< the X: number; -1 is whatever the file holds first
    std::string sTitle;
};

/// What the options ask for in this file: one tune, or all that have a number of their own. Nothing, with the user
/// told, when the file has no such tune or can't be opened.
[[nodiscard]] std::optional<std::vector<Tune>> Tunes_Wanted(std::string const& szPath, Options const& options);

/// book.pdf, tune 12 "Soldier's Joy": book-12-Soldier's Joy.pdf. Characters that no file name may hold become "_".
[[nodiscard]] std::string Tune_OutputPath(std::string const& szOutput, Tune const& tune);
} // namespace zarn
