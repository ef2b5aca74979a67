// The platform's boxes, as Qt has them.
#include "platform/desktop/boxes.h"

#include "platform/desktop/qt_text.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace zarn
{
namespace
{
struct BoxButton
{
    QMessageBox::StandardButton button;
    int32_t lId;
};
constexpr BoxButton ok{QMessageBox::Ok, IDOK};
constexpr BoxButton cancel{QMessageBox::Cancel, IDCANCEL};
constexpr BoxButton yes{QMessageBox::Yes, IDYES};
constexpr BoxButton no{QMessageBox::No, IDNO};

/// From left to right; the last one is the safe answer.
std::vector<BoxButton> Buttons(uint32_t lFlags)
{
    switch (lFlags & MB_BUTTONS)
    {
    case MB_OKCANCEL:
        return {ok, cancel};
    case MB_YESNOCANCEL:
        return {yes, no, cancel};
    case MB_YESNO:
        return {yes, no};
    default:
        return {ok};
    }
}

QMessageBox::Icon Icon(uint32_t lFlags)
{
    constexpr uint32_t lIconBits = 0xF0;
    switch (lFlags & lIconBits)
    {
    case MB_ICONSTOP:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// "ABC files (*.abc *.ABC)"
QString FilterOf(FileFilter const& filter)
{
    return QStringLiteral("%1 (%2)").arg(ToQt(filter.sLabel),
                                         ToQt(filter.sPatterns).replace(QLatin1Char(';'), QLatin1Char(' ')));
}

bool AskName(FileDialog& dialog, QFileDialog& box)
{
    QStringList filters;
    for (FileFilter const& filter : dialog.aFilters)
        filters.append(FilterOf(filter));
    box.setWindowTitle(ToQt(dialog.sTitle));
    box.setNameFilters(filters);
    if (dialog.lFilter >= 1 && dialog.lFilter <= filters.size())
        box.selectNameFilter(filters[dialog.lFilter - 1]);
    QFileInfo const before(QString::fromStdString(dialog.szFile));
    QDir const folder(QString::fromStdString(dialog.szFolder));
    box.setDirectory(dialog.szFile.empty() && !dialog.szFolder.empty() && folder.exists() ? folder : before.dir());
    if (!dialog.szFile.empty())
        box.selectFile(before.fileName());
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty())
        return false;
    dialog.szFile = box.selectedFiles().constFirst().toStdString();
    if (auto const lFilter = filters.indexOf(box.selectedNameFilter()); lFilter >= 0)
        dialog.lFilter = static_cast<int32_t>(lFilter) + 1;
    return true;
}
} // namespace

int32_t MessageBox_Run(std::string_view sText, std::string_view sCaption, uint32_t lFlags, QWidget* pParent)
{
    QMessageBox box(Icon(lFlags), ToQt(sCaption), LinesToQt(sText), QMessageBox::NoButton, pParent);
    box.setTextFormat(Qt::PlainText);
    std::vector<BoxButton> const aButtons = Buttons(lFlags);
    for (BoxButton const& row : aButtons)
        box.addButton(row.button);
    bool const bSecond = (lFlags & MB_DEFBUTTON2) != 0 && aButtons.size() > 1;
    box.setDefaultButton(aButtons[bSecond ? 1 : 0].button);
    box.setEscapeButton(aButtons.back().button);
    int const lPressed = box.exec();
    for (BoxButton const& row : aButtons)
        if (row.button == lPressed)
            return row.lId;
    return aButtons.back().lId;
}

bool OpenName_Run(FileDialog& dialog, QWidget* pParent)
{
    QFileDialog box(pParent);
    box.setAcceptMode(QFileDialog::AcceptOpen);
    box.setFileMode(QFileDialog::ExistingFile);
    return AskName(dialog, box);
}

bool SaveName_Run(FileDialog& dialog, QWidget* pParent)
{
    QFileDialog box(pParent);
    box.setAcceptMode(QFileDialog::AcceptSave);
    box.setFileMode(QFileDialog::AnyFile);
    box.setOption(QFileDialog::DontConfirmOverwrite);
    return AskName(dialog, box);
}
} // namespace zarn
