#pragma once

#include "app/command_line.h"
#include "midi/MidiSystem.h"

namespace vexa {

class Vexa_MIDI_Manager;

/// Stripes in the terminal, through the same controller as the window does: one stripe or a batch
/// list, with changes of reel asked for there. Names the destination first. Returns the program's
/// exit code: 0 at the end, 3 where nothing was sent for want of a destination, 130 when
/// interrupted or left without an answer (the generator is then stopped first). Nothing is in the
/// way of the stripe, and the manager, which is the shared one, uses the system. Needs a
/// QCoreApplication.
int stripeInTerminal(const CommandLine& line, MidiSystem& system, Vexa_MIDI_Manager& midiManager);

} // namespace vexa
