#pragma once

#include <string>

namespace vexa {

/// What tells a sound card from every other and stays the same when it is plugged in again, or in
/// another order: for USB its vendor, product, serial number and interface, and where it has no
/// serial number, or shares it with another card, the socket it is plugged into; for FireWire its
/// GUID; for other hardware its place on the bus; for a card without hardware its ID. card is the
/// number that ALSA gives it now.
std::string cardIdentity(int card);

/// The same, read below another root than /sys/class/sound.
std::string cardIdentity(int card, const std::string& soundClass);

} // namespace vexa
