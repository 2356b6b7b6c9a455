#pragma once

#include <gtest/gtest.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexa::test {

/// Starts a program from the path. files: its standard input and output, if given.
inline pid_t spawned(std::vector<const char*> arguments, const std::vector<int>& files = {}) {
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (std::size_t i = 0; i < files.size(); ++i)
        posix_spawn_file_actions_adddup2(&actions, files[i], static_cast<int>(i));
    pid_t pid = 0;
    EXPECT_EQ(posix_spawnp(&pid, arguments[0], &actions, nullptr,
                           const_cast<char**>(arguments.data()), environ),
              0);
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

/// The test's own JACK server, without sound hardware. From now on, everything on JACK uses it.
class JackServer {
public:
    JackServer() {
        setenv("JACK_DEFAULT_SERVER", m_name.c_str(), 1);
        setenv("JACK_NO_AUDIO_RESERVATION", "1", 1);
    }
    ~JackServer() { stop(SIGTERM); }
    JackServer(const JackServer&) = delete;
    JackServer& operator=(const JackServer&) = delete;

    /// Returns when the server is up, and throws if it fails to start. Synchronous, so a receiver
    /// that is late on a busy machine still gets its period.
    void start(const char* sampleRate = "48000", const char* period = "256") {
        // A killed server may leave a database of all servers locked, which would hang the next
        // one. A shared database is left alone.
        if (std::getenv("VEXA_OWN_SHM"))
            std::filesystem::remove_all("/dev/shm/jack_db-" + std::to_string(getuid()));
        m_pid = spawned({"jackd", "-n", m_name.c_str(), "-r", "-S", "-d", "dummy", "-r", sampleRate,
                         "-p", period});
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!isUp()) {
            if (waitpid(m_pid, nullptr, WNOHANG) != 0) {
                m_pid = 0;
                throw std::runtime_error("jackd ended during start-up");
            }
            if (std::chrono::steady_clock::now() > deadline)
                throw std::runtime_error("jackd did not start in time");
        }
    }

    void stop(int signal) {
        if (m_pid <= 0)
            return;
        kill(m_pid, signal);
        waitpid(m_pid, nullptr, 0);
        m_pid = 0;
    }

    /// While the server hangs, no period begins and no request is answered.
    void hang() const { kill(m_pid, SIGSTOP); }
    void resume() const { kill(m_pid, SIGCONT); }

private:
    static bool isUp() {
        int status = 0;
        waitpid(spawned({"sh", "-c", "exec jack_lsp >/dev/null 2>&1"}), &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    const std::string m_name = "vexa-test-" + std::to_string(getpid());
    pid_t m_pid = 0;
};

} // namespace vexa::test
