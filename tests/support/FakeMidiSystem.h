#pragma once

#include "midi/MidiSystem.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vexa::test {

/// A MIDI system of the objects that a test adds. Records every message.
class FakeMidiSystem final : public MidiSystem {
public:
    struct Object {
        MidiObjectType type = MidiObjectType::destination;
        std::optional<std::string> name;
        std::optional<MidiUniqueId> id;
        std::optional<std::vector<std::uint8_t>> connections;
        MidiObjectRef parent = 0; ///< an endpoint's entity, an entity's device
        bool isThere = true;
        std::optional<std::string> whereabouts{};
        std::optional<MidiUniqueId> earlierId{}; ///< finds the object as well
    };

    struct Sent {
        MidiObjectRef destination;
        std::string bytes; ///< "F0 7D …"
        bool operator==(const Sent&) const = default;
    };

    MidiObjectRef add(Object object) {
        m_objects[m_next] = std::move(object);
        return m_next++;
    }

    MidiObjectRef addDestination(std::optional<std::string> name, MidiUniqueId id,
                                 MidiObjectRef entity = 0) {
        const auto ref = add({MidiObjectType::destination, std::move(name), id, {}, entity});
        m_destinations.push_back(ref);
        return ref;
    }

    /// Unplugs a destination, or plugs it in again.
    void unplug(MidiObjectRef ref) {
        object(ref).isThere = false;
        std::erase(m_destinations, ref);
        see(ref);
    }
    void plugIn(MidiObjectRef ref, std::size_t position) {
        object(ref).isThere = true;
        m_destinations.insert(m_destinations.begin() + static_cast<std::ptrdiff_t>(position), ref);
        see(ref);
    }

    Object& object(MidiObjectRef ref) { return m_objects.at(ref); }

    /// The messages since the last call.
    std::vector<Sent> takeSent() { return std::exchange(m_sent, {}); }
    std::vector<std::string> takeBytes() {
        std::vector<std::string> bytes;
        for (const auto& message : takeSent())
            bytes.push_back(message.bytes);
        return bytes;
    }

    void awaitSent() override { m_sentWhenAwaited = m_sent.size(); }
    /// How many of the messages recorded now had been sent when they were last awaited.
    std::size_t sentWhenAwaited() const { return m_sentWhenAwaited; }

    /// Until reach() is called, the destinations are unknown.
    void beOutOfReach() { m_isReached = false; }
    void reach() {
        m_isReached = true;
        for (const auto& then : std::exchange(m_waiting, {}))
            then();
    }
    void whenReached(std::function<void()> then) override {
        if (m_isReached)
            then();
        else
            m_waiting.push_back(std::move(then));
    }
    std::size_t numberOfDestinations() override {
        m_listed = m_destinations;
        return m_listed.size();
    }
    MidiObjectRef destination(std::size_t position) override {
        return position < m_listed.size() ? m_listed[position] : 0;
    }
    std::optional<MidiObject> findByUniqueId(MidiUniqueId id) override {
        m_listed = m_destinations;
        for (const auto& [ref, object] : m_objects)
            if ((object.id == id || object.earlierId == id) && object.isThere)
                return MidiObject{ref, object.type};
        return {};
    }
    std::optional<std::string> name(MidiObjectRef ref) override { return lookUp(ref).name; }
    std::optional<MidiUniqueId> uniqueId(MidiObjectRef ref) override { return lookUp(ref).id; }
    std::optional<std::string> whereabouts(MidiObjectRef ref) override {
        return lookUp(ref).whereabouts;
    }
    std::optional<std::vector<std::uint8_t>> connectionUniqueIds(MidiObjectRef ref) override {
        return lookUp(ref).connections;
    }
    MidiObjectRef entityOfEndpoint(MidiObjectRef ref) override { return lookUp(ref).parent; }
    MidiObjectRef deviceOfEntity(MidiObjectRef ref) override { return lookUp(ref).parent; }
    std::size_t numberOfEntities(MidiObjectRef device) override {
        return static_cast<std::size_t>(std::ranges::count_if(m_objects, [&](const auto& entry) {
            const auto& object = entry.second;
            return object.parent == device && (object.type == MidiObjectType::entity ||
                                               object.type == MidiObjectType::externalEntity);
        }));
    }
    void whenSeen(Seen seen) override { m_seen = std::move(seen); }
    void send(MidiObjectRef destination, std::span<const std::uint8_t> message,
              Delivered then = {}) override {
        std::string bytes;
        for (const auto byte : message) {
            char text[4];
            std::snprintf(text, sizeof text, bytes.empty() ? "%02X" : " %02X", byte);
            bytes += text;
        }
        m_sent.push_back({destination, bytes});
        if (whenSent)
            whenSent(m_sent.back());
        if (then && m_objects.contains(destination))
            then({object(destination).isThere, std::chrono::steady_clock::now()});
    }

    std::function<void(const Sent&)> whenSent;

private:
    void see(MidiObjectRef destination) {
        const bool isLast = !m_sent.empty() && m_sent.back().destination == destination;
        if (isLast && m_seen)
            m_seen(destination, object(destination).isThere);
    }
    Object lookUp(MidiObjectRef ref) const {
        const auto found = m_objects.find(ref);
        return found == m_objects.end() ? Object{} : found->second;
    }

    bool m_isReached = true;
    std::vector<std::function<void()>> m_waiting;
    MidiObjectRef m_next = 1;
    std::map<MidiObjectRef, Object> m_objects;
    std::vector<MidiObjectRef> m_destinations; ///< present now
    std::vector<MidiObjectRef> m_listed;       ///< present at the last reading
    std::vector<Sent> m_sent;
    std::size_t m_sentWhenAwaited = 0;
    Seen m_seen;
};

} // namespace vexa::test
