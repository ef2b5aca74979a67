/// Reading ABC from a text in a test.
#pragma once
#include "abc/abc_index.h"
#include "abc/abc_reader.h"
#include "support/score_text.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace zarn::test
{
/// A process whose ABC complaints are gathered instead of listed.
class AbcTest : public testing::Test
{
protected:
    AbcTest()
    {
        bAbcListing = false;
        aComplaints.clear();
        pOnAbcComplaint = [](AbcComplaint const& complaint) { aComplaints.push_back(complaint); };
    }
    ~AbcTest() override
    {
        bAbcListing = true;
        pOnAbcComplaint = nullptr;
    }

    /// Reads tune lNumber of a text.
    int32_t ReadText(std::string_view sText, int32_t lNumber = 1)
    {
        HFILE const hFile = File_FromBytes(sText);
        int32_t const lResult = ReadAbcNumbered(hFile, lNumber, &sTitle);
        _lclose(hFile);
        return lResult;
    }
    /// The music of staff 1 from one line of music in C, 4/4, counted in quavers, without the staff's header.
    std::string Music(std::string const& sMusic)
    {
        Score_EmptyStaffs();
        ReadText("X:1\r\nL:1/8\r\nK:C\r\n" + sMusic + "\\\r\n");
        std::string const sHeader = "title\"\" clef:1 time:4/4";
        std::string const sStaff = Read(1);
        EXPECT_TRUE(sStaff.starts_with(sHeader)) << sStaff;
        return sStaff.size() > sHeader.size() ? sStaff.substr(sHeader.size() + 1) : "";
    }
    /// The texts of the complaints, one a line.
    static std::string Complaints()
    {
        std::string s;
        for (AbcComplaint const& complaint : aComplaints)
            s += complaint.sText + "\n";
        return s;
    }

    ScriptedProcess process;
    std::string sTitle;
    static inline std::vector<AbcComplaint> aComplaints;
};
} // namespace zarn::test
