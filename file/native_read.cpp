// Reading the native file, and completing the Score that came out of it.
//
// Each element is folded as it comes in, which asks for the clef in force where it belongs: StaffPlaces carries that
// along. A file is believed in nothing that could become a place in memory; what the program could not have written
// itself ends the load with a sentence.
#include "core/messages.h"
#include "core/text.h"
#include "file/native.h"
#include "file/native_format.h"
#include "file/order_chords.h"
#include "file/staff_places.h"
#include "layout/adjust.h" // files that were not laid out are, here, before anyone sees them
#include "layout/element_width.h"
#include "midi/refresh_pitches.h" // every note of a finished load knows what it sounds
#include "render/geometry.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zarn
{
namespace
{
constexpr int32_t lNewestForeseen = 1000; ///< versions so far ahead are no versions, but another kind of file

class NativeReader
{
public:
    explicit NativeReader(HFILE h) : hFile(h) {}

    bool ReadHeader();
    void NoteWhatIsThere();
    bool ReadElements();
    void Complete();

private:
    bool ReadLong(int32_t& lValue);
    void ReadFlag(bool& bFlag, int32_t lNumber, char const* sName);
    void ReadSpacing();
    bool ReadRecord(bool& bEnd);
    bool ReadText();
    void ReadFingering();
    bool AppendElement();
    void PairSlur(Element* pel);

    HFILE hFile;
    int32_t lVersion = 0;
    int32_t lStaffs = lHighestStaff; ///< version 2 doesn't tell, so pitches are found on all of them
    int32_t lCount = 1;              ///< of the element in hand
    RoomyElement el;                 ///< it isn't cleared between elements: what a record doesn't tell stays
    std::array<StaffPlaces, lStaffLists> aPlaces;
};

/// False, with the value left alone, when fewer than four bytes came.
bool NativeReader::ReadLong(int32_t& lValue)
{
    uint8_t aBytes[4];
    if (_lread(hFile, aBytes, sizeof aBytes) != static_cast<int32_t>(sizeof aBytes))
        return false;
    lValue = Native_GetLong(aBytes);
    return true;
}

void CheckBool(int32_t lValue, int32_t lNumber)
{
    if (lValue != 0 && lValue != 1)
        Serious(Format("CheckBool failure number %d, value %d", lNumber, lValue));
}

void NativeReader::ReadFlag(bool& bFlag, int32_t lNumber, char const* sName)
{
    int32_t lValue = bFlag;
    (void)ReadLong(lValue);
    CheckBool(lValue, lNumber);
    bFlag = lValue != 0;
    ReadTrace(sName, lValue);
}

/// Files have held nonsense here; a grid of no columns or of millions would show nothing.
int32_t Spacing(int32_t lValue, int32_t lDefault) { return lValue > lMostColsOrRows ? lDefault : std::max(lValue, 1); }

void NativeReader::ReadSpacing()
{
    if (lVersion == 0)
        Serious("Ancient file??");
    for (int32_t i = 0; i < cSpacingCopies; ++i)
    {
        (void)ReadLong(lColsPerLine);
        (void)ReadLong(lRowsPerPage);
    }
    lColsPerLine = Spacing(lColsPerLine, lDefaultColsPerLine);
    lRowsPerPage = Spacing(lRowsPerPage, lDefaultRowsPerPage);
}

bool NativeReader::ReadHeader()
{
    (void)ReadLong(lVersion);
    ReadTrace("version", lVersion);
    if (lVersion > lProgramVersion && lVersion < lProgramVersion + lNewestForeseen)
        Serious(Format("File is bad. Version is apparently %d, program is version %d", lVersion, lProgramVersion));
    if (lVersion < 0)
        return false;
    if (lVersion == 1)
    {
        Serious(Format("Too bad. Version 1 files not supported by version %d", lProgramVersion));
        return false;
    }
    if (lVersion >= lFirstVersionWithMagic)
    {
        int32_t lMagic = 0;
        if (!ReadLong(lMagic) || static_cast<uint32_t>(lMagic) != lNativeMagic)
            return false;
    }
    if (lVersion >= lFirstVersionWithStaffs)
    {
        lStaffs = 0;
        (void)ReadLong(lStaffs);
        if (lStaffs > lHighestStaff)
        {
            Serious("Too many staffs in file.");
            return false;
        }
        lStaffs = std::max(lStaffs, 0);
        ReadTrace("lStaffs", lStaffs);
        SetStaffCount(lStaffs);
        std::fill(afPlay + 1, afPlay + lStaffLists, 1);
    }
    ReadFlag(bKeepBarsTogether, 1, "keep bars together");
    ReadFlag(bBeamQuavers, 2, "beam quavers");
    ReadFlag(bShowLayout, 3, "show layout");
    if (lVersion >= lFirstVersionWithSpacing)
    {
        ReadSpacing();
        SetUnits();
    }
    return true;
}

void NativeReader::NoteWhatIsThere()
{
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        for (Element* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            aPlaces[static_cast<size_t>(lStaff)].Append(pel);
}

bool NativeReader::ReadElements()
{
    for (;; ++lCount)
    {
        bool bEnd = false;
        if (!ReadRecord(bEnd))
            return false;
        if (bEnd)
            return true;
        if (!ReadText())
            return false;
        ReadFingering();
        if (!AppendElement())
            return false;
    }
}

bool NativeReader::ReadRecord(bool& bEnd)
{
    uint8_t aRecord[cbNativeRecord];
    ReadTrace("element cBytes request", cbNativeRecord);
    int32_t const cb = _lread(hFile, aRecord, cbNativeRecord);
    if (cb < cbNativeRecord)
    {
        ReadTrace("element cBytes", cb);
        Serious("Read failure 3 (file too short)");
        return false;
    }
    NativeRecord_Unpack(aRecord, lVersion, el);
    ReadTrace("element cBytes", cb);
    bEnd = el.lDuration == lEndMark;
    if (bEnd)
        return true;
    ReadTrace("storage", el.storage);
    ReadTrace("sort", el.sort);
    ReadTrace("duration", el.lDuration);
    return true;
}

/// The text bytes, and the judgement of a record too short or too long to be one.
bool NativeReader::ReadText()
{
    if (el.storage < lShortestStorage)
    {
        Inform(Format("Short element number %d, storage=%d", lCount, el.storage));
        DebugLog("short element\n");
        char aRest[4096];
        while (_lread(hFile, aRest, sizeof aRest) > 0)
        {
        }
        return false;
    }
    if (el.storage > lLongestStorage)
    {
        Serious(Format("Element number %d has a text of %d bytes, longer than any can be: the file is damaged.  What "
                       "stands ahead of it was read.",
                       lCount, el.storage - cbPlainElement - 1));
        return false;
    }
    char* const pText = Element_TextBytes(&el);
    auto const cbRoom = static_cast<size_t>(std::max(el.storage, cbPlainElement) - cbElementFixed);
    std::memset(pText, 0, cbRoom); // what the file leaves out is no stray text of the element before
    if (el.storage > lStorageLess)
        ReadTrace("extra bytes read", _lread(hFile, pText, el.storage - lStorageLess));
    return true;
}

void NativeReader::ReadFingering()
{
    if (lVersion < lFirstVersionWithFingering || el.sort != NOTE || !(el.lA & fFingeringStored))
        return;
    uint8_t byte = 0;
    if (_lread(hFile, &byte, 1) == 1)
        el.lString = byte;
    if (_lread(hFile, &byte, 1) == 1)
        el.lFret = byte;
}

bool NativeReader::AppendElement()
{
    if (el.lStaff < 0 || el.lStaff >= lStaffLists)
    {
        Serious(Format("Element number %d is on staff %d, which no score has: the file is damaged.  What stands ahead "
                       "of it was read.",
                       lCount, el.lStaff));
        return false;
    }
    StaffPlaces& places = aPlaces[static_cast<size_t>(el.lStaff)];
    el.lWidth = Element_Width(&el);
    Draw_Fold(el.lStrX, el.lDiaPitch, el.lStaff, places.ClefFor(el), &el.lX, &el.lY);
    Element const* const pelBefore = StaffLast(el.lStaff);
    List_AddLast(aStaffList[el.lStaff], &el, el.storage);
    Element* const pel = StaffLast(el.lStaff);
    if (pel == pelBefore)
    {
        Serious("There is not enough memory for the whole file.  The first part of it was read.");
        return false;
    }
    places.Append(pel);
    if (pel->sort == SLUR)
        PairSlur(pel);
    return true;
}

void NativeReader::PairSlur(Element* pel)
{
    if (pel->lA == 0)
        return;
    Element* const pelStart = aPlaces[static_cast<size_t>(pel->lStaff)].TakeOpenSlur();
    if (!pelStart)
    {
        Serious("Unmatched SLURs in file.  Tell Odrian.");
        return;
    }
    pel->pelPartner = pelStart;
    pelStart->pelPartner = pel;
}

void NativeReader::Complete()
{
    if (lVersion < lFirstVersionLaidOut)
        FullAdjust();
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        OrderChords(lStaff);
    RefreshPitches(lStaffs);
}
} // namespace

int32_t Native_Read(HFILE hFile, bool bClearFirst)
{
    bTimesValid = false;
    NativeReader reader(hFile);
    if (!reader.ReadHeader())
        return 0;
    if (bClearFirst)
        Score_EmptyStaffs();
    reader.NoteWhatIsThere();
    if (!reader.ReadElements())
        return 0;
    reader.Complete();
    return 1;
}
} // namespace zarn
