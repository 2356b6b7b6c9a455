#pragma once

#include "desktop/Inhibition.h"

#include <QObject>
#include <QThread>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vexa {

class StripeRun;

/// Keeps the machine awake and its screen unlocked while a run plays or is between two items. Asks
/// one service after another until one promises, without waiting for them. If there is no service,
/// or no bus, the machine behaves as usual. Main thread only.
class StayAwake : public QObject {
public:
    /// Connecting to a bus may take time, so another thread does it, at the first run.
    struct Buses {
        std::function<QDBusConnection()> session = [] { return QDBusConnection::sessionBus(); };
        std::function<QDBusConnection()> system = [] { return QDBusConnection::systemBus(); };
    };
    /// The run must outlive this.
    explicit StayAwake(const StripeRun& run) : StayAwake(run, Buses{}) {}
    StayAwake(const StripeRun& run, Buses buses);
    ~StayAwake() override;

private:
    void setWanted(bool isWanted);
    void joinBuses();
    void proceed();
    void ask(std::size_t service);

    using Services = std::vector<std::unique_ptr<Inhibition>>;

    const Buses m_buses;
    std::unique_ptr<QThread> m_joining;
    Services m_services;             ///< empty until the buses are connected
    Inhibition* m_promise = nullptr; ///< the service whose promise is held
    bool m_isWanted = false;
    bool m_isAsking = false;
};

} // namespace vexa
