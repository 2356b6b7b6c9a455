#include "controls/FileDialogPanels.h"

#include <QFileDialog>

namespace vexa {

namespace {

std::optional<QString> run(QFileDialog& dialog) {
    dialog.setNameFilter(QFileDialog::tr("Batch lists (*.vexaB)"));
    dialog.setDefaultSuffix(QStringLiteral("vexaB"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

} // namespace

std::optional<QString> FileDialogPanels::runOpenPanel() {
    QFileDialog dialog(&m_window, QFileDialog::tr("Open Batch List"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog);
}

std::optional<QString> FileDialogPanels::runSavePanel(const QString& name) {
    QFileDialog dialog(&m_window, QFileDialog::tr("Save Batch List"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(name);
    return run(dialog);
}

} // namespace vexa
