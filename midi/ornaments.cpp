// Rolls and bowed triplets. At each point the note that ends goes into the list ahead of the one that begins.
#include "midi/ornaments.h"

#include "core/text.h"
#include "midi/play_list.h"

namespace zarn
{
constexpr int32_t lShortestOrnament = 10; ///< ticks; a shorter note is played plain

static void Change(PlayRecords& records, PlayRecord const& record, int32_t lOffAt, int32_t lOnAt, int32_t lFrom,
                   int32_t lTo)
{
    PlayRecord change = record;
    change.lTime = Clamp32(int64_t{record.lTime} + lOffAt);
    change.lNote = lFrom;
    change.lVolume = 0;
    AddPlayRecord(records, change);
    change.lTime = Clamp32(int64_t{record.lTime} + lOnAt);
    change.lNote = lTo;
    change.lVolume = record.lVolume;
    AddPlayRecord(records, change);
}

void AddOrnament(PlayRecords& records, PlayRecord const& record, int32_t lStyle, int32_t lSounds, int32_t lUp,
                 int32_t lDown)
{
    AddPlayRecord(records, record);
    if (lSounds < lShortestOrnament || lStyle == ORNAMENT_NONE)
        return;
    int32_t const lNote = record.lNote;
    int64_t const lLength = lSounds;
    if (lStyle == ORNAMENT_BOWED)
    {
        for (int64_t k = 1; k <= 2; ++k)
        {
            auto const lAt = static_cast<int32_t>(k * lLength / 3);
            Change(records, record, lAt - 1, lAt, lNote, lNote);
        }
        return;
    }
    int32_t const lAbove = lStyle == ORNAMENT_SEMITONE ? Wrap_Add(lNote, 1) : lUp;
    int32_t const lBelow = lStyle == ORNAMENT_SEMITONE ? Wrap_Sub(lNote, 1) : lDown;
    int32_t const aTurn[] = {lNote, lAbove, lNote, lBelow, lNote};
    for (int64_t k = 1; k <= 4; ++k)
    {
        auto const lAt = static_cast<int32_t>(k * lLength / 5);
        Change(records, record, lAt, lAt, aTurn[k - 1], aTurn[k]);
    }
}
} // namespace zarn
