// The names of a session as text.
#include "shell/session_file.h"

#include "abc/abc_index.h"
#include "core/text.h"
#include "shell/file_names.h"

#include <charconv>
#include <utility>

namespace zarn
{
namespace
{
constexpr std::pair<char, std::string_view> aEscape[] = {{'\n', "%0A"}, {'\r', "%0D"}, {'%', "%25"}};

std::string Escaped(std::string_view sValue)
{
    std::string sText;
    for (char const c : sValue)
    {
        std::string_view sSign(&c, 1);
        for (auto const& [cPlain, sEscaped] : aEscape)
            if (c == cPlain)
                sSign = sEscaped;
        sText += sSign;
    }
    return sText;
}

std::string Plain(std::string_view sText)
{
    std::string sValue;
    while (!sText.empty())
    {
        char c = sText.front();
        size_t cch = 1;
        for (auto const& [cPlain, sEscaped] : aEscape)
            if (sText.starts_with(sEscaped))
            {
                c = cPlain;
                cch = sEscaped.size();
            }
        sValue += c;
        sText.remove_prefix(cch);
    }
    return sValue;
}

/// Numbers parted by blanks; those that aren't there are 0.
template <typename... NUMBERS>
void Numbers(std::string_view sText, NUMBERS&... numbers)
{
    auto const take = [&sText](auto& number)
    {
        auto const [pEnd, error] = std::from_chars(sText.data(), sText.data() + sText.size(), number);
        sText.remove_prefix(static_cast<size_t>(pEnd - sText.data()));
        while (sText.starts_with(' '))
            sText.remove_prefix(1);
        (void)error; // leaves the number as it was
    };
    (take(numbers), ...);
}

void TakeLine(SessionNames& names, std::string_view sWord, std::string_view sValue)
{
    if (sWord == "file")
        names.szFile = Plain(sValue);
    else if (sWord == "native")
        names.bNative = sValue == "1";
    else if (sWord == "abc")
        names.szAbc = Plain(sValue);
    else if (sWord == "tune")
        names.szTune = Plain(sValue);
    else if (sWord == "number")
        Numbers(sValue, names.lTune);
    else if (sWord == "place")
        Numbers(sValue, names.lPlace.emplace());
    else if (sWord == "known")
        names.known.szName = Plain(sValue);
    else if (sWord == "stamp")
    {
        FileStamp& stamp = names.known.stamp.emplace();
        Numbers(sValue, stamp.lSeconds, stamp.lNanoseconds, stamp.cbSize);
    }
}
} // namespace

SessionNames SessionNames_InHand()
{
    return {WholePath(szFileName),
            bReadAsNative,
            WholePath(szAbcFile),
            szAbcTune,
            lTuneNumber,
            lPlaceInAbcFile,
            {WholePath(knownFile.szName), knownFile.stamp}};
}

void SessionNames_Take(SessionNames const& names)
{
    szFileName = names.szFile;
    bReadAsNative = names.bNative;
    szAbcFile = names.szAbc;
    szAbcTune = names.szTune;
    lTuneNumber = names.lTune;
    lPlaceInAbcFile = names.lPlace;
    fAbcTuneOpen = !szAbcTune.empty() && lTuneNumber >= 0;
    knownFile = names.known;
}

std::string SessionNames_Write(SessionNames const& names)
{
    std::string sText = Format("file=%s\nnative=%d\nabc=%s\ntune=%s\nnumber=%d\nknown=%s\n",
                               Escaped(names.szFile).c_str(), names.bNative ? 1 : 0, Escaped(names.szAbc).c_str(),
                               Escaped(names.szTune).c_str(), names.lTune, Escaped(names.known.szName).c_str());
    if (names.lPlace)
        sText += Format("place=%d\n", *names.lPlace);
    if (auto const& stamp = names.known.stamp)
        sText += "stamp=" + std::to_string(stamp->lSeconds) + ' ' + std::to_string(stamp->lNanoseconds) + ' ' +
                 std::to_string(stamp->cbSize) + '\n';
    return sText;
}

SessionNames SessionNames_Read(std::string_view sText)
{
    SessionNames names;
    while (!sText.empty())
    {
        size_t const cchLine = std::min(sText.find('\n'), sText.size());
        std::string_view const sLine = sText.substr(0, cchLine);
        sText.remove_prefix(std::min(cchLine + 1, sText.size()));
        if (size_t const nEquals = sLine.find('='); nEquals != sLine.npos)
            TakeLine(names, sLine.substr(0, nEquals), sLine.substr(nEquals + 1));
    }
    return names;
}
} // namespace zarn
