#include "engine/TransportBlink.h"

#include "engine/outlets.h"
#include "stripe/transport_state.h"

namespace vexa {

void TransportBlink::start() {
    constexpr RunLoop::Seconds interval{0.5};
    m_timer = m_runLoop.scheduleTimer(interval, true, [this] { blink(); });
    m_blinkState = false;
}

void TransportBlink::stop() {
    cancel();
    m_transport.selectCellWithTag(transport::playing);
}

void TransportBlink::blink() {
    m_transport.selectCellWithTag(m_blinkState ? transport::playing : transport::paused);
    m_blinkState = !m_blinkState;
}

} // namespace vexa
