#pragma once

#include "generator/unit.h"
#include "support/JackServer.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace vexa::test {

/// Records what it hears.
class Hearing : public Listener {
public:
    void happened(const Report& report) override { reports.push_back(report); }
    void noted(Moment, const std::string& text) override { notes.push_back(text); }

    std::vector<Report> reports;
    std::vector<std::string> notes;
};

/// The recording made by jack_studio.
struct Recording {
    std::vector<float> ltc;
    std::vector<std::string> mtc;       ///< "1920 F1 00"
    std::vector<std::string> connected; ///< to LTC at the end
};

inline std::vector<std::string> linesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::ifstream stream(file);
    std::string line;
    while (std::getline(stream, line))
        lines.push_back(line);
    return lines;
}

/// The other end of the generator's ports. Tests must call recording().
class Studio {
public:
    Studio(std::size_t samples, const std::vector<std::string>& events) {
        std::filesystem::create_directories(m_folder);
        const auto length = std::to_string(samples);
        std::vector<const char*> arguments{JACK_STUDIO, m_folder.c_str(), length.c_str()};
        for (const auto& event : events)
            arguments.push_back(event.c_str());
        EXPECT_EQ(pipe2(m_input, O_CLOEXEC) | pipe2(m_output, O_CLOEXEC), 0);
        m_pid = spawned(arguments, {m_input[0], m_output[1]});
        close(m_input[0]);
        close(m_output[1]);
        std::array<char, 6> ready{};
        EXPECT_EQ(::read(m_output[0], ready.data(), ready.size()), 6);
    }

    ~Studio() {
        close(m_output[0]);
        std::filesystem::remove_all(m_folder);
    }
    Studio(const Studio&) = delete;
    Studio& operator=(const Studio&) = delete;

    Recording recording() {
        close(m_input[1]);
        int status = 0;
        EXPECT_GT(waitpid(m_pid, &status, 0), 0);
        EXPECT_EQ(status, 0);
        Recording recording;
        std::ifstream ltc(m_folder + "/ltc", std::ios::binary);
        float sample = 0;
        while (ltc.read(reinterpret_cast<char*>(&sample), sizeof sample))
            recording.ltc.push_back(sample);
        recording.mtc = linesOf(m_folder + "/mtc");
        recording.connected = linesOf(m_folder + "/connected");
        return recording;
    }

private:
    const std::string m_folder =
        std::filesystem::temp_directory_path() / ("vexa-studio-" + std::to_string(getpid()));
    int m_input[2];
    int m_output[2];
    pid_t m_pid;
};

} // namespace vexa::test
