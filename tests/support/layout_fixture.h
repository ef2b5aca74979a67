/// What a test of layout or geometry starts from: a window of 1200 by 800 pixels, 150 columns, staff 1 showing.
#pragma once
#include "core/score.h"
#include "render/geometry.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

namespace zarn::test
{
class LayoutFixture : public testing::Test
{
protected:
    LayoutFixture() { SetWindowUnits({0, 0, 1200, 800}); }
    ~LayoutFixture() override { Geometry_Free(); }

    ScriptedProcess process;
};
} // namespace zarn::test
