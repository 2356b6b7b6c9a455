#include "generator/program.h"

#include <poll.h>

#include <array>

namespace vexa {

namespace {
using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds refreshInterval{33};

std::string readyText(const Unit& unit, const System& system) {
    return "ready: \"" + unit.name() + "\" on " + system.name;
}
} // namespace

Program::Program(System system, std::unique_ptr<Unit> unit, EventLog& log,
                 std::chrono::milliseconds retryInterval)
    : m_system(std::move(system)),
      m_retryInterval(retryInterval),
      m_unit(std::move(unit)),
      m_log(log) {
    m_log.note(readyText(*m_unit, m_system));
}

void Program::runUntilReadable(int descriptor) {
    while (true) {
        showStatus();
        std::array<pollfd, 2> polled{
            {{descriptor, POLLIN, 0}, {m_unit ? m_unit->descriptor() : -1, POLLIN, 0}}};
        poll(polled.data(), polled.size(), timeout());
        if (polled[0].revents != 0)
            break;
        if (!m_unit)
            reopenUnit();
        else if (polled[1].revents != 0)
            readUnit();
    }
    if (m_unit)
        m_unit->finish(*this);
}

bool Program::isRunning() const { return m_state.phase() == GeneratorState::Phase::running; }

int Program::timeout() const {
    if (m_log.showsStatus() && isRunning())
        return static_cast<int>(refreshInterval.count());
    return m_unit ? -1 : static_cast<int>(m_retryInterval.count());
}

void Program::showStatus() {
    if (m_unit)
        m_log.status(statusText(m_state, m_unit->signal()));
    else
        m_log.status(statusText(m_state, {}) + ", waiting for " + m_system.name);
}

void Program::happened(const Report& report) {
    m_state = report.state;
    m_log.event(report.arrival, reportText(report));
}

void Program::noted(Moment moment, const std::string& text) { m_log.event(moment, text); }

void Program::readUnit() {
    if (m_unit->read(*this))
        return;
    m_unit->finish(*this);
    const auto now = Clock::now();
    std::string text = "gone: " + m_system.name;
    if (isRunning() && m_state.setup()->mode.rate)
        text += ", and the signal with it at " + timecodeText(m_unit->signal().time);
    m_log.event(now, text + "; waiting for its return");
    m_unit.reset();
    m_state = {};
    m_nextTry = now + m_retryInterval;
}

void Program::reopenUnit() {
    const auto now = Clock::now();
    if (now < m_nextTry)
        return;
    m_unit = m_system.open();
    m_nextTry = now + m_retryInterval;
    if (m_unit)
        m_log.event(now, readyText(*m_unit, m_system) + " again");
}

} // namespace vexa
