// Any bytes as a journal: lines that can be read are written out as lines that read the same.
#include "platform/journal.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using namespace zarn;

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* pBytes, size_t cb)
{
    std::vector<std::string> aComplaints;
    for (JournalLine const& line : Journal_Parse({reinterpret_cast<char const*>(pBytes), cb}, aComplaints))
        if (Journal_ParseLine(Journal_Format(line)) != line)
            std::abort();
    return 0;
}
