#pragma once

#include "engine/outlets.h"

class QWidget;

namespace vexa {

/// Alerts in a message box over a window.
class MessageBoxAlerts final : public Alerts {
public:
    explicit MessageBoxAlerts(QWidget& window) : m_window(window) {}
    int runModal(const Alert& alert) override;

private:
    QWidget& m_window;
};

} // namespace vexa
