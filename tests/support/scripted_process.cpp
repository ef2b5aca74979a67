// Shared state, put back value by value: a test must not see what an earlier one left.
#include "support/scripted_process.h"

#include "abc/abc_write.h"
#include "core/messages.h"
#include "core/score.h"
#include "render/geometry.h"
#include "tab/tuning.h"
#include "tab/weights.h"

#include <algorithm>
#include <iterator>

namespace zarn::test
{
static void ResetScore()
{
    lInsertStaff = 1;
    elCurrent = RoomyElement{};
    bScoreDirty = false;
    bTimesValid = true;
    bKeepBarsTogether = true;
    bBeamQuavers = true;
    bShowLayout = false;
    bChordsBelowStaff = true;
    bAutoLayout = true;
    lUndoState = UNDO_ADD;
    lUndoStaff = 1;
    std::fill(std::begin(afPlay), std::end(afPlay), 1);
}

static void ResetGeometry()
{
    lColsPerLine = lDefaultColsPerLine;
    lRowsPerPage = lDefaultRowsPerPage;
    lStaffSpace = 2;
    lLegersAbove = 8;
    lLegersBelow = 11;
    lStaffHeight = 27;
    lTopOffset = 8;
    lExtraBetweenSystems = 5;
    lScroll = 0;
    lStaffCount = 1;
    std::fill(std::begin(aStaffRow), std::end(aStaffRow), 1);
    std::fill(std::begin(aRowStaff), std::end(aRowStaff), 1);
    std::fill(std::begin(abStaffVisible), std::end(abStaffVisible), false);
    abStaffVisible[1] = true;
    bTabShowing = false;
    lPageWidth = lPageHeight = 1;
    lLeftMarginPx = lTopMarginPx = 0;
    lMarginLeft = lMarginRight = lMarginTop = lMarginBottom = 0;
    xunit = yunit = 1;
    lBlobX = lBlobY = 1;
    lStemLength = 1;
    bPrinting = bPrintScale = bNoClip = bDrawingCursor = false;
}

/// With no settings stored, the guitar and the weights that the program comes with.
static void ResetInstrument()
{
    Tab_LoadTuning();
    Fingering_LoadWeights([](FingeringWeight const&) {});
}

ScriptedProcess::ScriptedProcess() : previous(host)
{
    host = Host{};
    host.pUser = &user;
    host.pSettings = &settings;
    hwndMain = nullptr;
    Serious_Rearm();
    ResetScore();
    ResetGeometry();
    ResetInstrument();
    bUseCrlf = true;
    Score_CreateLists();
}

ScriptedProcess::~ScriptedProcess()
{
    Score_DestroyLists();
    hwndMain = nullptr;
    host = previous;
}
} // namespace zarn::test
