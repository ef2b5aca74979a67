// Forwards; has no opinion about music.
#include "platform/desktop/qt_host.h"

#include "platform/desktop/boxes.h"
#include "platform/desktop/documents.h"
#include "platform/desktop/form_dialog.h"
#include "platform/desktop/manual.h"
#include "platform/desktop/modeless_box.h"
#include "platform/desktop/preview.h"
#include "platform/desktop/qt_printer.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace zarn
{
int32_t QtHost::MessageBox(std::string_view sText, std::string_view sCaption, uint32_t lFlags)
{
    progress.Close(); // a message is about what has come of the run
    int32_t const lId = MessageBox_Run(sText, sCaption, lFlags, DialogParent());
    TakeFocusBack();
    return lId;
}

int32_t QtHost::RunForm(Form& form)
{
    auto const corner = pWindow && form.place ? std::optional(pWindow->OnScreen(*form.place)) : std::nullopt;
    int32_t const lButton = Form_Run(form, DialogParent(), corner);
    TakeFocusBack();
    return lButton;
}

int32_t QtHost::PopupMenu(std::vector<MenuItem> const& aMenu, POINT place)
{
    if (!pWindow)
        return 0;
    int32_t const lCommand = MenuBar::Popup(aMenu, pWindow->OnScreen(place), pWindow->Frame());
    TakeFocusBack();
    return lCommand;
}

HWND QtHost::CreateMainWindow(std::string_view sTitle, Painter* pPainter)
{
    pWindow = std::make_unique<QtWindow>(sTitle, pPainter, pDoor);
    return pWindow.get();
}

Panel* QtHost::CreatePanel(PanelSetup const& setup) { return pWindow ? pWindow->CreatePanel(setup) : nullptr; }

bool QtHost::ShowProgress(std::string_view sText, int32_t lDone, int32_t lTotal)
{
    QWidget* const pFrame = pWindow ? pWindow->Frame() : nullptr;
    bool const bGoOn = progress.Show(sText, lDone, lTotal, pFrame);
    if (!bGoOn || lDone >= lTotal)
        TakeFocusBack();
    return bGoOn;
}

bool QtHost::ShowHelp(std::string_view) { return Manual_Show(); }

bool QtHost::AskOpenName(FileDialog& dialog)
{
    bool const bGiven = OpenName_Run(dialog, DialogParent());
    TakeFocusBack();
    return bGiven;
}

bool QtHost::AskSaveName(FileDialog& dialog)
{
    bool const bGiven = SaveName_Run(dialog, DialogParent());
    TakeFocusBack();
    return bGiven;
}

bool QtHost::StartEditor(std::string_view sPath)
{
    QFileInfo const file(QString::fromUtf8(sPath.data(), static_cast<qsizetype>(sPath.size())));
    return file.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

void QtHost::SetTimer(int32_t lTimer, uint32_t cMilliseconds, std::function<void()> action)
{
    KillTimer(lTimer);
    auto pTimer = std::make_unique<QTimer>();
    QObject::connect(pTimer.get(), &QTimer::timeout, std::move(action));
    pTimer->start(static_cast<int>(cMilliseconds));
    timers[lTimer] = std::move(pTimer);
}

void QtHost::KillTimer(int32_t lTimer)
{
    auto const found = timers.find(lTimer);
    if (found == timers.end())
        return;
    found->second->stop();
    found->second.release()->deleteLater(); // it may be the one that calls
    timers.erase(found);
}

void QtHost::PostTask(std::function<void()> action)
{
    QMetaObject::invokeMethod(&loop, std::move(action), Qt::QueuedConnection);
}

void QtHost::PostEvent(Event const& event)
{
    PostTask(
        [this, event]
        {
            if (pDoor)
                pDoor->Receive(event);
        });
}

void QtHost::Quit(int32_t lCode)
{
    bQuit = true;
    lQuitCode = lCode;
    if (bRunning)
        QCoreApplication::exit(lCode);
}

int32_t QtHost::Run()
{
    // A program that quits while it comes up never enters the loop.
    if (!bQuit)
    {
        bRunning = true;
        QCoreApplication::exec();
        bRunning = false;
    }
    return lQuitCode;
}

void QtHost::TakeHandedOver()
{
    pOneWindow = std::make_unique<OneWindow>(
        [this](std::string const& szPath)
        {
            // Over a question nothing can be opened: whoever starts there is better off with a window of their own.
            if (!pWindow || QApplication::activeModalWidget() || QApplication::activePopupWidget())
                return false;
            pWindow->Raise();
            PostEvent({.kind = EventKind::OPEN, .sText = szPath});
            return true;
        });
}

std::unique_ptr<PagedSurface> QtHost::NewPdf(std::string_view sTitle, Sheet const& sheet)
{
    return std::make_unique<PdfDocument>(sTitle, sheet);
}

std::unique_ptr<Printer> QtHost::DefaultPrinter() { return Printer_Default(); }

std::unique_ptr<Dialog> QtHost::CreateModeless(Form const& form, std::function<void(int32_t lCommand)> onCommand)
{
    return std::make_unique<ModelessBox>(form, std::move(onCommand), DialogParent());
}

void QtHost::DispatchMessages() { QCoreApplication::processEvents(); }

int32_t QtHost::ShowPages(PageSource& pages)
{
    bool const bPrint = Preview_Run(pages, DialogParent());
    TakeFocusBack();
    return bPrint ? IDOK : IDCANCEL;
}

std::unique_ptr<PagedSurface> QtHost::NewPng(SIZE size, int32_t lDpi)
{
    auto pPicture = std::make_unique<PngDocument>(size, lDpi);
    return pPicture->IsGood() ? std::move(pPicture) : nullptr;
}

/// A box asked for while another one stands belongs to that one.
QWidget* QtHost::DialogParent() const
{
    QWidget* const pModal = QApplication::activeModalWidget();
    return pModal ? pModal : pWindow ? pWindow->Frame() : nullptr;
}

void QtHost::TakeFocusBack() const
{
    if (pWindow && !QApplication::activeModalWidget())
        pWindow->TakeFocus();
}
} // namespace zarn
