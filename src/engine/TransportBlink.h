#pragma once

#include "stripe/RunLoop.h"

#include <memory>

namespace vexa {

class RadioMatrix;

/// Shows the pause between two items by lighting the pause and the play cell in turn.
class TransportBlink {
public:
    /// Both must outlive this.
    TransportBlink(RunLoop& runLoop, RadioMatrix& transport)
        : m_runLoop(runLoop), m_transport(transport) {}

    /// Starts with the pause cell, half a second from now.
    void start();
    /// Stops with the play cell lit.
    void stop();
    /// Stops and leaves the cells as they are.
    void cancel() { m_timer.reset(); }

private:
    void blink();

    RunLoop& m_runLoop;
    RadioMatrix& m_transport;
    std::unique_ptr<RunLoopTimer> m_timer;
    bool m_blinkState = false; ///< the pause cell is lit
};

} // namespace vexa
