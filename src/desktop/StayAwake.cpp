#include "desktop/StayAwake.h"

#include "stripe/StripeRun.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace vexa {

namespace {

constexpr int patience = 5000; // ms, for a service to answer

bool isUnderWay(Phase phase) {
    return phase == Phase::running || phase == Phase::betweenItems || phase == Phase::awaitingReel;
}

} // namespace

StayAwake::StayAwake(const StripeRun& run, Buses buses) : m_buses(std::move(buses)) {
    connect(&run, &StripeRun::phaseChanged, this,
            [this, &run] { setWanted(isUnderWay(run.progress().phase)); });
}

StayAwake::~StayAwake() {
    if (m_promise)
        m_promise->release();
    constexpr unsigned long farewell = 1000; // ms
    if (m_joining && !m_joining->wait(farewell))
        std::ignore = m_joining.release(); // does not wait for a bus that does not answer
}

void StayAwake::setWanted(bool isWanted) {
    m_isWanted = isWanted;
    if (m_isWanted && !m_joining)
        joinBuses();
    else if (!m_isAsking && !m_services.empty())
        proceed();
}

void StayAwake::joinBuses() {
    using Joined = std::pair<QDBusConnection, QDBusConnection>;
    const auto joined = std::make_shared<std::optional<Joined>>();
    m_joining.reset(QThread::create(
        [joined, buses = m_buses] { joined->emplace(buses.session(), buses.system()); }));
    connect(m_joining.get(), &QThread::finished, this, [this, joined] {
        m_services = inhibitions((*joined)->first, (*joined)->second);
        proceed();
    });
    m_joining->start();
}

void StayAwake::proceed() {
    if (m_isWanted && !m_promise)
        ask(0);
    else if (!m_isWanted && m_promise)
        std::exchange(m_promise, nullptr)->release();
}

void StayAwake::ask(std::size_t service) {
    m_isAsking = m_isWanted && service < m_services.size();
    if (!m_isAsking)
        return;
    auto& asked = *m_services[service];
    const auto call = asked.bus().asyncCall(asked.request(), patience);
    auto* watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, &asked, service] {
        watcher->deleteLater();
        if (!watcher->isError() && asked.take(watcher->reply())) {
            m_isAsking = false;
            m_promise = &asked;
            proceed();
        } else {
            asked.release();
            ask(service + 1);
        }
    });
}

} // namespace vexa
