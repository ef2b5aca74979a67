/// Writing ABC into a text in a test.
#pragma once
#include "abc/abc_write.h"
#include "abc/abc_write_staff.h"
#include "abc_fixture.h"
#include "core/score.h"

namespace zarn::test
{
/// A process whose ABC ends its lines in LF, unless the test says otherwise.
class AbcWriteTest : public AbcTest
{
protected:
    AbcWriteTest() { bUseCrlf = false; }

    /// Staff 1 as text, in C and 4/4 at its start.
    static std::string StaffText()
    {
        std::string s;
        HFILE const hFile = File_IntoString(&s);
        bEndedAtLineStart = AbcWriteStaff(hFile, aStaffList[1], 0, 4, 4);
        _lclose(hFile);
        return s;
    }
    /// The text of a staff that holds these symbols alone.
    static std::string Text(std::string_view sScore)
    {
        Score_EmptyStaffs();
        bScoreDirty = false;
        Write(1, sScore);
        return StaffText();
    }
    /// The whole score as a tune.
    static std::string Tune(std::string_view sTitle = "", int32_t lNumber = 1)
    {
        std::string s;
        HFILE const hFile = File_IntoString(&s);
        EXPECT_TRUE(AbcWriteTune(hFile, sTitle, lNumber));
        _lclose(hFile);
        return s;
    }

    static inline bool bEndedAtLineStart = false;
};
} // namespace zarn::test
