#include "property_list/property_list_reader.h"
#include "property_list/property_list_xml_writer.h"

#include <QString>
#include <benchmark/benchmark.h>

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <type_traits>
#include <utility>

using namespace vexa;

namespace {

using Bytes = std::unique_ptr<char, decltype(&std::free)>;
using Node = std::unique_ptr<std::remove_pointer_t<plist_t>, decltype(&plist_free)>;

PropertyList listOf(std::uint64_t count) {
    PropertyList::Array items;
    for (std::uint64_t i = 0; i < count; ++i) {
        const auto title = QStringLiteral("Reel %1 of the archive").arg(i, 6);
        PropertyList::Dictionary item;
        item.set(QStringLiteral("vexaid"), PropertyList(i));
        item.set(QStringLiteral("vexarate"), PropertyList(i % 4));
        item.set(QStringLiteral("vexareel"), PropertyList(i / 10));
        item.set(QStringLiteral("vexastart"), PropertyList(0x01000000 + i));
        item.set(QStringLiteral("vexastop"), PropertyList(0x02000000 + i));
        item.set(QStringLiteral("vexatitle"), PropertyList(title));
        item.set(QStringLiteral("vexatype"), PropertyList(i % 3));
        items.emplace_back(std::move(item));
    }
    PropertyList::Dictionary root;
    root.set(QStringLiteral("vexabatchlist"), PropertyList(std::move(items)));
    return PropertyList(std::move(root));
}

Node libplistNode(const QByteArray& file) {
    plist_t node = nullptr;
    const auto size = static_cast<std::uint32_t>(file.size());
    // plist_from_memory() detects the form itself, but takes one more argument since 2.3.
    const auto read = plist_is_binary(file.data(), size) ? plist_from_bin : plist_from_xml;
    read(file.data(), size, &node);
    if (!node)
        throw std::runtime_error("libplist does not read what was written");
    return {node, plist_free};
}

/// One list in every form, created once for all measurements.
struct Sample {
    explicit Sample(std::uint64_t count) : value(listOf(count)), xml(xmlPropertyList(value)) {
        char* bytes = nullptr;
        std::uint32_t size = 0;
        plist_to_bin(libplistNode(xml).get(), &bytes, &size);
        const Bytes owner(bytes, std::free);
        binary = QByteArray(bytes, static_cast<qsizetype>(size));
        if (readPropertyList(binary) != value)
            throw std::runtime_error("the two forms do not agree");
    }

    PropertyList value;
    QByteArray xml;
    QByteArray binary;
};

const Sample& sample(const benchmark::State& state) {
    static std::map<std::int64_t, Sample> samples;
    const auto count = state.range(0);
    return samples.try_emplace(count, static_cast<std::uint64_t>(count)).first->second;
}

void readWithVexa(benchmark::State& state, QByteArray Sample::* form) {
    const auto& file = sample(state).*form;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(readPropertyList(file));
    state.SetBytesProcessed(state.iterations() * file.size());
}

void readWithLibplist(benchmark::State& state, QByteArray Sample::* form) {
    const auto& file = sample(state).*form;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(libplistNode(file));
    state.SetBytesProcessed(state.iterations() * file.size());
}

void writeWithVexa(benchmark::State& state) {
    const auto& value = sample(state).value;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(xmlPropertyList(value));
    state.SetBytesProcessed(state.iterations() * sample(state).xml.size());
}

void writeWithLibplist(benchmark::State& state) {
    const auto node = libplistNode(sample(state).xml);
    for ([[maybe_unused]] auto _ : state) {
        char* bytes = nullptr;
        std::uint32_t size = 0;
        plist_to_xml(node.get(), &bytes, &size);
        benchmark::DoNotOptimize(Bytes(bytes, std::free));
    }
    state.SetBytesProcessed(state.iterations() * sample(state).xml.size());
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(100)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(readWithVexa, xml, &Sample::xml)->Apply(sizes);
BENCHMARK_CAPTURE(readWithLibplist, xml, &Sample::xml)->Apply(sizes);
BENCHMARK_CAPTURE(readWithVexa, binary, &Sample::binary)->Apply(sizes);
BENCHMARK_CAPTURE(readWithLibplist, binary, &Sample::binary)->Apply(sizes);
BENCHMARK(writeWithVexa)->Apply(sizes);
BENCHMARK(writeWithLibplist)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
