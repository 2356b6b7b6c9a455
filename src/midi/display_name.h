#pragma once

#include "midi/MidiSystem.h"

#include <string>
#include <vector>

namespace vexa {

/// The name of an endpoint after its device's, as in "Hub Port 1"; equal names are not repeated. An
/// external endpoint that is its device's only entity has the device's name alone.
std::string createEndpointDisplayName(MidiSystem& system, MidiObjectRef endpoint, bool isExternal);

/// A destination's name for the operator: what is cabled to it, if the system knows ("Synth,
/// Recorder"); otherwise the endpoint's display name.
std::string destinationName(MidiSystem& system, MidiObjectRef destination);

/// The names of all destinations, in the system's order; names may be empty or alike.
std::vector<std::string> destinationNames(MidiSystem& system);

} // namespace vexa
