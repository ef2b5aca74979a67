// Staffs written and read as one line of text.
#include "support/score_text.h"

#include "core/text.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <stdexcept>
#include <vector>

namespace zarn::test
{
namespace
{
struct Sign
{
    char const* sToken;
    int32_t sort;
    int32_t lA;
};
constexpr Sign aSigns[] = {{"||", DOUBLEBAR, 0},      {"|:", REPEATSTART, 0}, {":|", REPEATEND, 0},
                           {"::", REPEATENDSTART, 0}, {"|", BAR, 0},          {"1st", REPEATFIRST, 0},
                           {"nl", NEWLINE, 0},        {"sp", SPACE, 0},       {"tie", TIE, 0},
                           {"up", BOWING, 1},         {"down", BOWING, 2},    {"arp(", ARPEGSTART, 0},
                           {"arp)", ARPEGEND, 0}};
constexpr Sign aNumbered[] = {{"clef:", CLEF, 0},       {"key:", KEYSIG, 0},  {"time:", TIMESIG, 0},
                              {"inst:", INSTRUMENT, 0}, {"tempo:", TEMPO, 0}, {"trans:", TRANSPOSE, 0},
                              {"vol:", VOLUME, 0},      {"#", SHARP, 0},      {"b", FLAT, 0},
                              {"=", NATURAL, 0}};
constexpr Sign aTexts[] = {{"chord\"", CHORD, 0}, {"lyr\"", LYRICS, 0},  {"title\"", TITLE, 0},
                           {"text\"", TEXT, 0},   {"annot\"", ANNOT, 0}, {"abc\"", ABC, 0}};

std::vector<std::string> Tokens(std::string_view s)
{
    std::vector<std::string> aTokens;
    std::string sToken;
    bool bQuoted = false;
    for (char const c : s)
    {
        bQuoted ^= c == '"';
        if (c == ' ' && !bQuoted)
        {
            if (!sToken.empty())
                aTokens.push_back(sToken);
            sToken.clear();
        }
        else
            sToken += c;
    }
    if (!sToken.empty())
        aTokens.push_back(sToken);
    return aTokens;
}

Element* Append(int32_t lStaff, RoomyElement& el)
{
    el.lStaff = lStaff;
    List_AddLast(aStaffList[lStaff], &el, el.storage);
    return StaffLast(lStaff);
}

void SetText(RoomyElement& el, std::string_view sText)
{
    std::memcpy(Element_TextBytes(&el), sText.data(), sText.size());
    el.lA = static_cast<int32_t>(sText.size());
    el.storage = cbPlainElement + 1 + el.lA;
}

bool Parse(std::string const& sToken, RoomyElement& el)
{
    for (Sign const& sign : aSigns)
        if (sToken == sign.sToken)
        {
            el.sort = sign.sort;
            el.lA = sign.lA;
            return true;
        }
    for (Sign const& sign : aTexts)
        if (sToken.starts_with(sign.sToken))
        {
            el.sort = sign.sort;
            size_t const cch = std::strlen(sign.sToken);
            SetText(el, std::string_view(sToken).substr(cch, sToken.size() - cch - 1));
            return true;
        }
    char const* const s = sToken.c_str();
    if (sToken[0] == 'n')
    {
        el.sort = NOTE;
        el.lB = 64;
        char* pEnd = nullptr;
        el.lDiaPitch = static_cast<int32_t>(std::strtol(s + 1, &pEnd, 10));
        el.lDuration = static_cast<int32_t>(std::strtol(pEnd + 1, &pEnd, 10));
        if (char const* const pFlag = std::strstr(pEnd, "flag="))
            el.lA |= std::atoi(pFlag + 5);
        el.up = el.lDiaPitch <= 6;
        return true;
    }
    if (sToken[0] == 'r')
    {
        el.sort = REST;
        el.lDuration = std::atoi(s + 1);
        return true;
    }
    for (Sign const& sign : aNumbered)
        if (sToken.starts_with(sign.sToken))
        {
            el.sort = sign.sort;
            char const* const sValue = s + std::strlen(sign.sToken);
            if (Sort_IsAccidental(el.sort))
                el.lDiaPitch = std::atoi(sValue);
            else
            {
                char* pEnd = nullptr;
                el.lA = static_cast<int32_t>(std::strtol(sValue, &pEnd, 10));
                if (*pEnd)
                    el.lB = std::atoi(pEnd + 1);
            }
            return true;
        }
    return false;
}
} // namespace

Element* Write(int32_t lStaff, std::string_view sScore)
{
    Element* const pelBefore = StaffLast(lStaff);
    std::vector<Element*> aOpenSlurs;
    int32_t lStrX = pelBefore ? pelBefore->lStrX : 0;
    bool bChord = false;
    bool bChordStarted = false;
    for (std::string sToken : Tokens(sScore))
    {
        if (sToken.starts_with("x:"))
        {
            lStrX = std::atoi(sToken.c_str() + 2);
            continue;
        }
        bool bChordEnds = false;
        if (sToken[0] == '[')
        {
            bChord = true;
            bChordStarted = false;
            sToken.erase(0, 1);
        }
        if (bChord && sToken.back() == ']')
        {
            bChordEnds = true;
            sToken.pop_back();
        }
        RoomyElement el;
        el.lStrX = lStrX;
        if (sToken == "slur(" || sToken == "slur)")
        {
            el.sort = SLUR;
            el.lDiaPitch = 12;
            el.lA = sToken == "slur)";
            Element* const pel = Append(lStaff, el);
            if (el.lA == 0)
                aOpenSlurs.push_back(pel);
            else
            {
                pel->pelPartner = aOpenSlurs.back();
                aOpenSlurs.back()->pelPartner = pel;
                aOpenSlurs.pop_back();
            }
            continue;
        }
        if (!Parse(sToken, el))
            throw std::invalid_argument("no such symbol: " + sToken);
        if (bChord && el.sort == NOTE)
        {
            el.lA |= bChordStarted ? fChordBefore : 0;
            el.lA |= bChordEnds ? 0 : fChordMore;
            bChordStarted = true;
        }
        bChord = bChord && !bChordEnds;
        Append(lStaff, el);
    }
    return pelBefore ? Next(pelBefore) : StaffFirst(lStaff);
}

static std::string Word(Element const* pel)
{
    if (pel->sort == NOTE)
    {
        std::string s = Format("n%d/%d", pel->lDiaPitch, pel->lDuration);
        int32_t const lChord = pel->lA & fChordBits;
        int32_t const lOther = pel->lA & ~fChordBits;
        if (lOther)
            s += Format("/flag=%d", lOther);
        return lChord == fChordMore ? "[" + s : lChord == fChordBefore ? s + "]" : s;
    }
    if (pel->sort == REST)
        return Format("r%d", pel->lDuration);
    if (pel->sort == SLUR)
        return pel->lA ? "slur)" : "slur(";
    for (Sign const& sign : aTexts)
        if (pel->sort == sign.sort)
            return sign.sToken + std::string(Element_Text(pel)) + "\"";
    for (Sign const& sign : aNumbered)
        if (pel->sort == sign.sort)
        {
            if (Sort_IsAccidental(pel->sort))
                return Format("%s%d", sign.sToken, pel->lDiaPitch);
            if (pel->sort == TIMESIG)
                return Format("%s%d/%d", sign.sToken, pel->lA, pel->lB);
            if (pel->sort == KEYSIG && pel->lB)
                return Format("%s%d,%d", sign.sToken, pel->lA, pel->lB);
            return Format("%s%d", sign.sToken, pel->lA);
        }
    for (Sign const& sign : aSigns)
        if (pel->sort == sign.sort && (pel->sort != BOWING || pel->lA == sign.lA))
            return sign.sToken;
    return Format("sort%d", pel->sort);
}

std::string Read(int32_t lStaff)
{
    std::string s;
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        s += (s.empty() ? "" : " ") + Word(pel);
    return s;
}

std::string Column(int32_t lStaff, int32_t Element::*pField)
{
    std::string s;
    for (Element const* pel = StaffFirst(lStaff); pel; pel = Next(pel))
        s += Format("%s%d", s.empty() ? "" : " ", pel->*pField);
    return s;
}

Element* At(int32_t lStaff, int32_t n)
{
    Element* pel = StaffFirst(lStaff);
    while (pel && n-- > 0)
        pel = Next(pel);
    return pel;
}
} // namespace zarn::test
