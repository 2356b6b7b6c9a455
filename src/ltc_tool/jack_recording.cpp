#include "ltc_tool/jack_recording.h"

#include "jack_server/opened_on_jack.h"
#include "ltc_tool/interruption.h"
#include "ltc_tool/output.h"
#include "tape/tape_error.h"
#include "tape/tape_reader.h"

#include <jack/jack.h>
#include <jack/ringbuffer.h>

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace vexa::ltc_tool {

namespace {

using namespace std::chrono_literals;

/// An input that passes samples from JACK's thread to ours. Neither waits for the other.
class JackInput {
public:
    explicit JackInput(jack_client_t* client)
        : m_port(jack_port_register(client, "LTC", JACK_DEFAULT_AUDIO_TYPE,
                                    JackPortIsInput | JackPortIsTerminal, 0)),
          m_client(client) {
        constexpr std::size_t seconds = 10;
        m_samples.reset(jack_ringbuffer_create(seconds * sampleRate() * sizeof(float)));
        jack_on_shutdown(client, [](void* self) { of(self).m_isGone = true; }, this);
        jack_set_process_callback(client, process, this);
    }

    ~JackInput() { m_client.reset(); }
    JackInput(const JackInput&) = delete;
    JackInput& operator=(const JackInput&) = delete;

    /// Lets the server call process(). Returns false on failure.
    bool activate() { return m_port && m_samples && jack_activate(m_client.get()) == 0; }

    std::uint32_t sampleRate() const { return jack_get_sample_rate(m_client.get()); }
    std::string name() const { return jack_port_name(m_port); }
    bool isGone() const { return m_isGone; }
    bool hasLost() const { return m_hasLost; }

    void connect(const std::string& source) {
        if (jack_connect(m_client.get(), source.c_str(), jack_port_name(m_port)) != 0)
            throw TapeError("there is no sound output \"" + source + "\" on the JACK server");
    }

    /// The samples that have arrived, as far as they fit.
    std::span<const float> read(std::span<float> room) {
        const auto bytes = jack_ringbuffer_read(
            m_samples.get(), reinterpret_cast<char*>(room.data()), room.size_bytes());
        return room.first(bytes / sizeof(float));
    }

private:
    static JackInput& of(void* self) { return *static_cast<JackInput*>(self); }

    static int process(jack_nframes_t samples, void* self) {
        auto& input = of(self);
        const auto* const from =
            static_cast<const char*>(jack_port_get_buffer(input.m_port, samples));
        const auto bytes = samples * sizeof(float);
        if (jack_ringbuffer_write_space(input.m_samples.get()) < bytes)
            input.m_hasLost = true;
        else
            jack_ringbuffer_write(input.m_samples.get(), from, bytes);
        return 0;
    }

    struct Close {
        void operator()(jack_client_t* client) const { jack_client_close(client); }
        void operator()(jack_ringbuffer_t* buffer) const { jack_ringbuffer_free(buffer); }
    };

    std::atomic<bool> m_isGone = false;
    std::atomic<bool> m_hasLost = false;
    std::unique_ptr<jack_ringbuffer_t, Close> m_samples;
    jack_port_t* m_port;
    std::unique_ptr<jack_client_t, Close> m_client;
};

std::unique_ptr<JackInput> openInput() {
    bool hasServer = false;
    auto opened = openedOnJack("vexa-ltc", [&](jack_client_t* client) {
        hasServer = true;
        auto input = std::make_unique<JackInput>(client);
        return input->activate() ? std::move(input) : nullptr;
    });
    if (!opened)
        throw TapeError(hasServer ? "the JACK server does not take another input"
                                  : "no JACK server answers");
    return opened;
}

} // namespace

TapeContents listenToJack(const std::string& source) {
    const auto input = openInput();
    if (!source.empty())
        input->connect(source);
    TapeContents contents;
    contents.name = input->name();
    contents.sampleRate = input->sampleRate();
    ChannelReader reader(contents.sampleRate);
    complain("listening at " + contents.name + "; interrupt to end");
    std::array<float, 4096> room;
    while (true) {
        const auto block = input->read(room);
        if (block.empty()) {
            if (wasInterrupted() || input->isGone())
                break;
            std::this_thread::sleep_for(20ms); // JACK's thread must not wake us: that could block
            continue;
        }
        reader.read(block, 1);
        contents.length += block.size();
        showProgress(reader.lastTime() ? timecodeText(*reader.lastTime()) : "no timecode yet");
    }
    showProgress({});
    reader.finish();
    contents.stretches = reader.stretches();
    contents.stretchesBeyond = reader.stretchesBeyond();
    if (input->isGone())
        contents.readError = "the JACK server has ended";
    else if (input->hasLost())
        contents.readError = "sound came faster than it could be read";
    return contents;
}

} // namespace vexa::ltc_tool
