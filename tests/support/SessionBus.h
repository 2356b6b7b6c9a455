#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <gtest/gtest.h>

namespace vexa::test {

/// The test's own session bus.
class SessionBus {
public:
    SessionBus() {
        m_daemon.setReadChannel(QProcess::StandardOutput);
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address")});
        EXPECT_TRUE(m_daemon.waitForReadyRead());
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~SessionBus() {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    /// A separate connection for each program.
    QDBusConnection connection(const QString& program) const {
        // Connections are cached by name, and a cached one to an earlier bus would be dead.
        return QDBusConnection::connectToBus(m_address, m_address + program);
    }

private:
    QProcess m_daemon;
    QString m_address;
};

} // namespace vexa::test
