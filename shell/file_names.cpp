// What a file's name tells.
#include "shell/file_names.h"

namespace zarn
{
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
    std::string sExtension = Extension(szName);
    for (char& c : sExtension)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    for (KnownExtension const& known : aKnown)
        if (sExtension == known.sExtension)
            return known.type;
    return FileType::UNKNOWN;
}
} // namespace zarn
