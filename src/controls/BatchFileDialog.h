#pragma once

#include "controls/PlainFileDialog.h"

#include <QMessageBox>

#include <optional>

namespace vexa {

/// The desktop's dialog for a batch list file. It stays open, and says why, where there can be no
/// such file or its name is not that of a batch list.
class BatchFileDialog final : public PlainFileDialog {
public:
    BatchFileDialog(AcceptMode mode, const QString& title, QWidget* parent);

    /// Returns when the operator has chosen a file or cancelled, which gives nothing. A file to
    /// save to has the extension of batch lists; one that exists may be replaced.
    std::optional<QString> ask();

protected:
    void accept() override;

private:
    bool isOfDesktop() const { return testAttribute(Qt::WA_DontShowOnScreen); }
    QString chosenFile() const;
    bool mayTakeChosenFile();
    int showMessage(const QString& text, QMessageBox::StandardButtons buttons);
};

} // namespace vexa
