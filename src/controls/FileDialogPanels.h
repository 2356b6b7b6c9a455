#pragma once

#include "engine/outlets.h"

class QWidget;

namespace vexa {

/// The desktop's file dialogs, for batch list files only.
class FileDialogPanels final : public FilePanels {
public:
    explicit FileDialogPanels(QWidget& window) : m_window(window) {}
    std::optional<QString> runOpenPanel() override;
    std::optional<QString> runSavePanel(const QString& name) override;

private:
    QWidget& m_window;
};

} // namespace vexa
