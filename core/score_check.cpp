// Checking the Score: one walk for each thing that must hold.
#include "core/score_check.h"

#include "core/score.h"
#include "core/text.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace zarn
{
namespace
{
/// Every element on a staff, with the List that it is in and its place there.
struct Home
{
    int32_t lStaff;
    int32_t lPlace; ///< from 1
};
using Homes = std::unordered_map<Element const*, Home>;

Homes FindHomes()
{
    Homes homes;
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
    {
        int32_t lPlace = 0;
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
            homes[pel] = {lStaff, ++lPlace};
    }
    return homes;
}

/// What is wrong, up to a number that somebody would still read.
class Complaints
{
public:
    void Add(std::string sText)
    {
        if (aTexts.size() < cMost)
            aTexts.push_back(std::move(sText));
    }
    /// Begins "staff 2, element 14 (NOTE at column 30)".
    void Add(Element const* pel, std::string const& sWhat)
    {
        Home const home = homes.at(pel);
        Add(Format("staff %d, element %d (%s at column %d) %s", home.lStaff, home.lPlace, Sort_Name(pel->sort, pel->lA),
                   pel->lStrX, sWhat.c_str()));
    }

    Homes const homes = FindHomes();
    std::vector<std::string> aTexts;

private:
    static constexpr size_t cMost = 100;
};

void CheckRecords(Complaints& complaints)
{
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        {
            if (pel->lStaff != lStaff)
                complaints.Add(pel, Format("says that it is on staff %d", pel->lStaff));
            if (pel->storage < cbElementFixed || pel->storage > std::max(List_ItemBytes(pel), cbPlainElement))
                complaints.Add(
                    pel, Format("has a storage of %d in a record of %d bytes", pel->storage, List_ItemBytes(pel)));
        }
}

/// What a slur's end and its partner must be to each other, where it has one.
void CheckSlurs(Complaints& complaints, int32_t lStaff)
{
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
    {
        if (pel->sort != SLUR && pel->pelPartner)
            complaints.Add(pel, "is no slur and has a partner");
        if (pel->sort == SLUR && pel->lB != 0)
            complaints.Add(pel, Format("has an lB of %d", pel->lB));
        if (pel->sort != SLUR || !pel->pelPartner)
            continue;
        auto const partner = complaints.homes.find(pel->pelPartner);
        if (partner == complaints.homes.end())
            complaints.Add(pel, "has a partner that is on no staff");
        else if (pel->pelPartner->sort != SLUR || pel->pelPartner->pelPartner != pel)
            complaints.Add(pel, "has a partner that has another one");
        else if (partner->second.lStaff != lStaff)
            complaints.Add(pel, "has its partner on another staff");
        else if ((pel->lA == 0) == (pel->pelPartner->lA == 0))
            complaints.Add(pel, "is the same end of the slur as its partner");
        else if ((pel->lA == 0) != (complaints.homes.at(pel).lPlace < partner->second.lPlace))
            complaints.Add(pel, "has its start behind its end");
    }
}

void CheckCursors(Complaints& complaints)
{
    struct
    {
        char const* sName;
        Element const* pel;
    } const aCursor[] = {
        {"the insert point", pelInsertPoint}, {"the mark's begin", pelMarkBegin}, {"the mark's end", pelMarkEnd},
        {"the highlight", pelHighlight},      {"the pop-up", pelPopup},           {"the undo place", pelUndoPlace},
        {"the undo end", pelUndoEnd}};
    for (auto const& cursor : aCursor)
        if (cursor.pel && !complaints.homes.contains(cursor.pel))
            complaints.Add(Format("%s is on no staff", cursor.sName));
}

void CheckSlursAreWhole(Complaints& complaints, int32_t lStaff)
{
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        if (pel->sort == SLUR && !pel->pelPartner)
            complaints.Add(pel, "has no partner");
}

/// A restarted line's clef and key stand on the new line already, ahead of what is left of the old one; so no symbol is
/// held against the column of a clef or a key.
void CheckColumns(Complaints& complaints, int32_t lStaff)
{
    int32_t lFurthest = INT32_MIN;
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
    {
        if (pel->lStrX < lFurthest)
            complaints.Add(pel, Format("stands behind an element at column %d", lFurthest));
        if (pel->sort != CLEF && pel->sort != KEYSIG)
            lFurthest = std::max(lFurthest, pel->lStrX);
    }
}

void CheckChords(Complaints& complaints, int32_t lStaff)
{
    Element const* pelBefore = nullptr; ///< the note that says that its chord goes on
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
    {
        if (pel->sort == REST && pelBefore)
        {
            complaints.Add(pel, "stands in a chord");
            pelBefore = nullptr;
        }
        if (pel->sort != NOTE)
            continue;
        bool const bContinues = pel->lA & fChordBefore;
        if (bContinues && !pelBefore)
            complaints.Add(pel, "continues a chord that nothing begins");
        if (!bContinues && pelBefore)
            complaints.Add(pelBefore, "says that its chord goes on, and it doesn't");
        if (bContinues && pelBefore)
        {
            struct
            {
                char const* sField;
                bool bEqual;
            } const aField[] = {{"column", pel->lStrX == pelBefore->lStrX},
                                {"duration", pel->lDuration == pelBefore->lDuration},
                                {"stem", pel->up == pelBefore->up}};
            for (auto const& field : aField)
                if (!field.bEqual)
                    complaints.Add(pel, Format("has another %s than its chord", field.sField));
            if (pel->lDiaPitch < pelBefore->lDiaPitch)
                complaints.Add(pel, "is lower than the note ahead of it in its chord");
        }
        pelBefore = pel->lA & fChordMore ? pel : nullptr;
    }
    if (pelBefore)
        complaints.Add(pelBefore, "says that its chord goes on, and the staff ends");
}

/// The notes of one chord, or a single note, and what stands behind it up to the next.
struct Sounding
{
    std::vector<Element const*> apelNotes;
    std::unordered_set<int32_t> tiedOn;   ///< their lPitch
    std::unordered_set<int32_t> tiedFrom; ///< likewise
    int32_t cTies = 0;                    ///< TIEs behind the last note and ahead of the next chord
};

void CheckTiesOf(Complaints& complaints, Sounding const& now, Sounding const& next)
{
    for (Element const* const pel : now.apelNotes)
        if (pel->lA & fTiedOn && !next.tiedFrom.contains(pel->lPitch))
            complaints.Add(pel, "is tied to a note that isn't there");
    for (Element const* const pel : next.apelNotes)
        if (pel->lA & fTiedFrom && !now.tiedOn.contains(pel->lPitch))
            complaints.Add(pel, "is tied from a note that isn't there");
    if (now.cTies != (now.tiedOn.empty() ? 0 : 1) && !now.apelNotes.empty())
        complaints.Add(now.apelNotes.back(), Format("has %d ties behind it", now.cTies));
}

void CheckTies(Complaints& complaints, int32_t lStaff)
{
    Sounding now;
    Sounding next;
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
    {
        if (pel->sort == TIE)
            ++next.cTies;
        if (pel->sort != NOTE)
            continue;
        if (!(pel->lA & fChordBefore))
        {
            CheckTiesOf(complaints, now, next);
            now = std::move(next);
            next = {};
        }
        next.apelNotes.push_back(pel);
        if (pel->lA & fTiedOn)
            next.tiedOn.insert(pel->lPitch);
        if (pel->lA & fTiedFrom)
            next.tiedFrom.insert(pel->lPitch);
    }
    CheckTiesOf(complaints, now, next);
    CheckTiesOf(complaints, next, {});
}
} // namespace

static void CheckStructure(Complaints& complaints)
{
    CheckRecords(complaints);
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
        CheckSlurs(complaints, lStaff);
    CheckCursors(complaints);
}

std::vector<std::string> Score_CheckStructure()
{
    Complaints complaints;
    CheckStructure(complaints);
    return std::move(complaints.aTexts);
}

std::vector<std::string> Score_Check()
{
    Complaints complaints;
    CheckStructure(complaints);
    for (int32_t lStaff = 0; lStaff < lStaffLists; ++lStaff)
    {
        CheckSlursAreWhole(complaints, lStaff);
        CheckColumns(complaints, lStaff);
        CheckChords(complaints, lStaff);
        CheckTies(complaints, lStaff);
    }
    return std::move(complaints.aTexts);
}
} // namespace zarn
