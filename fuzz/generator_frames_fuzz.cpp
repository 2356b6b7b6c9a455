#include "generator/frame.h"
#include "generator/generator_state.h"
#include "generator/sysex_reader.h"
#include "midi/device_messages.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace vexa;

void expect(bool holds) {
    if (!holds)
        std::abort();
}

/// A setup that is accepted was sent as exactly those bytes, but for FSK, which names no rate.
void checkSetup(const SetupFrame& setup, const SysEx& message) {
    const auto sent = setupMessage(pack(setup.time), setup.mode.rate.value_or(0), setup.mode.sync);
    expect(message.complete && message.size == sent.size());
    for (std::size_t i = 0; i < sent.size(); ++i)
        expect(message.bytes[i] == sent[i]);
    expect(isValid(setup.time, frameRateForCode(setup.mode.rate.value_or(rate::fps30))));
}

} // namespace

/// Whatever bytes come over the cable, the generator goes on, and counts valid times only.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    SysExReader reader;
    GeneratorState state;
    Moment moment;
    const auto take = [&](const SysEx& message) {
        expect(message.size > 0 && message.bytes[0] == 0xF0 && !hexText(message).empty());
        const auto frame = decodedFrame(message);
        if (const auto* setup = std::get_if<SetupFrame>(&frame))
            checkSetup(*setup, message);
        expect(!state.take(frame, moment).empty());
        expect(!state.status(moment).empty());
    };
    for (std::size_t i = 0; i < size; ++i) {
        moment += std::chrono::milliseconds(bytes[i]);
        if (const auto message = reader.take(bytes[i]))
            take(*message);
    }
    if (const auto message = reader.finish())
        take(*message);
    return 0;
}
