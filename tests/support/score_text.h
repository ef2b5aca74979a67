/// A score in one line: the tests' way to write down a staff.
///
/// Tokens, parted by blanks:
///   clef:N key:N key:N,OLD time:N/D      signs; the clef is 1 treble, 2 alto, 3 bass, 4 tenor
///   n0/48  n-3/24  r48                   a note at a diatonic position and a rest, with their ticks
///   [n0/48 n2/48]                        a chord, its flags set
///   #4 b4 =4                             accidentals at a diatonic position
///   | || |: :| :: 1st nl sp tie          bar lines and signs
///   inst:N tempo:N trans:N vol:N up down arp( arp)
///   chord"Am" lyr"a" title"x" text"x" annot"x" abc"x"
///   slur( slur)                          linked to each other, last open first closed
///   .../flag=N on a note ORs N into lA; x:N puts the next element at column N
#pragma once
#include "core/score.h"

#include <string>
#include <string_view>

namespace zarn::test
{
/// Appends the symbols to a staff; gives the first one added.
Element* Write(int32_t lStaff, std::string_view sScore);

/// The staff in the same words, with no columns: "clef:1 time:4/4 n0/48 |".
std::string Read(int32_t lStaff);

/// One field of every element of a staff, parted by blanks: Column(1, &Element::lStrX).
std::string Column(int32_t lStaff, int32_t Element::*pField);

/// The nth element of a staff, from 0; null when there are fewer.
Element* At(int32_t lStaff, int32_t n);
} // namespace zarn::test
