#include "app/midi_choice.h"

#include "midi/BackgroundMidiSystem.h"
#include "midi/alsa/AlsaMidiDriver.h"
#include "midi/jack/JackMidiDriver.h"
#include "midi/none/NoMidiSystem.h"

namespace vexa {

namespace {

MidiChoice availableSystem() {
    if (AlsaMidiDriver::isAvailable())
        return MidiChoice::Alsa;
    return JackMidiDriver::isAvailable() ? MidiChoice::Jack : MidiChoice::None;
}

} // namespace

std::unique_ptr<MidiSystem> openMidiSystem(MidiChoice choice) {
    switch (choice == MidiChoice::Automatic ? availableSystem() : choice) {
    case MidiChoice::Alsa:
        return std::make_unique<BackgroundMidiSystem>(
            [] { return std::make_unique<AlsaMidiDriver>(); });
    case MidiChoice::Jack:
        return std::make_unique<BackgroundMidiSystem>(
            [] { return std::make_unique<JackMidiDriver>(); });
    default:
        return std::make_unique<NoMidiSystem>();
    }
}

} // namespace vexa
