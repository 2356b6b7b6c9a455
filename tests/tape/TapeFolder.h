#pragma once

#include "tape/recording.h"
#include "tape/render.h"
#include "tape/tape_reader.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vexa::test {

/// A folder for sound files, removed after the test.
class TapeFolder : public testing::Test {
protected:
    std::filesystem::path path(const std::string& name = {}) const {
        return std::filesystem::path(m_directory.path().toStdString()) / name;
    }

    std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path()), {}));
    }

    static std::string bytes(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static TapeRow row(const Timecode& start, const Timecode& stop, std::uint64_t rate,
                       std::uint64_t reel = 1) {
        TapeRow row;
        row.reel = reel;
        row.start = start;
        row.stop = stop;
        row.rate = &frameRateForCode(rate);
        return row;
    }

    void renderTo(const std::string& name, const std::vector<TapeRow>& rows,
                  const RenderOptions& options = {}) const {
        render({name, rows}, path(), options, [](double) {});
    }

    static std::vector<float> samplesOf(const std::filesystem::path& path) {
        Recording recording(path);
        std::vector<float> samples(recording.length() * recording.channels());
        EXPECT_EQ(recording.read(samples).size(), samples.size());
        return samples;
    }

    TapeContents contentsOf(const std::string& name) const {
        Recording recording(path(name));
        return vexa::contentsOf(recording, {}, [](double) {});
    }

private:
    QTemporaryDir m_directory;
};

} // namespace vexa::test
