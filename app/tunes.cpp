// Choosing tunes out of a many-tune file.
#include "app/tunes.h"

#include "abc/abc_index.h"
#include "app/terminal.h"
#include "core/text.h"

#include <set>

namespace zarn
{
static constexpr size_t cchLongestTitle = 80; ///< bytes of a title in a file name

/// The numbered tunes, each number once: of two with one number the first is the one that can be read.
static std::vector<Tune> NumberedTunes(HFILE hFile)
{
    std::vector<Tune> aTunes;
    std::set<int32_t> aSeen;
    for (AbcTuneRow const& row : Abc_ListTunes(hFile))
        if (aSeen.insert(row.lNumber).second)
            aTunes.push_back({row.lNumber, row.sTitle});
    return aTunes;
}

std::optional<std::vector<Tune>> Tunes_Wanted(std::string const& szPath, Options const& options)
{
    bool const bFirst = options.lTune < 0 && !options.bAllTunes;
    if (bFirst || FileEnding(szPath) != ".abc")
        return std::vector<Tune>{Tune{}};
    HFILE const hFile = _lopen(szPath);
    if (!hFile)
    {
        Terminal_Error("the file can't be opened");
        return std::nullopt;
    }
    std::vector<Tune> aTunes = NumberedTunes(hFile);
    _lclose(hFile);
    if (options.bAllTunes)
    {
        if (aTunes.empty())
            Terminal_Error("there is no tune in the file");
        return aTunes.empty() ? std::nullopt : std::optional(aTunes);
    }
    for (Tune const& tune : aTunes)
        if (tune.lNumber == options.lTune)
            return std::vector<Tune>{tune};
    Terminal_Error(Format("there is no tune X:%d in the file", options.lTune));
    return std::nullopt;
}

/// Cuts at a character's start, so that a name stays valid UTF-8.
static std::string CutTo(std::string s, size_t cch)
{
    if (s.size() <= cch)
        return s;
    while (cch > 0 && (static_cast<unsigned char>(s[cch]) & 0xC0) == 0x80)
        --cch;
    s.resize(cch);
    return s;
}

std::string Tune_OutputPath(std::string const& szOutput, Tune const& tune)
{
    std::string sTitle = CutTo(tune.sTitle, cchLongestTitle);
    for (char& c : sTitle)
        if (static_cast<unsigned char>(c) < ' ' || c == 127 ||
            std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos)
            c = '_';
    size_t const lStart = sTitle.find_first_not_of(" .");
    size_t const lEnd = sTitle.find_last_not_of(" .");
    sTitle = lStart == sTitle.npos ? "untitled" : sTitle.substr(lStart, lEnd - lStart + 1);
    size_t const cchStem = szOutput.size() - FileEnding(szOutput).size();
    return szOutput.substr(0, cchStem) + Format("-%d-", tune.lNumber) + sTitle + szOutput.substr(cchStem);
}
} // namespace zarn
