#pragma once

#include "midi/MidiDriver.h"
#include "midi/MidiSystem.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <future>
#include <map>
#include <memory>
#include <set>

namespace vexa {

/// A MIDI system whose driver runs on a thread of its own, so that no call waits on a device: a
/// message is queued and the call returns. Reading the list asks the thread and, should it be
/// held up, makes do with the last reading; until it goes on, nobody waits for it again.
class BackgroundMidiSystem final : public MidiSystem {
public:
    /// Makes the driver on the new thread, and has it read its first list: it is from this that a
    /// destination is chosen at start-up. Whoever asks for the list first waits up to eight seconds
    /// for it; but nobody does where whenReached() was asked before, which needs an event loop.
    explicit BackgroundMidiSystem(std::function<std::unique_ptr<MidiDriver>()> makeDriver);

    /// Leaves the queued messages a second to go out. What then still holds up the driver, such
    /// as the system draining a device, no longer holds up the caller.
    ~BackgroundMidiSystem() override;

    void whenReached(std::function<void()> then) override;
    std::size_t numberOfDestinations() override;
    MidiObjectRef destination(std::size_t position) override;
    std::optional<MidiObject> findByUniqueId(MidiUniqueId id) override;
    std::optional<std::string> name(MidiObjectRef object) override;
    std::optional<MidiUniqueId> uniqueId(MidiObjectRef object) override;
    std::optional<std::string> whereabouts(MidiObjectRef object) override;
    /// Neither ALSA nor JACK knows what is cabled to a port.
    std::optional<std::vector<std::uint8_t>> connectionUniqueIds(MidiObjectRef) override {
        return {};
    }
    MidiObjectRef entityOfEndpoint(MidiObjectRef endpoint) override;
    MidiObjectRef deviceOfEntity(MidiObjectRef entity) override;
    std::size_t numberOfEntities(MidiObjectRef device) override;
    void send(MidiObjectRef destination, std::span<const std::uint8_t> message,
              Delivered then = {}) override;
    /// It looks whenever something is sent, and every two seconds else. Needs an event loop.
    void whenSeen(Seen seen) override;

private:
    struct Endpoint {
        MidiPort port;
        MidiUniqueId id = 0;
    };
    class Worker;

    void askForPorts();
    QObject& listener();
    bool takeAnswerWithin(std::chrono::milliseconds time);
    void readPorts();
    void callWaiting();
    const Endpoint* endpoint(MidiObjectRef object) const;
    template<typename Predicate>
    MidiObjectRef onlyListed(Predicate matches) const;

    std::shared_ptr<Worker> m_worker;
    std::future<std::vector<MidiPort>> m_answer; ///< to the last reading that was asked for
    bool m_isReached = false; ///< the first reading is there, or was waited for in vain
    std::vector<std::function<void()>> m_waiting; ///< for the first reading
    std::unique_ptr<QObject> m_listener;          ///< through which the caller's thread is told
    std::map<std::string, MidiObjectRef> m_refs;  ///< by identity
    std::set<MidiUniqueId> m_ids;                 ///< of the endpoints
    std::vector<Endpoint> m_endpoints;   ///< all ever seen; the reference is the position + 1
    std::vector<MidiObjectRef> m_listed; ///< the destinations of the last reading
};

} // namespace vexa
