#include "batch/VexaBatchStripeData.h"
#include "document/list_file.h"

#include <QString>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

/// Ten items per reel, in the list's order.
BatchItemRef item(std::uint64_t row) {
    return std::make_shared<BatchItem>(BatchItem{row / 10, u"Reel %1 of the archive"_s.arg(row, 6),
                                                 0x01000000 + row % 10, 0x02000000, row % 4,
                                                 row % 3, row});
}

BatchItems itemsOf(const benchmark::State& state) {
    BatchItems items;
    for (std::uint64_t row = 0; row < static_cast<std::uint64_t>(state.range(0)); ++row)
        items.push_back(item(row));
    return items;
}

RowIndexes everyOtherRow(const VexaBatchStripeData& list) {
    RowIndexes rows;
    for (std::size_t row = 0; row < list.numItems(); row += 2)
        rows.insert(row);
    return rows;
}

void open(benchmark::State& state) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"list.vexaB"_s);
    writeListFile(path, itemsOf(state));
    for ([[maybe_unused]] auto _ : state) {
        VexaBatchStripeData list(nullptr);
        list.replaceBatchList(readListFile(path));
        benchmark::DoNotOptimize(list.numItems());
    }
}

void save(benchmark::State& state) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"list.vexaB"_s);
    const auto items = itemsOf(state);
    for ([[maybe_unused]] auto _ : state)
        if (!writeListFile(path, items))
            state.SkipWithError("the list could not be saved");
}

void addOne(benchmark::State& state) {
    VexaBatchStripeData list(nullptr);
    list.addItems(itemsOf(state));
    std::mt19937 random(1);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const auto added = item(random() % list.numItems());
        added->id = list.numItems();
        state.ResumeTiming();
        list.addItem(added);
        state.PauseTiming();
        list.removeItem(added);
        state.ResumeTiming();
    }
}

/// After an edited title, the first addition has to check the order.
void addOneAfterAnEdit(benchmark::State& state) {
    VexaBatchStripeData list(nullptr);
    list.addItems(itemsOf(state));
    const auto added = item(list.numItems() / 2);
    added->id = list.numItems();
    for ([[maybe_unused]] auto _ : state) {
        list.setObjectValue(u"edited"_s, item_key::title, 0);
        list.addItem(added);
        state.PauseTiming();
        list.removeItem(added);
        state.ResumeTiming();
    }
}

void deleteHalf(benchmark::State& state) {
    VexaBatchStripeData list(nullptr);
    list.addItems(itemsOf(state));
    const auto rows = everyOtherRow(list);
    for ([[maybe_unused]] auto _ : state) {
        auto deleted = list.deleteIndexedItems(rows);
        state.PauseTiming();
        list.addItems(std::move(deleted));
        state.ResumeTiming();
    }
}

void putHalfBack(benchmark::State& state) {
    VexaBatchStripeData list(nullptr);
    list.addItems(itemsOf(state));
    const auto rows = everyOtherRow(list);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto deleted = list.deleteIndexedItems(rows);
        state.ResumeTiming();
        list.addItems(std::move(deleted));
    }
}

/// Reports the heap used by an opened list, per item; the time is meaningless.
void memory(benchmark::State& state) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"list.vexaB"_s);
    writeListFile(path, itemsOf(state));
    const auto inUse = [] {
        const auto heap = mallinfo2();
        return static_cast<double>(heap.uordblks + heap.hblkhd);
    };
    for ([[maybe_unused]] auto _ : state) {
        const double before = inUse();
        VexaBatchStripeData list(nullptr);
        list.replaceBatchList(readListFile(path));
        state.counters["bytesAnItem"] = (inUse() - before) / static_cast<double>(list.numItems());
    }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(open)->Apply(sizes);
BENCHMARK(save)->Apply(sizes);
BENCHMARK(addOne)->Apply(sizes);
BENCHMARK(addOneAfterAnEdit)->Apply(sizes);
BENCHMARK(deleteHalf)->Apply(sizes);
BENCHMARK(putHalfBack)->Apply(sizes);
BENCHMARK(memory)->Apply(sizes)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
