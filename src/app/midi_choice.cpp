#include "app/midi_choice.h"

#include "midi/BackgroundMidiSystem.h"
#include "midi/alsa/AlsaMidiDriver.h"
#include "midi/jack/JackMidiDriver.h"
#include "midi/none/NoMidiSystem.h"

#include <array>

namespace vexa {

namespace {

template<class Driver>
std::unique_ptr<MidiDriver> make() {
    return std::make_unique<Driver>();
}

/// The driver is created on the system's own thread, as it may have to wait for a server.
template<class Driver>
std::unique_ptr<MidiSystem> openWith() {
    return std::make_unique<BackgroundMidiSystem>(make<Driver>);
}

std::unique_ptr<MidiSystem> openNone() { return std::make_unique<NoMidiSystem>(); }

constexpr std::array choices{MidiChoice{"alsa", true, openWith<AlsaMidiDriver>},
                             MidiChoice{"jack", true, openWith<JackMidiDriver>},
                             MidiChoice{"none", false, openNone}};

std::unique_ptr<MidiDriver> makeAvailable() {
    return AlsaMidiDriver::isAvailable() ? make<AlsaMidiDriver>() : make<JackMidiDriver>();
}

} // namespace

std::span<const MidiChoice> midiChoices() { return choices; }

std::unique_ptr<MidiSystem> openMidiSystem(const MidiChoice* choice) {
    return choice ? choice->open() : std::make_unique<BackgroundMidiSystem>(makeAvailable);
}

} // namespace vexa
