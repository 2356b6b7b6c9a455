#include "generator/frame.h"
#include "generator/generator.h"
#include "generator/sysex_reader.h"
#include "midi/device_messages.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace vexa;

void expect(bool holds) {
    if (!holds)
        std::abort();
}

/// An accepted setup has exactly the bytes that we send for it. FSK setups carry no rate.
void checkSetup(const SetupFrame& setup, const SysEx& message) {
    const auto sent = setupMessage(pack(setup.time), setup.mode.rate.value_or(0), setup.mode.sync);
    expect(message.complete && message.size == sent.size());
    for (std::size_t i = 0; i < sent.size(); ++i)
        expect(message.bytes[i] == sent[i]);
    expect(isValid(setup.time, frameRateForCode(setup.mode.rate.value_or(rate::fps30))));
}

} // namespace

namespace {

/// Expects all output to be MIDI time code in order of time.
class Receiver : public MidiWriter {
public:
    void write(std::uint64_t samples, std::span<const std::uint8_t> message) override {
        expect(samples >= m_last);
        m_last = samples;
        expect(message.size() == (message[0] == 0xF0 ? 10 : 2));
        expect(message[0] == 0xF0 || message[0] == 0xF1);
    }

    void beginPeriod() { m_last = 0; }

private:
    std::uint64_t m_last = 0;
};

} // namespace

/// Whatever bytes arrive, the generator continues and counts only valid times.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const Generator idle(8000, -18);
    auto generator = idle;
    SysExReader reader;
    Receiver receiver;
    std::array<float, 64> period{};
    const auto take = [&](const SysEx& message) {
        expect(message.size > 0 && message.bytes[0] == 0xF0 && !hexText(message).empty());
        const auto frame = decodedFrame(message);
        if (const auto* setup = std::get_if<SetupFrame>(&frame))
            checkSetup(*setup, message);
        receiver.beginPeriod();
        const auto report = generator.take(message, receiver);
        expect(!reportText(report).empty());
        expect(!statusText(report.state, {generator.time(), -18, 0}).empty());
    };
    for (std::size_t i = 0; i < size; ++i) {
        if (const auto message = reader.take(bytes[i]))
            take(*message);
        receiver.beginPeriod();
        generator.render(std::span(period).first(bytes[i] % period.size()), receiver);
        for (const auto sample : period)
            expect(sample >= -0.126F && sample <= 0.126F);
    }
    if (const auto message = reader.finish())
        take(*message);
    return 0;
}
