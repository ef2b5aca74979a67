// Writing the native file, version 9.
#include "core/messages.h"
#include "core/score.h"
#include "file/native.h"
#include "file/native_format.h"

#include <initializer_list>

namespace zarn
{
static bool WriteLong(HFILE hFile, int32_t lValue)
{
    uint8_t aBytes[4];
    Native_PutLong(aBytes, lValue);
    return _lwrite(hFile, aBytes, sizeof aBytes) == static_cast<int32_t>(sizeof aBytes);
}

static void WriteSpacing(HFILE hFile)
{
    for (int32_t i = 0; i < cSpacingCopies; ++i)
    {
        (void)WriteLong(hFile, lColsPerLine);
        (void)WriteLong(hFile, lRowsPerPage);
    }
}

/// The highest List that has any element; 0 for an empty Score.
static int32_t HighestFilled()
{
    int32_t lStaff = lHighestStaff;
    while (lStaff > 0 && List_IsEmpty(aStaffList[lStaff]))
        --lStaff;
    return lStaff;
}

/// The fingering flag is set in the Score too and never cleared here: a note that has lost its string since claims two
/// bytes that aren't there. The format stands so.
static bool WriteElement(HFILE hFile, Element& el)
{
    bool const bFingering = el.sort == NOTE && el.lString != 0;
    if (bFingering)
        el.lA |= fFingeringStored;
    uint8_t aRecord[cbNativeRecord];
    NativeRecord_Pack(el, aRecord);
    if (_lwrite(hFile, aRecord, cbNativeRecord) < cbNativeRecord)
    {
        Serious("File writing failure (catastrophic error)");
        Serious_Rearm(); // every record that is lost is told
        return false;
    }
    if (el.storage > lStorageLess)
        (void)_lwrite(hFile, Element_TextBytes(&el), el.storage - lStorageLess);
    if (bFingering)
    {
        uint8_t const aFingering[] = {static_cast<uint8_t>(el.lString), static_cast<uint8_t>(el.lFret)};
        (void)_lwrite(hFile, aFingering, sizeof aFingering);
    }
    return true;
}

int32_t Native_Write(HFILE hFile)
{
    if (!WriteLong(hFile, lProgramVersion))
    {
        Serious("File writing failed (catastrophic failure).  Music NOT saved.  ");
        return 0;
    }
    for (int32_t const lValue :
         {static_cast<int32_t>(lNativeMagic), HighestFilled(), static_cast<int32_t>(bKeepBarsTogether),
          static_cast<int32_t>(bBeamQuavers), static_cast<int32_t>(bShowLayout)})
        (void)WriteLong(hFile, lValue);
    WriteSpacing(hFile);
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            (void)WriteElement(hFile, *pel);
    Element elEnd;
    elEnd.lStrX = elEnd.lDuration = lEndMark;
    return WriteElement(hFile, elEnd);
}
} // namespace zarn
