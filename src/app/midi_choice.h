#pragma once

#include "app/command_line.h"
#include "midi/MidiSystem.h"

#include <memory>

namespace vexa {

/// Opens the MIDI system that was chosen; by itself, ALSA where its sequencer opens, else JACK. One
/// that is not there is used once it comes.
std::unique_ptr<MidiSystem> openMidiSystem(MidiChoice choice);

} // namespace vexa
