// The command line's words. Every word is known or refused: a slip never turns into a file name that starts with "-".
#include "app/options.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace zarn
{
namespace
{
constexpr int32_t lMostPixels = 20000;
constexpr int32_t lMostSemitones = 60;
constexpr int32_t lLeastDpi = 10;
constexpr int32_t lMostDpi = 2400;
constexpr char const* aOutputEndings[] = {".zrn", ".abc", ".mid", ".wav", ".pdf", ".svg", ".png", ".tab", ".txt"};

bool ReadNumber(std::string const& s, int32_t lLeast, int32_t lMost, int32_t* plNumber)
{
    char const* const pEnd = s.data() + s.size();
    auto const [p, error] = std::from_chars(s.data(), pEnd, *plNumber);
    return error == std::errc{} && p == pEnd && *plNumber >= lLeast && *plNumber <= lMost;
}

bool ReadSize(std::string const& s, int32_t* plWidth, int32_t* plHeight)
{
    size_t const lCross = s.find('x');
    return lCross != s.npos && ReadNumber(s.substr(0, lCross), 1, lMostPixels, plWidth) &&
           ReadNumber(s.substr(lCross + 1), 1, lMostPixels, plHeight);
}

/// The words, one by one, with what is wrong with them.
struct Reader
{
    std::vector<std::string> const& aWords;
    Options& options;
    std::string& sError;
    size_t lNext = 0;

    bool Fail(std::string s)
    {
        sError = std::move(s);
        return false;
    }

    /// The word that belongs to the option just read.
    bool Argument(std::string const& sOption, std::string* psValue)
    {
        if (lNext >= aWords.size())
            return Fail(sOption + " needs a word behind it");
        *psValue = aWords[lNext++];
        return true;
    }

    bool SetTask(Task task, std::string const& sWord)
    {
        bool const bSameOrFirst = options.task == Task::EDIT || options.task == task;
        bool const bReplayWrites = (options.task == Task::REPLAY && task == Task::EXPORT) ||
                                   (options.task == Task::EXPORT && task == Task::REPLAY);
        if (!bSameOrFirst && !bReplayWrites)
            return Fail(sWord + " can't be joined with what stands ahead of it");
        options.task = bReplayWrites ? Task::REPLAY : task;
        return true;
    }

    bool Output(std::string const& sWord)
    {
        if (!Argument(sWord, &options.sOutput) || !SetTask(Task::EXPORT, sWord))
            return false;
        std::string const sEnding = FileEnding(options.sOutput);
        if (std::find(std::begin(aOutputEndings), std::end(aOutputEndings), sEnding) == std::end(aOutputEndings))
            return Fail(options.sOutput + ": can't write a file with this ending; .zrn, .abc, .mid, .wav, .pdf, .svg, "
                                          ".png, .tab and .txt can be written");
        return true;
    }

    bool Number(std::string const& sWord, int32_t lLeast, int32_t lMost, int32_t* plNumber)
    {
        std::string s;
        if (!Argument(sWord, &s))
            return false;
        if (!ReadNumber(s, lLeast, lMost, plNumber))
            return Fail(sWord + " takes a number from " + std::to_string(lLeast) + " to " + std::to_string(lMost) +
                        ", not \"" + s + "\"");
        return true;
    }

    bool Tune(std::string const& sWord)
    {
        std::string s;
        if (!Argument(sWord, &s))
            return false;
        options.bAllTunes = s == "all";
        if (!options.bAllTunes && !ReadNumber(s, 0, INT32_MAX, &options.lTune))
            return Fail(sWord + " takes the number of a tune, or all, not \"" + s + "\"");
        return true;
    }

    bool Size(std::string const& sWord)
    {
        std::string s;
        if (!Argument(sWord, &s))
            return false;
        if (!ReadSize(s, &options.lWidth, &options.lHeight))
            return Fail(sWord + " takes width and height in pixels such as 1200x800, up to " +
                        std::to_string(lMostPixels) + " each, not \"" + s + "\"");
        return true;
    }

    bool Transpose(std::string const& sWord)
    {
        int32_t lSemitones = 0;
        if (!Number(sWord, -lMostSemitones, lMostSemitones, &lSemitones))
            return false;
        options.lTranspose = lSemitones;
        return true;
    }

    bool Word(std::string const& sWord)
    {
        if (sWord == "-o" || sWord == "--export")
            return Output(sWord);
        if (sWord == "--tune")
            return Tune(sWord);
        if (sWord == "--transpose")
            return Transpose(sWord);
        if (sWord == "--size")
            return Size(sWord);
        if (sWord == "--page")
            return Number(sWord, 1, INT32_MAX, &options.lPage);
        if (sWord == "-r" || sWord == "--dpi")
            return Number(sWord, lLeastDpi, lMostDpi, &options.lDpi);
        if (sWord == "--check")
            return SetTask(Task::CHECK, sWord);
        if (sWord == "--dump")
            return SetTask(Task::DUMP, sWord);
        if (sWord == "--list")
            return SetTask(Task::LIST, sWord);
        if (sWord == "--fingering")
            return SetTask(Task::FINGERING, sWord);
        if (sWord == "--play")
            return SetTask(Task::PLAY, sWord);
        if (sWord == "--replay")
            return Argument(sWord, &options.sJournal) && SetTask(Task::REPLAY, sWord);
        if (sWord == "--journal")
            return Argument(sWord, &options.sJournal);
        if (sWord == "--help" || sWord == "-h")
            return SetTask(Task::HELP, sWord);
        if (sWord == "--version")
            return SetTask(Task::VERSION, sWord);
        if (sWord == "--adjust")
            options.bAdjust = true;
        else if (sWord == "--mini-adjust")
            options.bMiniAdjust = true;
        else if (sWord == "--tablature")
            options.bTablature = true;
        else if (sWord == "--exchange")
            options.bExchange = true;
        else if (sWord == "-q" || sWord == "--quiet")
            options.bQuiet = true;
        else
            return Fail("unknown option " + sWord);
        return true;
    }

    bool All()
    {
        bool bOnlyFiles = false;
        while (lNext < aWords.size())
        {
            std::string const& sWord = aWords[lNext++];
            if (!bOnlyFiles && sWord == "--")
                bOnlyFiles = true;
            else if (bOnlyFiles || sWord.size() < 2 || sWord[0] != '-')
                options.aFiles.push_back(sWord);
            else if (!Word(sWord))
                return false;
        }
        return Complete();
    }

    /// What only the whole line can tell.
    bool Complete()
    {
        size_t const cFiles = options.aFiles.size();
        switch (options.task)
        {
        case Task::HELP:
        case Task::VERSION:
            return true;
        case Task::CHECK:
            if (cFiles == 0)
                return Fail("--check needs a file");
            break;
        case Task::EXPORT:
        case Task::DUMP:
        case Task::LIST:
        case Task::FINGERING:
        case Task::PLAY:
            if (cFiles != 1)
                return Fail(cFiles == 0 ? "there is no file to read"
                                        : "only one file can be read: " + options.aFiles[1]);
            break;
        case Task::EDIT:
        case Task::REPLAY:
            if (cFiles > 1)
                return Fail("only one file can be opened: " + options.aFiles[1]);
            break;
        }
        if (!options.sJournal.empty() && options.task != Task::EDIT && options.task != Task::REPLAY)
            return Fail("--journal goes with the editor alone");
        if (options.bAllTunes && options.task != Task::EXPORT && options.task != Task::CHECK)
            return Fail("--tune all goes with -o or --check");
        bool const bReads = options.task == Task::EXPORT || options.task == Task::CHECK || options.task == Task::DUMP;
        if (options.lTranspose && !bReads && options.task != Task::FINGERING && options.task != Task::PLAY)
            return Fail("--transpose goes with -o, --check, --dump, --fingering or --play");
        if (options.bTablature && !bReads)
            return Fail("--tablature goes with -o, --check or --dump");
        if (options.bExchange && FileEnding(options.sOutput) != ".mid")
            return Fail("--exchange goes with -o and a file that ends in .mid");
        return true;
    }
};
} // namespace

bool Options_Parse(std::vector<std::string> const& aWords, Options* pOptions, std::string* psError)
{
    *pOptions = Options{};
    return Reader{aWords, *pOptions, *psError}.All();
}

std::string FileEnding(std::string const& sPath)
{
    size_t const lName = sPath.find_last_of("/\\") + 1; // npos + 1 is 0
    size_t const lDot = sPath.find_last_of('.');
    if (lDot == sPath.npos || lDot < lName)
        return {};
    std::string sEnding = sPath.substr(lDot);
    std::transform(sEnding.begin(), sEnding.end(), sEnding.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return sEnding;
}

char const* Options_Help()
{
    return "zarn [FILE]                   open the editor, with a score (.zrn), an ABC tune (.abc) or a MIDI file "
           "(.mid)\n"
           "zarn -o OUT [options] FILE    convert without a window; OUT ends in .zrn, .abc, .mid, .wav, .pdf,\n"
           "                              .svg, .png, .tab or .txt\n"
           "     --export OUT             the same as -o OUT\n"
           "     --tune N|all             the tune numbered X:N of a many-tune file (default: the first);\n"
           "                              all: one output a tune, its number and title in the name;\n"
           "                              in an OUT that holds tunes, the one to replace, or to add\n"
           "     --adjust, --mini-adjust  lay the score out again after reading, with or without its bars\n"
           "     --tablature              find the cheapest fingering and show tablature; .tab and .txt need it\n"
           "     --exchange               a .mid with the notes as written, for other programs, not as played\n"
           "     --transpose N            move the whole score by N semitones, -60 to 60, and lay it out again\n"
           "     --size WxH               the drawing area in pixels (default 1200x800)\n"
           "     --page N                 that page alone (.svg and .png)\n"
           "     -r, --dpi N              dots to the inch of a .png (default 96)\n"
           "zarn --check FILE...          read and tell what is wrong, write nothing\n"
           "zarn --dump FILE              print every symbol of the score\n"
           "zarn --list FILE              print number and title of each tune of an ABC file\n"
           "zarn --fingering FILE         print the cheapest fingering, one chord a line: bar, notes, "
           "string/fret/finger\n"
           "                              of each, own price, price of the step, total so far\n"
           "zarn --play FILE              play it, and end; Ctrl+C ends it sooner\n"
           "zarn --replay JOURNAL [-o OUT] [FILE]\n"
           "                              open FILE, play the journal back without a display, then write OUT\n"
           "zarn --journal JOURNAL [FILE] open the editor and write down all that comes from outside\n"
           "zarn --help, --version\n"
           "     -q, --quiet              tell errors only\n"
           "\n"
           "Exit status: 0 all well, 1 something could not be read or written, or --check found a complaint,\n"
           "2 the words are wrong.\n";
}
} // namespace zarn
