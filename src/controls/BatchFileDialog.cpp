#include "controls/BatchFileDialog.h"

#include "controls/plain_text.h"

#include <QDir>
#include <QFileInfo>

#include <climits>

namespace vexa {

namespace {

const QString suffix = QStringLiteral(".vexaB");

bool hasSuffix(const QString& path) { return path.endsWith(suffix, Qt::CaseInsensitive); }

/// Why the file cannot be opened; null if it can.
QString refusalToOpen(const QFileInfo& file) {
    if (!file.exists())
        return QFileDialog::tr("There is no file “%1”.").arg(file.fileName());
    if (!hasSuffix(file.fileName()))
        return QFileDialog::tr("“%1” is not a batch list: their names end in %2.")
            .arg(file.fileName(), suffix);
    return {};
}

/// Why the file cannot be saved; null if it can.
QString refusalToSave(const QFileInfo& file) {
    if (!file.dir().exists())
        return QFileDialog::tr("There is no folder “%1”.").arg(file.path());
    if (file.isDir())
        return QFileDialog::tr("“%1” is a folder.").arg(file.fileName());
    if (QFile::encodeName(file.fileName()).size() > NAME_MAX ||
        QFile::encodeName(file.filePath()).size() >= PATH_MAX)
        return QFileDialog::tr("The name is too long.");
    return {};
}

} // namespace

BatchFileDialog::BatchFileDialog(AcceptMode mode, const QString& title, QWidget* parent)
    : PlainFileDialog(parent, title) {
    setAcceptMode(mode);
    setFileMode(mode == AcceptOpen ? ExistingFile : AnyFile);
    setNameFilter(tr("Batch lists (*%1)").arg(suffix));
    setOption(DontConfirmOverwrite); // it would check the name as typed
}

std::optional<QString> BatchFileDialog::ask() {
    while (exec() == Accepted)
        // The desktop's own dialog has already closed when the choice could be refused.
        if (!isOfDesktop() || mayTakeChosenFile())
            return chosenFile();
    return {};
}

void BatchFileDialog::accept() {
    const auto typed = selectedFiles();
    const bool entersFolder = !typed.isEmpty() && QFileInfo(typed.constFirst()).isDir();
    if (isOfDesktop() || typed.isEmpty() || entersFolder || mayTakeChosenFile())
        QFileDialog::accept();
}

QString BatchFileDialog::chosenFile() const {
    const auto chosen = selectedFiles().constFirst();
    // The dialog's default suffix is no substitute: it is not added to names that contain a full
    // stop.
    return acceptMode() == AcceptOpen || hasSuffix(chosen) ? chosen : chosen + suffix;
}

bool BatchFileDialog::mayTakeChosenFile() {
    const QFileInfo file(chosenFile());
    const auto refusal = acceptMode() == AcceptOpen ? refusalToOpen(file) : refusalToSave(file);
    if (!refusal.isEmpty()) {
        showMessage(refusal, QMessageBox::Ok);
        return false;
    }
    if (acceptMode() == AcceptOpen || !file.exists())
        return true;
    const auto question = tr("%1 already exists.\nDo you want to replace it?").arg(file.fileName());
    if (showMessage(question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
        return true;
    selectFile(file.filePath());
    return false;
}

int BatchFileDialog::showMessage(const QString& text, QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::Warning, windowTitle(), {}, buttons,
                    isOfDesktop() ? parentWidget() : this);
    box.setDefaultButton(buttons & QMessageBox::No ? QMessageBox::No : QMessageBox::Ok);
    setPlainText(box, text);
    return box.exec();
}

} // namespace vexa
