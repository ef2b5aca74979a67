// Boxes, forms and file dialogs, answered as a user would.
#include "desktop/window_fixture.h"
#include "panels/forms.h"
#include "panels/hints.h"
#include "panels/new_tune.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <cstdlib>

namespace zarn
{
using DesktopDialogs = DesktopTest;

static Form NumberForm()
{
    return {7001,
            "Left margin percent (5)",
            "number",
            {{FormControl::EDIT, 7002, "", "5"},
             {FormControl::DEFAULT_BUTTON, IDOK, "OK"},
             {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
}

TEST_F(DesktopDialogs, ABoxHasItsButtonsItsWordsAndItsDefault)
{
    struct
    {
        uint32_t lFlags;
        int cButtons;
        int32_t lEnter, lEscape;
    } const aCase[] = {
        {MB_OK | MB_ICONSTOP, 1, IDOK, IDOK},
        {MB_OKCANCEL | MB_ICONQUESTION, 2, IDOK, IDCANCEL},
        {MB_OKCANCEL | MB_ICONQUESTION | MB_DEFBUTTON2, 2, IDCANCEL, IDCANCEL},
        {MB_YESNO | MB_ICONQUESTION, 2, IDYES, IDNO},
        {MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2, 2, IDNO, IDNO},
        {MB_YESNOCANCEL | MB_ICONQUESTION, 3, IDYES, IDCANCEL},
    };
    for (auto const& c : aCase)
    {
        WhenAsked(
            [&](QWidget* pWidget)
            {
                auto* const pBox = qobject_cast<QMessageBox*>(pWidget);
                ASSERT_NE(pBox, nullptr);
                EXPECT_EQ(pBox->buttons().size(), c.cButtons);
                EXPECT_EQ(pBox->text(), QStringLiteral("Not saved <yet>.\n\nSave?"));
                EXPECT_EQ(pBox->textFormat(), Qt::PlainText);
                EXPECT_EQ(pBox->windowTitle(), QStringLiteral("Zarn Message"));
                QTest::keyClick(pBox, Qt::Key_Return);
            });
        EXPECT_EQ(desktop.MessageBox("Not saved <yet>.\r\n\r\nSave?", "Zarn Message", c.lFlags), c.lEnter) << c.lFlags;
        WhenAsked([](QWidget* pBox) { QTest::keyClick(pBox, Qt::Key_Escape); });
        EXPECT_EQ(desktop.MessageBox("Save?", "Zarn Message", c.lFlags), c.lEscape) << c.lFlags;
    }
}

TEST_F(DesktopDialogs, AfterABoxKeysGoToTheScoreAgain)
{
    WhenAsked([](QWidget* pBox) { QTest::keyClick(pBox, Qt::Key_Return); });
    EXPECT_EQ(desktop.MessageBox("Save?", "Zarn Message", MB_OK), IDOK);
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::focusWidget() == Canvas(); }));
}

TEST_F(DesktopDialogs, ANumberIsTypedOverTheOneThatStandsThere)
{
    Form form = NumberForm();
    WhenAsked(
        [](QWidget* pDialog)
        {
            EXPECT_EQ(pDialog->windowTitle(), QStringLiteral("Left margin percent (5)"));
            QWidget* const pEdit = QApplication::focusWidget();
            QTest::keyClicks(pEdit, QStringLiteral("12"));
            QTest::keyClick(pEdit, Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "12");
}

TEST_F(DesktopDialogs, F1OpensTheManualWhichCanBeReadBesideTheDialog)
{
    QByteArray const path = qgetenv("PATH");
    qputenv("PATH", ""); // no other program shows it
    Form form = NumberForm();
    QPointer<QWidget> pManual;
    WhenAsked(
        [&](QWidget* pDialog)
        {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
            for (QWidget* const pWidget : QApplication::topLevelWidgets())
                if (pWidget->windowTitle() == QStringLiteral("Zarn help"))
                    pManual = pWidget;
            EXPECT_TRUE(pManual && pManual->isVisible() && pManual->parentWidget() == pDialog);
            pDialog->activateWindow();
            QTest::keyClick(pDialog, Qt::Key_Escape);
        });
    EXPECT_EQ(desktop.RunForm(form), IDCANCEL);
    EXPECT_TRUE(pManual.isNull());
    qputenv("PATH", path);
}

TEST_F(DesktopDialogs, ACancelledDialogLeavesTheTextAsItWas)
{
    Form form = NumberForm();
    WhenAsked(
        [](QWidget*)
        {
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("12"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        });
    EXPECT_EQ(desktop.RunForm(form), IDCANCEL);
    EXPECT_EQ(form.aControls[0].sText, "5");
}

TEST_F(DesktopDialogs, SignsThatAreKeysOfTheProgramAreJustTextInADialog)
{
    Form form = NumberForm();
    WhenAsked(
        [](QWidget* pDialog)
        {
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Ab p7/<x>"));
            QTest::keyClick(pDialog, Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "Ab p7/<x>");
    EXPECT_TRUE(door.events.empty());
}

TEST_F(DesktopDialogs, ATextIsHeldToItsBytesAndNoCharacterIsCut)
{
    Form form = NumberForm();
    form.aControls[0].lLimit = 5;
    WhenAsked(
        [](QWidget* pDialog)
        {
            qobject_cast<QLineEdit*>(QApplication::focusWidget())->insert(QStringLiteral("abädef"));
            QTest::keyClick(pDialog, Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "abäd");
}

TEST_F(DesktopDialogs, CtrlEnterBreaksALineOfLyricsAndEnterIsOk)
{
    for (int const lKey : {Qt::Key_Return, Qt::Key_Enter})
    {
        Form form = LyricsForm("Lyrics (Ctrl+Enter for new line)", "Alas\r\n", 100);
        WhenAsked(
            [lKey](QWidget* pDialog)
            {
                EXPECT_EQ(pDialog->windowTitle(), QStringLiteral("Lyrics (Ctrl+Enter for new line)"));
                QWidget* const pEdit = QApplication::focusWidget();
                QTest::keyClick(pEdit, Qt::Key_End, Qt::ControlModifier);
                QTest::keyClicks(pEdit, QStringLiteral("my"));
                QTest::keyClick(pEdit, static_cast<Qt::Key>(lKey), Qt::ControlModifier);
                QTest::keyClicks(pEdit, QStringLiteral("love"));
                QTest::keyClick(pEdit, static_cast<Qt::Key>(lKey));
            });
        EXPECT_EQ(desktop.RunForm(form), IDOK);
        EXPECT_EQ(form.Find(lInputEdit)->sText, "Alas\nmy\nlove");
    }
}

TEST_F(DesktopDialogs, EscapeLeavesTheLyricsAsTheyWere)
{
    Form form = LyricsForm("Lyrics", "Alas", 100);
    WhenAsked(
        [](QWidget*)
        {
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("my"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        });
    EXPECT_EQ(desktop.RunForm(form), IDCANCEL);
    EXPECT_EQ(form.Find(lInputEdit)->sText, "Alas");
}

TEST_F(DesktopDialogs, ALineBrokenAtTheLimitStaysWithinIt)
{
    Form form = LyricsForm("Lyrics", "Alas", 5);
    WhenAsked(
        [](QWidget*)
        {
            QWidget* const pEdit = QApplication::focusWidget();
            QTest::keyClick(pEdit, Qt::Key_End, Qt::ControlModifier);
            QTest::keyClick(pEdit, Qt::Key_Return, Qt::ControlModifier);
            QTest::keyClicks(pEdit, QStringLiteral("my"));
            QTest::keyClick(pEdit, Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.Find(lInputEdit)->sText, "Alas\n");
}

TEST_F(DesktopDialogs, ADialogWithAPlaceStandsThereAsFarAsTheScreenHasRoom)
{
    struct
    {
        POINT place;
        bool bThere;
    } const aCase[] = {{{40, 30}, true}, {{100'000, 100'000}, false}, {{-100'000, -100'000}, false}};
    for (auto const& c : aCase)
    {
        Form form = NumberForm();
        form.place = c.place;
        WhenAsked(
            [&](QWidget* pDialog)
            {
                QPoint const corner = Canvas()->mapToGlobal(QPoint(c.place.x, c.place.y));
                QRect const room = pDialog->screen()->availableGeometry();
                bool const bFits = room.contains(QRect(corner, pDialog->size()));
                EXPECT_EQ(pDialog->pos() == corner, c.bThere && bFits);
                EXPECT_LT(std::abs(pDialog->x()), 10'000);
                EXPECT_LT(std::abs(pDialog->y()), 10'000);
                QTest::keyClick(pDialog, Qt::Key_Return);
            });
        EXPECT_EQ(desktop.RunForm(form), IDOK);
    }
}

TEST_F(DesktopDialogs, ATimeSignatureIsTypedFieldByField)
{
    Form form = TimeSignatureForm("4", "4", 49);
    WhenAsked(
        [](QWidget* pDialog)
        {
            EXPECT_EQ(pDialog->windowTitle(), QStringLiteral("Time-signature Input"));
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("6"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("8"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.Find(lTimeNumerator)->sText, "6");
    EXPECT_EQ(form.Find(lTimeDenominator)->sText, "8");
}

TEST_F(DesktopDialogs, ANewTuneIsChosenByKeysAlone)
{
    Form form = NewTuneForm();
    form.Find(lNewTuneHint)->sLabel = std::string(Hint(22)); // one of two lines
    WhenAsked(
        [](QWidget* pDialog)
        {
            auto const aCombos = pDialog->findChildren<QComboBox*>();
            ASSERT_EQ(aCombos.size(), 3);
            EXPECT_EQ(aCombos[1]->currentText(), QStringLiteral("C  (open)    "));
            EXPECT_EQ(QApplication::focusWidget(), aCombos[0]);
            QTest::keyClick(aCombos[0], Qt::Key_Down);
            QTest::keyClick(aCombos[1], Qt::Key_G);
            QTest::keyClick(aCombos[2], Qt::Key_End);
            QTest::keyClick(pDialog->findChild<QCheckBox*>(), Qt::Key_Space);
            QTest::keyClick(pDialog, Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.Find(lNewTuneClef)->lValue, 1);
    EXPECT_EQ(form.Find(lNewTuneKey)->lValue, 7);
    EXPECT_EQ(form.Find(lNewTuneTime)->lValue, 10);
    EXPECT_EQ(form.Find(lNewTuneTablature)->lValue, 1);
}

static Form TuneForm()
{
    return {7005,
            "New tune",
            "form",
            {{FormControl::COMBO, 7006, "Clef", "", 0, {"Treble clef", "Alto clef", "Bass clef"}},
             {FormControl::CHECK, 7032, "Tablature"},
             {FormControl::STATIC, 7031, "'Toggle' means\nturn it on"},
             {FormControl::DEFAULT_BUTTON, IDOK, "OK"},
             {FormControl::BUTTON, 8020, "Guitar"},
             {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
}

TEST_F(DesktopDialogs, ChoicesAndChecksComeBack)
{
    Form form = TuneForm();
    WhenAsked(
        [](QWidget* pDialog)
        {
            QTest::keyClick(pDialog->findChild<QComboBox*>(), Qt::Key_Down);
            QTest::keyClick(pDialog->findChild<QCheckBox*>(), Qt::Key_Space);
            QTest::keyClick(pDialog, Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.Find(7006)->lValue, 1);
    EXPECT_EQ(form.Find(7032)->lValue, 1);
}

TEST_F(DesktopDialogs, AButtonOfItsOwnEndsTheDialogWithItsNumber)
{
    Form form = TuneForm();
    WhenAsked(
        [](QWidget* pDialog)
        {
            for (QPushButton* const pButton : pDialog->findChildren<QPushButton*>())
                if (pButton->text() == QStringLiteral("Guitar"))
                    QTest::mouseClick(pButton, Qt::LeftButton);
        });
    EXPECT_EQ(desktop.RunForm(form), 8020);
}

TEST_F(DesktopDialogs, ADoubleClickOnARowChoosesIt)
{
    Form form{1,
              "Select tune",
              "row",
              {{FormControl::LIST, 2, "", "", 0, {"Greensleeves", "Scarborough Fair", "Barbara Allen"}},
               {FormControl::DEFAULT_BUTTON, IDOK, "OK"},
               {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
    WhenAsked(
        [](QWidget* pDialog)
        {
            auto* const pList = pDialog->findChild<QListWidget*>();
            EXPECT_EQ(pList->currentRow(), 0);
            QPoint const place = pList->visualItemRect(pList->item(1)).center();
            QTest::mouseClick(pList->viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(pList->viewport(), Qt::LeftButton, {}, place);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.aControls[0].lValue, 1);
}

static FileDialog SaveDialog(QTemporaryDir const& folder)
{
    FileDialog dialog;
    dialog.sTitle = "Save file";
    dialog.aFilters = {{"Zarn files", "*.zrn"}, {"MIDI exchange files", "*.MID"}, {"MIDI performance files", "*.MID"}};
    dialog.szFile = folder.filePath(QStringLiteral("air.zrn")).toStdString();
    return dialog;
}

TEST_F(DesktopDialogs, TheSaveDialogGivesTheNameAndTheType)
{
    QTemporaryDir const folder;
    FileDialog dialog = SaveDialog(folder);
    WhenAsked(
        [](QWidget* pWidget)
        {
            auto* const pBox = qobject_cast<QFileDialog*>(pWidget);
            ASSERT_NE(pBox, nullptr);
            EXPECT_EQ(pBox->windowTitle(), QStringLiteral("Save file"));
            EXPECT_EQ(pBox->nameFilters().constFirst(), QStringLiteral("Zarn files (*.zrn)"));
            pBox->selectNameFilter(QStringLiteral("MIDI performance files (*.MID)"));
            auto* const pEdit = pBox->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            pEdit->selectAll();
            QTest::keyClicks(pEdit, QStringLiteral("reel.mid"));
            QTest::keyClick(pEdit, Qt::Key_Return);
        });
    ASSERT_TRUE(desktop.AskSaveName(dialog));
    EXPECT_EQ(dialog.szFile, folder.filePath(QStringLiteral("reel.mid")).toStdString());
    EXPECT_EQ(dialog.lFilter, 3);
}

TEST_F(DesktopDialogs, ACancelledFileDialogChangesNothing)
{
    QTemporaryDir const folder;
    FileDialog dialog = SaveDialog(folder);
    std::string const sBefore = dialog.szFile;
    for (bool const bSave : {true, false})
    {
        WhenAsked([](QWidget* pBox) { QTest::keyClick(pBox, Qt::Key_Escape); });
        EXPECT_FALSE(bSave ? desktop.AskSaveName(dialog) : desktop.AskOpenName(dialog));
        EXPECT_EQ(dialog.szFile, sBefore);
        EXPECT_EQ(dialog.lFilter, 1);
    }
}
TEST_F(DesktopDialogs, AButtonFillsFieldsInAndTheDialogGoesOn)
{
    Form form{8005,
              "String tuning",
              "form",
              {{FormControl::EDIT, 1, "Strings", "6"},
               {FormControl::EDIT, 2, "Top", "60"},
               {FormControl::FILL_BUTTON, 3, "Mandolin"},
               {FormControl::DEFAULT_BUTTON, IDOK, "OK"},
               {FormControl::BUTTON, IDCANCEL, "Cancel"}}};
    form.aControls[2].aFills = {{1, "4"}, {2, "76"}};
    WhenAsked(
        [](QWidget* pDialog)
        {
            for (QPushButton* const pButton : pDialog->findChildren<QPushButton*>())
                if (pButton->text() == QStringLiteral("Mandolin"))
                    pButton->click();
            ASSERT_TRUE(pDialog->isVisible());
            QTest::keyClick(pDialog, Qt::Key_Return);
        });
    EXPECT_EQ(desktop.RunForm(form), IDOK);
    EXPECT_EQ(form.aControls[0].sText, "4");
    EXPECT_EQ(form.aControls[1].sText, "76");
}

TEST_F(DesktopDialogs, ALongRunShowsHowFarItHasComeAndCanBeCalledOff)
{
    auto const box = [] { return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()); };
    EXPECT_TRUE(desktop.ShowProgress("Working", 3, 10));
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->labelText(), QStringLiteral("Working"));
    EXPECT_EQ(box()->value(), 3);
    EXPECT_TRUE(desktop.ShowProgress("Working", 4, 10));
    EXPECT_EQ(box()->value(), 4);
    EXPECT_TRUE(desktop.ShowProgress("Working", 10, 10));
    EXPECT_EQ(box(), nullptr);

    EXPECT_TRUE(desktop.ShowProgress("Working", 1, 10));
    box()->findChild<QPushButton*>()->click();
    EXPECT_FALSE(desktop.ShowProgress("Working", 2, 10));
    EXPECT_EQ(box(), nullptr);
    EXPECT_TRUE(desktop.ShowProgress("Working", 10, 10)) << "nothing is left to close";
}
} // namespace zarn
