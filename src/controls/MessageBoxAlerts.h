#pragma once

#include "engine/outlets.h"

#include <chrono>

class QWidget;

namespace vexa {

/// Alerts in a message box over a window.
class MessageBoxAlerts final : public Alerts {
public:
    static constexpr std::chrono::milliseconds usualReactionTime{600};

    explicit MessageBoxAlerts(QWidget& window,
                              std::chrono::milliseconds reactionTime = usualReactionTime)
        : m_window(window), m_reactionTime(reactionTime) {}
    int runModal(const Alert& alert) override;

private:
    QWidget& m_window;
    std::chrono::milliseconds m_reactionTime;
};

} // namespace vexa
