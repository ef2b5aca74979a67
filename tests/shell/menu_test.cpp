// The menu bar word for word: labels, mnemonics, keys, what is grey at the start.
#include "shell/menu.h"

#include "shell/command_numbers.h"
#include "shell/menu_parts.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

namespace zarn
{
namespace
{
void Collect(std::vector<MenuItem> const& aItems, std::map<int32_t, std::string>& labels, std::set<int32_t>& grey)
{
    for (MenuItem const& item : aItems)
    {
        if (item.lCommand != 0)
            labels[item.lCommand] = item.sLabel;
        if (item.bGrey)
            grey.insert(item.lCommand);
        Collect(item.aItems, labels, grey);
    }
}

struct MenuBar : testing::Test
{
    MenuBar() { Collect(MainMenu(), labels, grey); }
    std::map<int32_t, std::string> labels;
    std::set<int32_t> grey;
};

/// The numbers of a menu in its order; a separator is 0.
std::vector<int32_t> Numbers(std::vector<MenuItem> const& aItems)
{
    std::vector<int32_t> aNumbers;
    for (MenuItem const& item : aItems)
        aNumbers.push_back(item.lCommand);
    return aNumbers;
}

MenuItem Submenu(std::vector<MenuItem> const& aItems, std::string const& sLabel)
{
    for (MenuItem const& item : aItems)
        if (item.sLabel && item.sLabel == sLabel)
            return item;
    ADD_FAILURE() << sLabel;
    return {0, "none"};
}
} // namespace

TEST_F(MenuBar, EachCommandHasItsLabelItsMnemonicAndItsKey)
{
    std::pair<int32_t, char const*> const aCase[] = {
        {1, "&New...\tCtrl+n"},
        {2, "&Open...\tCtrl+o"},
        {3, "&Save\tCtrl+s"},
        {4, "Save &As..."},
        {5, "&Print"},
        {15, "Print &1 copy"},
        {16, "Print pre&view..."},
        {17, "Save as P&DF..."},
        {8, "E&xit"},
        {59, "&Undo\t^Z"},
        {51, "Cu&t\t^X"},
        {52, "&Copy\t^C"},
        {53, "&Paste\t^V"},
        {54, "Mark &Begin\t<"},
        {55, "Mark &End\t>"},
        {56, "Clear &Mark\tF4"},
        {58, "&Slur mark"},
        {162, "&Gracenote\t8"},
        {116, "Repeat &Start\t{"},
        {117, "Repeat &End\t}"},
        {118, "Repeat &Both End+Start\tR"},
        {160, "Repeat &First Time Only"},
        {119, "&Bar\t/"},
        {120, "&Double Bar\t|"},
        {122, "Sharp\t#"},
        {123, "Natural\t="},
        {124, "Flat\tb"},
        {138, "1/2"},
        {139, "2/2"},
        {140, "3/2"},
        {141, "4/2"},
        {142, "2/4"},
        {143, "3/4"},
        {144, "4/4"},
        {145, "6/4"},
        {146, "6/8"},
        {147, "9/8"},
        {148, "12/8"},
        {186, "Other..."},
        {149, "&Word\tW"},
        {150, "&Harmony\tH"},
        {178, "&Title"},
        {184, "&Text"},
        {185, "&Annotation"},
        {181, "&Lyrics\tL"},
        {152, "&Space\tspace"},
        {153, "&Newline\tn"},
        {158, "&Insert point for piano\tv"},
        {179, "Mark arpeggio start\t["},
        {180, "Mark arpeggio end\t]"},
        {187, "&Upbow / upstrum\tu"},
        {188, "&Downbow / downstrum\td"},
        {320, "T&ie notes\tt"},
        {201, "&Keep bars together"},
        {202, "&Show invisible elements"},
        {203, "&Beam quavers"},
        {227, "Show arpeggio marks"},
        {208, "&Edit mode"},
        {215, "&Right justified"},
        {216, "&Adjust continuously"},
        {204, "&Clarinet transpose"},
        {228, "&Guitar transpose"},
        {205, "&Double Speed"},
        {214, "Endless Repeat Play"},
        {209, "Barn Dance Mode"},
        {210, "Play dotted crotchet (1/4)"},
        {211, "Play dotted quaver (1/8)"},
        {212, "Play Ornaments as semitone rolls"},
        {213, "Play Ornaments as bowed triplet"},
        {221, "Play Ornaments as diatonic rolls"},
        {610, "Show place being played"},
        {217, "Default Instrument Number..."},
        {219, "Play guitar chords"},
        {311, "&Play (hold down CTRL to stop play)\tp"},
        {312, "&UndoMidi"},
        {313, "&InitMidi"},
        {206, "&Piano keyboard"},
        {207, "Record MIDI IN (flakey!!)"},
        {223, "&Note Palette"},
        {218, "Use CRLF, not just LF for linefeeds in ABC output"},
        {220, "Put chord symbols below staff"},
        {226, "Wait for each page"},
        {222, "Set current horiz/vert stretch/squeeze as default spacing"},
        {229, "Font size scaling factor (100%)..."},
        {230, "Leger notes above staff..."},
        {231, "Leger notes below staff..."},
        {232, "Extra between systems..."},
        {233, "Left margin percent..."},
        {234, "Right margin percent..."},
        {235, "Top margin percent..."},
        {236, "Bottom margin percent..."},
        {237, "Alter strings or tuning..."},
        {704, "Add finger (5)..."},
        {705, "Remove finger (5)..."},
        {706, "Move finger (30)..."},
        {707, "Hold barlock (10)..."},
        {708, "Add barlock (20)..."},
        {709, "Remove barlock (10)..."},
        {710, "Move barlock (60)..."},
        {701, "Unnatural transitions (60)..."},
        {702, "Unnatural fingerings (30)..."},
        {703, "Fingers in use (8)..."},
        {711, "Finger movement (10)..."},
        {712, "Wrist position (20)..."},
        {713, "Wrist movement (10)..."},
        {714, "Max stretch (175)..."},
        {790, "Avoid open strings (0)..."},
        {723, "Bar strings 1..2 (15)..."},
        {726, "Bar strings 2..3 (25)..."},
        {732, "Bar strings 3..4 (25)..."},
        {744, "Bar strings 4..5 (25)..."},
        {768, "Bar strings 5..6 (25)..."},
        {727, "Bar strings 1..3 (30)..."},
        {735, "Bar strings 1..4 (35)..."},
        {751, "Bar strings 1..5 (45)..."},
        {783, "Bar strings 1..6 (60)..."},
        {303, "Create optimised/Hide tablature\tf"},
        {336, "Show/Hide Tablature\ts"},
        {304, "Optimise Tablature\to"},
        {301, "&Full Adjust\ta"},
        {302, "Mini Adjust"},
        {315, "&Remove Spurious #/b"},
        {321, "Remove all &Newlines"},
        {305, "&Keyboard mode\tEsc"},
        {306, "Mouse mode\tEsc"},
        {309, "Stretch-horiz\t+"},
        {310, "Squeeze-horiz\t-"},
        {316, "Stretch-vert\tAlt++"},
        {317, "Squeeze-vert\tAlt+-"},
        {319, "Reset Spacing to default"},
        {600, "Help"},
        {601, "Brief info about Zarn"},
    };
    for (auto const& [lCommand, sLabel] : aCase)
        EXPECT_EQ(labels[lCommand], sLabel) << lCommand;
}

TEST_F(MenuBar, BrievesTheClipboardAndTheModeInForceStartGrey)
{
    EXPECT_EQ(grey, (std::set<int32_t>{51, 52, 53, 100, 106, 306}));
}

TEST_F(MenuBar, WhatHasNoMenuEntryStandsInNone)
{
    for (int32_t const lCommand :
         {57, 224, 225, 307, 308, 314, 400, 401, 402, 403, 404, 405, 406, 407, 9000, 9001, 9002})
        EXPECT_FALSE(labels.contains(lCommand)) << lCommand;
}

TEST_F(MenuBar, LengthsVolumesAndKeysAreAllThere)
{
    for (int32_t const lCommand :
         {100, 101, 102, 103, 104, 105, 155, 106, 107, 108, 109, 110, 111, 156, 121, 182, 157, 159, 151, 161, 163, 164})
        EXPECT_TRUE(labels.contains(lCommand)) << lCommand;
    for (int32_t n = 0; n <= 8; ++n)
    {
        std::string const sLevel = "(" + std::to_string(n * 15 + 4) + ")";
        EXPECT_TRUE(labels[340 + n].ends_with(sLevel)) << labels[340 + n];
    }
    for (int32_t lKey = -6; lKey <= 6; ++lKey)
    {
        EXPECT_TRUE(labels.contains(131 + lKey)) << lKey;
        EXPECT_EQ(labels[131 + lKey], labels[171 + lKey]) << "the two menus name a key alike";
    }
    for (int32_t lStaff = 1; lStaff <= 8; ++lStaff)
    {
        EXPECT_EQ(labels[500 + lStaff], "Staff &" + std::to_string(lStaff));
        EXPECT_EQ(labels[510 + lStaff], "Staff &" + std::to_string(lStaff));
    }
}

TEST(TempoMenuTable, GroupsItsTemposUnderTheirNames)
{
    std::pair<char const*, std::vector<int32_t>> const aCase[] = {
        {"&Practically stopped(40s)", {40, 42, 44, 46, 48}},
        {"&Largo (50s)", {50, 52, 54, 56, 58}},
        {"&Adagio (60s)", {60, 63, 66, 69}},
        {"&Moderato (80ish)", {72, 76, 80, 84, 88}},
        {"&Andante (100ish)", {92, 96, 100, 104, 108}},
        {"&Allegretto (115ish)", {112, 116, 120}},
        {"&Allegro (140ish)", {126, 132, 138, 144, 152}},
        {"&Presto (180ish)", {160, 168, 176, 184, 192, 200}},
        {"&Prestissimo (230ish)", {210, 220, 230, 240, 250}},
        {"&Bloody quick (290ish)", {262, 275, 288, 300, 315}}};
    std::vector<MenuItem> const aMenu = TempoMenu();
    ASSERT_EQ(aMenu.size(), std::size(aCase));
    for (size_t n = 0; n < aMenu.size(); ++n)
    {
        EXPECT_STREQ(aMenu[n].sLabel, aCase[n].first);
        std::vector<int32_t> aTempos;
        for (MenuItem const& item : aMenu[n].aItems)
        {
            aTempos.push_back(item.lCommand - 2000);
            EXPECT_EQ(item.sLabel, std::to_string(item.lCommand - 2000));
        }
        EXPECT_EQ(aTempos, aCase[n].second) << aCase[n].first;
    }
}

TEST(TransposeMenus, GoFromTheTopDownBySemitonesAndOctaves)
{
    std::vector<int32_t> aPlayed = {3148, 3136, 3124};
    std::vector<int32_t> aMark;
    std::vector<int32_t> aAll;
    for (int32_t n = 12; n >= -12; --n)
    {
        aPlayed.push_back(3100 + n);
        if (n == 0)
            continue; // to transpose by nothing is no command
        aMark.push_back(4100 + n);
        aAll.push_back(4300 + n);
    }
    aPlayed.insert(aPlayed.end(), {3076, 3064, 3052});
    MenuItem const played = Submenu(SymbolMenu(), "P&lay Transposed");
    EXPECT_EQ(Numbers(played.aItems), aPlayed);
    EXPECT_STREQ(Submenu(played.aItems, "Normal pitch").sLabel, "Normal pitch");
    std::vector<MenuItem> const aEdit = Submenu(MainMenu(), "&Edit").aItems;
    EXPECT_EQ(Numbers(Submenu(aEdit, "T&ranspose Mark").aItems), aMark);
    EXPECT_EQ(Numbers(Submenu(aEdit, "Transpose &All").aItems), aAll);
}
} // namespace zarn
