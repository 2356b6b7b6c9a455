#include "generator/hex_bytes.h"
#include "generator/report.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

/// The text of the last report on the messages, without its bytes.
std::string lastText(const std::string& hex, std::optional<Timecode> stoppedAt = std::nullopt,
                     unsigned xruns = 0) {
    GeneratorState state;
    Report report;
    for (const auto& message : messagesIn(hex)) {
        const auto reply = state.take(decodedFrame(message));
        report = {{}, message, reply, state, stoppedAt, xruns};
    }
    const auto text = reportText(report);
    const auto prefix = hexText(report.message) + "  ";
    EXPECT_EQ(text.substr(0, prefix.size()), prefix);
    return text.substr(prefix.size());
}

const std::string stop = "F0 7D 42 00 00 00 00 00 F7 ";
const std::string setup = "F0 7D 42 01 00 00 00 05 F7 ";
const std::string start = "F0 7D 42 01 00 00 00 7F F7 ";
const std::string fskSetup = "F0 7D 42 00 3B 3B 1D 08 F7 ";
const std::string fskStart = "F0 7D 42 00 3B 3B 1D 7F F7 ";

TEST(Report, TellsWhatWasDone) {
    EXPECT_EQ(lastText(setup), "setup 01:00:00:00 25 fps DTL");
    EXPECT_EQ(lastText(setup + start), "start 01:00:00:00");
    EXPECT_EQ(lastText(stop), "stop");
    EXPECT_EQ(lastText(setup + start + stop, Timecode{1, 0, 2, 0}), "stop at 01:00:02:00");
    EXPECT_EQ(lastText(setup + start + stop, Timecode{1, 0, 2, 0}, 1),
              "stop at 01:00:02:00 after 1 xrun");
    EXPECT_EQ(lastText(setup + start + stop, Timecode{1, 0, 2, 0}, 12),
              "stop at 01:00:02:00 after 12 xruns");
    EXPECT_EQ(lastText(stop + "F0 7D 42 00 00 00 00 7F F7"),
              "start 00:00:00:00, set up as 24 fps MTC by the stop frame");
}

TEST(Report, TellsThatFskGivesNoSignal) {
    EXPECT_EQ(lastText(fskSetup), "setup 00:59:59:29 FSK, rate unknown");
    EXPECT_EQ(lastText(fskSetup + fskStart),
              "start 00:59:59:29; no signal: FSK has no form in software");
    EXPECT_EQ(lastText(fskSetup + fskStart + stop), "stop");
}

TEST(Report, TellsWhatWasRefused) {
    EXPECT_EQ(lastText("F0 7D 42 F7"), "malformed: 4 bytes, not 9");
    EXPECT_EQ(lastText(start), "unexpected: start 01:00:00:00 without a setup");
    EXPECT_EQ(lastText(setup + "F0 7D 42 01 00 00 01 7F F7"),
              "unexpected: start 01:00:00:01 after setup 01:00:00:00 25 fps DTL");
    EXPECT_EQ(lastText(setup + start + start), "unexpected: start 01:00:00:00 while running");
    EXPECT_EQ(lastText(setup + start + "F0 7D 42 02 00 00 00 02 F7"),
              "unexpected: setup 02:00:00:00 30 fps MTC while running");
}

GeneratorState stateAfter(const std::string& hex) {
    GeneratorState state;
    for (const auto& message : messagesIn(hex))
        state.take(decodedFrame(message));
    return state;
}

TEST(Status, TellsWhatIsOnTheWire) {
    const SignalStatus signal{{1, 0, 3, 12}, -18, 0};
    EXPECT_EQ(statusText({}, {}), "stopped");
    EXPECT_EQ(statusText(stateAfter(setup), {}), "set up 01:00:00:00 25 fps DTL");
    EXPECT_EQ(statusText(stateAfter(setup + start), signal),
              "LTC 01:00:03:12 · -18 dBFS · 0 xruns · 25 fps DTL");
    EXPECT_EQ(statusText(stateAfter(setup + start), {{1, 0, 3, 12}, -4.5, 1}),
              "LTC 01:00:03:12 · -4.5 dBFS · 1 xrun · 25 fps DTL");
    EXPECT_EQ(statusText(stateAfter(setup + start), {{1, 0, 3, 12}, std::nullopt, 0}),
              "running 01:00:03:12 25 fps DTL, no LTC");
    EXPECT_EQ(statusText(stateAfter(fskSetup + fskStart), signal),
              "running since 00:59:59:29 FSK, rate unknown, no signal");
}

} // namespace
