/// What a test of fingering starts from: a guitar, the initial weights, and staffs to write on.
#pragma once
#include "core/score.h"
#include "support/score_text.h"
#include "support/scripted_process.h"
#include "tab/fingers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace zarn::test
{
class TabFixture : public testing::Test
{
protected:
    ScriptedProcess process;
};

/// The first strings of the instrument, from the treble.
void Tune(std::initializer_list<int32_t> aPitches);

/// Appends a chord of MIDI notes to staff 1; gives its first note.
Element* AddChord(std::vector<int32_t> const& aPitches);
Element* AddSign(int32_t sort); ///< Appends any other symbol to staff 1.

/// "string/fret/finger" of every note of staff 1, parted by blanks; the notes of a chord by "+".
std::string Fingered();
} // namespace zarn::test
