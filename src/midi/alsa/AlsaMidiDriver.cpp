#include "midi/alsa/AlsaMidiDriver.h"

#include "midi/alsa/card_identity.h"
#include "midi/port_list.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace vexa {

namespace {

using namespace std::chrono_literals;

void ignoreError(const char*, int, const char*, int, const char*, ...) {}

bool takesMessages(const snd_seq_port_info_t* port) {
    constexpr unsigned wanted = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
    const unsigned capabilities = snd_seq_port_info_get_capability(port);
    return (capabilities & wanted) == wanted && !(capabilities & SND_SEQ_PORT_CAP_NO_EXPORT);
}

MidiPort described(snd_seq_client_info_t* client, const snd_seq_port_info_t* info) {
    const std::string clientName = snd_seq_client_info_get_name(client);
    const std::string portName = snd_seq_port_info_get_name(info);
    const int number = snd_seq_port_info_get_port(info);
    const int card = snd_seq_client_info_get_card(client);
    const auto ownName = withoutLeadingName(portName, clientName);

    MidiPort port;
    port.address =
        std::to_string(snd_seq_port_info_get_client(info)) + ':' + std::to_string(number);
    // The kernel reuses addresses, but hardly ever for the same process.
    port.presence = std::to_string(snd_seq_client_info_get_pid(client)) + '@' + port.address;
    if (card < 0) {
        port.identity = "program:" + clientName + '/' + portName;
        port.name = portName == clientName ? portName : clientName + ' ' + ownName;
        port.whereabouts = "at " + port.address;
    } else {
        // A card's port number counts its raw MIDI devices and their subdevices in a fixed order.
        const auto identity = cardIdentity(card);
        const auto end = '/' + std::to_string(number);
        port.device = identity.exact;
        port.identity = identity.exact + end;
        if (!identity.inAnySocket.empty())
            port.identityInAnySocket = identity.inAnySocket + end;
        port.whereabouts = identity.whereabouts;
        port.deviceName = clientName;
        port.name = ownName;
    }
    return port;
}

/// Closing a port drains its device. That takes up to ten seconds if the device accepts no bytes.
template<typename Sequencer>
void closeInTheBackground(Sequencer sequencer) {
    if (sequencer)
        std::thread([closing = std::move(sequencer)]() mutable { closing.reset(); }).detach();
}

} // namespace

bool AlsaMidiDriver::isAvailable() { return open() != nullptr; }

AlsaMidiDriver::Sequencer AlsaMidiDriver::open() {
    snd_lib_error_set_handler(ignoreError);
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_OUTPUT, SND_SEQ_NONBLOCK) < 0)
        return {};
    snd_seq_set_client_name(sequencer, midiClientName);
    return Sequencer{sequencer};
}

std::vector<MidiPort> AlsaMidiDriver::ports() {
    if (!m_lister)
        m_lister = open();
    if (!m_lister)
        return {};
    std::vector<MidiPort> found;
    snd_seq_client_info_t* client = nullptr;
    snd_seq_port_info_t* port = nullptr;
    snd_seq_client_info_alloca(&client);
    snd_seq_port_info_alloca(&port);
    snd_seq_client_info_set_client(client, SND_SEQ_CLIENT_SYSTEM);
    while (snd_seq_query_next_client(m_lister.get(), client) >= 0) {
        snd_seq_port_info_set_client(port, snd_seq_client_info_get_client(client));
        snd_seq_port_info_set_port(port, -1);
        while (snd_seq_query_next_port(m_lister.get(), port) >= 0)
            if (takesMessages(port))
                found.push_back(described(client, port));
    }
    m_twins.number(found);
    putMidiThroughLast(found);
    return found;
}

bool AlsaMidiDriver::isLinked() const {
    if (!m_link.sequencer)
        return false;
    snd_seq_port_subscribe_t* subscription = nullptr;
    snd_seq_port_subscribe_alloca(&subscription);
    const snd_seq_addr_t sender{
        static_cast<unsigned char>(snd_seq_client_id(m_link.sequencer.get())),
        static_cast<unsigned char>(m_link.port)};
    snd_seq_port_subscribe_set_sender(subscription, &sender);
    snd_seq_port_subscribe_set_dest(subscription, &m_link.destination);
    return snd_seq_get_port_subscription(m_link.sequencer.get(), subscription) >= 0;
}

void AlsaMidiDriver::linkTo(std::string identity) {
    closeInTheBackground(std::move(m_link.sequencer));
    m_link = {};
    m_link.identity = std::move(identity);
    const auto listed = ports();
    const auto wanted = std::ranges::find(listed, m_link.identity, &MidiPort::identity);
    if (wanted == listed.end())
        return;
    auto sequencer = open();
    if (!sequencer ||
        snd_seq_parse_address(sequencer.get(), &m_link.destination, wanted->address.c_str()) < 0)
        return;
    m_link.port = snd_seq_create_simple_port(
        sequencer.get(), midiOutputPortName, SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_NO_EXPORT,
        SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
    if (snd_seq_connect_to(sequencer.get(), m_link.port, m_link.destination.client,
                           m_link.destination.port) >= 0)
        m_link.sequencer = std::move(sequencer);
}

bool AlsaMidiDriver::send(const std::string& identity, std::span<const std::uint8_t> message) {
    // Check first: the address may belong to another device by now. Without a subscription, a
    // hardware port loses the message.
    if (m_link.identity != identity || !isLinked())
        linkTo(identity);
    if (!m_link.sequencer)
        return false;

    auto bytes = std::vector(message.begin(), message.end());
    snd_seq_event_t event{};
    snd_seq_ev_set_source(&event, static_cast<unsigned char>(m_link.port));
    snd_seq_ev_set_dest(&event, m_link.destination.client, m_link.destination.port);
    snd_seq_ev_set_direct(&event);
    snd_seq_ev_set_sysex(&event, static_cast<unsigned>(bytes.size()), bytes.data());
    // A full receiver queue may still drain, but the kernel does not report when there is room.
    for (int attempt = 0; attempt < 500; ++attempt) {
        const int result = snd_seq_event_output_direct(m_link.sequencer.get(), &event);
        if (result != -EAGAIN && result != -ENOMEM)
            return result >= 0;
        std::this_thread::sleep_for(1ms);
    }
    return false;
}

bool AlsaMidiDriver::maintain() {
    if (!m_link.identity.empty() && !isLinked())
        linkTo(m_link.identity);
    return m_link.sequencer != nullptr;
}

} // namespace vexa
