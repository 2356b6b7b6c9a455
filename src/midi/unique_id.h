#pragma once

#include "midi/MidiDriver.h"
#include "midi/MidiSystem.h"

#include <set>

namespace vexa {

/// A unique ID made from the port's identity: the same on every machine and at every launch,
/// whatever else is plugged in. It is none of those that are taken, and never 0.
MidiUniqueId uniqueId(const MidiPort& port, const std::set<MidiUniqueId>& taken);

/// Whether an ID that no port has may have been this one's: in another socket, or with an earlier
/// version, whose settings the operator still has.
bool mayHaveBeen(MidiUniqueId id, const MidiPort& port);

} // namespace vexa
