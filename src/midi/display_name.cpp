#include "midi/display_name.h"

namespace vexa {

namespace {

std::string nameOfConnected(MidiSystem& system, const MidiObject& object) {
    const auto type = static_cast<std::uint32_t>(object.type);
    const bool externalEndpoint =
        (type | 1) == static_cast<std::uint32_t>(MidiObjectType::externalDestination);
    if (externalEndpoint)
        return createEndpointDisplayName(system, object.ref, true);
    return system.name(object.ref).value_or("");
}

MidiUniqueId uniqueIdAt(std::span<const std::uint8_t, 4> bytes) {
    std::uint32_t value = 0;
    for (const auto byte : bytes)
        value = value << 8 | byte;
    return static_cast<MidiUniqueId>(value);
}

} // namespace

std::string createEndpointDisplayName(MidiSystem& system, MidiObjectRef endpoint, bool isExternal) {
    auto result = system.name(endpoint).value_or("");
    const auto entity = system.entityOfEndpoint(endpoint);
    if (entity == 0)
        return result;
    if (result.empty())
        result = system.name(entity).value_or("");
    const auto device = system.deviceOfEntity(entity);
    if (device == 0)
        return result;
    const auto deviceName = system.name(device);
    if (!deviceName)
        return result;
    if (isExternal && system.numberOfEntities(device) < 2)
        return *deviceName;
    if (*deviceName == result)
        return result;
    return result.empty() ? *deviceName : *deviceName + ' ' + result;
}

std::string destinationName(MidiSystem& system, MidiObjectRef destination) {
    std::string names;
    const auto ids = system.connectionUniqueIds(destination).value_or(std::vector<std::uint8_t>{});
    for (std::span rest{ids}; rest.size() >= 4; rest = rest.subspan(4)) {
        const auto object = system.findByUniqueId(uniqueIdAt(rest.first<4>()));
        const auto name = object ? nameOfConnected(system, *object) : std::string{};
        if (name.empty())
            continue;
        if (!names.empty())
            names += ", ";
        names += name;
    }
    return names.empty() ? createEndpointDisplayName(system, destination, false) : names;
}

std::vector<std::string> destinationNames(MidiSystem& system) {
    std::vector<std::string> names(system.numberOfDestinations());
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = destinationName(system, system.destination(i));
    return names;
}

} // namespace vexa
