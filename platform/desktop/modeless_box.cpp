// Texts from top to bottom, and the buttons below them.
#include "platform/desktop/modeless_box.h"

#include "platform/desktop/qt_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace zarn
{
ModelessBox::ModelessBox(Form const& form, std::function<void(int32_t lCommand)> onCommand, QWidget* pParent)
    : QDialog(pParent), onCommand(std::move(onCommand))
{
    setWindowTitle(ToQt(form.sTitle));
    setModal(true);
    auto* const pAll = new QVBoxLayout(this);
    auto* const pButtons = new QHBoxLayout;
    pButtons->addStretch();
    for (FormControl const& control : form.aControls)
    {
        if (control.kind == FormControl::STATIC)
        {
            auto* const pLabel = new QLabel;
            pLabel->setTextFormat(Qt::PlainText);
            pAll->addWidget(pLabel);
            labels[control.lId] = pLabel;
            SetText(control.lId, control.sLabel);
            continue;
        }
        auto* const pButton = new QPushButton(ToQt(control.sLabel));
        int32_t const lId = control.lId;
        QObject::connect(pButton, &QPushButton::clicked, this, [this, lId] { this->onCommand(lId); });
        pButtons->addWidget(pButton);
    }
    pAll->addLayout(pButtons);
    constexpr int lLeastWidth = 320; // pixels: the texts change
    setMinimumWidth(lLeastWidth);
    show();
}

void ModelessBox::SetText(int32_t lId, std::string_view sText)
{
    auto const found = labels.find(lId);
    if (found == labels.end())
        return;
    constexpr int lWidest = 560; // pixels, of a file's name with its folders
    QString const sWhole = ToQt(sText);
    found->second->setText(found->second->fontMetrics().elidedText(sWhole, Qt::ElideMiddle, lWidest));
    found->second->setAccessibleName(sWhole);
}
} // namespace zarn
