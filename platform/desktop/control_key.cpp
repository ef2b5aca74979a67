// Only the main thread may ask Qt for the keys; other threads get what it last heard.
#include "platform/desktop/control_key.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace zarn
{
ControlKey::ControlKey() { qApp->installEventFilter(this); }

bool ControlKey::IsDown()
{
    if (!bAsking.exchange(true))
        QMetaObject::invokeMethod(this, &ControlKey::AskWindowSystem, Qt::QueuedConnection);
    return bDown;
}

bool ControlKey::eventFilter(QObject*, QEvent* pEvent)
{
    bool const bPress = pEvent->type() == QEvent::KeyPress;
    if ((bPress || pEvent->type() == QEvent::KeyRelease) && static_cast<QKeyEvent*>(pEvent)->key() == Qt::Key_Control)
        bDown = bPress;
    return false;
}

void ControlKey::AskWindowSystem()
{
    bDown = QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
    bAsking = false;
}
} // namespace zarn
