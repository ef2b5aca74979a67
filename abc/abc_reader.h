/// Reading one tune of an ABC text file (ABC 2.1, in this reader's own forgiving manner) into the Score.
#pragma once
#include "platform/files.h"
#include "platform/user.h"

#include <cstdint>
#include <string>

namespace zarn
{
/// Asks for the tune, resets the reader, reads it in, balances repeats. 0 when the user cancelled or the file's X:
/// numbers are sick; the tune's number + 1 when the file has several tunes; the bitwise complement of it when it has
/// one.
int32_t ReadAbc(HFILE hFile, HWND hwnd, std::string* psTitle);
/// The same without asking: the tune of that X: number.
int32_t ReadAbcNumbered(HFILE hFile, int32_t lNumber, std::string* psTitle);

/// The listing is written in the current directory and opened in the user's editor when it holds complaints; off, the
/// complaints are messages instead. Set by the command line. Main thread.
inline bool bAbcListing = true;

/// One complaint, with its place in the file.
struct AbcComplaint
{
    int32_t lLine = 0;   ///< from 1
    int32_t lColumn = 0; ///< from 1
    std::string sText;
};
/// Called with each complaint as it is made; null for nobody.
inline void (*pOnAbcComplaint)(AbcComplaint const& complaint) = nullptr;
} // namespace zarn
