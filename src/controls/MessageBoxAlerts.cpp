#include "controls/MessageBoxAlerts.h"

#include "controls/AlertBox.h"

namespace vexa {

int MessageBoxAlerts::runModal(const Alert& alert) {
    return AlertBox(alert, m_window, m_reactionTime).run();
}

} // namespace vexa
