#pragma once

#include "midi/MidiDriver.h"

#include <string>
#include <vector>

namespace vexa {

/// Brings ports into the order in which they are offered: as the system lists them, but Midi
/// Through last. It leads nowhere, and as the first entry it would be the default everywhere.
void putMidiThroughLast(std::vector<MidiPort>& ports);

/// A port's name without its device's in front: "UM-ONE MIDI 1" on "UM-ONE" is "MIDI 1". The
/// display name puts the device's there again.
std::string withoutLeadingName(const std::string& name, const std::string& leading);

} // namespace vexa
