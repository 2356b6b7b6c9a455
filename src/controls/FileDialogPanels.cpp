#include "controls/FileDialogPanels.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace vexa {

namespace {

const QString suffix = QStringLiteral(".vexaB");

std::optional<QString> run(QFileDialog& dialog) {
    dialog.setNameFilter(QFileDialog::tr("Batch lists (*%1)").arg(suffix));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

/// As the dialog asks for the names that it sees.
bool mayReplace(QWidget& window, const QString& path) {
    const auto question = QFileDialog::tr("%1 already exists.\nDo you want to replace it?")
                              .arg(QFileInfo(path).fileName());
    return QMessageBox::warning(&window, QFileDialog::tr("Save Batch List"), question,
                                QMessageBox::Yes | QMessageBox::No,
                                QMessageBox::No) == QMessageBox::Yes;
}

} // namespace

std::optional<QString> FileDialogPanels::runOpenPanel() {
    QFileDialog dialog(&m_window, QFileDialog::tr("Open Batch List"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog);
}

std::optional<QString> FileDialogPanels::runSavePanel(const QString& name) {
    auto proposed = name;
    while (true) {
        QFileDialog dialog(&m_window, QFileDialog::tr("Save Batch List"));
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.selectFile(proposed); // with its extension, which is never hidden here
        const auto chosen = run(dialog);
        if (!chosen || chosen->endsWith(suffix, Qt::CaseInsensitive))
            return chosen;
        // Not the dialog's default suffix: that is not added to names with a full stop in them.
        proposed = *chosen + suffix;
        if (!QFileInfo::exists(proposed) || mayReplace(m_window, proposed))
            return proposed;
    }
}

} // namespace vexa
