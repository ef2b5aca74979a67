/// What a conversion tells its user: one line each, on standard error.
#pragma once
#include "abc/abc_reader.h"
#include "platform/headless/script_host.h"

#include <string>
#include <string_view>

namespace zarn
{
/// The file that messages are about; it stands ahead of each. Set by whoever reads or writes one. Main thread.
inline std::string szTerminalFile;
/// Errors only.
inline bool bTerminalQuiet = false;
/// Errors and complaints told so far.
inline int32_t cTerminalErrors = 0;
inline int32_t cTerminalComplaints = 0;

/// An error about the file in hand: "zarn: FILE: TEXT".
void Terminal_Error(std::string_view sText);
/// Something the user may want to know; not told when quiet.
void Terminal_Note(std::string_view sText);
/// A message box of the headless host, or a question with its answer.
void Terminal_Shown(Shown const& shown);
/// How far a long run has come, in per cent on a line that the next step writes over; the last step clears it.
void Terminal_Progress(int32_t lDone, int32_t lTotal);
/// A complaint of the ABC reader: "FILE:LINE:COLUMN: TEXT".
void Terminal_Complaint(AbcComplaint const& complaint);
} // namespace zarn
