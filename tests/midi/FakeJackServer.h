#pragma once

#include <chrono>
#include <future>
#include <string>
#include <vector>

namespace vexa::test {

/// Stands in for libjack and a JACK server. The test runs its periods, and without one nothing
/// moves. The program under test is its only client, and calls it from another thread.
class FakeJackServer {
public:
    FakeJackServer();
    ~FakeJackServer();
    FakeJackServer(const FakeJackServer&) = delete;
    FakeJackServer& operator=(const FakeJackServer&) = delete;

    /// A receiver's port comes or goes. Going takes its connection with it.
    void add(const std::string& port);
    void remove(const std::string& port);
    /// Requests a connection from the program's port, as a patchbay does.
    void connect(const std::string& port);

    /// A requested change of connections takes effect after that many more periods. A real server
    /// makes it once all clients have finished a period in time. Only a period after which the
    /// client looks at its connections counts, so a busy machine changes nothing.
    void delayChanges(int periods);
    void runPeriod();
    /// Ends, and tells the client.
    void end();

    /// Refuses the next clients, as a busy server does.
    void refuseClients(int count);
    /// How many times a client has tried to open.
    int attempts() const;

    /// Makes the call on another thread while periods run. Returns its result.
    template<class Call>
    auto running(Call call) {
        auto result = std::async(std::launch::async, std::move(call));
        while (result.wait_for(std::chrono::microseconds(20)) != std::future_status::ready)
            runPeriod();
        return result.get();
    }

    /// The texts that have arrived at a port.
    std::vector<std::string> arrived(const std::string& port) const;
};

} // namespace vexa::test
