#include "generator/program.h"

#include "generator/frame.h"

#include <poll.h>

#include <array>

namespace vexa {

namespace {
using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds refreshInterval{33};

std::string readyText(const MidiInput& input, const InputSystem& system) {
    return "ready: \"" + input.name() + "\" on " + system.name;
}
} // namespace

Program::Program(InputSystem system, std::unique_ptr<MidiInput> input, EventLog& log,
                 std::chrono::milliseconds retryInterval)
    : m_system(std::move(system)),
      m_retryInterval(retryInterval),
      m_input(std::move(input)),
      m_log(log) {
    m_log.note(readyText(*m_input, m_system));
}

void Program::runUntilReadable(int descriptor) {
    while (true) {
        const auto now = Clock::now();
        m_log.status(m_state.status(now) + (m_input ? "" : ", waiting for " + m_system.name));
        std::array<pollfd, 2> polled{
            {{descriptor, POLLIN, 0}, {m_input ? m_input->descriptor() : -1, POLLIN, 0}}};
        poll(polled.data(), polled.size(), timeout());
        if (polled[0].revents != 0)
            break;
        if (!m_input)
            reopenInput();
        else if (polled[1].revents != 0)
            readInput();
    }
    if (const auto message = m_reader.finish())
        log(Clock::now(), *message);
}

int Program::timeout() const {
    const bool refreshes = m_log.showsStatus() && m_state.phase() == GeneratorState::Phase::Running;
    if (refreshes)
        return static_cast<int>(refreshInterval.count());
    return m_input ? -1 : static_cast<int>(m_retryInterval.count());
}

void Program::readInput() {
    const auto outcome = m_input->read([this](Moment arrival, auto bytes) {
        for (const auto byte : bytes)
            if (const auto message = m_reader.take(byte))
                log(arrival, *message);
    });
    const auto now = Clock::now();
    if (outcome == MidiInput::Outcome::Read)
        return;
    // What follows a gap is not the rest of what came before it.
    if (const auto message = m_reader.finish())
        log(now, *message);
    if (outcome == MidiInput::Outcome::Lost) {
        m_log.event(now, "lost: messages came faster than they could be read");
        return;
    }
    m_log.event(now, "gone: " + m_system.name + "; waiting for its return");
    m_input.reset();
    m_nextTry = now + m_retryInterval;
}

void Program::reopenInput() {
    const auto now = Clock::now();
    if (now < m_nextTry)
        return;
    m_input = m_system.open();
    m_nextTry = now + m_retryInterval;
    if (m_input)
        m_log.event(now, readyText(*m_input, m_system) + " again");
}

void Program::log(Moment arrival, const SysEx& message) {
    m_log.event(arrival, hexText(message) + "  " + m_state.take(decodedFrame(message), arrival));
}

} // namespace vexa
