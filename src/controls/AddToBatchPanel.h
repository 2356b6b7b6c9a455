#pragma once

#include "engine/outlets.h"

#include <QDialog>

#include <memory>

namespace Ui {
class AddToBatchPanel;
}

namespace vexa {

/// The panel for a new item's reel and title, modal to the whole application.
class AddToBatchPanel : public QDialog, public AddToPanel {
    Q_OBJECT

public:
    explicit AddToBatchPanel(QWidget* parent = nullptr);
    ~AddToBatchPanel() override;

    void setReel(std::uint64_t reel) override;
    std::uint64_t reel() const override;
    QString title() const override;
    void setTitlePlaceholder(const QString& text) override;
    int runModal() override;

    Q_SLOT void okAddToBatchPanel() { done(panelConfirmed); }
    Q_SLOT void cancelAddToBatchPanel() { done(panelCancelled); }

private:
    /// Rejects an invalid reel as it is typed.
    void checkReel();

    std::unique_ptr<Ui::AddToBatchPanel> m_ui;
};

} // namespace vexa
