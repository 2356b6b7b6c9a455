#include "generator/hex_bytes.h"
#include "generator/program.h"

#include <gmock/gmock.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <deque>
#include <sstream>

using namespace vexa;
using Outcome = MidiInput::Outcome;

namespace {

/// What the next reads give; after the last the program is told to end.
struct Script {
    struct Step {
        std::vector<std::string> pieces;
        Outcome outcome;
    };

    Script() : readable(eventfd(1, 0)), end(eventfd(0, 0)) {}
    ~Script() {
        close(readable);
        close(end);
    }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    std::deque<Step> steps;
    int readable; ///< always
    int end;
};

Script* script = nullptr;

class ScriptedInput : public MidiInput {
public:
    std::string name() const override { return "Fake"; }
    int descriptor() const override { return script->readable; }
    Outcome read(const Receiver& receiver) override {
        const auto step = script->steps.front();
        script->steps.pop_front();
        for (const auto& piece : step.pieces)
            receiver(Moment(std::chrono::seconds(5)), bytesFromHex(piece));
        if (script->steps.empty())
            eventfd_write(script->end, 1);
        return step.outcome;
    }
};

/// The lines of a run, without the moments that are the machine's.
std::string linesOf(std::deque<Script::Step> steps) {
    Script running;
    running.steps = std::move(steps);
    script = &running;
    std::ostringstream out;
    std::ostringstream copy;
    EventLog log(out, false, copy);
    const InputSystem system{"a test", "", []() -> std::unique_ptr<MidiInput> {
                                 return std::make_unique<ScriptedInput>();
                             }};
    Program program(system, system.open(), log, std::chrono::milliseconds(0));
    program.runUntilReadable(running.end);
    std::istringstream lines(out.str());
    std::string kept;
    for (std::string line; std::getline(lines, line); kept += line + '\n')
        if (const auto text = line.find("  ");
            text != std::string::npos && line.substr(0, text) != "5.000000")
            line = "now" + line.substr(text);
    return kept;
}

TEST(Program, LogsFramesHoweverTheyAreCut) {
    EXPECT_EQ(linesOf({{{"F0 7D 42 01 00", "00 00 05"}, Outcome::Read},
                       {{"F7 F0 7D 42 01 00 00 00 7F F7"}, Outcome::Read}}),
              "ready: \"Fake\" on a test\n"
              "5.000000  F0 7D 42 01 00 00 00 05 F7  setup 01:00:00:00 25 fps DTL\n"
              "5.000000  F0 7D 42 01 00 00 00 7F F7  start 01:00:00:00\n");
}

TEST(Program, LogsWhatTheEndCutsOff) {
    EXPECT_EQ(linesOf({{{"F0 7D 42"}, Outcome::Read}}),
              "ready: \"Fake\" on a test\n"
              "now  F0 7D 42  malformed: cut off after byte 3\n");
}

TEST(Program, DoesNotJoinWhatStandsOnEitherSideOfAGap) {
    EXPECT_EQ(linesOf({{{"F0 7D 42 01"}, Outcome::Lost}, {{"00 00 00 05 F7"}, Outcome::Read}}),
              "ready: \"Fake\" on a test\n"
              "now  F0 7D 42 01  malformed: cut off after byte 4\n"
              "now  lost: messages came faster than they could be read\n");
}

TEST(Program, ComesBackWithItsMidiSystem) {
    EXPECT_EQ(linesOf({{{"F0 7D 42 01 00 00 00 05 F7"}, Outcome::Gone},
                       {{"F0 7D 42 01 00 00 00 7F F7"}, Outcome::Read}}),
              "ready: \"Fake\" on a test\n"
              "5.000000  F0 7D 42 01 00 00 00 05 F7  setup 01:00:00:00 25 fps DTL\n"
              "now  gone: a test; waiting for its return\n"
              "now  ready: \"Fake\" on a test again\n"
              "5.000000  F0 7D 42 01 00 00 00 7F F7  start 01:00:00:00\n");
}

} // namespace
