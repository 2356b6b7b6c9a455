#include "support/FileSizeLimit.h"
#include "tape/TapeFolder.h"
#include "tape/tape_error.h"
#include "tape/wave_file.h"

#include <sndfile.h>

#include <array>
#include <memory>

using namespace vexa;
using namespace vexa::test;

namespace {

template<typename Write>
std::string faultOf(Write write) {
    try {
        write();
    } catch (const TapeError& error) {
        return error.what();
    }
    return "none";
}

class WaveFileTest : public TapeFolder {
protected:
    void write(Existing existing, std::size_t samples = 10) const {
        WaveFile file(path("a.wav"), {}, {}, existing);
        file.write(std::vector<float>(samples, 0.5F));
        file.finish();
    }
};

TEST_F(WaveFileTest, HoldsItsSamplesAndItsLabel) {
    constexpr std::uint64_t startTime = 0x1'2345'6789;
    WaveFile file(path("a.wav"), {96000, 16}, {std::string(300, 'x'), startTime, 2},
                  Existing::keep);
    file.write(std::array{0.5F, -1.0F});
    file.finish();

    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> sound(
        sf_open(path("a.wav").c_str(), SFM_READ, &info), sf_close);
    ASSERT_TRUE(sound);
    EXPECT_EQ(info.samplerate, 96000);
    EXPECT_EQ(info.channels, 1);
    EXPECT_EQ(info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    std::array<short, 3> samples{};
    ASSERT_EQ(sf_read_short(sound.get(), samples.data(), 3), 2);
    EXPECT_EQ(samples[0], 16384);
    EXPECT_EQ(samples[1], -32767);
    SF_BROADCAST_INFO broadcast{};
    ASSERT_EQ(sf_command(sound.get(), SFC_GET_BROADCAST_INFO, &broadcast, sizeof broadcast),
              SF_TRUE);
    EXPECT_EQ(broadcast.time_reference_low, 0x2345'6789U);
    EXPECT_EQ(broadcast.time_reference_high, 1U);
    EXPECT_EQ(std::string(broadcast.description), std::string(255, 'x'));
    EXPECT_EQ(broadcast.origination_date[0], '\0');
}

TEST_F(WaveFileTest, IsSeenWhenItIsFinished) {
    {
        WaveFile file(path("a.wav"), {}, {}, Existing::keep);
        file.write(std::array{0.5F});
        EXPECT_FALSE(exists(path("a.wav")));
    }
    EXPECT_EQ(entries(), 0U);
    write(Existing::keep);
    EXPECT_TRUE(exists(path("a.wav")));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(WaveFileTest, ReplacesAnotherOnlyWhereItMay) {
    write(Existing::keep);
    const auto before = bytes(path("a.wav"));
    const auto name = '"' + path("a.wav").string() + '"';
    EXPECT_EQ(faultOf([&] { write(Existing::keep, 20); }), name + " exists already");
    EXPECT_EQ(bytes(path("a.wav")), before);
    write(Existing::replace, 20);
    EXPECT_NE(bytes(path("a.wav")), before);
    EXPECT_EQ(entries(), 1U);
}

TEST_F(WaveFileTest, DoesNotReplaceOneThatCameMeanwhile) {
    WaveFile file(path("a.wav"), {}, {}, Existing::keep);
    file.write(std::array{0.5F});
    std::ofstream(path("a.wav")) << "another's";
    EXPECT_NE(faultOf([&] { file.finish(); }), "none");
    EXPECT_EQ(bytes(path("a.wav")), "another's");
}

TEST_F(WaveFileTest, TellsWhyItCannotBeWritten) {
    const auto fault = [&](const std::string& name) {
        return faultOf([&] { WaveFile(path(name), {}, {}, Existing::replace); });
    };
    EXPECT_EQ(fault("none/a.wav"),
              "cannot write \"" + path("none/a.wav").string() + "\": No such file or directory");
    create_directory(path("folder"));
    EXPECT_EQ(fault("folder"), "cannot write \"" + path("folder").string() + "\": Is a directory");
}

TEST_F(WaveFileTest, OnAFullDiskLeavesNothing) {
    const FileSizeLimit limit(100'000);
    EXPECT_EQ(faultOf([&] { write(Existing::keep, 100'000); }),
              "cannot write \"" + path("a.wav").string() + "\": File too large");
    EXPECT_EQ(entries(), 0U);
}

TEST_F(WaveFileTest, HasNoLimitOfFourGibibytes) {
    WaveFile file(path("a.wav"), {48000, 24}, {"", 0, 1ULL << 31}, Existing::keep);
    file.write(std::array{0.5F});
    file.finish();
    EXPECT_EQ(bytes(path("a.wav")).substr(0, 4), "RF64");
}

} // namespace
