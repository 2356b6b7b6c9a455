#include "midi/DestinationStatus.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace std::chrono_literals;
using Message = DestinationStatus::Message;
using Presence = DestinationStatus::Presence;

namespace {

const DestinationStatus::Clock::time_point sentAt{1000h};
constexpr PackedTimecode oneHour = 0x01000000;

std::string textOf(Presence presence, std::optional<Message> sent = {},
                   DestinationStatus::Clock::duration age = 2s) {
    DestinationStatus status{presence, "Timecode Box MIDI 1", {}};
    if (sent)
        status.sent = {*sent, oneHour, sentAt};
    return statusText(status, sentAt + age);
}

TEST(StatusText, ShowsTheLastMessageAndItsAge) {
    EXPECT_EQ(textOf(Presence::there, Message::start),
              "Timecode Box MIDI 1 · start 01:00:00:00 · 2 s ago");
    EXPECT_EQ(textOf(Presence::there, Message::setup),
              "Timecode Box MIDI 1 · setup 01:00:00:00 · 2 s ago");
    EXPECT_EQ(textOf(Presence::there, Message::stop), "Timecode Box MIDI 1 · stop · 2 s ago");
    EXPECT_EQ(textOf(Presence::there), "Timecode Box MIDI 1");
}

TEST(StatusText, SaysThatADestinationIsMissing) {
    EXPECT_EQ(textOf(Presence::away, Message::start), "Timecode Box MIDI 1 is not there");
    EXPECT_EQ(statusText({Presence::none, {}, {}}, sentAt), "no destination");
    EXPECT_EQ(statusText({}, sentAt), "");
}

TEST(StatusText, RoundsTheAgeDownToWholeUnits) {
    const auto age = [](auto time) {
        const auto text = textOf(Presence::there, Message::stop, time);
        return text.substr(text.rfind("· ") + std::string_view("· ").size());
    };
    EXPECT_EQ(age(0s), "0 s ago");
    EXPECT_EQ(age(59'999ms), "59 s ago");
    EXPECT_EQ(age(60s), "1 min ago");
    EXPECT_EQ(age(3599s), "59 min ago");
    EXPECT_EQ(age(3600s), "1 h ago");
    EXPECT_EQ(age(50h), "50 h ago");
}

} // namespace
