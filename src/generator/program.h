#pragma once

#include "generator/event_log.h"
#include "generator/generator_state.h"
#include "generator/midi_input.h"
#include "generator/sysex_reader.h"

#include <memory>

namespace vexa {

/// The generator at work: hears the input, logs, and has the input opened again when its system
/// comes back.
class Program {
public:
    /// `input` is one that `system` opened. The log outlives the program.
    Program(InputSystem system, std::unique_ptr<MidiInput> input, EventLog& log,
            std::chrono::milliseconds retryInterval = std::chrono::seconds(1));

    /// Runs until a descriptor other than the input's becomes readable.
    void runUntilReadable(int descriptor);

private:
    void readInput();
    void reopenInput();
    void log(Moment arrival, const SysEx& message);
    int timeout() const;

    InputSystem m_system;
    std::chrono::milliseconds m_retryInterval;
    std::unique_ptr<MidiInput> m_input; ///< none while its system is away
    Moment m_nextTry;                   ///< when to look for it again
    EventLog& m_log;
    SysExReader m_reader;
    GeneratorState m_state;
};

} // namespace vexa
