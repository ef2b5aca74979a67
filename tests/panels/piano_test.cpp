// The piano keyboard: its keys, its picture, its clicks.
#include "panels/piano.h"

#include "core/messages.h"
#include "edit/current_symbol.h"
#include "panels/panel_size.h"
#include "platform/headless/recording_surface.h"
#include "platform/memory.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
constexpr SIZE sizePiano{1190, 195};

bool operator==(PianoKey const& a, PianoKey const& b) { return a.lDiaPitch == b.lDiaPitch && a.bBlack == b.bBlack; }

class Piano : public testing::Test
{
protected:
    Piano()
    {
        bPaletteShowing = false;
        hwndMain = process.user.CreateMainWindow("Zarn", nullptr);
        pPiano = Piano_Create(hwndMain);
        pPiano->SetPlace({5, 600, 5 + sizePiano.cx, 600 + sizePiano.cy});
        CurrentSymbol_SetNote(48);
    }
    ~Piano() override { bPaletteShowing = false; }

    std::string Painted()
    {
        RecordingSurface surface{pPiano->ClientSize()};
        static_cast<HeadlessPanel*>(pPiano)->PaintOn(surface);
        return surface.All();
    }
    static int32_t Line(int32_t i) { return sizePiano.cx * i / cPianoKeys; }

    test::DrawingProcess process;
    Panel* pPiano = nullptr;
};

TEST_F(Piano, EveryWhiteKeyHasItsPosition)
{
    for (int32_t k = 0; k < cPianoKeys; ++k)
    {
        int32_t const x = (Line(k) + Line(k + 1)) / 2;
        EXPECT_TRUE(Piano_KeyAt(sizePiano, {x, 190}) == (PianoKey{k - 21, false})) << k;
    }
}

TEST_F(Piano, ABlackKeyIsTheWhiteOneToItsLeftMadeSharp)
{
    for (int32_t i = 1; i < cPianoKeys; ++i)
    {
        int32_t const n = i % 7;
        if (n == 1 || n == 2 || n == 4 || n == 5 || n == 6)
        {
            EXPECT_TRUE(Piano_KeyAt(sizePiano, {Line(i), 10}) == (PianoKey{i - 22, true})) << i;
        }
    }
}

TEST_F(Piano, BetweenEAndFAndBetweenBAndCThereIsNoBlackKey)
{
    for (int32_t const i : {3, 7, 24, 28})
        EXPECT_FALSE(Piano_KeyAt(sizePiano, {Line(i), 10}).bBlack) << i;
}

TEST_F(Piano, TheLowerHalfIsWhite)
{
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {Line(22) + 1, 97}).bBlack);
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {Line(22) + 1, 98}) == (PianoKey{1, false}));
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {Line(22) - 1, 98}) == (PianoKey{0, false}));
}

TEST_F(Piano, ABlackKeyReachesLessThanHalfItsWidthFromItsLine)
{
    // 1190 * 3 / 43 / 8 is 10
    for (int32_t const lOff : {-9, 9})
        EXPECT_TRUE(Piano_KeyAt(sizePiano, {Line(22) + lOff, 10}).bBlack) << lOff;
    for (int32_t const lOff : {-10, 10})
        EXPECT_FALSE(Piano_KeyAt(sizePiano, {Line(22) + lOff, 10}).bBlack) << lOff;
}

TEST_F(Piano, TheFarLeftIsThreeOctavesBelowMiddleC)
{
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {0, 190}) == (PianoKey{-21, false}));
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {0, 0}) == (PianoKey{-21, false}));
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {-5, 0}) == (PianoKey{-21, false}));
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {sizePiano.cx - 1, 190}) == (PianoKey{21, false}));
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {INT32_MAX, 190}) == (PianoKey{21, false}));
    EXPECT_TRUE(Piano_KeyAt({}, {3, 3}) == (PianoKey{-21, false}));
}

TEST_F(Piano, TheRightEdgeIsALineLikeAnyOther)
{
    // No black key is drawn there, yet the upper end of the last white one sounds as if half of one were.
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {sizePiano.cx - 1, 10}) == (PianoKey{21, true}));
    EXPECT_TRUE(Piano_KeyAt(sizePiano, {sizePiano.cx - 10, 10}) == (PianoKey{21, false}));
}

TEST_F(Piano, AClickAddsTheNoteLaysOutAndOwesARepaint)
{
    test::Write(1, "clef:1 time:4/4");
    pelInsertPoint = StaffLast(1);
    process.user.pWindow->RunLoop();
    Piano_Click(*pPiano, Line(21) + 14, 190);
    EXPECT_EQ(test::Read(1), "clef:1 time:4/4 n0/48");
    EXPECT_EQ(pelInsertPoint, StaffLast(1));
    EXPECT_TRUE(process.user.pWindow->bRepaintOwed);
    EXPECT_EQ(process.user.pWindow->cDrawsOpen, 0);
    EXPECT_TRUE(bScoreDirty);
    EXPECT_GT(StaffLast(1)->lX, 0);
}

TEST_F(Piano, ABlackKeyAddsASharp)
{
    test::Write(1, "clef:1");
    pelInsertPoint = StaffLast(1);
    Piano_Click(*pPiano, Line(22), 10);
    EXPECT_EQ(test::Read(1), "clef:1 #0 n0/48");
}

TEST_F(Piano, ABlackKeyInAFlatKeyIsTheNoteAboveWithAFlat)
{
    test::Write(1, "clef:1 key:-1");
    pelInsertPoint = StaffLast(1);
    Piano_Click(*pPiano, Line(22), 10);
    EXPECT_EQ(StaffLast(1)->sort, NOTE);
    EXPECT_EQ(StaffLast(1)->lDiaPitch, 1);
}

TEST_F(Piano, WithARestAsCurrentSymbolTheUserIsToldAndNothingChanges)
{
    CurrentSymbol_SetRest(48);
    test::Write(1, "clef:1 time:4/4 n0/48");
    Piano_Click(*pPiano, 100, 190);
    EXPECT_EQ(test::Read(1), "clef:1 time:4/4 n0/48");
    ASSERT_EQ(process.user.Messages().size(), 1u);
    EXPECT_EQ(process.user.Messages()[0], "Piano works only with notes\nSet current symbol first\nShortcut keys 1..6");
}

TEST_F(Piano, UnderThePaletteTheBlackKeysAreHalfOfWhatCanBeSeen)
{
    bPaletteShowing = true;
    Piano_Click(*pPiano, Line(22), 48);
    EXPECT_EQ(lPanelHeight, 97);
    EXPECT_EQ(test::Read(1), "clef:1 #0 n0/48");
    Piano_Click(*pPiano, Line(22), 49);
    EXPECT_EQ(StaffLast(1)->lDiaPitch, 0);
    EXPECT_EQ(elCurrent.sort, NOTE);
    EXPECT_NE(Painted().find(",48\n"), std::string::npos);
}

TEST_F(Piano, ItsPictureIsSixOctaves)
{
    std::string const sPainted = Painted();
    EXPECT_EQ(test::Count(sPainted, "line"), 42);
    EXPECT_EQ(test::Count(sPainted, "box"), 30);
    test::ExpectGolden("piano", sPainted);
}

TEST_F(Piano, EachKeyTellsItsName)
{
    PanelContent& content = *process.user.panels.front()->setup.pContent;
    EXPECT_EQ(content.TipAt(*pPiano, {Line(21) + 14, 190}), "Middle C");
    EXPECT_EQ(content.TipAt(*pPiano, {Line(22), 10}), "C sharp");
    EXPECT_EQ(content.TipAt(*pPiano, {Line(20) + 14, 190}), "B");
    EXPECT_EQ(content.TipAt(*pPiano, {0, 190}), "C");
}

TEST_F(Piano, WithoutAPanelTheProgramGoesOnAndTheDebuggerIsTold)
{
    sLastDebugString.clear();
    process.user.bPanelsWork = false;
    EXPECT_EQ(Piano_Create(hwndMain), nullptr);
    EXPECT_EQ(sLastDebugString, "Piano creation failed\n");
    process.user.bPanelClassesWork = false;
    EXPECT_EQ(Piano_Create(hwndMain), nullptr);
    EXPECT_EQ(sLastDebugString, "Piano didn't register\n");
}
} // namespace
} // namespace zarn
