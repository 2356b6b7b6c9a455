#include "controls/FileDialogPanels.h"

#include "controls/BatchFileDialog.h"

namespace vexa {

std::optional<QString> FileDialogPanels::runOpenPanel() {
    return BatchFileDialog(QFileDialog::AcceptOpen, QFileDialog::tr("Open Batch List"), &m_window)
        .ask();
}

std::optional<QString> FileDialogPanels::runSavePanel(const QString& name) {
    BatchFileDialog dialog(QFileDialog::AcceptSave, QFileDialog::tr("Save Batch List"), &m_window);
    dialog.selectFile(name); // with its extension, which is never hidden here
    return dialog.ask();
}

} // namespace vexa
