#include "panels/number_text.h"

#include <gtest/gtest.h>

namespace zarn
{
TEST(AtoiLoose, ReadsWhatABoxCanHold)
{
    struct
    {
        char const* sText;
        int32_t lValue;
    } const aCase[] = {{"", 0},
                       {"12", 12},
                       {"12x", 12},
                       {"x", 0},
                       {"x12", 0},
                       {"-5", -5},
                       {"+7", 7},
                       {"--5", 0},
                       {"-", 0},
                       {" 5", 0},
                       {"3.9", 3},
                       {"1 000", 1},
                       {"2147483647", INT32_MAX},
                       {"-2147483648", INT32_MIN},
                       {"2147483648", INT32_MAX},
                       {"99999999999999999999999999", INT32_MAX},
                       {"-99999999999999999999999999", INT32_MIN}};
    for (auto const& c : aCase)
        EXPECT_EQ(AtoiLoose(c.sText), c.lValue) << c.sText;
}

TEST(AtoiLoose, ANullTextIsZero) { EXPECT_EQ(AtoiLoose(std::string_view()), 0); }
} // namespace zarn
