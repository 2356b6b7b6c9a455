#pragma once

#include <string>

namespace vexa {

/// What tells a sound card from every other and stays the same when it is plugged in again, in
/// another order, or with others like it.
struct CardIdentity {
    /// For USB the vendor, product, serial number, interface, and the socket it is plugged into;
    /// for FireWire its GUID; for other hardware its place on the bus; for a card without hardware
    /// its ID.
    std::string exact;
    /// The same without the socket, for USB with a serial number; else empty. Makers exist who give
    /// all their devices one serial number, so it may be that of several cards.
    std::string inAnySocket;
    /// What people can tell it by: "serial number A1, socket 0000:00:14.0-2".
    std::string whereabouts;

    bool operator==(const CardIdentity&) const = default;
};

/// card is the number that ALSA gives it now.
CardIdentity cardIdentity(int card);

/// The same, read below another root than /sys/class/sound.
CardIdentity cardIdentity(int card, const std::string& soundClass);

} // namespace vexa
