/// A box that stands over the window while the program goes on.
#pragma once
#include "platform/user.h"

#include <QDialog>
#include <functional>
#include <map>

class QLabel;

namespace zarn
{
/// Shown at once. Other windows take no input meanwhile; Esc and the close button are its Cancel.
class ModelessBox : public Dialog, private QDialog
{
public:
    ModelessBox(Form const& form, std::function<void(int32_t lCommand)> onCommand, QWidget* pParent);
    void SetText(int32_t lId, std::string_view sText) override;

private:
    void reject() override { onCommand(IDCANCEL); }

    std::function<void(int32_t lCommand)> onCommand;
    std::map<int32_t, QLabel*> labels; ///< by control
};
} // namespace zarn
