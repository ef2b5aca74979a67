// What a file's name tells.
#include "shell/file_names.h"

#include <algorithm>
#include <filesystem>

namespace zarn
{
std::string WholePath(std::string const& szName)
{
    if (szName.empty())
        return {};
    std::error_code error;
    std::filesystem::path const whole = std::filesystem::absolute(szName, error);
    if (error)
        return szName;
    // "folder/.." isn't always nothing: the folder may be a link.
    bool const bUpward = std::find(whole.begin(), whole.end(), "..") != whole.end();
    return bUpward ? whole.string() : whole.lexically_normal().string();
}

std::string ShortName(std::string_view szName)
{
    size_t const lSlash = szName.find_last_of("/\\");
    return std::string(lSlash == szName.npos ? szName : szName.substr(lSlash + 1));
}

std::string Extension(std::string_view szName)
{
    std::string const szShort = ShortName(szName);
    size_t const lDot = szShort.rfind('.');
    return lDot == szShort.npos ? std::string() : szShort.substr(lDot);
}

static std::string LowerCase(std::string s)
{
    std::transform(s.begin(), s.end(), s.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return s;
}

bool SameExtension(std::string_view szName, std::string_view sExtension)
{
    return LowerCase(Extension(szName)) == sExtension;
}

bool SameFileName(std::string const& szA, std::string const& szB)
{
    if (szA == szB)
        return true;
    // Where case tells two files apart, one must not be taken for the other: it would be written over.
    std::error_code error;
    return LowerCase(szA) == LowerCase(szB) && std::filesystem::equivalent(szA, szB, error);
}

FileType FileTypeOf(std::string_view szName)
{
    struct KnownExtension
    {
        char const* sExtension;
        FileType type;
    };
    constexpr KnownExtension aKnown[] = {{".zrn", FileType::NATIVE},
                                         {".abc", FileType::ABC},
                                         {".mid", FileType::MIDI_PERFORMANCE},
                                         {".txt", FileType::ASCII_TAB},
                                         {".tab", FileType::ASCII_TAB}};
    std::string const sExtension = LowerCase(Extension(szName));
    for (KnownExtension const& known : aKnown)
        if (sExtension == known.sExtension)
            return known.type;
    return FileType::UNKNOWN;
}
} // namespace zarn
