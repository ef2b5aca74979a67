// One column of controls in the table's order, and the buttons in a row below them.
#include "platform/desktop/form_dialog.h"

#include "platform/desktop/manual.h"
#include "platform/desktop/qt_text.h"
#include "platform/utf8.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <algorithm>
#include <functional>
#include <map>
#include <utility>

namespace zarn
{
namespace
{
constexpr int lEditWidth = 360;  // pixels, for a line of lyrics or a file name
constexpr int lTextHeight = 160; // of a text of several lines
constexpr int lListHeight = 320;

/// Holds a typed text to its number of bytes.
template <typename EDIT>
void Limit(EDIT& edit, FormControl const& control, std::function<void(QString const&)> set, QString const& sText)
{
    std::string const sBytes = sText.toStdString();
    if (control.lLimit <= 0 || sBytes.size() <= static_cast<size_t>(control.lLimit))
        return;
    QSignalBlocker const quiet(edit);
    std::string_view const sKept = Utf8_Prefix(sBytes, static_cast<size_t>(control.lLimit));
    set(QString::fromUtf8(sKept.data(), static_cast<qsizetype>(sKept.size())));
}

/// A text of several lines in a dialog: ENTER ends the dialog, as it does everywhere else, and Ctrl+ENTER begins a
/// line.
class LinesEdit : public QPlainTextEdit
{
public:
    LinesEdit(QString const& sText, std::function<void()> onEnter) : QPlainTextEdit(sText), onEnter(std::move(onEnter))
    {
    }

protected:
    void keyPressEvent(QKeyEvent* pEvent) override
    {
        bool const bEnter = pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter;
        if (bEnter && (pEvent->modifiers() & Qt::ControlModifier))
            insertPlainText(QStringLiteral("\n"));
        else if (bEnter)
            onEnter();
        else
            QPlainTextEdit::keyPressEvent(pEvent);
    }

private:
    std::function<void()> onEnter;
};

class FormDialog : public QDialog
{
public:
    FormDialog(Form& form, QWidget* pParent);
    int32_t Run();
    void MoveTo(QPoint corner);

private:
    void Add(FormControl& control);
    void AddRow(FormControl const& control, QWidget* pWidget);
    void AddEdit(FormControl& control);
    void AddMultiLine(FormControl& control);
    void AddCombo(FormControl& control);
    void AddCheck(FormControl& control);
    void AddList(FormControl& control);
    void AddSearch(QListWidget& list);
    void AddButton(FormControl const& control);
    void AddFillButton(FormControl const& control);
    void PressDefault();

    QFormLayout* pRows = new QFormLayout;
    QHBoxLayout* pButtons = new QHBoxLayout;
    QPushButton* pDefault = nullptr;
    QWidget* pFirst = nullptr;  ///< where typing begins
    QLabel* pHeading = nullptr; ///< of the field to come
    std::vector<std::function<void()>> aReadBack;
    std::map<int32_t, QLineEdit*> edits; ///< by control
};

FormDialog::FormDialog(Form& form, QWidget* pParent) : QDialog(pParent)
{
    setWindowTitle(ToQt(form.sTitle));
    constexpr int lTitleButtons = 140; // pixels, and the icon
    setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + lTitleButtons);
    QObject::connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
                     [] { (void)Manual_Show(); });
    auto* const pAll = new QVBoxLayout(this);
    pAll->addLayout(pRows);
    pAll->addLayout(pButtons);
    pButtons->addStretch();
    for (FormControl& control : form.aControls)
        Add(control);
    if (pFirst)
        pFirst->setFocus();
    if (auto* const pEdit = qobject_cast<QLineEdit*>(pFirst))
        pEdit->selectAll();
}

int32_t FormDialog::Run()
{
    int32_t const lButton = exec(); // 0 when it was closed
    if (lButton == 0 || lButton == IDCANCEL)
        return IDCANCEL;
    for (auto const& readBack : aReadBack)
        readBack();
    return lButton;
}

void FormDialog::MoveTo(QPoint corner)
{
    adjustSize();
    QRect const room = screen()->availableGeometry();
    corner.setX(std::max(std::min(corner.x(), room.right() - width()), room.left()));
    corner.setY(std::max(std::min(corner.y(), room.bottom() - height()), room.top()));
    move(corner);
}

void FormDialog::Add(FormControl& control)
{
    switch (control.kind)
    {
    case FormControl::STATIC:
    {
        auto* const pLabel = new QLabel(LinesToQt(control.sLabel));
        pLabel->setTextFormat(Qt::PlainText);
        pLabel->setWordWrap(true);
        pLabel->setMinimumWidth(lEditWidth);
        pRows->addRow(pLabel);
        pHeading = pLabel;
        break;
    }
    case FormControl::EDIT:
        AddEdit(control);
        break;
    case FormControl::MULTILINE:
        AddMultiLine(control);
        break;
    case FormControl::BUTTON:
    case FormControl::DEFAULT_BUTTON:
        AddButton(control);
        break;
    case FormControl::FILL_BUTTON:
        AddFillButton(control);
        break;
    case FormControl::COMBO:
        AddCombo(control);
        break;
    case FormControl::CHECK:
        AddCheck(control);
        break;
    case FormControl::LIST:
        AddList(control);
        break;
    }
}

void FormDialog::AddRow(FormControl const& control, QWidget* pWidget)
{
    if (!pFirst)
        pFirst = pWidget;
    if (control.sLabel.empty())
    {
        pWidget->setAccessibleName(windowTitle());
        if (pHeading)
            pHeading->setBuddy(pWidget); // so that & marks its key
        pRows->addRow(pWidget);
    }
    else
        pRows->addRow(ToQt(control.sLabel), pWidget);
}

void FormDialog::AddEdit(FormControl& control)
{
    auto* const pEdit = new QLineEdit(ToQt(control.sText));
    if (control.sLabel.empty())
        pEdit->setMinimumWidth(lEditWidth);
    QObject::connect(pEdit, &QLineEdit::textChanged, this,
                     [pEdit, &control](QString const& sText)
                     {
                         Limit(
                             *pEdit, control, [pEdit](QString const& s) { pEdit->setText(s); }, sText);
                     });
    aReadBack.push_back([pEdit, &control] { control.sText = pEdit->text().toStdString(); });
    edits[control.lId] = pEdit;
    AddRow(control, pEdit);
}

void FormDialog::AddMultiLine(FormControl& control)
{
    auto* const pEdit = new LinesEdit(LinesToQt(control.sText), [this] { PressDefault(); });
    pEdit->setMinimumSize(lEditWidth, lTextHeight);
    pEdit->setTabChangesFocus(true);
    auto const limit = [pEdit, &control]
    {
        Limit(
            *pEdit, control,
            [pEdit](QString const& s)
            {
                pEdit->setPlainText(s);
                pEdit->moveCursor(QTextCursor::End);
            },
            pEdit->toPlainText());
    };
    QObject::connect(pEdit, &QPlainTextEdit::textChanged, this, limit);
    aReadBack.push_back([pEdit, &control] { control.sText = pEdit->toPlainText().toStdString(); });
    AddRow(control, pEdit);
}

void FormDialog::AddCombo(FormControl& control)
{
    auto* const pCombo = new QComboBox;
    for (std::string const& sRow : control.aRows)
        pCombo->addItem(ToQt(sRow));
    pCombo->setCurrentIndex(control.lValue);
    aReadBack.push_back([pCombo, &control] { control.lValue = pCombo->currentIndex(); });
    AddRow(control, pCombo);
}

void FormDialog::AddCheck(FormControl& control)
{
    auto* const pCheck = new QCheckBox(ToQt(control.sLabel));
    pCheck->setChecked(control.lValue != 0);
    aReadBack.push_back([pCheck, &control] { control.lValue = pCheck->isChecked() ? 1 : 0; });
    pRows->addRow(pCheck);
}

/// A line that hides the rows which don't hold what is typed, whatever the case.
void FormDialog::AddSearch(QListWidget& list)
{
    auto* const pSearch = new QLineEdit;
    pSearch->setPlaceholderText(QStringLiteral("Search"));
    pSearch->setClearButtonEnabled(true);
    pSearch->setAccessibleName(QStringLiteral("Search"));
    QObject::connect(pSearch, &QLineEdit::textChanged, &list,
                     [&list](QString const& sText)
                     {
                         QListWidgetItem* pFound = nullptr;
                         for (int n = 0; n < list.count(); ++n)
                         {
                             QListWidgetItem* const pItem = list.item(n);
                             bool const bHolds = pItem->text().contains(sText, Qt::CaseInsensitive);
                             pItem->setHidden(!bHolds);
                             if (bHolds && !pFound)
                                 pFound = pItem;
                         }
                         list.setCurrentItem(pFound);
                     });
    pRows->addRow(pSearch);
    pFirst = pSearch;
}

void FormDialog::AddList(FormControl& control)
{
    auto* const pList = new QListWidget;
    pList->setUniformItemSizes(true);
    pList->setMinimumSize(lEditWidth, lListHeight);
    for (std::string const& sRow : control.aRows)
        pList->addItem(ToQt(sRow));
    pList->setCurrentRow(control.lValue);
    if (control.bSearch)
        AddSearch(*pList);
    QObject::connect(pList, &QListWidget::itemDoubleClicked, this, [this] { PressDefault(); });
    aReadBack.push_back([pList, &control] { control.lValue = pList->currentRow(); });
    AddRow(control, pList);
}

void FormDialog::AddButton(FormControl const& control)
{
    auto* const pButton = new QPushButton(ToQt(control.sLabel));
    pButtons->addWidget(pButton); // first: the default button is a matter of the dialog's
    // Enter presses the button that has the focus; from any other field the default one.
    pButton->setAutoDefault(true);
    if (control.kind == FormControl::DEFAULT_BUTTON)
    {
        pButton->setDefault(true);
        pDefault = pButton;
    }
    QObject::connect(pButton, &QPushButton::clicked, this, [this, lId = control.lId] { done(lId); });
}

void FormDialog::AddFillButton(FormControl const& control)
{
    auto* const pButton = new QPushButton(ToQt(control.sLabel));
    pButtons->addWidget(pButton);
    pButton->setAutoDefault(false);
    QObject::connect(pButton, &QPushButton::clicked, this,
                     [this, &control]
                     {
                         for (FormFill const& fill : control.aFills)
                             edits.at(fill.lEdit)->setText(ToQt(fill.sText));
                     });
}

void FormDialog::PressDefault()
{
    if (pDefault)
        pDefault->click();
}
} // namespace

int32_t Form_Run(Form& form, QWidget* pParent, std::optional<QPoint> corner)
{
    FormDialog dialog(form, pParent);
    if (corner)
        dialog.MoveTo(*corner);
    return dialog.Run();
}
} // namespace zarn
