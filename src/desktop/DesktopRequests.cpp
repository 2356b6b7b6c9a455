#include "desktop/DesktopRequests.h"

#include "desktop/ApplicationService.h"
#include "desktop/attention_token.h"
#include "desktop/startup_notification.h"
#include "engine/Vexa_RemoteAppDelegate.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QSessionManager>

namespace vexa {

DesktopRequests::DesktopRequests(QWidget& window, Vexa_RemoteAppDelegate& controller,
                                 ApplicationService& service)
    : m_window(window),
      m_controller(controller),
      m_openRequests([&controller](const QString& path) {
          if (QFileInfo(path).isDir()) // a folder does not replace the current list
              return true;
          controller.openFile(path);
          return !controller.dirty(); // unsaved changes remain: the operator cancelled
      }),
      m_drops(window) {
    connect(&service, &ApplicationService::activated, this, &DesktopRequests::bringToFront);
    connect(&service, &ApplicationService::fileOpened, &m_openRequests, &OpenRequests::add);
    connect(&m_drops, &FileDrops::fileDropped, &m_openRequests, &OpenRequests::add);
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this, &DesktopRequests::joinSession,
            Qt::DirectConnection);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &DesktopRequests::prepareForLogOut,
            Qt::DirectConnection);
}

void DesktopRequests::bringToFront(const QByteArray& token, const QByteArray& startupId) {
    const bool isWayland = QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    const auto permission = token.isEmpty() && isWayland ? attentionToken() : token;
    // On Wayland, Qt reads the permission to come to the front from this variable.
    if (!permission.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", permission);
    m_window.setWindowState(m_window.windowState() & ~Qt::WindowMinimized);
    m_window.show();
    m_window.raise();
    m_window.activateWindow();
    endStartupNotification(startupId);
}

void DesktopRequests::joinSession(QSessionManager& session) {
    // A start sends messages to the device, so the operator must start it, not the next login.
    session.setRestartHint(QSessionManager::RestartNever);
    qGuiApp->installEventFilter(this);
}

void DesktopRequests::prepareForLogOut(QSessionManager& session) {
    if (!m_controller.dirty() || !session.allowsInteraction())
        return;
    if (m_controller.windowShouldClose())
        session.release();
    else
        session.cancel();
}

bool DesktopRequests::eventFilter(QObject* application, QEvent* event) {
    if (application != qGuiApp || event->type() != QEvent::Quit)
        return false;
    QCoreApplication::exit(); // closing the window would ask again
    return true;
}

} // namespace vexa
