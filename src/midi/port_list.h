#pragma once

#include "midi/MidiDriver.h"

#include <string>
#include <vector>

namespace vexa {

/// Sorts ports for display: in the system's order, but Midi Through last. It leads nowhere, and as
/// the first entry it would be the default.
void putMidiThroughLast(std::vector<MidiPort>& ports);

/// A port's name without the leading device name: "UM-ONE MIDI 1" on "UM-ONE" is "MIDI 1". The
/// display name adds the device name again.
std::string withoutLeadingName(const std::string& name, const std::string& leading);

} // namespace vexa
