#include "generator/hex_bytes.h"
#include "generator/program.h"

#include <gmock/gmock.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <deque>
#include <sstream>

using namespace vexa;

namespace {

/// The results of the next reads. After the last one, the program is told to end.
struct Script {
    struct Step {
        std::string messages; ///< "F0 7D 42 ... F7"
        bool staysThere;
    };

    Script() : readable(eventfd(1, 0)), end(eventfd(0, 0)) {}
    ~Script() {
        close(readable);
        close(end);
    }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    std::deque<Step> steps;
    int readable; ///< always readable
    int end;
};

class ScriptedUnit : public Unit {
public:
    explicit ScriptedUnit(Script& script) : m_script(script) {}

    std::string name() const override { return "Fake"; }
    int descriptor() const override { return m_script.readable; }
    bool read(Listener& listener) override {
        const auto step = m_script.steps.front();
        m_script.steps.pop_front();
        tell(step.messages, listener);
        if (m_script.steps.empty())
            eventfd_write(m_script.end, 1);
        return step.staysThere;
    }
    void finish(Listener& listener) override { tell("F0 01", listener); }
    SignalStatus signal() override { return {{1, 0, 3, 12}, -18, 2}; }

private:
    void tell(const std::string& messages, Listener& listener) {
        for (const auto& message : messagesIn(messages)) {
            const auto reply = m_state.take(decodedFrame(message));
            listener.happened({Moment(std::chrono::seconds(5)), message, reply, m_state, {}, 0});
        }
    }

    Script& m_script;
    GeneratorState m_state;
};

/// The output of a run to a terminal or to a file.
std::string outputOf(std::deque<Script::Step> steps, bool isTerminal) {
    Script script;
    script.steps = std::move(steps);
    std::ostringstream out;
    std::ostringstream copy;
    const System system{"a test", "", [&script] { return std::make_unique<ScriptedUnit>(script); }};
    EventLog log(out, isTerminal, copy);
    Program program(system, system.open(), log, std::chrono::milliseconds(0));
    program.runUntilReadable(script.end);
    return out.str();
}

/// The lines of a run, without their varying times.
std::string linesOf(std::deque<Script::Step> steps) {
    std::istringstream lines(outputOf(std::move(steps), false));
    std::string kept;
    for (std::string line; std::getline(lines, line); kept += line + '\n')
        if (const auto text = line.find("  ");
            text != std::string::npos && line.substr(0, text) != "5.000000")
            line = "now" + line.substr(text);
    return kept;
}

const std::string setup = "F0 7D 42 01 00 00 00 05 F7 ";
const std::string start = "F0 7D 42 01 00 00 00 7F F7 ";
const std::string cutOff = "5.000000  F0 01  malformed: manufacturer 01, not 7D\n";

TEST(Program, LogsWhatHappensUpToItsEnd) {
    EXPECT_EQ(linesOf({{setup, true}, {start, true}}),
              "ready: \"Fake\" on a test\n"
              "5.000000  F0 7D 42 01 00 00 00 05 F7  setup 01:00:00:00 25 fps DTL\n"
              "5.000000  F0 7D 42 01 00 00 00 7F F7  start 01:00:00:00\n" +
                  cutOff);
}

TEST(Program, ComesBackWithItsMidiSystem) {
    EXPECT_EQ(linesOf({{setup, false}, {start, true}}),
              "ready: \"Fake\" on a test\n"
              "5.000000  F0 7D 42 01 00 00 00 05 F7  setup 01:00:00:00 25 fps DTL\n" +
                  cutOff +
                  "now  gone: a test; waiting for its return\n"
                  "now  ready: \"Fake\" on a test again\n"
                  "5.000000  F0 7D 42 01 00 00 00 7F F7  unexpected: start 01:00:00:00 without a "
                  "setup\n" +
                  cutOff);
}

TEST(Program, TellsWhereARunWasLost) {
    EXPECT_THAT(linesOf({{setup + start, false}, {"", true}}),
                testing::HasSubstr("now  gone: a test, and the signal with it at 01:00:03:12; "
                                   "waiting for its return\n"));
}

TEST(Program, ShowsWhatTheUnitDoes) {
    const auto shown = outputOf({{setup, true}, {start, true}, {"", false}, {"", true}}, true);
    EXPECT_THAT(shown, testing::HasSubstr("set up 01:00:00:00 25 fps DTL"));
    EXPECT_THAT(shown, testing::HasSubstr("LTC 01:00:03:12 · -18 dBFS · 2 xruns · 25 fps DTL"));
    EXPECT_THAT(shown, testing::HasSubstr("stopped, waiting for a test"));
}

} // namespace
