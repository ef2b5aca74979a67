#include "platform/headless/recording_surface.h"

#include <gtest/gtest.h>

using namespace zarn;

TEST(RecordingSurface, EachCallIsOneLineThatLeavesTheUsualUnsaid)
{
    RecordingSurface surface{{10, 10}};
    POINT const aPoints[] = {{0, 0}, {-4, 0}};
    surface.Line({0, 1}, {2, 3}, {});
    surface.Line({0, 1}, {2, 3}, {.lWidth = 3, .color = 0x0000FF});
    surface.Box({0, 1, 2, 3}, {}, {});
    surface.Ellipse({0, 1, 2, 3}, {.bNull = true}, {.color = 0x563412});
    surface.Polygon(aPoints, {}, {.bNull = true});
    surface.Text(1, 2.25, "Air", {.emPixels = 13, .stretch = 1.5, .bBold = true, .color = 0xFF0000});
    surface.Text(-0.001, 2, "Air", {.emPixels = 13.1});
    surface.Fill({0, 1, 2, 3}, 0);
    EXPECT_EQ(surface.All(), "line 0,1 2,3\n"
                             "line 0,1 2,3 pen 3 #ff0000\n"
                             "box 0,1 2,3\n"
                             "ellipse 0,1 2,3 pen none brush #123456\n"
                             "polygon 0,0 -4,0 brush none\n"
                             "text 1,2.25 em 13 stretch 1.5 bold #0000ff \"Air\"\n"
                             "text 0,2 em 13.1 \"Air\"\n"
                             "fill 0,1 2,3 #000000\n");
}
