#include "midi/display_name.h"
#include "support/FakeMidiSystem.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Bytes = std::vector<std::uint8_t>;

struct DisplayName : testing::Test {
    MidiObjectRef device(std::optional<std::string> name) {
        return system.add({MidiObjectType::device, std::move(name), {}, {}, 0});
    }
    MidiObjectRef entity(std::optional<std::string> name, MidiObjectRef device) {
        return system.add({MidiObjectType::entity, std::move(name), {}, {}, device});
    }
    std::string nameOf(MidiObjectRef endpoint, bool isExternal = false) {
        return createEndpointDisplayName(system, endpoint, isExternal);
    }

    FakeMidiSystem system;
};

TEST_F(DisplayName, PutsTheDeviceBeforeTheEndpoint) {
    const auto hub = device("Hub");
    EXPECT_EQ(nameOf(system.addDestination("Port 1", 1, entity("whatever", hub))), "Hub Port 1");
}

TEST_F(DisplayName, DoesNotRepeatAName) {
    EXPECT_EQ(nameOf(system.addDestination("Hub", 1, entity("x", device("Hub")))), "Hub");
}

TEST_F(DisplayName, ComparesNamesWithCase) {
    EXPECT_EQ(nameOf(system.addDestination("hub", 1, entity("x", device("Hub")))), "Hub hub");
}

TEST_F(DisplayName, OfAnEndpointWithoutAnEntityIsItsOwnName) {
    EXPECT_EQ(nameOf(system.addDestination("Soft Synth", 1)), "Soft Synth");
    EXPECT_EQ(nameOf(system.addDestination({}, 2)), "");
}

TEST_F(DisplayName, UsesTheEntitysNameIfTheEndpointHasNone) {
    EXPECT_EQ(nameOf(system.addDestination({}, 1, entity("Port A", device("Hub")))), "Hub Port A");
    EXPECT_EQ(nameOf(system.addDestination({}, 2, entity("Port A", 0))), "Port A");
}

TEST_F(DisplayName, IsTheDevicesIfEndpointAndEntityAreNameless) {
    EXPECT_EQ(nameOf(system.addDestination({}, 1, entity({}, device("Synth")))), "Synth");
}

TEST_F(DisplayName, OmitsANamelessDevice) {
    EXPECT_EQ(nameOf(system.addDestination("Port 1", 1, entity("x", device({})))), "Port 1");
}

TEST_F(DisplayName, DistinguishesAnEmptyDeviceNameFromNone) {
    const auto nameless = device("");
    EXPECT_EQ(nameOf(system.addDestination("Port 1", 1, entity("x", nameless))), " Port 1");
    EXPECT_EQ(nameOf(system.addDestination({}, 2, entity({}, nameless))), "");
}

TEST_F(DisplayName, OfAnExternalEndpointDependsOnItsDeviceAlone) {
    EXPECT_EQ(nameOf(system.addDestination("In", 1), true), "In");
    EXPECT_EQ(nameOf(system.addDestination("In", 2, entity("x", 0)), true), "In");
    EXPECT_EQ(nameOf(system.addDestination("In", 3, entity("x", device({}))), true), "In");
    EXPECT_EQ(nameOf(system.addDestination({}, 4, entity({}, device("Synth"))), true), "Synth");
}

TEST_F(DisplayName, OfTheOnlyExternalEntityIsTheDevicesName) {
    const auto synth = device("Synth");
    const auto port = system.addDestination("In", 1, entity("x", synth));
    EXPECT_EQ(nameOf(port, true), "Synth");
    EXPECT_EQ(nameOf(port, false), "Synth In");
    entity("y", synth);
    EXPECT_EQ(nameOf(port, true), "Synth In");
    system.object(port).name = "Synth";
    EXPECT_EQ(nameOf(port, true), "Synth");
}

struct DestinationName : DisplayName {
    /// The name of a destination of the interface "Hub" with this connection property.
    std::string nameCabledTo(std::optional<Bytes> connections) {
        const auto port = system.addDestination("Port 1", 1, entity("x", device("Hub")));
        system.object(port).connections = std::move(connections);
        return destinationName(system, port);
    }
    void addExternalDevice(const char* name, MidiUniqueId id) {
        system.add({MidiObjectType::externalDevice, name, id, {}, 0});
    }
};

TEST_F(DestinationName, IsThatOfTheCabledDevice) {
    addExternalDevice("Recorder", 0x01020304);
    EXPECT_EQ(nameCabledTo(Bytes{1, 2, 3, 4}), "Recorder");
}

TEST_F(DestinationName, JoinsSeveralWithCommas) {
    addExternalDevice("Recorder", 0x01020304);
    addExternalDevice("Synth", -2);
    EXPECT_EQ(nameCabledTo(Bytes{0xFF, 0xFF, 0xFF, 0xFE, 1, 2, 3, 4}), "Synth, Recorder");
}

TEST_F(DestinationName, SkipsUnknownAndNamelessObjects) {
    addExternalDevice("Recorder", 1);
    system.add({MidiObjectType::externalDevice, {}, 2, {}, 0});
    EXPECT_EQ(nameCabledTo(Bytes{0, 0, 0, 9, 0, 0, 0, 1, 0, 0, 0, 2}), "Recorder");
}

TEST_F(DestinationName, IsThePortsOwnIfAllObjectsAreNameless) {
    system.add({MidiObjectType::externalDevice, {}, 1, {}, 0});
    system.add({MidiObjectType::externalDestination, {}, 2, {}, entity({}, device({}))});
    EXPECT_EQ(nameCabledTo(Bytes{0, 0, 0, 1, 0, 0, 0, 2}), "Hub Port 1");
}

TEST_F(DestinationName, SkipsInTheMiddleWithoutALeftoverComma) {
    addExternalDevice("Recorder", 1);
    addExternalDevice("Synth", 3);
    EXPECT_EQ(nameCabledTo(Bytes{0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 3}), "Recorder, Synth");
}

TEST_F(DestinationName, IgnoresTrailingBytes) {
    addExternalDevice("Recorder", 1);
    EXPECT_EQ(nameCabledTo(Bytes{0, 0, 0, 1, 0, 0, 0}), "Recorder");
}

TEST_F(DestinationName, FallsBackToThePortsOwnName) {
    EXPECT_EQ(nameCabledTo({}), "Hub Port 1");
    EXPECT_EQ(nameCabledTo(Bytes{}), "Hub Port 1");
    EXPECT_EQ(nameCabledTo(Bytes{1}), "Hub Port 1");
    EXPECT_EQ(nameCabledTo(Bytes{1, 2, 3}), "Hub Port 1");
    EXPECT_EQ(nameCabledTo(Bytes{0, 0, 0, 9}), "Hub Port 1");
}

class ExternalEndpoint : public DestinationName,
                         public testing::WithParamInterface<MidiObjectType> {};

TEST_P(ExternalEndpoint, IsNamedAsExternal) {
    const auto synth = device("Synth");
    system.add({GetParam(), "In", 5, {}, entity("x", synth)});
    EXPECT_EQ(nameCabledTo(Bytes{0, 0, 0, 5}), "Synth");
}

INSTANTIATE_TEST_SUITE_P(Types, ExternalEndpoint,
                         testing::Values(MidiObjectType::externalSource,
                                         MidiObjectType::externalDestination));

class OtherObject : public DestinationName, public testing::WithParamInterface<MidiObjectType> {};

TEST_P(OtherObject, IsNamedByItsOwnName) {
    system.add({GetParam(), "In", 5, {}, entity("x", device("Synth"))});
    EXPECT_EQ(nameCabledTo(Bytes{0, 0, 0, 5}), "In");
}

INSTANTIATE_TEST_SUITE_P(Types, OtherObject,
                         testing::Values(MidiObjectType::device, MidiObjectType::entity,
                                         MidiObjectType::source, MidiObjectType::destination,
                                         MidiObjectType::externalDevice,
                                         MidiObjectType::externalEntity));

TEST_F(DestinationName, InAStudioOfEveryKindOfObject) {
    const auto hub = device("Hub");
    const auto synth = system.add({MidiObjectType::externalDevice, "Synth", 100, {}, 0});
    const auto mixer = system.add({MidiObjectType::externalDevice, "Mixer", 200, {}, 0});
    const auto external = [&](MidiObjectRef parent) {
        return system.add({MidiObjectType::externalEntity, "Group", {}, {}, parent});
    };
    system.add({MidiObjectType::externalDestination, "In", 101, {}, external(synth)});
    system.add({MidiObjectType::externalSource, "Bus A", 201, {}, external(mixer)});
    system.add({MidiObjectType::externalDestination, "Mixer", 202, {}, external(mixer)});

    const auto addPort = [&](const char* name, MidiUniqueId id, Bytes connections) {
        const auto port = system.addDestination(name, id, entity("x", hub));
        system.object(port).connections = std::move(connections);
    };
    addPort("Port 1", 1, {0, 0, 0, 101, 0, 0, 0, 201, 0, 0, 0, 202, 0, 0, 0, 100});
    addPort("Port 2", 2, {0, 0, 0, 99});
    addPort("Port 3", 3, {0, 0, 0, 2});
    addPort("Hub", 4, {});
    system.addDestination("Soft Synth", 5);
    EXPECT_THAT(destinationNames(system), ElementsAre("Synth, Mixer Bus A, Mixer, Synth",
                                                      "Hub Port 2", "Port 2", "Hub", "Soft Synth"));
}

TEST_F(DisplayName, NamesOfAllDestinationsKeepOrderAndRepeats) {
    EXPECT_THAT(destinationNames(system), IsEmpty());
    system.addDestination("B", 1);
    system.addDestination("A", 2);
    system.addDestination("B", 3);
    system.addDestination({}, 4);
    EXPECT_THAT(destinationNames(system), ElementsAre("B", "A", "B", ""));
}

} // namespace
