#include "generator/report.h"

#include <sstream>

namespace vexa {

namespace {
std::string setupText(const SetupFrame& setup) {
    return timecodeText(setup.time) + " " + modeText(setup.mode);
}

std::string requestText(const SetupFrame& setup, const Report&) {
    return "setup " + setupText(setup);
}

std::string requestText(const StartFrame& start, const Report&) {
    return "start " + timecodeText(start.time);
}

std::string xrunText(unsigned xruns) {
    return std::to_string(xruns) + (xruns == 1 ? " xrun" : " xruns");
}

std::string requestText(const StopFrame&, const Report& report) {
    if (!report.stoppedAt)
        return "stop";
    const auto text = "stop at " + timecodeText(*report.stoppedAt);
    return report.xruns == 0 ? text : text + " after " + xrunText(report.xruns);
}

std::string requestText(const MalformedFrame& malformed, const Report& report) {
    return "malformed: " + faultText(malformed.fault, report.message);
}

std::string meaning(const Report& report) {
    const auto frame = decodedFrame(report.message);
    auto request = std::visit([&](const auto& kind) { return requestText(kind, report); }, frame);
    const auto& state = report.state;
    switch (report.reply) {
    case Reply::done:
        if (state.phase() == GeneratorState::Phase::running && !state.setup()->mode.rate)
            return request + "; no signal: FSK has no form in software";
        return request;
    case Reply::malformed:
        return request;
    case Reply::doneBySetupInStop:
        return request + ", set up as " + modeText(state.setup()->mode) + " by the stop frame";
    case Reply::whileRunning:
        return "unexpected: " + request + " while running";
    case Reply::withoutSetup:
        return "unexpected: " + request + " without a setup";
    case Reply::afterOtherSetup:
        break;
    }
    return "unexpected: " + request + " after setup " + setupText(*state.setup());
}
} // namespace

std::string reportText(const Report& report) {
    return hexText(report.message) + "  " + meaning(report);
}

std::string statusText(const GeneratorState& state, const SignalStatus& signal) {
    switch (state.phase()) {
    case GeneratorState::Phase::stopped:
        return "stopped";
    case GeneratorState::Phase::setUp:
        return "set up " + setupText(*state.setup());
    case GeneratorState::Phase::running:
        break;
    }
    const auto& mode = state.setup()->mode;
    if (!mode.rate)
        return "running since " + setupText(*state.setup()) + ", no signal";
    if (!signal.ltcLevel)
        return "running " + timecodeText(signal.time) + " " + modeText(mode) + ", no LTC";
    std::ostringstream text;
    text << "LTC " << timecodeText(signal.time) << " · " << *signal.ltcLevel << " dBFS · "
         << xrunText(signal.xruns) << " · " << modeText(mode);
    return text.str();
}

} // namespace vexa
