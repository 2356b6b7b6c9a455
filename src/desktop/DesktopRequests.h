#pragma once

#include "desktop/FileDrops.h"
#include "desktop/OpenRequests.h"

#include <QObject>

class QSessionManager;

namespace vexa {

class ApplicationService;
class Vexa_RemoteAppDelegate;

/// Leads what the desktop asks of the program to its window and its controller: to open a file, to
/// come to the front, to end with the session. All of them outlive this.
class DesktopRequests : public QObject {
    Q_OBJECT

public:
    DesktopRequests(QWidget& window, Vexa_RemoteAppDelegate& controller,
                    ApplicationService& service);

protected:
    /// Ends the program without a question when the session does.
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
