#pragma once

#include "midi/MidiDriver.h"
#include "midi/MidiSystem.h"

#include <string>
#include <vector>

namespace vexa {

/// Brings ports into the order in which they are offered: as the system lists them, but Midi
/// Through last. It leads nowhere, and as the first entry it would be the default everywhere.
void putMidiThroughLast(std::vector<MidiPort>& ports);

/// Makes identities differ by numbering the repeats of each, as for two ports of one name that a
/// program has opened.
void numberRepeatedIdentities(std::vector<MidiPort>& ports);

/// A port's name without its device's in front: "UM-ONE MIDI 1" on "UM-ONE" is "MIDI 1". The
/// display name puts the device's there again.
std::string withoutLeadingName(const std::string& name, const std::string& leading);

/// A unique ID made from each identity: the same on every machine and at every launch, never 0,
/// different for every port in the list.
std::vector<MidiUniqueId> uniqueIds(const std::vector<MidiPort>& ports);

} // namespace vexa
