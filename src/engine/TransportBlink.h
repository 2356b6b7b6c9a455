#pragma once

#include "stripe/RunLoop.h"

#include <memory>

namespace vexa {

class RadioMatrix;

/// Shows the pause between two items: the pause and the play cell of the transport take turns.
class TransportBlink {
public:
    /// Both must outlive this.
    TransportBlink(RunLoop& runLoop, RadioMatrix& transport)
        : m_runLoop(runLoop), m_transport(transport) {}

    /// Begins, with the pause cell, in half a second.
    void start();
    /// Ends, with the play cell.
    void stop();
    /// Ends and leaves the cells as they are.
    void cancel() { m_timer.reset(); }

private:
    void blink();

    RunLoop& m_runLoop;
    RadioMatrix& m_transport;
    std::unique_ptr<RunLoopTimer> m_timer;
    bool m_blinkState = false; ///< the pause cell shows
};

} // namespace vexa
