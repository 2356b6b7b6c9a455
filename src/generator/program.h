#pragma once

#include "generator/event_log.h"
#include "generator/unit.h"

#include <memory>

namespace vexa {

/// The generator at work: logs what happens to the unit, shows what it does, and has it opened
/// again when its MIDI system comes back.
class Program : private Listener {
public:
    /// `unit` is one that `system` opened. The log outlives the program.
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
    Moment m_nextTry;             ///< when to look for it again
    EventLog& m_log;
    GeneratorState m_state; ///< of the unit, as far as it has been read
};

} // namespace vexa
