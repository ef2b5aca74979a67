// A tune as text: the lines around the staffs.
#include "abc/abc_write.h"

#include "abc/abc_write_staff.h"
#include "core/messages.h"
#include "core/pitch.h"
#include "core/score.h"
#include "core/text.h"
#include "midi/score_times.h"
#include "render/geometry.h"

namespace zarn
{
/// The lines ahead of a staff's music. The reader begins voice 1 at its K:, so the first V: stands behind that.
static std::string StaffHeader(int32_t lStaff, TuneMetrics const& metrics, int32_t cShown, bool bFirst)
{
    std::string const sVoice = Format("V:%d", lStaff).append(AbcLineEnd());
    std::string const sFields = std::string("L:1/8").append(AbcLineEnd()) +
                                Format("M:%d/%d", metrics.lNum, metrics.lDen).append(AbcLineEnd()) +
                                Format("K:%s", KeyName(metrics.lKey)).append(AbcLineEnd());
    if (cShown == 1)
        return sFields;
    return bFirst ? sFields + sVoice : sVoice + sFields;
}

static void WriteShownStaffs(HFILE hFile)
{
    int32_t const cShown = VisibleCount();
    bool bFirst = true;
    bool bAtLineStart = true;
    bool bToldOfHidden = false;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsVisible(lStaff))
        {
            if (!List_IsEmpty(aStaffList[lStaff]) && !bToldOfHidden)
            {
                Inform(Format("Only visible staffs are saved\r\n!!Staff %d is a non-empty invisible staff!!", lStaff));
                bToldOfHidden = true;
            }
            continue;
        }
        TuneMetrics const metrics = FirstBarInfo(lStaff);
        if (!bAtLineStart)
            AbcPut(hFile, AbcLineEnd());
        AbcPut(hFile, StaffHeader(lStaff, metrics, cShown, bFirst));
        bAtLineStart = AbcWriteStaff(hFile, aStaffList[lStaff], metrics.lKey, metrics.lNum, metrics.lDen);
        bFirst = false;
    }
}

bool AbcWriteTune(HFILE hFile, std::string_view sGivenTitle, int32_t lNumber)
{
    std::string sTitle(sGivenTitle);
    if (sTitle.empty())
        Score_FindTitle(&sTitle);
    if (!AbcPut(hFile, Format("X:%d", lNumber).append(AbcLineEnd()) + "T:" + AbcOneLine(sTitle).append(AbcLineEnd())))
        return false;
    bScoreDirty = false; // from here on: something can't be saved
    AbcWriteStaff(hFile, aStaffList[0], 0, 0, 0);
    // Only what stands on staff 0 is told; the other staffs leave the score marked as modified, as they always have.
    if (bScoreDirty)
        Inform("The score contained some elements which are not guaranteed to be saved accurately in ABC format");
    WriteShownStaffs(hFile);
    return AbcPut(hFile, AbcLineEnd());
}

void Score_FindTitle(std::string* psTitle)
{
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            if (pel->sort == TITLE)
                *psTitle = Element_Text(pel);
}
} // namespace zarn
