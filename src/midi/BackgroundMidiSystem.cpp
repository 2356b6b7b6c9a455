#include "midi/BackgroundMidiSystem.h"

#include "midi/unique_id.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace vexa {

using namespace std::chrono_literals;

namespace {

constexpr auto openingTime = 8s;   // to reach even a busy MIDI system and read the first list
constexpr auto answerTime = 250ms; // to read a later list, or to hand over what was sent
constexpr auto farewellTime = 1s;  // for the last messages
constexpr auto maintenanceInterval = 2s;

// A reference is an endpoint's number; these bits turn it into that endpoint's entity or device.
constexpr MidiObjectRef entityBit = 0x40000000;
constexpr MidiObjectRef deviceBit = 0x80000000;

} // namespace

/// The driver's thread and its task queue. Lives as long as the thread, which may outlast the
/// system that started it.
class BackgroundMidiSystem::Worker : public std::enable_shared_from_this<Worker> {
public:
    using Task = std::function<void(MidiDriver&)>;

    void start(std::function<std::unique_ptr<MidiDriver>()> makeDriver) {
        std::thread([self = shared_from_this(), makeDriver = std::move(makeDriver)] {
            self->run(makeDriver);
        }).detach();
    }

    void post(Task task) {
        {
            const std::lock_guard lock{m_mutex};
            m_tasks.push_back(std::move(task));
        }
        m_changed.notify_all();
    }

    /// Makes the call on the listener's thread. Both arguments must stay valid until finish().
    void tell(QObject& listener, const std::function<void()>& then) {
        const std::lock_guard lock{m_mutex};
        if (!m_finishing)
            QMetaObject::invokeMethod(&listener, then, Qt::QueuedConnection);
    }

    // Call the following two on the worker's thread only.
    /// From now on, reports each disappearance and each return of the destination.
    void setSeen(std::function<void(MidiObjectRef, bool)> seen) { m_seen = std::move(seen); }
    void note(MidiObjectRef destination, bool isThere) {
        const Look look{destination, isThere};
        if (std::exchange(m_lastLook, look) != look && m_seen)
            m_seen(destination, isThere);
    }

    /// Ends the thread after its remaining tasks, and waits for that up to farewellTime.
    void finish() {
        std::unique_lock lock{m_mutex};
        m_finishing = true;
        m_changed.notify_all();
        m_changed.wait_for(lock, farewellTime, [this] { return m_ended; });
    }

private:
    void run(const std::function<std::unique_ptr<MidiDriver>()>& makeDriver) {
        auto driver = makeDriver();
        while (const auto task = next())
            task(*driver);
        driver.reset();
        const std::lock_guard lock{m_mutex};
        m_ended = true;
        m_changed.notify_all();
    }

    /// An empty task ends the thread.
    Task next() {
        std::unique_lock lock{m_mutex};
        const auto due = [this] { return !m_tasks.empty() || m_finishing; };
        if (!m_changed.wait_for(lock, maintenanceInterval, due))
            return [this](MidiDriver& driver) { maintain(driver); };
        if (m_tasks.empty())
            return {};
        auto task = std::move(m_tasks.front());
        m_tasks.pop_front();
        return task;
    }

    void maintain(MidiDriver& driver) {
        const bool isThere = driver.maintain();
        if (m_lastLook.destination)
            note(m_lastLook.destination, isThere);
    }

    /// The last known state of the last message's destination.
    struct Look {
        MidiObjectRef destination = 0;
        bool isThere = false;
        bool operator==(const Look&) const = default;
    };
    Look m_lastLook;
    std::function<void(MidiObjectRef, bool)> m_seen;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Task> m_tasks;
    bool m_finishing = false;
    bool m_ended = false;
};

BackgroundMidiSystem::BackgroundMidiSystem(std::function<std::unique_ptr<MidiDriver>()> makeDriver)
    : m_worker(std::make_shared<Worker>()) {
    m_worker->start(std::move(makeDriver));
    askForPorts();
}

BackgroundMidiSystem::~BackgroundMidiSystem() { m_worker->finish(); }

void BackgroundMidiSystem::askForPorts() {
    const auto answer = std::make_shared<std::promise<std::vector<MidiPort>>>();
    m_worker->post([answer](MidiDriver& driver) { answer->set_value(driver.ports()); });
    m_answer = answer->get_future();
}

void BackgroundMidiSystem::whenReached(std::function<void()> then) {
    const bool isFirst = m_waiting.empty();
    if (!m_isReached && isFirst)
        m_isReached = takeAnswerWithin(0s);
    if (m_isReached)
        return then();
    m_waiting.push_back(std::move(then));
    if (!isFirst)
        return;
    m_worker->post([this, worker = m_worker.get(), &toTell = listener()](MidiDriver&) {
        worker->tell(toTell, [this] { callWaiting(); });
    });
}

QObject& BackgroundMidiSystem::listener() {
    if (!m_listener)
        m_listener = std::make_unique<QObject>();
    return *m_listener;
}

void BackgroundMidiSystem::callWaiting() {
    if (m_isReached)
        return; // awaitSent() was faster
    takeAnswerWithin(0s);
    m_isReached = true;
    for (const auto& then : std::exchange(m_waiting, {}))
        then();
}

void BackgroundMidiSystem::readPorts() {
    if (m_isReached) {
        if (m_answer.valid() && m_answer.wait_for(0s) != std::future_status::ready)
            return;
        askForPorts();
        takeAnswerWithin(answerTime);
    } else if (m_waiting.empty()) {
        takeAnswerWithin(openingTime);
        m_isReached = true;
    }
}

bool BackgroundMidiSystem::takeAnswerWithin(std::chrono::milliseconds time) {
    if (m_answer.wait_for(time) != std::future_status::ready)
        return false;
    m_listed.clear();
    for (const auto& port : m_answer.get()) {
        const auto [known, isNew] =
            m_refs.try_emplace(port.identity, static_cast<MidiObjectRef>(m_endpoints.size() + 1));
        if (isNew) {
            const auto id = vexa::uniqueId(port, m_ids);
            m_ids.insert(id);
            m_endpoints.push_back({{}, id});
        }
        m_endpoints[known->second - 1].port = port;
        m_listed.push_back(known->second);
    }
    return true;
}

const BackgroundMidiSystem::Endpoint* BackgroundMidiSystem::endpoint(MidiObjectRef object) const {
    const auto number = object & ~(entityBit | deviceBit);
    return number >= 1 && number <= m_endpoints.size() ? &m_endpoints[number - 1] : nullptr;
}

std::size_t BackgroundMidiSystem::numberOfDestinations() {
    readPorts();
    return m_listed.size();
}

MidiObjectRef BackgroundMidiSystem::destination(std::size_t position) {
    return position < m_listed.size() ? m_listed[position] : 0;
}

std::optional<MidiObject> BackgroundMidiSystem::findByUniqueId(MidiUniqueId id) {
    readPorts();
    auto found = onlyListed([id](const Endpoint& listed) { return listed.id == id; });
    if (!found)
        found = onlyListed([id](const Endpoint& listed) { return mayHaveBeen(id, listed.port); });
    return found ? std::optional{MidiObject{found, MidiObjectType::destination}} : std::nullopt;
}

template<typename Predicate>
MidiObjectRef BackgroundMidiSystem::onlyListed(Predicate matches) const {
    MidiObjectRef only = 0;
    for (const auto listed : m_listed) {
        if (!matches(*endpoint(listed)))
            continue;
        if (only)
            return 0;
        only = listed;
    }
    return only;
}

std::optional<std::string> BackgroundMidiSystem::name(MidiObjectRef object) {
    const auto* found = endpoint(object);
    if (!found || (object & entityBit))
        return {};
    return object & deviceBit ? found->port.deviceName : found->port.name;
}

std::optional<MidiUniqueId> BackgroundMidiSystem::uniqueId(MidiObjectRef object) {
    const auto* found = endpoint(object);
    return found ? std::optional{found->id} : std::nullopt;
}

std::optional<std::string> BackgroundMidiSystem::whereabouts(MidiObjectRef object) {
    const auto* found = endpoint(object);
    if (!found || found->port.whereabouts.empty())
        return {};
    return found->port.whereabouts;
}

MidiObjectRef BackgroundMidiSystem::entityOfEndpoint(MidiObjectRef object) {
    const auto* found = endpoint(object);
    return found && !found->port.device.empty() ? object | entityBit : 0;
}

MidiObjectRef BackgroundMidiSystem::deviceOfEntity(MidiObjectRef entity) {
    return entity & entityBit ? (entity & ~entityBit) | deviceBit : 0;
}

std::size_t BackgroundMidiSystem::numberOfEntities(MidiObjectRef device) {
    const auto* found = endpoint(device);
    if (!found || !(device & deviceBit))
        return 0;
    return static_cast<std::size_t>(std::ranges::count_if(m_listed, [&](MidiObjectRef listed) {
        return endpoint(listed)->port.device == found->port.device;
    }));
}

void BackgroundMidiSystem::send(MidiObjectRef destination, std::span<const std::uint8_t> message,
                                Delivered then) {
    const auto* found = endpoint(destination);
    if (!found)
        return;
    m_worker->post([worker = m_worker.get(), &toTell = listener(), destination,
                    then = std::move(then), identity = found->port.identity,
                    bytes = std::vector(message.begin(), message.end())](MidiDriver& driver) {
        const bool handedOver = driver.send(identity, bytes);
        const MidiDelivery delivery{handedOver, std::chrono::steady_clock::now()};
        if (then)
            worker->tell(toTell, [then, delivery] { then(delivery); });
        worker->note(destination, handedOver);
    });
}

void BackgroundMidiSystem::awaitSent() {
    if (awaitWorker() && !m_isReached) {
        callWaiting();
        awaitWorker();
    }
}

/// Returns whether the worker has done in time what was posted before.
bool BackgroundMidiSystem::awaitWorker() {
    if (m_passed.valid() && m_passed.wait_for(0s) != std::future_status::ready)
        return false;
    const auto passed = std::make_shared<std::promise<void>>();
    m_worker->post([passed](MidiDriver&) { passed->set_value(); });
    m_passed = passed->get_future();
    return m_passed.wait_for(answerTime) == std::future_status::ready;
}

void BackgroundMidiSystem::whenSeen(Seen seen) {
    m_worker->post([worker = m_worker.get(), &toTell = listener(), seen](MidiDriver&) {
        worker->setSeen([worker, &toTell, seen](MidiObjectRef destination, bool isThere) {
            worker->tell(toTell, [seen, destination, isThere] { seen(destination, isThere); });
        });
    });
}

} // namespace vexa
