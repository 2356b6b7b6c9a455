#pragma once

#include "midi/MidiSystem.h"

#include <string>
#include <vector>

namespace vexa {

/// The name of an endpoint with its device's before it, as "Hub Port 1"; a name is never doubled.
/// An external endpoint that is its device's only entity goes by the device's name alone.
std::string createEndpointDisplayName(MidiSystem& system, MidiObjectRef endpoint, bool isExternal);

/// The name under which the operator knows a destination: what is cabled to it where the system
/// can tell ("Synth, Recorder"), otherwise the endpoint's display name.
std::string destinationName(MidiSystem& system, MidiObjectRef destination);

/// The names of all destinations, in the system's order; names may be empty or alike.
std::vector<std::string> destinationNames(MidiSystem& system);

} // namespace vexa
