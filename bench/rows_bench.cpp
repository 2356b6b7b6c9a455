#include "batch/VexaBatchStripeData.h"
#include "check/list_check.h"
#include "interchange/delimited_rows.h"
#include "interchange/read_rows.h"
#include "timecode/timecode.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

/// Ten items per reel; every tenth item is faulty.
BatchItems itemsOf(const benchmark::State& state) {
    BatchItems items;
    for (std::uint64_t row = 0; row < static_cast<std::uint64_t>(state.range(0)); ++row) {
        const auto start = pack({row % 10, 0, 0, 0});
        const auto stop = row % 10 == 0 ? start : pack({row % 10, 50, 0, 0});
        items.push_back(
            std::make_shared<BatchItem>(BatchItem{row / 10, u"Reel %1 of the archive"_s.arg(row, 6),
                                                  start, stop, row / 10 % 4, row % 3, row}));
    }
    return items;
}

void read(benchmark::State& state, const QString& text) {
    for ([[maybe_unused]] auto _ : state) {
        VexaBatchStripeData list(nullptr);
        list.addItems(itemsOfRows(readRows(text, {}), list));
        if (list.numItems() != static_cast<std::uint64_t>(state.range(0)))
            state.SkipWithError("a row was refused");
    }
}

void readDelimited(benchmark::State& state) { read(state, delimitedText(itemsOf(state), u'\t')); }

void readEdits(benchmark::State& state) {
    QString text = u"FCM: DROP FRAME\n"_s;
    for (std::int64_t row = 0; row < state.range(0); ++row)
        text += u"%1  TAPE%2  V  C  01:00:04:05 01:00:05:12 00:00:00:00 00:00:01:07\n"
                "* FROM CLIP NAME: Part %1\n"_s.arg(row, 6, 10, QChar(u'0'))
                    .arg(row / 10);
    read(state, text);
}

void write(benchmark::State& state) {
    const auto items = itemsOf(state);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(delimitedText(items, u','));
}

void check(benchmark::State& state) {
    const auto items = itemsOf(state);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(checkList(items, 60));
}

void checkOutOfOrder(benchmark::State& state) {
    auto items = itemsOf(state);
    std::ranges::shuffle(items, std::mt19937(1));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(checkList(items, 60));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(readDelimited)->Apply(sizes);
BENCHMARK(readEdits)->Apply(sizes);
BENCHMARK(write)->Apply(sizes);
BENCHMARK(check)->Apply(sizes);
BENCHMARK(checkOutOfOrder)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
