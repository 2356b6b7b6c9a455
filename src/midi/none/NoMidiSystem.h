#pragma once

#include "midi/MidiSystem.h"

namespace vexa {

/// A machine without MIDI: no destinations, and messages go nowhere.
class NoMidiSystem final : public MidiSystem {
public:
    std::size_t numberOfDestinations() override { return 0; }
    MidiObjectRef destination(std::size_t) override { return 0; }
    std::optional<MidiObject> findByUniqueId(MidiUniqueId) override { return {}; }
    std::optional<std::string> name(MidiObjectRef) override { return {}; }
    std::optional<MidiUniqueId> uniqueId(MidiObjectRef) override { return {}; }
    std::optional<std::string> whereabouts(MidiObjectRef) override { return {}; }
    std::optional<std::vector<std::uint8_t>> connectionUniqueIds(MidiObjectRef) override {
        return {};
    }
    MidiObjectRef entityOfEndpoint(MidiObjectRef) override { return 0; }
    MidiObjectRef deviceOfEntity(MidiObjectRef) override { return 0; }
    std::size_t numberOfEntities(MidiObjectRef) override { return 0; }
    void send(MidiObjectRef, std::span<const std::uint8_t>, Delivered) override {}
};

} // namespace vexa
