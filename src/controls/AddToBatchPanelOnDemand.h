#pragma once

#include "controls/AddToBatchPanel.h"

#include <optional>

namespace vexa {

/// The add panel, built on first use so that it does not delay the launch.
class AddToBatchPanelOnDemand final : public AddToPanel {
public:
    explicit AddToBatchPanelOnDemand(QWidget& window) : m_window(window) {}

    void setReel(std::uint64_t reel) override { panel().setReel(reel); }
    std::uint64_t reel() const override { return m_panel->reel(); }
    QString title() const override { return m_panel->title(); }
    void setTitlePlaceholder(const QString& text) override { panel().setTitlePlaceholder(text); }
    int runModal() override { return panel().runModal(); }

private:
    AddToBatchPanel& panel() {
        if (!m_panel)
            m_panel.emplace(&m_window);
        return *m_panel;
    }

    QWidget& m_window;
    std::optional<AddToBatchPanel> m_panel;
};

} // namespace vexa
