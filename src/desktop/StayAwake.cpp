#include "desktop/StayAwake.h"

#include "stripe/StripeRun.h"

#include <QDBusPendingCallWatcher>
#include <QTimer>

#include <limits>
#include <optional>
#include <utility>

namespace vexa {

namespace {

bool isUnderWay(Phase phase) {
    return phase == Phase::running || phase == Phase::betweenItems || phase == Phase::awaitingReel;
}

} // namespace

StayAwake::StayAwake(const StripeRun& run, Buses buses, std::chrono::milliseconds patience)
    : m_buses(std::move(buses)), m_patience(patience) {
    connect(&run, &StripeRun::phaseChanged, this,
            [this, &run] { setWanted(isUnderWay(run.progress().phase)); });
}

StayAwake::~StayAwake() {
    giveBack();
    constexpr unsigned long farewell = 1000; // ms
    if (m_joining && !m_joining->wait(farewell))
        std::ignore = m_joining.release(); // does not wait for a bus that does not answer
}

void StayAwake::setWanted(bool isWanted) {
    m_isWanted = isWanted;
    if (!m_isWanted)
        giveBack();
    else if (!m_joining)
        joinBuses();
    else if (!m_isAsking)
        ask(0);
}

void StayAwake::joinBuses() {
    using Joined = std::pair<QDBusConnection, QDBusConnection>;
    const auto joined = std::make_shared<std::optional<Joined>>();
    m_joining.reset(QThread::create(
        [joined, buses = m_buses] { joined->emplace(buses.session(), buses.system()); }));
    connect(m_joining.get(), &QThread::finished, this, [this, joined] {
        const auto& [session, system] = **joined;
        m_services = inhibitions(session, system);
        connectPortalResponse(session, *this, SLOT(hearPortal(uint, QVariantMap, QDBusMessage)));
        ask(0);
    });
    m_joining->start();
}

void StayAwake::ask(std::size_t service) {
    m_isAsking = m_isWanted && !m_promise.giveBack && service < m_services.size();
    if (!m_isAsking)
        return;
    const auto& asked = m_services[service];
    if (!asked.bus.isConnected()) { // such a call never finishes
        ask(service + 1);
        return;
    }
    constexpr int anyTime = std::numeric_limits<int>::max(); // a late promise counts, too
    auto* reply = new QDBusPendingCallWatcher(asked.bus.asyncCall(asked.request, anyTime), this);
    auto* patience = new QTimer(reply);
    patience->setSingleShot(true);
    patience->start(m_patience);
    connect(patience, &QTimer::timeout, this, [this, service] { ask(service + 1); });
    connect(reply, &QDBusPendingCallWatcher::finished, this, [=, this, &asked] {
        reply->deleteLater();
        take(asked.promiseIn(reply->reply()));
        if (patience->isActive())
            ask(service + 1);
        patience->stop();
    });
}

void StayAwake::take(const Inhibition::Promise& promise) {
    if (!promise.giveBack)
        return;
    if (m_isWanted && !m_promise.giveBack)
        m_promise = promise;
    else
        promise.giveBack();
}

void StayAwake::hearPortal(uint response, const QVariantMap&, const QDBusMessage& signal) {
    constexpr uint granted = 0;
    constexpr std::size_t afterPortal = 1;
    if (response == granted || signal.path() != m_promise.object)
        return;
    giveBack();
    ask(afterPortal);
}

void StayAwake::giveBack() {
    if (const auto promise = std::exchange(m_promise, {}); promise.giveBack)
        promise.giveBack();
}

} // namespace vexa
