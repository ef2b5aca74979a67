// A play that nobody waits for.
//
// The player itself plays, on a clock that goes on as samples are made: whenever it waits, the synthesizer fills the
// time. The file's form is that of Multimedia Programming Interface and Data Specifications 1.0 (IBM and Microsoft,
// 1991): RIFF, type WAVE, a "fmt " chunk and a "data" chunk.
#include "app/export_wave.h"

#include "app/performance.h"
#include "app/terminal.h"
#include "midi/midi_out.h"
#include "midi/player.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/program_sound.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace zarn
{
namespace
{
constexpr int32_t lMsPerSecond = 1000;
constexpr int32_t cbSample = 2;
constexpr int32_t cbFrame = cbSample * lWaveChannels;
constexpr int32_t cbHeader = 44;
/// Counts of bytes in the file have 32 bits; six hours fit.
constexpr int32_t lLongestMs = 6 * 60 * 60 * lMsPerSecond;
static_assert(int64_t{lLongestMs} / lMsPerSecond * lWaveRate * cbFrame < UINT32_MAX);

/// A play ends with all notes off. What still sounds then ends in silence, or is cut.
constexpr int32_t lLongestTailMs = 5 * lMsPerSecond;
constexpr int32_t lTailStepMs = 100;
constexpr int32_t lSilence = 16; ///< of 32767: -66 dB

void PutLittle(char* p, uint32_t n, int32_t cb)
{
    for (int32_t l = 0; l < cb; ++l)
        p[l] = static_cast<char>(n >> 8 * l);
}

class WaveFile
{
public:
    /// The handle stays the caller's; the header's sizes are written by Finish.
    explicit WaveFile(HFILE hFile) : hFile(hFile) { WriteHeader(); }

    void Write(int16_t const* pSamples, int32_t cFrames)
    {
        std::array<char, cbPiece> aBytes;
        for (int32_t l = 0; l < cFrames * lWaveChannels; ++l)
            PutLittle(&aBytes[static_cast<size_t>(l) * cbSample], static_cast<uint16_t>(pSamples[l]), cbSample);
        Put(aBytes.data(), cFrames * cbFrame);
        cbData += static_cast<uint32_t>(cFrames * cbFrame);
    }
    bool Finish()
    {
        bGood = bGood && _llseek(hFile, 0, FILE_BEGIN) == 0;
        WriteHeader();
        return bGood;
    }
    [[nodiscard]] bool IsGood() const { return bGood; }

    static constexpr int32_t cPieceFrames = 4096; ///< the most that Write takes

private:
    static constexpr size_t cbPiece = size_t{cPieceFrames} * cbFrame;

    void Put(char const* p, int32_t cb) { bGood = bGood && _lwrite(hFile, p, cb) == cb; }
    void WriteHeader()
    {
        constexpr uint32_t nPcm = 1;
        constexpr uint32_t cbFormat = 16;
        std::array<char, cbHeader> a{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E', 'f', 'm', 't', ' '};
        PutLittle(&a[4], cbHeader - 8 + cbData, 4);
        PutLittle(&a[16], cbFormat, 4);
        PutLittle(&a[20], nPcm, 2);
        PutLittle(&a[22], lWaveChannels, 2);
        PutLittle(&a[24], lWaveRate, 4);
        PutLittle(&a[28], lWaveRate * cbFrame, 4);
        PutLittle(&a[32], cbFrame, 2);
        PutLittle(&a[34], 8 * cbSample, 2);
        std::copy_n("data", 4, &a[36]);
        PutLittle(&a[40], cbData, 4);
        Put(a.data(), cbHeader);
    }

    HFILE hFile;
    uint32_t cbData = 0;
    bool bGood = true;
};

/// The player's host: its time is that of the samples written.
class WaveHost : public SoundHost
{
public:
    WaveHost(WaveSource& source, WaveFile& file) : source(source), file(file) {}

    uint32_t Time() override { return static_cast<uint32_t>(lNowMs); }
    void Sleep(uint32_t cMilliseconds) override
    {
        lNowMs += cMilliseconds;
        lPeak = 0;
        int64_t const cUntil = lNowMs * lWaveRate / lMsPerSecond;
        while (cFrames < cUntil && file.IsGood()) // after a failed write there is nothing to play for
        {
            auto const cPiece = static_cast<int32_t>(std::min<int64_t>(cUntil - cFrames, WaveFile::cPieceFrames));
            source.Render(aSamples.data(), cPiece);
            file.Write(aSamples.data(), cPiece);
            for (int32_t l = 0; l < cPiece * lWaveChannels; ++l)
                lPeak = std::max(lPeak, std::abs(int32_t{aSamples[static_cast<size_t>(l)]}));
            cFrames += cPiece;
        }
    }
    bool SleepUntil(uint32_t cMilliseconds, WakeEvent& event) override
    {
        Sleep(cMilliseconds);
        return event.IsSet();
    }
    /// The loudest sample of the last sleep.
    [[nodiscard]] int32_t Peak() const { return lPeak; }

    void BeginPeriod() override {}
    void EndPeriod() override {}
    bool StartThread(std::function<void()>) override { return false; } // the player plays where it is called
    uint32_t SetTimer(uint32_t, TimerCallback) override { return 0; }
    void KillTimer(uint32_t) override {}
    int32_t OutCount() override { return 0; } // its one output is handed over open
    uint32_t OutName(int32_t, std::string&) override { return MMSYSERR_BADDEVICEID; }
    uint32_t OutOpen(int32_t, HMIDIOUT&) override { return MMSYSERR_BADDEVICEID; }
    int32_t InCount() override { return 0; }
    uint32_t InName(int32_t, std::string&) override { return MMSYSERR_BADDEVICEID; }
    uint32_t InOpen(int32_t, MidiSink&, HMIDIIN&) override { return MMSYSERR_BADDEVICEID; }
    bool OutErrorText(uint32_t, std::string&) override { return false; }
    bool InErrorText(uint32_t, std::string&) override { return false; }

private:
    WaveSource& source;
    WaveFile& file;
    int64_t lNowMs = 0;
    int64_t cFrames = 0;
    int32_t lPeak = 0;
    std::array<int16_t, size_t{WaveFile::cPieceFrames} * lWaveChannels> aSamples{};
};

/// Plays through the source into the file; the source is closed with the output.
bool PlayInto(HFILE hFile, PlayRecords listPlay, std::unique_ptr<WaveSource> source)
{
    WaveFile file(hFile);
    WaveHost wave(*source, file);
    SoundHost* const pBefore = host.pSound;
    host.pSound = &wave;
    MidiOut_Set(source.release());
    Player_Start(std::move(listPlay));
    AllNotesOff(MidiOutHandle());
    for (int32_t lMs = 0; lMs < lLongestTailMs; lMs += lTailStepMs)
    {
        wave.Sleep(lTailStepMs);
        if (wave.Peak() <= lSilence)
            break;
    }
    MidiOut_Set(nullptr);
    host.pSound = pBefore;
    return file.Finish();
}
} // namespace

bool Export_Wave(std::string const& szPath)
{
    PlayRecords listPlay = Performance();
    auto const isTooLate = [](PlayRecord const& record) { return record.lTime > lLongestMs - lLongestTailMs; };
    if (std::any_of(listPlay.begin(), listPlay.end(), isTooLate))
    {
        Terminal_Error("it plays for hours: too long for a .wav file");
        return false;
    }
    std::string sError;
    SoundModule* const pModule = Sound_Module(sError);
    auto source = pModule ? pModule->NewWaveSource(sError) : nullptr;
    if (!source)
    {
        Terminal_Error(sError);
        return false;
    }
    HFILE const hFile = _lcreat(szPath);
    if (!hFile)
    {
        Terminal_Error("the file can't be written there");
        return false;
    }
    bool const bWritten = PlayInto(hFile, std::move(listPlay), std::move(source));
    if (!_lclose(hFile) || !bWritten)
    {
        Terminal_Error("writing failed; what stood there before is unchanged");
        return false;
    }
    return true;
}
} // namespace zarn
