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

/// A MIDI system whose driver runs on its own thread, so no call waits for a device. Sending queues
/// the message. Reading the list asks the thread. If the answer is late, the previous list serves,
/// and no call waits again until the answer arrives.
class BackgroundMidiSystem final : public MidiSystem {
public:
    /// Creates the driver on the new thread and has it read the first list, from which start-up
    /// chooses a destination. The first reader of the list waits up to eight seconds for it. After
    /// whenReached(), which needs an event loop, no reader waits.
    explicit BackgroundMidiSystem(std::function<std::unique_ptr<MidiDriver>()> makeDriver);

    /// Gives queued messages a second to go out. A driver that is still busy then, such as one
    /// draining a device, no longer delays the caller.
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
    /// Until the destinations are known, also waits for them.
    void awaitSent() override;
    /// Checks at each message, and every two seconds otherwise. Needs an event loop.
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
    bool awaitWorker();
    const Endpoint* endpoint(MidiObjectRef object) const;
    template<typename Predicate>
    MidiObjectRef onlyListed(Predicate matches) const;

    std::shared_ptr<Worker> m_worker;
    std::future<std::vector<MidiPort>> m_answer;  ///< to the last request for the list
    std::future<void> m_passed;                   ///< when the worker passes the last awaitWorker()
    bool m_isReached = false;                     ///< the first list has arrived, or timed out
    std::vector<std::function<void()>> m_waiting; ///< callbacks for the first list
    std::unique_ptr<QObject> m_listener;          ///< receives calls on the caller's thread
    std::map<std::string, MidiObjectRef> m_refs;  ///< by identity
    std::set<MidiUniqueId> m_ids;                 ///< of the endpoints
    std::vector<Endpoint> m_endpoints;            ///< all ever seen; a reference is the index + 1
    std::vector<MidiObjectRef> m_listed;          ///< the destinations of the last list
};

} // namespace vexa
