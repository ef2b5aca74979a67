// zarn_make_reels NOTES [STAFFS]: an ABC tune of that many notes on standard output.
#include "reels.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    int const notes = argc > 1 ? std::atoi(argv[1]) : 0;
    int const staffs = argc > 2 ? std::atoi(argv[2]) : 1;
    if (argc > 3 || notes < 1 || staffs < 1 || staffs > 8)
    {
        std::fputs("usage: zarn_make_reels NOTES [STAFFS]\n", stderr);
        return 2;
    }
    std::string const tune = zarn::bench::MakeReels(notes, staffs);
    return std::fwrite(tune.data(), 1, tune.size(), stdout) == tune.size() && std::fflush(stdout) == 0 ? 0 : 1;
}
