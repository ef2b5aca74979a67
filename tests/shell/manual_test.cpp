// The manual tells every command with its key and every option, and nothing in it points to what isn't there.
#include "app/options.h"
#include "shell/menu.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace zarn
{
namespace
{
namespace fs = std::filesystem;

std::string Replaced(std::string s, std::string const& sOld, std::string const& sNew)
{
    for (size_t l = s.find(sOld); l != s.npos; l = s.find(sOld, l + sNew.size()))
        s.replace(l, sOld.size(), sNew);
    return s;
}

/// A page's text, its line breaks as blanks.
std::string ReadPage(fs::path const& file)
{
    std::ifstream stream(file);
    std::ostringstream sText;
    sText << stream.rdbuf();
    return Replaced(sText.str(), "\n", " ");
}

struct Manual : testing::Test
{
    Manual()
    {
        for (fs::directory_entry const& entry : fs::directory_iterator(ZARN_DOCS_DIR))
        {
            sNames.insert(entry.path().filename().string());
            if (entry.path().extension() == ".html")
                sPages[entry.path().filename().string()] = ReadPage(entry.path());
        }
        for (auto const& [sName, sPage] : sPages)
            sAll += sPage;
    }

    std::set<std::string> sNames; ///< of all files
    std::map<std::string, std::string> sPages;
    std::string sAll;
};

/// "(8)" or "(100%)".
bool IsNumberInBrackets(std::string const& s)
{
    constexpr char const* sDigits = "0123456789";
    size_t const lEnd = s.find_first_not_of(sDigits, 1);
    return s[0] == '(' && lEnd > 1 && lEnd != s.npos && (s.substr(lEnd) == ")" || s.substr(lEnd) == "%)");
}

/// As the manual has it: no mnemonic, no dots, and no number in force.
std::string PlainLabel(std::string sLabel)
{
    sLabel = sLabel.substr(0, sLabel.find('\t'));
    sLabel = Replaced(Replaced(Replaced(sLabel, "&&", "\1"), "&", ""), "\1", "&amp;");
    if (sLabel.ends_with("..."))
    {
        sLabel.erase(sLabel.size() - 3);
        if (size_t const lNumber = sLabel.rfind(" (");
            lNumber != sLabel.npos && IsNumberInBrackets(sLabel.substr(lNumber + 1)))
            sLabel.erase(lNumber);
    }
    return sLabel;
}

/// "Ctrl+z" for "^Z", as it may stand in the manual, in lower case.
std::string PlainKey(std::string const& sLabel)
{
    size_t const lTab = sLabel.find('\t');
    if (lTab == sLabel.npos)
        return {};
    std::string sKey = Replaced(Replaced(sLabel.substr(lTab + 1), "<", "&lt;"), ">", "&gt;");
    if (sKey[0] == '^')
        sKey = "ctrl+" + sKey.substr(1);
    std::transform(sKey.begin(), sKey.end(), sKey.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return sKey;
}

void CollectLabels(std::vector<MenuItem> const& aItems, std::vector<std::string>& aLabels)
{
    for (MenuItem const& item : aItems)
    {
        if (item.sLabel && *item.sLabel) // a file of the user's own has no label before there is one
            aLabels.emplace_back(item.sLabel);
        CollectLabels(item.aItems, aLabels);
    }
}

std::vector<std::string> MenuLabels()
{
    std::vector<std::string> aLabels;
    CollectLabels(MainMenu(), aLabels);
    return aLabels;
}

/// What stands between each sAhead and the next quotation mark.
std::vector<std::string> AllQuoted(std::string const& sText, std::string const& sAhead)
{
    std::vector<std::string> aFound;
    for (size_t l = sText.find(sAhead); l != sText.npos; l = sText.find(sAhead, l + 1))
        aFound.push_back(sText.substr(l + sAhead.size(), sText.find('"', l + sAhead.size()) - l - sAhead.size()));
    return aFound;
}

/// The words of a text that begin with a hyphen: "-o", "--tune".
std::vector<std::string> AllOptions(std::string const& sText)
{
    constexpr char const* sLetters = "abcdefghijklmnopqrstuvwxyz-";
    std::vector<std::string> aFound;
    for (size_t l = sText.find('-'); l != sText.npos;)
    {
        size_t const lEnd = sText.find_first_not_of(sLetters, l);
        std::string const sWord = sText.substr(l, lEnd - l);
        bool const bBegins = l > 0 && (sText[l - 1] == ' ' || sText[l - 1] == '[');
        if (bBegins && sWord.find_first_not_of('-') != sWord.npos)
            aFound.push_back(sWord);
        l = sText.find('-', lEnd);
    }
    return aFound;
}

TEST_F(Manual, NamesEveryEntryOfEveryMenu)
{
    std::vector<std::string> const aLabels = MenuLabels();
    EXPECT_GT(aLabels.size(), 500U);
    for (std::string const& sLabel : aLabels)
        EXPECT_NE(sAll.find("<b>" + PlainLabel(sLabel) + "</b>"), sAll.npos)
            << "the manual (docs/*.html) lacks <b>" << PlainLabel(sLabel) << "</b>";
}

TEST_F(Manual, HasTheKeyBesideTheCommand)
{
    for (std::string const& sLabel : MenuLabels())
    {
        std::string const sKey = PlainKey(sLabel);
        if (sKey.empty())
            continue;
        std::string const sCell = "<b>" + PlainLabel(sLabel) + "</b></td><td>";
        size_t const lRow = sAll.find(sCell);
        ASSERT_NE(lRow, sAll.npos) << "no row of a table of commands begins with " << sCell;
        std::string sKeys =
            sAll.substr(lRow + sCell.size(), sAll.find("</td>", lRow + sCell.size()) - lRow - sCell.size());
        std::transform(sKeys.begin(), sKeys.end(), sKeys.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        EXPECT_NE(sKeys.find("<kbd>" + sKey + "</kbd>"), sKeys.npos) << PlainLabel(sLabel) << ": " << sKeys;
    }
}

TEST_F(Manual, TellsEveryOptionOfTheCommandLine)
{
    std::vector<std::string> const aOptions = AllOptions(Options_Help());
    EXPECT_GT(aOptions.size(), 20U);
    for (std::string const& sOption : aOptions)
    {
        std::string const& sPage = sPages["command-line.html"];
        EXPECT_TRUE(sPage.find("<code>" + sOption + "<") != sPage.npos ||
                    sPage.find("<code>" + sOption + " ") != sPage.npos)
            << sOption;
    }
}

TEST_F(Manual, PointsOnlyToWhatIsThere)
{
    for (auto const& [sName, sPage] : sPages)
    {
        for (std::string const& sPicture : AllQuoted(sPage, "<img src=\""))
            EXPECT_TRUE(sNames.contains(sPicture)) << sName << " shows " << sPicture;
        for (std::string const& sLink : AllQuoted(sPage, "<a href=\""))
        {
            size_t const lAnchor = sLink.find('#');
            std::string const sTarget = lAnchor == 0 ? sName : sLink.substr(0, lAnchor);
            ASSERT_TRUE(sPages.contains(sTarget)) << sName << " leads to " << sLink;
            if (lAnchor == sLink.npos)
                continue;
            EXPECT_NE(sPages[sTarget].find("<a name=\"" + sLink.substr(lAnchor + 1) + "\">"), std::string::npos)
                << sName << " leads to " << sLink;
        }
    }
}

TEST_F(Manual, ShowsEveryPictureThatIsDrawnForIt)
{
    for (std::string const& sName : sNames)
    {
        bool const bPicture = sName.ends_with(".png");
        EXPECT_TRUE(!bPicture || sAll.find("<img src=\"" + sName + "\"") != sAll.npos) << sName;
    }
}

TEST_F(Manual, NamesEverySampleThatAUserMayOpen)
{
    for (fs::directory_entry const& entry : fs::directory_iterator(ZARN_SAMPLES_DIR))
        EXPECT_NE(sPages["files.html"].find("<code>" + entry.path().filename().string() + "</code>"), std::string::npos)
            << entry.path().filename();
}
} // namespace
} // namespace zarn
