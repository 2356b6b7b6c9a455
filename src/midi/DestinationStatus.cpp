#include "midi/DestinationStatus.h"

namespace vexa {

namespace {

using Message = DestinationStatus::Message;
using Presence = DestinationStatus::Presence;
using namespace std::chrono_literals;

std::string ageText(DestinationStatus::Clock::duration age) {
    const auto whole = [age](auto unit, const char* name) {
        return std::to_string(age / unit) + name + " ago";
    };
    if (age < 1min)
        return whole(1s, " s");
    return age < 1h ? whole(1min, " min") : whole(1h, " h");
}

} // namespace

std::string messageText(const DestinationStatus::Sent& sent) {
    if (sent.message == Message::stop)
        return "stop";
    return (sent.message == Message::start ? "start " : "setup ") + timecodeText(sent.time);
}

std::string statusText(const DestinationStatus& status, DestinationStatus::Clock::time_point now) {
    switch (status.presence) {
    case Presence::unknown:
        return {};
    case Presence::none:
        return "no destination";
    case Presence::away:
        return status.name + " is not there";
    case Presence::there:
        break;
    }
    if (!status.sent)
        return status.name;
    return status.name + " · " + messageText(*status.sent) + " · " + ageText(now - status.sent->at);
}

} // namespace vexa
