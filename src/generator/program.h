#pragma once

#include "generator/event_log.h"
#include "generator/unit.h"

#include <memory>

namespace vexa {

/// Runs the generator: logs the unit's events, shows its status, and reopens it when its MIDI
/// system returns.
class Program : private Listener {
public:
    /// `system` must have opened `unit`. The log must outlive the program.
    Program(System system, std::unique_ptr<Unit> unit, EventLog& log,
            std::chrono::milliseconds retryInterval = std::chrono::seconds(1));

    /// Runs until a descriptor other than the unit's becomes readable.
    void runUntilReadable(int descriptor);

private:
    void happened(const Report& report) override;
    void noted(Moment moment, const std::string& text) override;
    void showStatus();
    void readUnit();
    void reopenUnit();
    bool isRunning() const;
    int timeout() const;

    System m_system;
    std::chrono::milliseconds m_retryInterval;
    std::unique_ptr<Unit> m_unit; ///< none while its system is away
    Moment m_nextTry;             ///< when to try again
    EventLog& m_log;
    GeneratorState m_state; ///< of the unit, after the last report read
};

} // namespace vexa
