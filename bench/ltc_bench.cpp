// Encodes an hour of linear timecode at 48 kHz, with our encoder and with libltc's, which makes
// 8-bit samples. Also measures how much of JACK's period the generator takes during a run.

#include "generator/generator.h"

#include <benchmark/benchmark.h>

#include <ltc.h>

#include <memory>
#include <vector>

namespace {

using namespace vexa;

constexpr std::uint32_t sampleRate = 48000;
constexpr double level = -18;

/// Argument: a rate code.
void anHourByVexa(benchmark::State& state) {
    const auto& rate = frameRateForCode(static_cast<std::uint64_t>(state.range()));
    const auto blocks = 3600 * sampleRate / 1024;
    std::vector<float> block(1024);
    for ([[maybe_unused]] auto iteration : state) {
        LtcSignal signal(sampleRate, level);
        signal.start({{}, rate});
        for (std::uint32_t i = 0; i < blocks; ++i) {
            signal.render(block);
            benchmark::DoNotOptimize(block.data());
            benchmark::ClobberMemory();
        }
    }
}

void anHourByLibltc(benchmark::State& state) {
    const auto& rate = frameRateForCode(static_cast<std::uint64_t>(state.range()));
    const auto words = 3600 * rate.frames / rate.seconds;
    const auto standard = rate.frames == 25 ? LTC_TV_625_50 : LTC_TV_525_60;
    for ([[maybe_unused]] auto iteration : state) {
        const std::unique_ptr<LTCEncoder, void (*)(LTCEncoder*)> encoder(
            ltc_encoder_create(sampleRate,
                               static_cast<double>(rate.frames) / static_cast<double>(rate.seconds),
                               standard, 0),
            ltc_encoder_free);
        ltc_encoder_set_volume(encoder.get(), level);
        for (std::uint64_t i = 0; i < words; ++i) {
            ltc_encoder_encode_frame(encoder.get());
            ltcsnd_sample_t* samples = nullptr;
            benchmark::DoNotOptimize(ltc_encoder_get_bufferptr(encoder.get(), &samples, 1));
            benchmark::DoNotOptimize(samples);
            ltc_encoder_inc_timecode(encoder.get());
        }
    }
}

class NoMidi : public MidiWriter {
public:
    void write(std::uint64_t, std::span<const std::uint8_t>) override {}
};

/// Arguments: samples per second and per period. The counter is the fraction of the period used.
void aPeriodOfTheGenerator(benchmark::State& state) {
    const auto clock = static_cast<std::uint32_t>(state.range(0));
    std::vector<float> period(static_cast<std::size_t>(state.range(1)));
    Generator generator(clock, level);
    NoMidi midi;
    // 00:00:58:00 at 30 df, MTC.
    generator.take({{0xF0, 0x7D, 0x42, 0, 0, 58, 0, 3, 0xF7}, 9, true}, midi);
    generator.take({{0xF0, 0x7D, 0x42, 0, 0, 58, 0, 0x7F, 0xF7}, 9, true}, midi);
    for ([[maybe_unused]] auto iteration : state) {
        generator.render(period, midi);
        benchmark::DoNotOptimize(period.data());
        benchmark::ClobberMemory();
    }
    using benchmark::Counter;
    state.counters["part"] =
        Counter(static_cast<double>(period.size()) / clock,
                static_cast<Counter::Flags>(Counter::kIsIterationInvariantRate | Counter::kInvert));
}

void everyRate(benchmark::internal::Benchmark* benchmark) {
    for (std::int64_t rate = 0; rate < static_cast<std::int64_t>(rate::count); ++rate)
        benchmark->Arg(rate);
    benchmark->ArgName("rate")->Unit(benchmark::kMillisecond);
}

BENCHMARK(aPeriodOfTheGenerator)->Args({48000, 1024})->Args({48000, 256})->Args({96000, 64});
BENCHMARK(anHourByVexa)->Apply(everyRate);
BENCHMARK(anHourByLibltc)->Apply(everyRate);

} // namespace

BENCHMARK_MAIN();
