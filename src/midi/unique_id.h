#pragma once

#include "midi/MidiDriver.h"
#include "midi/MidiSystem.h"

#include <set>

namespace vexa {

/// A unique ID derived from the port's identity: the same on every machine and at every launch,
/// whatever else is plugged in. Never 0 and never one of the taken IDs.
MidiUniqueId uniqueId(const MidiPort& port, const std::set<MidiUniqueId>& taken);

/// Whether an unused ID may have been this port's: in another socket, or in settings of an earlier
/// version.
bool mayHaveBeen(MidiUniqueId id, const MidiPort& port);

} // namespace vexa
