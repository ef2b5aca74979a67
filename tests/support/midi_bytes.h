/// MIDI files byte by byte: how tests write them, and how they read what was written.
#pragma once
#include <initializer_list>
#include <string>
#include <string_view>

namespace zarn::test
{
/// Bytes from hexadecimal pairs parted by blanks; a word in quotes stands for its letters: "'MThd' 00 00 00 06".
std::string Bytes(std::string_view sHex);
/// The other way round: "4D 54".
std::string Hex(std::string_view sBytes);

/// A file of one track for each text of events, an end-of-track event put behind each. lFormat and lDivision as given.
std::string MidiFile(int lFormat, int lDivision, std::initializer_list<std::string_view> tracks);
} // namespace zarn::test
