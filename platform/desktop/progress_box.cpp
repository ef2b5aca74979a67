#include "platform/desktop/progress_box.h"

#include "platform/desktop/qt_text.h"

#include <QCoreApplication>

namespace zarn
{
bool ProgressBox::Show(std::string_view sText, int32_t lDone, int32_t lTotal, QWidget* pParent)
{
    if (lDone >= lTotal)
    {
        Close();
        return true;
    }
    if (!pBox)
    {
        pBox = new QProgressDialog(ToQt(sText), QStringLiteral("Cancel"), 0, lTotal, pParent);
        pBox->setWindowTitle(QStringLiteral("Zarn"));
        pBox->setWindowModality(Qt::ApplicationModal);
        pBox->setMinimumDuration(0);
        pBox->setAutoClose(false);
        pBox->setAutoReset(false);
    }
    pBox->setMaximum(lTotal);
    pBox->setValue(lDone); // lets its events in
    QCoreApplication::processEvents();
    bool const bGoOn = pBox && !pBox->wasCanceled();
    if (!bGoOn)
        Close();
    return bGoOn;
}

void ProgressBox::Close() { delete pBox; }
} // namespace zarn
