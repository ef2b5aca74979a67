// The listing and the complaints.
//
// A read that has gone wrong never stops: what it can't use is told here, and the user sees it when the tune is in.
#include "abc/abc_listing.h"

#include "abc/abc_reader.h"
#include "core/messages.h"
#include "platform/process.h"

#include <string>

namespace zarn
{
static HFILE hListing = nullptr;
static bool bReading = false; ///< a tune is being read; not its file's list of tunes
static bool bLoggedThisRead = false;
static int32_t lPlaceLine = 1;
static int32_t lPlaceColumn = 1;

static void Put(std::string_view sText)
{
    if (hListing)
        _lwrite(hListing, sText.data(), static_cast<int32_t>(sText.size()));
}

void AbcListing_Open()
{
    bReading = true;
    bLoggedThisRead = false;
    lPlaceLine = lPlaceColumn = 1;
    if (!bAbcListing)
        return;
    hListing = _lcreat("zarn.lst");
    Put("Zarn abc input error listing\r\n");
}

void AbcListing_Copy(AbcLine const& line)
{
    Put(line.From(0));
    Put("\r\n");
}

void AbcListing_Close(bool bShow)
{
    bReading = false;
    if (!bAbcListing)
        return;
    bool const bWritten = hListing && _lclose(hListing);
    hListing = nullptr;
    if (!bWritten && bLoggedThisRead)
        Inform("Some of the ABC text was not understood, and zarn.lst, which tells what, could not be written here.  "
               "The tune has been read.");
    if (bWritten && bShow && bAbcLogged)
        CreateProcessA("Notepad zarn.lst");
}

void AbcPlace(AbcLine const& line, int32_t i)
{
    lPlaceLine = line.LineNumber();
    lPlaceColumn = line.ColumnNumber(i);
}

void AbcLog(std::string_view sText)
{
    Put("\r\n>>> ");
    Put(sText);
    Put("\r\n\r\n");
    bAbcLogged = true;
    bLoggedThisRead = true;
    if (bReading && pOnAbcComplaint)
        pOnAbcComplaint({lPlaceLine, lPlaceColumn, std::string(sText)});
}
} // namespace zarn
