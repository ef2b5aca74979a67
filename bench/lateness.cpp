// How late each message of a play goes out: plays a file on the built-in synthesizer, in its own time, and prints
// figures. lateness.sh makes a tune of some minutes for it.
#include "app/headless_process.h"
#include "app/performance.h"
#include "app/terminal.h"
#include "midi/midi_out.h"
#include "midi/player.h"
#include "platform/program_sound.h"
#include "shell/load.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace
{
std::vector<int32_t> aLateMs; ///< of each record of the play

void Keep(zarn::PlayRecords const& listPlay)
{
    for (zarn::PlayRecord const& record : listPlay)
        // Programs and tempos keep ticks where notes have milliseconds.
        if (record.lNote != -1 && record.lLate != zarn::lNotSent)
            aLateMs.push_back(record.lLate);
}

int32_t Percentile(double dPart)
{
    return aLateMs[static_cast<size_t>(dPart * static_cast<double>(aLateMs.size() - 1))];
}

int Play(std::string const& szPath)
{
    constexpr int32_t lWidth = 1200;
    constexpr int32_t lHeight = 800;
    zarn::bTerminalQuiet = true; // tunes made by rule have repeats that some complain of
    zarn::HeadlessProcess process;
    process.BeginConversion(lWidth, lHeight);
    zarn::ProgramSound sound;
    zarn::host.pSound = &sound;
    std::string sError;
    zarn::HMIDIOUT hOut = nullptr;
    if (!zarn::LoadForExport(szPath, -1, &sError) ||
        sound.OutOpen(sound.OutCount() - 1, hOut) != zarn::MMSYSERR_NOERROR)
    {
        std::fprintf(stderr, "%s: can't be read, or not be played: %s\n", szPath.c_str(), sError.c_str());
        return 1;
    }
    zarn::pOnPassPlayed = Keep;
    zarn::MidiOut_Set(hOut);
    zarn::Player_Start(zarn::Performance());
    zarn::Player_Wait();
    zarn::MidiOut_Set(nullptr);
    zarn::host.pSound = nullptr;
    if (aLateMs.empty())
        return 1;
    std::sort(aLateMs.begin(), aLateMs.end());
    constexpr int32_t lAimMs = 2;
    auto const cLate = aLateMs.end() - std::upper_bound(aLateMs.begin(), aLateMs.end(), lAimMs);
    std::printf(
        "%zu notes on and off; late by, in ms: median %d, 99 of 100 within %d, worst %d; more than %d ms late: %td\n",
        aLateMs.size(), Percentile(0.5), Percentile(0.99), aLateMs.back(), lAimMs, cLate);
    return 0;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: %s FILE\n", argv[0]);
        return 2;
    }
    return Play(argv[1]);
}
