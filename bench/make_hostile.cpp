// zarn_make_hostile KIND COUNT FILE: a native file of that many elements of one kind, as no sane hand writes them.
//
// Every road through the program must take time in proportion to COUNT on each of them.
#include "core/score.h"
#include "file/native.h"
#include "platform/files.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace zarn
{
namespace
{
void Add(int32_t lStaff, int32_t sort, int32_t lAt, int32_t lA = 0, int32_t lDiaPitch = 6, int32_t beam = BEAM_NONE)
{
    Element el;
    el.sort = sort;
    el.lStaff = lStaff;
    el.lA = lA;
    el.lDiaPitch = lDiaPitch;
    el.lStrX = lAt;
    el.beam = beam;
    if (sort == NOTE)
    {
        el.lB = 64;
        el.lDuration = 24;
    }
    List_AddLast(aStaffList[lStaff], &el, el.storage);
}

void AddWords(int32_t sort, int32_t lAt, int32_t cch)
{
    RoomyElement el;
    el.sort = sort;
    el.lStrX = lAt;
    el.lA = cch;
    el.storage = cbPlainElement + 1 + cch;
    std::memset(Element_TextBytes(&el), 'w', static_cast<size_t>(cch));
    List_AddLast(aStaffList[1], &el, el.storage);
}

struct Kind
{
    std::string_view sName;
    void (*pAdd)(int32_t n, int32_t cElements);
};

constexpr int32_t lGap = 4; ///< columns

constexpr Kind aKinds[] = {
    {"notes", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap); }},
    {"slur-starts", [](int32_t n, int32_t) { Add(1, SLUR, n * lGap, 0); }},
    {"slur-ends", [](int32_t n, int32_t) { Add(1, SLUR, n * lGap, 1); }},
    {"nested-slurs", [](int32_t n, int32_t c) { Add(1, SLUR, n * lGap, n >= c / 2); }},
    {"open-slurs-and-notes", [](int32_t n, int32_t) { Add(1, n % 2 ? NOTE : SLUR, n * lGap); }},
    {"ties", [](int32_t n, int32_t) { Add(1, TIE, n * lGap); }},
    {"tied-notes", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, fTiedOn | fTiedFrom); }},
    {"notes-tied-to-nothing", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, fTiedOn, n % 2 ? 40 : n % 30); }},
    {"first-time-bars", [](int32_t n, int32_t) { Add(1, REPEATFIRST, n * lGap); }},
    {"beam-starts", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, 0, 6, BEAM_FIRST); }},
    {"beam-inside", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, 0, 6, BEAM_INSIDE); }},
    {"one-beam",
     [](int32_t n, int32_t c) {
         Add(1, NOTE, n * lGap, 0, 6, n == 0 ? BEAM_FIRST : n == c - 1 ? BEAM_LAST : BEAM_INSIDE);
     }},
    {"one-column", [](int32_t n, int32_t) { Add(1, NOTE, 40, 0, n % 30 - 10); }},
    {"one-chord", [](int32_t n, int32_t c)
     { Add(1, NOTE, 40, (n > 0 ? fChordBefore : 0) | (n < c - 1 ? fChordMore : 0), n % 60 - 30); }},
    {"chord-flags", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, fChordBits); }},
    {"chord-starts", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, fChordMore); }},
    {"legers-above", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, 0, 32767); }},
    {"legers-below", [](int32_t n, int32_t) { Add(1, NOTE, n * lGap, 0, -32768); }},
    {"lyrics", [](int32_t n, int32_t) { AddWords(LYRICS, n * lGap, 4); }},
    {"lyrics-one-column", [](int32_t, int32_t) { AddWords(LYRICS, 40, 4); }},
    {"long-texts", [](int32_t n, int32_t) { AddWords(TEXT, n * lGap, cchLongestText); }},
    {"harmonies", [](int32_t n, int32_t) { AddWords(CHORD, n * lGap, 6); }},
    {"newlines", [](int32_t n, int32_t) { Add(n % 8 + 1, NEWLINE, n / 8 * lGap); }},
    {"far-apart", [](int32_t n, int32_t c) { Add(1, NOTE, static_cast<int32_t>(int64_t{n} * INT32_MAX / c)); }},
    {"at-the-end", [](int32_t n, int32_t c) { Add(1, NOTE, INT32_MAX - c + n); }},
    {"half-repeats", [](int32_t n, int32_t) { Add(1, n % 2 ? REPEATEND : NOTE, n * lGap); }},
    {"repeat-starts", [](int32_t n, int32_t) { Add(1, REPEATSTART, n * lGap); }},
    {"repeat-ends", [](int32_t n, int32_t) { Add(1, REPEATEND, n * lGap); }},
    {"repeats-both", [](int32_t n, int32_t) { Add(1, n % 2 ? REPEATENDSTART : NOTE, n * lGap); }},
    {"sharps", [](int32_t n, int32_t) { Add(1, SHARP, n * lGap, 0, n % 60000 - 30000); }},
    {"clefs", [](int32_t n, int32_t) { Add(1, CLEF, n * lGap, 1 + n % 4); }},
    {"keys", [](int32_t n, int32_t) { Add(1, KEYSIG, n * lGap, n % 15 - 7); }},
    {"times", [](int32_t n, int32_t) { Add(1, TIMESIG, n * lGap, 1 + n % 7); }},
    {"bars", [](int32_t n, int32_t) { Add(1, BAR, n * lGap); }},
    {"bars-on-all", [](int32_t n, int32_t) { Add(n % 8 + 1, BAR, n / 8 * lGap); }},
    {"rests", [](int32_t n, int32_t) { Add(1, REST, n * lGap); }},
    {"spaces", [](int32_t n, int32_t) { Add(1, SPACE, n * lGap); }},
    {"arpeggio-starts", [](int32_t n, int32_t) { Add(1, ARPEGSTART, n * lGap); }},
    {"arpeggio-ends", [](int32_t n, int32_t) { Add(1, ARPEGEND, n * lGap); }},
    {"tempos", [](int32_t n, int32_t) { Add(1, TEMPO, n * lGap, 120); }},
    {"bows", [](int32_t n, int32_t) { Add(1, BOWING, n * lGap, 1); }},
};

int Usage()
{
    std::fputs("usage: zarn_make_hostile KIND COUNT FILE, KIND one of\n", stderr);
    for (Kind const& kind : aKinds)
        std::fprintf(stderr, "  %s\n", kind.sName.data());
    return 2;
}

int Make(Kind const& kind, int32_t cElements, char const* szPath)
{
    Score_CreateLists();
    for (int32_t n = 0; n < cElements; ++n)
        kind.pAdd(n, cElements);
    HFILE const hFile = _lcreat(szPath);
    bool const bWritten = hFile && Native_Write(hFile) != 0;
    bool const bClosed = hFile && _lclose(hFile);
    Score_DestroyLists();
    return bWritten && bClosed ? 0 : 1;
}
} // namespace
} // namespace zarn

int main(int argc, char** argv)
{
    int32_t const cElements = argc == 4 ? std::atoi(argv[2]) : 0;
    if (cElements < 1)
        return zarn::Usage();
    for (zarn::Kind const& kind : zarn::aKinds)
        if (kind.sName == argv[1])
            return zarn::Make(kind, cElements, argv[3]);
    return zarn::Usage();
}
