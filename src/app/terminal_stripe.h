#pragma once

#include "app/command_line.h"
#include "midi/MidiSystem.h"

namespace vexa {

class Vexa_MIDI_Manager;

/// Stripes in the terminal, through the same controller as the window: one stripe or a batch list,
/// whose reel changes it asks for. Names the destination first. Returns the program's exit code.
/// - 0: the run ended.
/// - 3: nothing was sent, as there is no destination.
/// - 130: interrupted or left without an answer; the generator is stopped first.
/// Needs a QCoreApplication, a stripe without obstacles, and the shared manager, which uses the
/// system.
int stripeInTerminal(const CommandLine& line, MidiSystem& system, Vexa_MIDI_Manager& midiManager);

} // namespace vexa
