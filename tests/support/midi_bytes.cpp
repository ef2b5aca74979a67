#include "support/midi_bytes.h"

#include "core/text.h"

#include <cstdlib>

namespace zarn::test
{
std::string Bytes(std::string_view sHex)
{
    std::string sBytes;
    for (size_t i = 0; i < sHex.size();)
    {
        if (sHex[i] == ' ')
        {
            ++i;
            continue;
        }
        if (sHex[i] == '\'')
        {
            size_t const lEnd = sHex.find('\'', i + 1);
            sBytes += sHex.substr(i + 1, lEnd - i - 1);
            i = lEnd == sHex.npos ? sHex.size() : lEnd + 1;
            continue;
        }
        sBytes += static_cast<char>(std::strtol(std::string(sHex.substr(i, 2)).c_str(), nullptr, 16));
        i += 2;
    }
    return sBytes;
}

std::string Hex(std::string_view sBytes)
{
    std::string s;
    for (char const c : sBytes)
        s += Format(s.empty() ? "%02X" : " %02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    return s;
}

std::string MidiFile(int lFormat, int lDivision, std::initializer_list<std::string_view> tracks)
{
    auto const word = [](size_t l) { return Bytes(Format("%02X %02X", unsigned(l >> 8 & 0xFF), unsigned(l & 0xFF))); };
    std::string sFile = Bytes("'MThd' 00 00 00 06") + word(static_cast<size_t>(lFormat)) + word(tracks.size()) +
                        word(static_cast<size_t>(lDivision));
    for (std::string_view const sTrack : tracks)
    {
        std::string const sEvents = Bytes(sTrack) + Bytes("00 FF 2F 00");
        sFile += Bytes("'MTrk'") + word(sEvents.size() >> 16) + word(sEvents.size() & 0xFFFF) + sEvents;
    }
    return sFile;
}
} // namespace zarn::test
