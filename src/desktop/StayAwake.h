#pragma once

#include "desktop/Inhibition.h"

#include <QObject>
#include <QThread>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace vexa {

class StripeRun;

/// Keeps the machine awake and its screen unlocked while a run plays, is between two items or
/// awaits a reel. Asks one service after another until one promises, and nothing waits for them. A
/// promise that comes late is kept if there is no other, or given back. If there is no service, or
/// no bus, the machine behaves as usual. Main thread only.
class StayAwake : public QObject {
    Q_OBJECT

public:
    /// Connecting to a bus may take time, so another thread does it, at the first run.
    struct Buses {
        std::function<QDBusConnection()> session = [] { return QDBusConnection::sessionBus(); };
        std::function<QDBusConnection()> system = [] { return QDBusConnection::systemBus(); };
    };
    /// The run must outlive this.
    explicit StayAwake(const StripeRun& run) : StayAwake(run, Buses{}) {}
    /// patience: how long a service may take to answer before the next one is asked.
    StayAwake(const StripeRun& run, Buses buses,
              std::chrono::milliseconds patience = std::chrono::seconds(5));
    ~StayAwake() override;

private Q_SLOTS:
    void hearPortal(uint response, const QVariantMap& results, const QDBusMessage& signal);

private:
    void setWanted(bool isWanted);
    void joinBuses();
    void ask(std::size_t service);
    void take(const Inhibition::Promise& promise);
    void giveBack();

    const Buses m_buses;
    const std::chrono::milliseconds m_patience;
    std::unique_ptr<QThread> m_joining;
    std::vector<Inhibition> m_services; ///< empty until the buses are connected
    Inhibition::Promise m_promise;      ///< the one that is held
    bool m_isWanted = false;
    bool m_isAsking = false;
};

} // namespace vexa
