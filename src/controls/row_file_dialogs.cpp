#include "controls/row_file_dialogs.h"

#include "controls/PlainFileDialog.h"

namespace vexa {

QString askForFile(QWidget& window, const fileDialogs::Kind& kind, const QString& name) {
    PlainFileDialog dialog(&window, QFileDialog::tr(kind.title), {}, QFileDialog::tr(kind.filter));
    dialog.setFileMode(kind.suffix ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (kind.suffix) {
        const auto suffix = QLatin1String(kind.suffix);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setDefaultSuffix(suffix);
        dialog.selectFile(name + u'.' + suffix);
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace vexa
