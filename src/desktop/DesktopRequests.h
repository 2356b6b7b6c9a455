#pragma once

#include "desktop/FileDrops.h"
#include "desktop/OpenRequests.h"

#include <QObject>

class QSessionManager;

namespace vexa {

class ApplicationService;
class Vexa_RemoteAppDelegate;

/// Passes the desktop's requests to the window and the controller: open a file, come to the front,
/// end with the session. The window, controller and service must outlive this.
class DesktopRequests : public QObject {
    Q_OBJECT

public:
    DesktopRequests(QWidget& window, Vexa_RemoteAppDelegate& controller,
                    ApplicationService& service);

protected:
    /// Quits without asking when the session ends.
    bool eventFilter(QObject* application, QEvent* event) override;

private:
    void bringToFront(const QByteArray& token, const QByteArray& startupId);
    void joinSession(QSessionManager& session);
    void prepareForLogOut(QSessionManager& session);

    QWidget& m_window;
    Vexa_RemoteAppDelegate& m_controller;
    OpenRequests m_openRequests;
    FileDrops m_drops;
};

} // namespace vexa
