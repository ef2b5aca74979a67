/// What holds at the insert point, carried from one sequential add to the next.
///
/// A note's pitch depends on the key, the accidentals and the transposition that a walk back from it finds, and a walk
/// for each note of a long tune is quadratic. So the adders ask a StaffTail, which is filled by one walk and then kept
/// up to date by each add. It stays good only while nobody else touches the staffs: an InsertRun says that.
#pragma once
#include "core/score.h"

#include <cstdint>
#include <map>

namespace zarn
{
/// One staff as seen from its insert point, looking back.
class StaffTail
{
public:
    /// Walks back from pel, which may be null, once.
    void Rebuild(Element* pel, int32_t lStaff);
    /// True when this describes the place behind pel.
    [[nodiscard]] bool Fits(Element const* pel) const { return bKnown && pelAt == pel; }
    void Forget() { bKnown = false; }

    [[nodiscard]] int32_t Clef() const { return lClef; }            ///< as ClefAt
    [[nodiscard]] int32_t Key() const { return lKey; }              ///< as KeyAt
    [[nodiscard]] int32_t Accid(int32_t lDiaPitch) const;           ///< as AccidStateAt
    [[nodiscard]] int32_t MidiPitch(int32_t lDiaPitch) const;       ///< of a note put here
    [[nodiscard]] Element* ChordStart() const { return start.pel; } ///< the nearest note with chord bits 4, or null
    /// The note of the open chord behind which a note of this position belongs: the last that is not above it. Null
    /// when all are above it. Only while OpenChordKnown.
    [[nodiscard]] Element* NotAbove(int32_t lDiaPitch) const;
    [[nodiscard]] bool OpenChordKnown() const { return !openChord.empty(); }

    /// pel has been added directly behind the place and is the new place.
    void Appended(Element* pel);
    /// pel has been added directly ahead of ChordStart(), or at the head of the staff when that is null.
    void AddedAheadOfChord(Element const* pel);
    /// The note at the place has become the first of an open chord.
    void ChordBegun();
    /// A note has joined the open chord, below its first or behind one of its notes.
    void ChordGrown(Element* pel, bool bNewFirst, bool bNewTop);
    /// The note at the place has lost its chord bit 4.
    void ChordClosed();

private:
    /// A place on the staff in an order of its own; larger is nearer to the insert point.
    struct Stamped
    {
        Element* pel = nullptr;
        int64_t lStamp = 0;
    };
    struct Accidental
    {
        int32_t lState = 0;
        int64_t lStamp = 0;
    };
    void Barrier();

    bool bKnown = false;
    Element* pelAt = nullptr;
    int32_t lClef = 1;
    int32_t lKey = 0;
    int32_t lTranspose = 0;
    int64_t lStamp = 0;   ///< of the element at the place
    int64_t lBarrier = 0; ///< accidentals with a smaller stamp no longer count
    Stamped start;
    Stamped startBefore;       ///< the chord start before the open chord's
    bool bStartBefore = false; ///< startBefore is known, be it that there is none
    std::map<int32_t, Accidental> accidentals;
    std::map<int32_t, Element*> openChord; ///< by position, the last note of that position
};

/// While one lives, only the sequential adders, the text and tie adders and the slurs touch the staffs; a reader holds
/// one for as long as it reads.
class InsertRun
{
public:
    InsertRun();
    ~InsertRun();
    InsertRun(InsertRun const&) = delete;
    InsertRun& operator=(InsertRun const&) = delete;

    StaffTail aTail[lStaffLists];

private:
    InsertRun* pOuter;
};

/// The tail of lInsertStaff at pelInsertPoint: carried during an InsertRun, made by a walk otherwise. Good until the
/// next call.
StaffTail& InsertTail();

/// pelInsertPoint moves on to the element that has just been added behind it; from the head of a staff that wasn't
/// empty it goes to the end of the staff.
void InsertPoint_Advance();
} // namespace zarn
