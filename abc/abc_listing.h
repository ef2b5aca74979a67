/// The reader's complaints: in the listing zarn.lst, and to whoever asked for them.
#pragma once
#include "abc/abc_lines.h"

#include <string_view>

namespace zarn
{
/// Something was written to the listing, at some time in this process.
inline bool bAbcLogged = false;

/// Begins the complaints of one read: creates the listing in the current directory, when bAbcListing is on.
void AbcListing_Open();
/// Copies a line of the tune to the listing, so that each complaint follows the line that it belongs to.
void AbcListing_Copy(AbcLine const& line);
/// Ends them. bShow starts the user's editor on the listing when bAbcLogged.
void AbcListing_Close(bool bShow);

/// Says where in the file the next complaint belongs.
void AbcPlace(AbcLine const& line, int32_t i);
/// One complaint.
void AbcLog(std::string_view sText);
} // namespace zarn
