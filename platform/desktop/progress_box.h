/// How far a long run has come, with a button that calls it off.
#pragma once
#include <QPointer>
#include <QProgressDialog>
#include <cstdint>
#include <string_view>

namespace zarn
{
class ProgressBox
{
public:
    /// Opens with its first call and closes when all is done; false once the user has called the run off. Handles what
    /// has come in for the box meanwhile; the window behind it takes no input.
    bool Show(std::string_view sText, int32_t lDone, int32_t lTotal, QWidget* pParent);
    void Close();

private:
    QPointer<QProgressDialog> pBox;
};
} // namespace zarn
