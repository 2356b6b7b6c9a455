#pragma once

#include <string>

namespace vexa {

/// Identifies a sound card. Stays the same when the card is replugged, in another order or beside
/// others like it.
struct CardIdentity {
    /// USB: vendor, product, serial number, interface and socket. FireWire: GUID. Other hardware:
    /// place on the bus. Software: the card's ID.
    std::string exact;
    /// The same without the socket, for USB with a serial number; otherwise empty. Several cards
    /// may share it, as some makers give all devices the same serial number.
    std::string inAnySocket;
    /// For people: "serial number A1, socket 0000:00:14.0-2".
    std::string whereabouts;

    bool operator==(const CardIdentity&) const = default;
};

/// card is its current ALSA number.
CardIdentity cardIdentity(int card);

/// The same, read from another root than /sys/class/sound.
CardIdentity cardIdentity(int card, const std::string& soundClass);

} // namespace vexa
