#include "tape/tape_check.h"
#include "tape/tape_error.h"
#include "tape/tape_reader.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

using namespace vexa;

void expect(bool holds) {
    if (!holds)
        std::abort();
}

/// What is told of a stretch must hold, whatever the tape.
void checkContents(const TapeContents& tape) {
    for (const auto& stretch : tape.stretches) {
        expect(stretch.rate && isValid(stretch.first, *stretch.rate));
        expect(isValid(stretch.last, *stretch.rate));
        expect(stretch.frames >= 1 && stretch.unread < stretch.frames);
        expect(stretch.begin < stretch.end && stretch.speed > -1);
        expect(stretch.holes.size() <= Stretch::mostHoles);
    }
    for (const auto& fault : faultsOf(std::span(&tape, 1), 0.0005))
        expect(!text(fault).empty());
    TapeRow row;
    row.stop = {1, 0, 0, 0};
    const auto verdict = compare(std::span(&row, 1), std::span(&tape, 1), 0.0005);
    for (const auto& fault : verdict.rows.front().faults)
        expect(!text(fault).empty());
}

/// The bytes as a file with headers.
void readFile(std::span<const std::uint8_t> bytes) {
    const int file = memfd_create("recording", MFD_CLOEXEC);
    expect(file >= 0 &&
           write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    try {
        Recording recording("/proc/self/fd/" + std::to_string(file));
        checkContents(contentsOf(recording, {}, [](double) {}));
    } catch (const TapeError& error) {
        expect(*error.what() != '\0');
    }
    close(file);
}

/// The bytes as floats of any value, or each as a run of samples of one height, which makes edges.
void readSamples(std::span<const std::uint8_t> bytes, bool areFloats) {
    std::vector<float> samples;
    if (areFloats) {
        samples.resize(bytes.size() / sizeof(float));
        if (!samples.empty())
            std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
    } else {
        for (const auto byte : bytes)
            samples.insert(samples.end(), byte & 0x3FU, byte & 0x80U ? 0.5F : -0.5F);
    }
    ChannelReader reader(48000);
    reader.read(samples, 1);
    reader.finish();
    TapeContents tape;
    tape.stretches = reader.stretches();
    checkContents(tape);
}

} // namespace

/// Whatever stands in a recording, the reader goes on, and tells of valid timecode only.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0)
        return 0;
    const std::span rest(bytes + 1, size - 1);
    switch (bytes[0] % 3) {
    case 0:
        readFile(rest);
        break;
    default:
        readSamples(rest, bytes[0] % 3 == 1);
    }
    return 0;
}
