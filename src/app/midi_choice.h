#pragma once

#include "app/command_line.h"
#include "midi/MidiSystem.h"

#include <memory>

namespace vexa {

/// Opens the MIDI system that was chosen; by itself, ALSA where its sequencer opens, else a JACK
/// server that is running, else none. A chosen system that is not there is waited for.
std::unique_ptr<MidiSystem> openMidiSystem(MidiChoice choice);

} // namespace vexa
