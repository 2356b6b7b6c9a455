#include "app/command_line.h"

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
    const bool stripes = line.mode == CommandLine::Mode::Stripe;
    expect(!stripes || line.start || !line.file.isNull());
    expect(line.rows.empty() || (stripes && !line.file.isNull()));
    expect(!line.start || !line.stop || pack(*line.start) < pack(*line.stop));
    expect(!line.rate || *line.rate < rate::count);
    if (!line.destination)
        return;
    const std::vector<std::string> names{"Timecode Box MIDI 1", "Timecode Box MIDI 2", "", "Midi"};
    const auto found = destinationNamed(*line.destination, names);
    if (const auto* position = std::get_if<std::int64_t>(&found))
        expect(*position >= 0 && *position < static_cast<std::int64_t>(names.size()));
    else
        expect(!std::get<CommandLineError>(found).message.isEmpty());
}

} // namespace

/// Arguments, a zero byte between two: taken or refused with a message.
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
