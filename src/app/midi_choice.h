#pragma once

#include "midi/MidiSystem.h"

#include <memory>
#include <span>
#include <string_view>

namespace vexa {

/// A MIDI system that the operator can choose by name.
struct MidiChoice {
    std::string_view name;
    bool hasDestinations; ///< false: it sends nothing, on purpose
    std::unique_ptr<MidiSystem> (*open)();
};

std::span<const MidiChoice> midiChoices();

/// Opens the chosen system. With no choice, opens ALSA if its sequencer can be opened, else JACK. A
/// system that is not running yet is used once it is.
std::unique_ptr<MidiSystem> openMidiSystem(const MidiChoice* choice);

} // namespace vexa
