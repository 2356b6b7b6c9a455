// Writes and reads a file with an hour of linear timecode, with our code and with plain libltc and
// libsndfile. Plain: the encoder's 8-bit samples are written as 16 bits, and the decoder gets the
// samples as they come.

#include "tape/render.h"
#include "tape/tape_reader.h"

#include <benchmark/benchmark.h>

#include <ltc.h>
#include <sndfile.h>

#include <array>
#include <filesystem>
#include <memory>

namespace {

using namespace vexa;

constexpr int sampleRate = 48000;
constexpr int frames = 3600 * 25;

std::filesystem::path folder() { return std::filesystem::temp_directory_path(); }

void renderHour(const std::string& name, int bits) {
    TapeRow row;
    row.stop = {1, 0, 0, 0};
    row.rate = &frameRateForCode(rate::fps25);
    RenderOptions options;
    options.format.bits = bits;
    options.existing = Existing::replace;
    render({name, {row}}, folder(), options, [](double) {});
}

/// Argument: bits of a sample.
void anHourRendered(benchmark::State& state) {
    for ([[maybe_unused]] auto iteration : state)
        renderHour("vexa-tape-bench.wav", static_cast<int>(state.range()));
}

void anHourWrittenByLibltc(benchmark::State& state) {
    for ([[maybe_unused]] auto iteration : state) {
        SF_INFO info{0, sampleRate, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
        const auto path = folder() / "vexa-tape-bench.wav";
        const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(
            sf_open(path.c_str(), SFM_WRITE, &info), sf_close);
        const std::unique_ptr<LTCEncoder, void (*)(LTCEncoder*)> encoder(
            ltc_encoder_create(sampleRate, 25, LTC_TV_625_50, 0), ltc_encoder_free);
        std::array<short, 4096> block;
        for (int i = 0; i < frames; ++i) {
            ltc_encoder_encode_frame(encoder.get());
            ltcsnd_sample_t* samples = nullptr;
            const int count = ltc_encoder_get_bufferptr(encoder.get(), &samples, 1);
            for (int k = 0; k < count; ++k)
                block[static_cast<std::size_t>(k)] = static_cast<short>((samples[k] - 128) * 256);
            sf_write_short(file.get(), block.data(), count);
            ltc_encoder_inc_timecode(encoder.get());
        }
    }
}

void anHourRead(benchmark::State& state) {
    renderHour("vexa-tape-bench.wav", 16);
    for ([[maybe_unused]] auto iteration : state) {
        Recording recording(folder() / "vexa-tape-bench.wav");
        const auto tape = contentsOf(recording, {}, [](double) {});
        if (tape.stretches.size() != 1 || tape.stretches[0].frames != frames)
            state.SkipWithError("not all of it was read");
    }
}

void anHourReadByLibltc(benchmark::State& state) {
    renderHour("vexa-tape-bench.wav", 16);
    for ([[maybe_unused]] auto iteration : state) {
        SF_INFO info{};
        const auto path = folder() / "vexa-tape-bench.wav";
        const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(
            sf_open(path.c_str(), SFM_READ, &info), sf_close);
        const std::unique_ptr<LTCDecoder, int (*)(LTCDecoder*)> decoder(
            ltc_decoder_create(sampleRate / 25, 64), ltc_decoder_free);
        std::array<float, 1024> block;
        ltc_off_t done = 0;
        int read = 0;
        while (const auto count = sf_readf_float(file.get(), block.data(), block.size())) {
            ltc_decoder_write_float(decoder.get(), block.data(), static_cast<std::size_t>(count),
                                    done);
            done += count;
            LTCFrameExt frame;
            while (ltc_decoder_read(decoder.get(), &frame) > 0)
                ++read;
        }
        if (read != frames)
            state.SkipWithError("not all of it was read");
    }
}

BENCHMARK(anHourRendered)->Arg(16)->Arg(24)->ArgName("bits")->Unit(benchmark::kMillisecond);
BENCHMARK(anHourWrittenByLibltc)->Unit(benchmark::kMillisecond);
BENCHMARK(anHourRead)->Unit(benchmark::kMillisecond);
BENCHMARK(anHourReadByLibltc)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove(folder() / "vexa-tape-bench.wav");
}
