/// The search for a fingering once more, by its plain rules: Lists of records, every pair of them priced, what nobody
/// leads to purged. Slow and obviously right; the real one has to give the same.
#pragma once
#include "core/score.h"
#include "tab/fingering.h"
#include "tab/fingers.h"

#include <vector>

namespace zarn::test
{
struct PlainFingers;
using pf = PlainFingers*;

/// A way of playing as an item of its chord's List.
struct PlainFingers : Fingers ///< lCost becomes the cost of the cheapest path that ends here
{
    int32_t lOwnCost = 0;
    int32_t lStepCost = 0; ///< of the step from pfPrev
    int32_t lRefCount = 0; ///< records of the next chord that name this one as pfPrev
    pf pfPrev = nullptr;   ///< the record before it on that path, which it holds alive; null at the first chord
};
constexpr int32_t cbPlainFingers = static_cast<int32_t>(sizeof(PlainFingers));

/// The spans and frets that a finger is tried at.
struct Placement
{
    int32_t lo = -1;
    int32_t hi = -1;
    int32_t lFret = 0;
};
bool Fingers_NextPlacement(Fingers const& f, int32_t lFinger, int32_t lLowestFret, Placement& placement);
void Fingers_Place(Fingers& f, int32_t lFinger, Placement const& placement);
bool Fingers_IsComplete(Fingers const& f);
bool Fingers_AllPairsOK(Fingers const& f);
int32_t Fingers_SoundedMask(Fingers const& f);
int32_t Fingers_HandPosition(Fingers const& f);
void Fingers_AssignAndAdd(List list, Fingers const& f);
/// Every way of playing the pitches, in order, at its own price.
void BuildPrimary(List list, std::vector<int32_t> const& aPitches);

int32_t Fingers_Transition(PlainFingers const& from, PlainFingers const& to, bool bArpeggio);
int32_t Fingers_ArpeggioCost(Fingers const& from, Fingers const& to);
int32_t Fingers_ShapeCost(Fingers const& from, Fingers const& to);
constexpr int32_t lImpossible = 100000;

bool Tab_InLaterArpeggioNote(Element* pelNote);
Element* Tab_NextChordNote(Element* pelNote);
Element* BuildPrimeFingerings(Element* pel, Element* pelStop, int32_t& fFailed, bool bVerbose);
void Fingers_Copy(pf pTarget, PlainFingers const& source);
void Fingers_CarryRing(PlainFingers const& from, PlainFingers& to);
void Fingers_Link(Element* pelPrev, Element* pel);
void Fingers_CarryHeld(List list);
void Fingers_Purge(pf p);
void Fingers_KeepBest(Element* pel, bool bVerbose);

/// As Tab_DoFingering.
Element* PlainDoFingering(Element* pelFirst, Element* pelLast, bool bVerbose, std::vector<ChordFingering>* pSteps);
} // namespace zarn::test
