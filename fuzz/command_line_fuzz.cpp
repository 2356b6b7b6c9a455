#include "app/command_line.h"
#include "app/destination_choice.h"
#include "support/FakeMidiSystem.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace vexa;

void expect(bool holds) {
    if (!holds)
        std::abort();
}

void check(const CommandLine& line) {
    const bool stripes = line.mode == CommandLine::Mode::stripe;
    expect(!stripes || line.start || !line.file.isNull());
    expect(line.rows.empty() || (stripes && !line.file.isNull()));
    expect(!line.start || !line.stop || pack(*line.start) < pack(*line.stop));
    expect(!line.rate || *line.rate < rate::count);
    if (!line.destination)
        return;
    test::FakeMidiSystem system;
    MidiUniqueId id = -1608722274;
    for (const auto* name : {"Timecode Box MIDI 1", "Timecode Box MIDI 2", "", "Midi"})
        system.addDestination(name, ++id);
    const auto found = destinationNamed(*line.destination, system);
    if (const auto* position = std::get_if<std::int64_t>(&found))
        expect(*position >= 0 && *position < 4);
    else
        expect(!std::get<CommandLineError>(found).message.isEmpty());
}

} // namespace

/// Arguments, separated by zero bytes. They are accepted, or refused with a message.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto text =
        QString::fromUtf8(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    const auto parsed = parseCommandLine(text.split(QChar(u'\0')));
    if (const auto* line = std::get_if<CommandLine>(&parsed))
        check(*line);
    else
        expect(!std::get<CommandLineError>(parsed).message.isEmpty());
    return 0;
}
