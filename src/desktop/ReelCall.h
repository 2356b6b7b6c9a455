#pragma once

#include <QDBusConnection>
#include <QObject>

#include <cstdint>

class QWidget;

namespace vexa {

class StripeRun;

/// Calls the operator to load a reel while no window of the program is active. A notification stays
/// until the run continues, and the window asks for attention. Nothing waits for the notification
/// service. Main thread only.
class ReelCall : public QObject {
public:
    /// All must outlive this.
    ReelCall(QWidget& window, const StripeRun& run, const QDBusConnection& session);
    ~ReelCall() override { withdraw(); }

private:
    void call(std::uint64_t reel);
    void withdraw();

    QWidget& m_window;
    QDBusConnection m_session;
    std::uint64_t m_calls = 0; ///< number of calls so far; tells which call an answer is to
    bool m_isCalling = false;
    uint m_notification = 0; ///< 0: none, or not known so far
};

} // namespace vexa
