#include "tape/TapeFolder.h"
#include "tape/recording.h"
#include "tape/tape_error.h"

#include <sndfile.h>
#include <sys/stat.h>

#include <array>
#include <cstdint>

using namespace vexa;
using namespace vexa::test;

namespace {

class RecordingTest : public TapeFolder {
protected:
    void write(const std::string& name, int format, int channels,
               const std::vector<float>& samples) const {
        SF_INFO info{0, 48000, channels, format, 0, 0};
        SNDFILE* const sound = sf_open(path(name).c_str(), SFM_WRITE, &info);
        ASSERT_TRUE(sound);
        sf_write_float(sound, samples.data(), static_cast<sf_count_t>(samples.size()));
        sf_close(sound);
    }

    std::string faultOf(const std::string& name) const {
        try {
            const Recording recording(path(name));
        } catch (const TapeError& error) {
            return error.what();
        }
        return "none";
    }
};

TEST_F(RecordingTest, IsWavFlacOrAiff) {
    const std::vector<float> samples{0.5F, -0.25F, 0, 0.125F, -0.5F, 0.75F};
    for (const int format : {SF_FORMAT_WAV, SF_FORMAT_FLAC, SF_FORMAT_AIFF, SF_FORMAT_W64}) {
        write("a", format | SF_FORMAT_PCM_16, 2, samples);
        Recording recording(path("a"));
        EXPECT_EQ(recording.sampleRate(), 48000U);
        EXPECT_EQ(recording.channels(), 2U);
        EXPECT_EQ(recording.length(), 3U);
        std::array<float, 5> room{};
        EXPECT_EQ(recording.read(room).size(), 4U);
        EXPECT_NEAR(room[3], 0.125, 0.001);
        EXPECT_EQ(recording.read(room).size(), 2U);
        EXPECT_NEAR(room[1], 0.75, 0.001);
        EXPECT_TRUE(recording.read(room).empty());
        EXPECT_EQ(recording.fault(), "");
    }
}

TEST_F(RecordingTest, RefusesWhatIsNone) {
    std::ofstream(path("text")) << "no sound";
    EXPECT_THAT(faultOf("text"), testing::StartsWith("cannot read \""));
    EXPECT_THAT(faultOf("none"), testing::EndsWith("No such file or directory"));
    EXPECT_THAT(faultOf(""), testing::EndsWith("it is not a regular file"));
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_THAT(faultOf("pipe"), testing::EndsWith("it is not a regular file"));
    write("many", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 100, std::vector<float>(100));
    EXPECT_THAT(faultOf("many"), testing::EndsWith("it has 100 channels"));
}

TEST_F(RecordingTest, ReadsWhatIsThereOfAShortenedOneAndTellsSo) {
    for (const int format : {SF_FORMAT_WAV, SF_FORMAT_RF64, SF_FORMAT_AIFF, SF_FORMAT_W64}) {
        write("a", format | SF_FORMAT_PCM_24, 2, std::vector<float>(2000, 0.5F));
        resize_file(path("a"), file_size(path("a")) - 3001); // in mid-sample
        Recording recording(path("a"));
        std::vector<float> room(4000);
        EXPECT_EQ(recording.read(room).size(), 998U);
        EXPECT_TRUE(recording.read(room).empty());
        EXPECT_EQ(recording.fault(), "the file is 3001 bytes shorter than it says");
    }
}

TEST_F(RecordingTest, MayBeOfARecorderThatDidNotKnowItsLength) {
    write("a", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, std::vector<float>(1000, 0.5F));
    for (const std::uint32_t size : {0xFFFFFFFFU, 0x7FFFF024U, 0x80000023U}) {
        std::fstream file(path("a"), std::ios::in | std::ios::out | std::ios::binary);
        for (const int place : {4, 40}) // of the file and of its samples
            file.seekp(place).write(reinterpret_cast<const char*>(&size), sizeof size);
        file.close();
        Recording recording(path("a"));
        std::vector<float> room(2000);
        EXPECT_EQ(recording.read(room).size(), 1000U);
        EXPECT_EQ(recording.fault(), "");
    }
}

} // namespace
