// The dialog around the pages.
#include "platform/desktop/preview.h"

#include "platform/desktop/page_view.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace zarn
{
namespace
{
class Preview : public QDialog
{
public:
    Preview(PageSource& pages, QWidget* pParent);

private:
    void Moved();

    PageSource& pages;
    PageView* pView;
    QPushButton* pPrevious = new QPushButton(QStringLiteral("P&revious"));
    QPushButton* pNext = new QPushButton(QStringLiteral("&Next"));
    QLabel* pWhere = new QLabel;
};

Preview::Preview(PageSource& pages, QWidget* pParent) : QDialog(pParent), pages(pages), pView(new PageView(pages))
{
    setWindowTitle(QStringLiteral("Print preview"));
    auto* const pContinuous = new QCheckBox(QStringLiteral("&Continuous"));
    auto* const pPrint = new QPushButton(QStringLiteral("&Print"));
    auto* const pClose = new QPushButton(QStringLiteral("Close"));
    auto* const pButtons = new QHBoxLayout;
    for (QWidget* const pWidget : {static_cast<QWidget*>(pPrevious), static_cast<QWidget*>(pNext),
                                   static_cast<QWidget*>(pWhere), static_cast<QWidget*>(pContinuous)})
        pButtons->addWidget(pWidget);
    pButtons->addStretch();
    pButtons->addWidget(pPrint);
    pButtons->addWidget(pClose);
    auto* const pAll = new QVBoxLayout(this);
    pAll->addWidget(pView, 1);
    pAll->addLayout(pButtons);
    for (QPushButton* const pButton : {pPrevious, pNext, pClose})
        pButton->setAutoDefault(false);
    pPrint->setDefault(true);

    QObject::connect(pPrevious, &QPushButton::clicked, this, [this] { pView->ShowPage(pView->Page() - 1); });
    QObject::connect(pNext, &QPushButton::clicked, this, [this] { pView->ShowPage(pView->Page() + 1); });
    QObject::connect(pContinuous, &QCheckBox::toggled, this, [this](bool bOn) { pView->SetContinuous(bOn); });
    QObject::connect(pPrint, &QPushButton::clicked, this, &QDialog::accept);
    QObject::connect(pClose, &QPushButton::clicked, this, &QDialog::reject);
    pView->onMoved = [this] { Moved(); };
    pView->SetContinuous(false);
    pView->setFocus();
    if (pParent)
        resize(pParent->size() * 9 / 10);
}

void Preview::Moved()
{
    pWhere->setText(QStringLiteral("Page %1 of %2").arg(pView->Page()).arg(pages.Count()));
    pPrevious->setEnabled(pView->Page() > 1);
    pNext->setEnabled(pView->Page() < pages.Count());
}
} // namespace

bool Preview_Run(PageSource& pages, QWidget* pParent)
{
    Preview preview(pages, pParent);
    return preview.exec() == QDialog::Accepted;
}
} // namespace zarn
